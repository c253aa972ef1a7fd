// Which delivery notes are invoiced, and how much of each order is still to deliver.
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "documents/mSaldos.h"
#include "documents/set_statements.h"

namespace ventarix::mSaldos {

namespace {

// What sets purchase orders apart from sales orders.
struct FulfilmentFamily {
  const char* header;      // the orders
  const char* rows;        // their rows, with cantidad and surtir
  const char* key;         // order key, also carried by the delivered rows
  const char* deliveries;  // rows that deliver against an order: receipts or delivery notes
};

constexpr FulfilmentFamily kOrdenes{"ordenes de compra", "ordenes de compra detalles", "orden",
                                    "compras detalles"};
constexpr FulfilmentFamily kPedidos{"pedidos", "pedidos detalles", "pedido", "remisiones detalles"};

QString N(const char* name) { return dialect::Name(QString::fromUtf8(name)); }

// What is still pending on each row: a correlated sum on PostgreSQL; on SQLite the quantity,
// then the deliveries taken off through a join.
std::vector<SetStatement> PendingQuantities(const FulfilmentFamily& f, const QStringList& claves,
                                            bool sql) {
  std::vector<SetStatement> out(sql ? 1 : 2);
  if (sql) {
    out[0].text =
        QStringLiteral(
            "update %1 as o set surtir = o.cantidad - (select coalesce(sum(d.cantidad),0) "
            "from %2 d where o.%3 = d.%3 and o.codigo = d.codigo) where 1=1")
            .arg(N(f.rows), N(f.deliveries), N(f.key));
    out[0].text += InClause(QStringLiteral(" and o."), N(f.key), claves, &out[0].values);
    return out;
  }
  out[0].text = QStringLiteral("update %1 as o set surtir = o.cantidad where 1=1").arg(N(f.rows));
  out[0].text += InClause(QStringLiteral(" and o."), N(f.key), claves, &out[0].values);
  out[1].text = QStringLiteral(
                    "update %1 as o set surtir = o.surtir - d.suma from (select %3 as clave, "
                    "codigo, sum(cantidad) as suma from %2")
                    .arg(N(f.rows), N(f.deliveries), N(f.key));
  out[1].text += InClause(QStringLiteral(" where "), N(f.key), claves, &out[1].values);
  out[1].text +=
      QStringLiteral(" group by %1, codigo) as d where o.%1 = d.clave and o.codigo = d.codigo")
          .arg(N(f.key));
  return out;
}

// The order of these three is the rule: any fulfilled row marks the order delivered, any
// pending row takes that back, and a pending order with any delivery is a backorder.
std::vector<SetStatement> OrderStatuses(const FulfilmentFamily& f, const QStringList& claves) {
  std::vector<SetStatement> out(3);
  const QString by_rows = QStringLiteral(
      "update %1 as p set status = '%3' from %2 o where p.%4 = o.%4 and o.surtir %5 and "
      "p.status <> 'BAJA'");
  out[0].text = by_rows.arg(N(f.header), N(f.rows), QStringLiteral("SURTIDO"), N(f.key),
                            QStringLiteral("<= 0"));
  out[1].text = by_rows.arg(N(f.header), N(f.rows), QStringLiteral("POR SURTIR"), N(f.key),
                            QStringLiteral("> 0"));
  out[2].text = QStringLiteral(
                    "update %1 as p set status = 'BACKORDER' from %2 o where p.%3 = o.%3 and "
                    "p.status = 'POR SURTIR'")
                    .arg(N(f.header), N(f.deliveries), N(f.key));
  // The scope stands on both sides of the join, so that the engine starts from the orders in
  // scope instead of walking every open order.
  for (SetStatement& s : out) {
    s.text += InClause(QStringLiteral(" and o."), N(f.key), claves, &s.values);
    s.text += InClause(QStringLiteral(" and p."), N(f.key), claves, &s.values);
  }
  return out;
}

Outcome RecomputeFulfilment(Connection& connection, const FulfilmentFamily& f,
                            const QStringList& claves) {
  YieldToScreen();
  std::vector<SetStatement> statements = PendingQuantities(f, claves, connection.sql());
  for (SetStatement& s : OrderStatuses(f, claves)) statements.push_back(std::move(s));
  return RunSetStatements(connection, statements);
}

}  // namespace

Outcome RecalcularStatusRemisiones(Connection& connection, const Session& session,
                                   const QStringList& claves) {
  YieldToScreen();
  // Older delivery notes belong to closed years and keep whatever they show.
  const QString year = QString::number(mFunciones::FechaServidor(session, true).date().year());
  std::vector<SetStatement> statements = {
      {QStringLiteral("update remisiones as r set status = 'POR FACTURAR', facturada = null "
                      "where r.status <> 'BAJA' and r.periodo = ?"),
       {year}},
      {QStringLiteral("update remisiones as r set status = f.factura, facturada = f.hora from "
                      "facturas f, \"facturas detalles\" d where r.remision = d.remision and "
                      "f.factura = d.factura and f.status <> 'BAJA' and r.periodo = ?"),
       {year}},
  };
  for (SetStatement& s : statements) {
    s.text += InClause(QStringLiteral(" and r."), QStringLiteral("remision"), claves, &s.values);
  }
  return RunSetStatements(connection, statements);
}

Outcome RecalcularSurtirOrdenes(Connection& connection, const QStringList& claves) {
  return RecomputeFulfilment(connection, kOrdenes, claves);
}

Outcome RecalcularSurtirPedidos(Connection& connection, const QStringList& claves) {
  return RecomputeFulfilment(connection, kPedidos, claves);
}

}  // namespace ventarix::mSaldos
