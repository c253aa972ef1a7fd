#pragma once

// Purchases written straight into the company for the payables tests, as the purchase screen
// would leave them: 'POR PAGAR', owing their total.
#include <QDate>

#include "support/document_rows.h"

namespace ventarix::testing {

struct CompraDePrueba {
  QString compra;
  qint32 proveedor;
  double total;
  QDate fecha;
};

// The suppliers (with their numbers and no balance) and the purchases, in one transaction.
inline bool InsertarCompras(Connection& c, const QList<qint32>& proveedores,
                            const QList<CompraDePrueba>& compras) {
  Transaction t(c);
  bool ok = true;
  for (const qint32 numero : proveedores) {
    ok = ok && InsertarFila(c, QStringLiteral("proveedores"),
                            {{QStringLiteral("numero"), numero},
                             {QStringLiteral("nombre"), QStringLiteral("PROVEEDOR %1").arg(numero)},
                             {QStringLiteral("status"), QStringLiteral("ALTA")}});
  }
  for (const CompraDePrueba& f : compras) {
    ok = ok && InsertarFila(c, QStringLiteral("compras"),
                            {{QStringLiteral("compra"), f.compra},
                             {QStringLiteral("serie"), f.compra.section(u'-', 0, 0)},
                             {QStringLiteral("folio"), f.compra.section(u'-', 1).toInt()},
                             {QStringLiteral("proveedor"), f.proveedor},
                             {QStringLiteral("factura"), QStringLiteral("F") + f.compra},
                             {QStringLiteral("remision"), QStringLiteral("R") + f.compra},
                             {QStringLiteral("fecha"), f.fecha.startOfDay()},
                             {QStringLiteral("periodo"), f.fecha.year()},
                             {QStringLiteral("plazo"), 30},
                             {QStringLiteral("movimiento"), QStringLiteral("GASTOS")},
                             {QStringLiteral("status"), QStringLiteral("POR PAGAR")},
                             {QStringLiteral("total"), f.total},
                             {QStringLiteral("saldo"), f.total}});
  }
  return ok && t.Commit();
}

}  // namespace ventarix::testing
