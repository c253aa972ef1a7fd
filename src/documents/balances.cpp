// Balances of invoices and purchases, and of the clients and suppliers who owe or are owed
// them. PostgreSQL recomputes with correlated sub-selects and refreshes every party's balance
// at the end; SQLite zeroes the figures and adds the payments and notes back through joins,
// and leaves the party balances to RecalcularSaldoClientes / RecalcularSaldoProveedores.
#include "core/dialect.h"
#include "documents/mSaldos.h"
#include "documents/set_statements.h"

namespace ventarix::mSaldos {

namespace {

// What sets the receivable side apart from the payable side.
struct BalanceFamily {
  const char* header;    // documents that carry a balance
  const char* key;       // their key, also the column that links payments and notes to them
  const char* payments;  // payment rows, column abono
  const char* notes;     // credit-note rows, column total
  const char* paid;      // status once nothing is owed
  const char* owing;     // status while something is
  const char* parties;   // whose balance is the sum of their documents'
  const char* party;     // the party's number on the document
};

constexpr BalanceFamily kFacturas{
    "facturas",  "factura",    "cxc detalles", "notas cliente detalles",
    "LIQUIDADO", "POR COBRAR", "clientes",     "cliente"};
constexpr BalanceFamily kCompras{
    "compras",   "compra",    "cxp detalles", "notas proveedor detalles",
    "LIQUIDADA", "POR PAGAR", "proveedores",  "proveedor"};

QString N(const char* name) { return dialect::Name(QString::fromUtf8(name)); }

// "update <header> as o set ... <where> o.<key> in (...)".
SetStatement OnScope(const BalanceFamily& f, const QString& assignments,
                     const QStringList& claves) {
  SetStatement s;
  s.text = QStringLiteral("update %1 as o set %2").arg(N(f.header), assignments);
  s.text += InClause(QStringLiteral(" where o."), N(f.key), claves, &s.values);
  return s;
}

SetStatement Status(const BalanceFamily& f, const QStringList& claves) {
  return OnScope(f,
                 QStringLiteral("status = case when o.status = 'BAJA' then 'BAJA' when o.saldo "
                                "<= 0 then '%1' else '%2' end")
                     .arg(QString::fromUtf8(f.paid), QString::fromUtf8(f.owing)),
                 claves);
}

std::vector<SetStatement> PostgresBalances(const BalanceFamily& f, const QStringList& claves) {
  const QString sum_of = QStringLiteral(
      "(select coalesce(sum(d.%1),0) from %2 f, %3 d where f.%4 = o.%4 and f.%4 = d.%4)");
  return {
      OnScope(f,
              QStringLiteral("abonos = ") +
                  sum_of.arg(QStringLiteral("abono"), N(f.header), N(f.payments), N(f.key)),
              claves),
      OnScope(f,
              QStringLiteral("descuentos = ") +
                  sum_of.arg(QStringLiteral("total"), N(f.header), N(f.notes), N(f.key)),
              claves),
      OnScope(
          f,
          QStringLiteral("saldo = round(cast(o.total - (o.abonos + o.descuentos) as numeric), 2)"),
          claves),
      Status(f, claves),
      // Every party, whatever the scope: one pass over the parties is cheap and keeps them
      // right after any change.
      {QStringLiteral("update %1 as e set saldo = (select coalesce(sum(f.saldo),0) from %2 f, %1 l "
                      "where f.%3 = e.numero and f.%3 = l.numero)")
           .arg(N(f.parties), N(f.header), N(f.party)),
       {}},
  };
}

// Adds the sum of `column` of the linked rows, for the documents in scope.
SetStatement AddLinked(const BalanceFamily& f, const char* target, const char* rows,
                       const char* column, const QStringList& claves) {
  SetStatement s;
  s.text = QStringLiteral(
               "update %1 as o set %2 = o.%2 + d.suma from (select %3 as clave, sum(%4) as suma "
               "from %5")
               .arg(N(f.header), QString::fromUtf8(target), N(f.key), QString::fromUtf8(column),
                    N(rows));
  s.text += InClause(QStringLiteral(" where "), N(f.key), claves, &s.values);
  s.text += QStringLiteral(" group by %1) as d where o.%1 = d.clave").arg(N(f.key));
  return s;
}

std::vector<SetStatement> SqliteBalances(const BalanceFamily& f, const QStringList& claves) {
  return {
      OnScope(f, QStringLiteral("abonos = 0, descuentos = 0, saldo = 0"), claves),
      AddLinked(f, "abonos", f.payments, "abono", claves),
      AddLinked(f, "descuentos", f.notes, "total", claves),
      OnScope(f, QStringLiteral("saldo = round(o.total - (o.abonos + o.descuentos), 2)"), claves),
      Status(f, claves),
  };
}

Outcome RecomputeBalances(Connection& connection, const BalanceFamily& f,
                          const QStringList& claves) {
  YieldToScreen();
  return RunSetStatements(
      connection, connection.sql() ? PostgresBalances(f, claves) : SqliteBalances(f, claves));
}

// The documents in scope, then the balances of the parties named: a save touches a few.
Outcome RecomputeTouched(Connection& connection, const BalanceFamily& f, const QStringList& claves,
                         const QList<qint32>& parties) {
  YieldToScreen();
  std::vector<SetStatement> statements =
      connection.sql() ? PostgresBalances(f, claves) : SqliteBalances(f, claves);
  if (connection.sql()) statements.pop_back();  // the pass over every party
  QStringList numbers;
  SetStatement refresh;
  for (qint32 party : parties) {
    if (party == 0 || refresh.values.contains(party)) continue;
    numbers << QStringLiteral("?");
    refresh.values << party;
  }
  if (!numbers.isEmpty()) {
    refresh.text = QStringLiteral(
                       "update %1 as l set saldo = (select coalesce(sum(o.saldo),0) from %2 o "
                       "where o.%3 = l.numero) where l.numero in (%4)")
                       .arg(N(f.parties), N(f.header), N(f.party), numbers.join(u','));
    statements.push_back(refresh);
  }
  return RunSetStatements(connection, statements);
}

Outcome RecomputeParties(Connection& connection, const BalanceFamily& f, qint32 numero) {
  YieldToScreen();
  std::vector<SetStatement> statements(2);
  statements[0].text = QStringLiteral("update %1 set saldo = 0").arg(N(f.parties));
  if (numero != 0) {
    statements[0].text += QStringLiteral(" where numero = ?");
    statements[0].values = {numero};
  }
  if (connection.sql()) {
    statements[1].text = QStringLiteral(
                             "update %1 as l set saldo = (select coalesce(sum(o.saldo),0) from %2 "
                             "o where o.%3 = l.numero)")
                             .arg(N(f.parties), N(f.header), N(f.party));
    if (numero != 0) statements[1].text += QStringLiteral(" where l.numero = ?");
  } else {
    statements[1].text = QStringLiteral(
                             "update %1 as l set saldo = l.saldo + o.suma from (select %3 as "
                             "numero, sum(saldo) as suma from %2")
                             .arg(N(f.parties), N(f.header), N(f.party));
    if (numero != 0) statements[1].text += QStringLiteral(" where %1 = ?").arg(N(f.party));
    statements[1].text +=
        QStringLiteral(" group by %1) as o where l.numero = o.numero").arg(N(f.party));
  }
  if (numero != 0) statements[1].values = {numero};
  return RunSetStatements(connection, statements);
}

}  // namespace

Outcome RecalcularSaldosFacturas(Connection& connection, const QStringList& claves) {
  return RecomputeBalances(connection, kFacturas, claves);
}

Outcome RecalcularSaldosFacturas(Connection& connection, const QStringList& claves,
                                 const QList<qint32>& clientes) {
  return RecomputeTouched(connection, kFacturas, claves, clientes);
}

Outcome RecalcularSaldosCompras(Connection& connection, const QStringList& claves) {
  return RecomputeBalances(connection, kCompras, claves);
}

Outcome RecalcularSaldosCompras(Connection& connection, const QStringList& claves,
                                const QList<qint32>& proveedores) {
  return RecomputeTouched(connection, kCompras, claves, proveedores);
}

Outcome RecalcularSaldoClientes(Connection& connection, qint32 numero) {
  return RecomputeParties(connection, kFacturas, numero);
}

Outcome RecalcularSaldoProveedores(Connection& connection, qint32 numero) {
  return RecomputeParties(connection, kCompras, numero);
}

}  // namespace ventarix::mSaldos
