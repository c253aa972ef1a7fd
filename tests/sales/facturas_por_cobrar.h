#pragma once

// Invoices written straight into the company for the receivables tests, as the invoice
// screen and earlier receipts would leave them: 'POR COBRAR', owing the total less what an
// earlier receipt "X-1" paid (more than the total leaves a negative balance not yet derived).
#include <QDate>

#include "support/document_rows.h"

namespace ventarix::testing {

struct FacturaDePrueba {
  QString factura;
  qint32 cliente;
  double total;
  QDate fecha;
  double pagado = 0;
};

// The clients (with their numbers and no balance) and the invoices, in one transaction.
inline bool InsertarFacturas(Connection& c, const QList<qint32>& clientes,
                             const QList<FacturaDePrueba>& facturas) {
  Transaction t(c);
  bool ok = true;
  for (const qint32 numero : clientes) {
    ok = ok && InsertarFila(c, QStringLiteral("clientes"),
                            {{QStringLiteral("numero"), numero},
                             {QStringLiteral("nombre"), QStringLiteral("CLIENTE %1").arg(numero)},
                             {QStringLiteral("status"), QStringLiteral("ALTA")}});
  }
  for (const FacturaDePrueba& f : facturas) {
    ok = ok && InsertarFila(c, QStringLiteral("facturas"),
                            {{QStringLiteral("factura"), f.factura},
                             {QStringLiteral("serie"), f.factura.section(u'-', 0, 0)},
                             {QStringLiteral("folio"), f.factura.section(u'-', 1).toInt()},
                             {QStringLiteral("cliente"), f.cliente},
                             {QStringLiteral("fecha"), f.fecha.startOfDay()},
                             {QStringLiteral("periodo"), f.fecha.year()},
                             {QStringLiteral("plazo"), 30},
                             {QStringLiteral("status"), QStringLiteral("POR COBRAR")},
                             {QStringLiteral("total"), f.total},
                             {QStringLiteral("abonos"), f.pagado},
                             {QStringLiteral("saldo"), f.total - f.pagado}});
    if (f.pagado != 0) {
      ok = ok && InsertarFila(c, QStringLiteral("cxc detalles"),
                              {{QStringLiteral("pago"), QStringLiteral("X-1")},
                               {QStringLiteral("factura"), f.factura},
                               {QStringLiteral("cliente"), f.cliente},
                               {QStringLiteral("abono"), f.pagado}});
    }
  }
  return ok && t.Commit();
}

}  // namespace ventarix::testing
