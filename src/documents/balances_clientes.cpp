// The clients a set of invoices belongs to, each one's balance derived again.
#include <QSqlQuery>

#include "documents/mSaldos.h"
#include "documents/set_statements.h"

namespace ventarix::mSaldos {

Outcome RecalcularSaldoClientesDeFacturas(Connection& connection, const QStringList& facturas) {
  if (facturas.isEmpty()) return Outcome::Ok();  // an empty scope would mean every client
  QVariantList valores;
  QSqlQuery q = connection.Exec(
      QStringLiteral("select distinct cliente from facturas") +
          InClause(QStringLiteral(" where "), QStringLiteral("factura"), facturas, &valores),
      valores);
  if (!q.isActive()) return Outcome::Stop(QueryError(q));
  QList<qint32> clientes;
  while (q.next()) clientes << q.value(0).toInt();
  q.finish();
  for (const qint32 cliente : clientes) {
    if (cliente == 0) continue;  // 0 would mean every client
    if (Outcome o = RecalcularSaldoClientes(connection, cliente); !o) return o;
  }
  return Outcome::Ok();
}

}  // namespace ventarix::mSaldos
