// The parties a set of documents belongs to, each one's balance derived again: the clients of
// invoices, the suppliers of purchases.
#include <QSqlQuery>

#include "documents/mSaldos.h"
#include "documents/set_statements.h"

namespace ventarix::mSaldos {

namespace {

Outcome SaldosDeLosSocios(Connection& connection, const QString& tabla, const QString& llave,
                          const QString& socio, Outcome (*recalcular)(Connection&, qint32),
                          const QStringList& documentos) {
  if (documentos.isEmpty()) return Outcome::Ok();  // an empty scope would mean every party
  QVariantList valores;
  QSqlQuery q =
      connection.Exec(QStringLiteral("select distinct %1 from %2").arg(socio, tabla) +
                          InClause(QStringLiteral(" where "), llave, documentos, &valores),
                      valores);
  if (!q.isActive()) return Outcome::Stop(QueryError(q));
  QList<qint32> socios;
  while (q.next()) socios << q.value(0).toInt();
  q.finish();
  for (const qint32 numero : socios) {
    if (numero == 0) continue;  // 0 would mean every party
    if (Outcome o = recalcular(connection, numero); !o) return o;
  }
  return Outcome::Ok();
}

}  // namespace

Outcome RecalcularSaldoClientesDeFacturas(Connection& connection, const QStringList& facturas) {
  return SaldosDeLosSocios(connection, QStringLiteral("facturas"), QStringLiteral("factura"),
                           QStringLiteral("cliente"), RecalcularSaldoClientes, facturas);
}

Outcome RecalcularSaldoProveedoresDeCompras(Connection& connection, const QStringList& compras) {
  return SaldosDeLosSocios(connection, QStringLiteral("compras"), QStringLiteral("compra"),
                           QStringLiteral("proveedor"), RecalcularSaldoProveedores, compras);
}

}  // namespace ventarix::mSaldos
