#pragma once

// Invoices written straight into the company for the receivables tests, as the invoice
// screen would leave them: 'POR COBRAR', the balance at the total.
#include <optional>

#include <QDate>

#include "support/document_rows.h"

namespace ventarix::testing {

struct FacturaDePrueba {
  QString factura;
  qint32 cliente;
  double total;
  QDate fecha;
  std::optional<double> saldo = {};  // none: the total
};

// The clients (with their numbers and no balance) and the invoices, in one transaction.
inline bool InsertarFacturas(Connection& c, const QList<qint32>& clientes,
                             const QList<FacturaDePrueba>& facturas) {
  Transaction t(c);
  for (const qint32 numero : clientes) {
    if (!InsertarFila(c, QStringLiteral("clientes"),
                      {{QStringLiteral("numero"), numero},
                       {QStringLiteral("nombre"), QStringLiteral("CLIENTE %1").arg(numero)},
                       {QStringLiteral("status"), QStringLiteral("ALTA")}})) {
      return false;
    }
  }
  for (const FacturaDePrueba& f : facturas) {
    const QStringList partes = f.factura.split(u'-');
    if (!InsertarFila(c, QStringLiteral("facturas"),
                      {{QStringLiteral("factura"), f.factura},
                       {QStringLiteral("serie"), partes.value(0)},
                       {QStringLiteral("folio"), partes.value(1).toInt()},
                       {QStringLiteral("cliente"), f.cliente},
                       {QStringLiteral("fecha"), f.fecha.startOfDay()},
                       {QStringLiteral("periodo"), f.fecha.year()},
                       {QStringLiteral("plazo"), 30},
                       {QStringLiteral("status"), QStringLiteral("POR COBRAR")},
                       {QStringLiteral("total"), f.total},
                       {QStringLiteral("saldo"), f.saldo.value_or(f.total)}})) {
      return false;
    }
  }
  return t.Commit();
}

}  // namespace ventarix::testing
