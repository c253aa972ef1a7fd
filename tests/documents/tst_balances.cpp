// Balances, statuses and pending quantities rebuilt from the rows, with their scopes, on both
// engines.
#include <QSqlQuery>
#include <QTest>

#include "core/dialect.h"
#include "documents/mSaldos.h"
#include "stored_figures.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::InsertarFila;
using testing::InsertarFilas;
using testing::Leer;

namespace {

QString S(const char* text) { return QString::fromUtf8(text); }

bool Invoice(Connection& c, const QString& key, double total, int cliente = 1,
             QVariantMap row = {}) {
  row.insert({{u"factura"_s, key}, {u"total"_s, total}, {u"cliente"_s, cliente}});
  return InsertarFila(c, u"facturas"_s, row);
}

bool Payment(Connection& c, const QString& pago, int item, const QString& factura, double abono) {
  return InsertarFilas(c, u"cxc detalles"_s, {u"pago"_s, u"item"_s, u"factura"_s, u"abono"_s},
                       {{pago, item, factura, abono}});
}

bool CreditNote(Connection& c, const QString& nota, const QString& factura, double total) {
  return InsertarFilas(c, u"notas cliente detalles"_s,
                       {u"nota"_s, u"item"_s, u"factura"_s, u"total"_s},
                       {{nota, 1, factura, total}});
}

QList<double> Saldos(Connection& c, const QString& table, const QList<int>& numeros) {
  QList<double> saldos;
  for (int n : numeros) saldos << Leer(c, table, u"numero"_s, n, u"saldo"_s).toDouble();
  return saldos;
}

}  // namespace

class TstBalances : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void invoiceBalance_data();
  void invoiceBalance();
  void receiptAndNoteSettleThenCancellationsHold();
  void invoiceScopes_data();
  void invoiceScopes();
  void partyBalances_data();
  void partyBalances();
  void deliveryNotesFollowTheirInvoice();
  void orderFulfilment_data();
  void orderFulfilment();
};

void TstBalances::invoiceBalance_data() {
  QTest::addColumn<double>("total");
  QTest::addColumn<QList<double>>("payments");
  QTest::addColumn<QList<double>>("notes");
  QTest::addColumn<QString>("esperado");
  QTest::newRow("nothing paid") << 116.0 << QList<double>{} << QList<double>{}
                                << u"saldo=116|status=POR COBRAR"_s;
  QTest::newRow("partly paid") << 116.0 << QList<double>{50} << QList<double>{}
                               << u"saldo=66|status=POR COBRAR"_s;
  QTest::newRow("two payments in one receipt")
      << 100.0 << QList<double>{60, 40} << QList<double>{} << u"saldo=0|status=LIQUIDADO"_s;
  QTest::newRow("99.995 on 100.00 rounds to nothing owed")
      << 100.0 << QList<double>{99.995} << QList<double>{} << u"saldo=0|status=LIQUIDADO"_s;
  QTest::newRow("99.994 on 100.00 leaves a cent")
      << 100.0 << QList<double>{99.994} << QList<double>{} << u"saldo=0.01|status=POR COBRAR"_s;
  QTest::newRow("four-decimal total is owed to the cent")
      << 0.1875 << QList<double>{} << QList<double>{} << u"saldo=0.19|status=POR COBRAR"_s;
  QTest::newRow("receipt and credit note")
      << 116.0 << QList<double>{100} << QList<double>{16} << u"saldo=0|status=LIQUIDADO"_s;
  QTest::newRow("overpaid") << 116.0 << QList<double>{120} << QList<double>{}
                            << u"saldo=-4|status=LIQUIDADO"_s;
}

void TstBalances::invoiceBalance() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  QFETCH(double, total);
  QFETCH(QList<double>, payments);
  QFETCH(QList<double>, notes);
  QFETCH(QString, esperado);
  QVERIFY(Invoice(c, u"A-1"_s, total));
  double paid = 0, credited = 0;
  for (int i = 0; i < payments.size(); ++i) {
    QVERIFY(Payment(c, u"P-1"_s, i + 1, u"A-1"_s, payments[i]));
    paid += payments[i];
  }
  for (int i = 0; i < notes.size(); ++i) {
    QVERIFY(CreditNote(c, u"NC-%1"_s.arg(i + 1), u"A-1"_s, notes[i]));
    credited += notes[i];
  }
  const Outcome done = mSaldos::RecalcularSaldosFacturas(c, {u"A-1"_s});
  QVERIFY2(done.ok, qPrintable(done.message));
  COMPARE_ROW(c, u"facturas"_s, u"factura"_s, u"A-1"_s,
              u"abonos=%1|descuentos=%2|"_s.arg(paid).arg(credited) + esperado);
}

void TstBalances::receiptAndNoteSettleThenCancellationsHold() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  QVERIFY(InsertarFila(c, u"clientes"_s, {{u"numero"_s, 7}, {u"nombre"_s, u"CLIENTE"_s}}));
  QVERIFY(Invoice(c, u"A-10"_s, 580.0, 7));
  QVERIFY(Invoice(c, u"A-11"_s, 20.0, 7));
  // The client pays 500 and gets a credit note of 80 for returned goods.
  QVERIFY(Payment(c, u"P-3"_s, 1, u"A-10"_s, 500));
  QVERIFY(CreditNote(c, u"NC-2"_s, u"A-10"_s, 80));
  const QStringList scope = {u"A-10"_s, u"A-11"_s};
  QVERIFY(mSaldos::RecalcularSaldosFacturas(c, scope).ok);
  QVERIFY(mSaldos::RecalcularSaldoClientes(c, 7).ok);
  COMPARE_ROW(c, u"facturas"_s, u"factura"_s, u"A-10"_s, u"saldo=0|status=LIQUIDADO"_s);
  QCOMPARE(Saldos(c, u"clientes"_s, {7}), QList<double>{20});

  // The receipt is cancelled: its rows leave the sum and the invoice is owed again.
  QVERIFY(testing::Escribir(c, u"update \"cxc detalles\" set abono = 0 where pago = 'P-3'"_s));
  QVERIFY(mSaldos::RecalcularSaldosFacturas(c, scope).ok);
  QVERIFY(mSaldos::RecalcularSaldoClientes(c, 7).ok);
  COMPARE_ROW(c, u"facturas"_s, u"factura"_s, u"A-10"_s, u"saldo=500|status=POR COBRAR"_s);
  QCOMPARE(Saldos(c, u"clientes"_s, {7}), QList<double>{520});

  // A cancelled invoice stays cancelled with its figures, whatever it owes.
  QVERIFY(Invoice(c, u"A-1"_s, 50.0, 1, {{u"status"_s, u"BAJA"_s}}));
  QVERIFY(Invoice(c, u"A-2"_s, 0.0, 1, {{u"status"_s, u"BAJA"_s}}));
  QVERIFY(mSaldos::RecalcularSaldosFacturas(c, {}).ok);
  COMPARE_ROW(c, u"facturas"_s, u"factura"_s, u"A-1"_s, u"saldo=50|status=BAJA"_s);
  COMPARE_ROW(c, u"facturas"_s, u"factura"_s, u"A-2"_s, u"status=BAJA"_s);
}

void TstBalances::invoiceScopes_data() {
  QTest::addColumn<QStringList>("scope");
  QTest::addColumn<QStringList>("recomputed");
  QTest::newRow("a list limits") << QStringList{u"A-1"_s, u"A-3"_s}
                                 << QStringList{u"A-1"_s, u"A-3"_s};
  QTest::newRow("empty means all") << QStringList{} << QStringList{u"A-1"_s, u"A-2"_s, u"A-3"_s};
  QTest::newRow("the list of nothing means none") << QStringList{QString()} << QStringList{};
  QTest::newRow("a key with a quote is just a key")
      << QStringList{u"A-2"_s, u"X'); delete from facturas; --"_s} << QStringList{u"A-2"_s};
}

void TstBalances::invoiceScopes() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  QFETCH(QStringList, scope);
  QFETCH(QStringList, recomputed);
  const QStringList keys = {u"A-1"_s, u"A-2"_s, u"A-3"_s};
  for (const QString& key : keys) {
    // Stale figures, as a workstation that failed halfway would leave them.
    QVERIFY(Invoice(c, key, 100.0, 1, {{u"saldo"_s, 77.0}, {u"abonos"_s, 5.0}}));
    QVERIFY(Payment(c, u"P-1"_s, keys.indexOf(key) + 1, key, 100));
  }
  QVERIFY(mSaldos::RecalcularSaldosFacturas(c, scope).ok);
  for (const QString& key : keys) {
    COMPARE_ROW(c, u"facturas"_s, u"factura"_s, key,
                recomputed.contains(key) ? u"saldo=0|abonos=100|status=LIQUIDADO"_s
                                         : u"saldo=77|abonos=5|status=POR COBRAR"_s);
  }
}

void TstBalances::partyBalances_data() {
  QTest::addColumn<QStringList>("tables");   // parties, documents, payments, notes
  QTest::addColumn<QStringList>("columns");  // document key, party, settled status
  QTest::newRow("clients") << QStringList{u"clientes"_s, u"facturas"_s, u"cxc detalles"_s,
                                          u"notas cliente detalles"_s}
                           << QStringList{u"factura"_s, u"cliente"_s, u"LIQUIDADO"_s};
  QTest::newRow("suppliers") << QStringList{u"proveedores"_s, u"compras"_s, u"cxp detalles"_s,
                                            u"notas proveedor detalles"_s}
                             << QStringList{u"compra"_s, u"proveedor"_s, u"LIQUIDADA"_s};
}

void TstBalances::partyBalances() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  QFETCH(QStringList, tables);
  QFETCH(QStringList, columns);
  const QString& key = columns[0];
  QVERIFY(InsertarFilas(c, tables[0], {u"numero"_s, u"nombre"_s, u"saldo"_s},
                        {{1, u"A"_s, 999}, {2, u"B"_s, 999}, {3, u"C"_s, 999}}));
  // D-3 is left out of scope with its balance as it stands.
  QVERIFY(InsertarFilas(c, tables[1], {key, u"total"_s, columns[1], u"saldo"_s},
                        {{u"D-1"_s, 1160, 1, 0}, {u"D-2"_s, 50, 2, 7}, {u"D-3"_s, 25.5, 2, 25.5}}));
  QVERIFY(InsertarFilas(c, tables[2], {u"pago"_s, u"item"_s, key, u"abono"_s},
                        {{u"P-1"_s, 1, u"D-1"_s, 1000}}));
  QVERIFY(InsertarFilas(c, tables[3], {u"nota"_s, u"item"_s, key, u"total"_s},
                        {{u"N-1"_s, 1, u"D-1"_s, 160}}));
  const bool clients = tables[0] == u"clientes";
  const QStringList scope{u"D-1"_s, u"D-2"_s};
  QVERIFY((clients ? mSaldos::RecalcularSaldosFacturas(c, scope)
                   : mSaldos::RecalcularSaldosCompras(c, scope))
              .ok);
  COMPARE_ROW(c, tables[1], key, u"D-1"_s, u"saldo=0|status="_s + columns[2]);
  COMPARE_ROW(c, tables[1], key, u"D-2"_s, u"saldo=50"_s);
  // PostgreSQL refreshes every party whatever the scope, one without documents owing nothing;
  // on SQLite the caller follows with the party's own routine.
  QCOMPARE(Saldos(c, tables[0], {1, 2, 3}),
           (company.sql() ? QList<double>{0, 75.5, 0} : QList<double>{999, 999, 999}));
  const auto parties = [&](int numero) {
    return clients ? mSaldos::RecalcularSaldoClientes(c, numero)
                   : mSaldos::RecalcularSaldoProveedores(c, numero);
  };
  QVERIFY(testing::Escribir(c, u"update %1 set saldo = 999"_s.arg(tables[0])));
  QVERIFY(parties(2).ok);
  QCOMPARE(Saldos(c, tables[0], {1, 2, 3}), (QList<double>{999, 75.5, 999}));
  QVERIFY(parties(0).ok);
  QCOMPARE(Saldos(c, tables[0], {1, 2, 3}), (QList<double>{0, 75.5, 0}));
}

void TstBalances::deliveryNotesFollowTheirInvoice() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  Session session = company.MakeSession();
  session.FechaFija = u"20240315"_s;
  const QDateTime hora(QDate(2024, 3, 14), QTime(10, 30));
  const QDateTime old(QDate(2024, 1, 2), QTime(9, 0));
  const QVariant none(QMetaType(QMetaType::QDateTime));
  // R-2's invoice was deleted, R-4's is cancelled; are last year's.
  QVERIFY(InsertarFilas(c, u"remisiones"_s,
                        {u"remision"_s, u"periodo"_s, u"fecha"_s, u"status"_s, u"facturada"_s},
                        {{u"R-1"_s, 2024, QDate(2024, 6, 1), u"POR FACTURAR"_s, none},
                         {u"R-2"_s, 2024, QDate(2024, 6, 1), u"A-9"_s, old},
                         {u"R-3"_s, 2024, QDate(2024, 6, 1), u"BAJA"_s, none},
                         {u"R-4"_s, 2024, QDate(2024, 6, 1), u"A-2"_s, old},
                         {u"R-5"_s, 2023, QDate(2023, 6, 1), u"POR FACTURAR"_s, none},
                         {u"R-6"_s, 2023, QDate(2023, 6, 1), u"A-8"_s, old}}));
  QVERIFY(Invoice(c, u"A-1"_s, 10, 1, {{u"hora"_s, hora}}));
  QVERIFY(Invoice(c, u"A-2"_s, 10, 1, {{u"status"_s, u"BAJA"_s}, {u"hora"_s, hora}}));
  QVERIFY(
      InsertarFilas(c, u"facturas detalles"_s, {u"factura"_s, u"item"_s, u"remision"_s},
                    {{u"A-1"_s, 1, u"R-1"_s}, {u"A-1"_s, 2, u"R-5"_s}, {u"A-2"_s, 1, u"R-4"_s}}));
  const auto status = [&](const QStringList& keys) {
    QStringList out;
    for (const QString& k : keys)
      out << Leer(c, u"remisiones"_s, u"remision"_s, k, u"status"_s).toString();
    return out.join(u'|');
  };
  const auto invoiced = [&](const char* key) {
    return dialect::ReadDate(Leer(c, u"remisiones"_s, u"remision"_s, S(key), u"facturada"_s));
  };
  const QStringList all{u"R-1"_s, u"R-2"_s, u"R-3"_s, u"R-4"_s, u"R-5"_s, u"R-6"_s};

  // The list of nothing moves nothing; a list moves only its notes.
  QVERIFY(mSaldos::RecalcularStatusRemisiones(c, session, {QString()}).ok);
  QCOMPARE(status(all), u"POR FACTURAR|A-9|BAJA|A-2|POR FACTURAR|A-8"_s);
  QVERIFY(mSaldos::RecalcularStatusRemisiones(c, session, {u"R-4"_s}).ok);
  QCOMPARE(status(all), u"POR FACTURAR|A-9|BAJA|POR FACTURAR|POR FACTURAR|A-8"_s);

  // Last year's notes are left as they stand, even with every note in scope.
  QVERIFY(mSaldos::RecalcularStatusRemisiones(c, session, {}).ok);
  QCOMPARE(status(all), u"A-1|POR FACTURAR|BAJA|POR FACTURAR|POR FACTURAR|A-8"_s);
  QCOMPARE(invoiced("R-1"), hora);
  QVERIFY(!invoiced("R-2").isValid());
  QCOMPARE(invoiced("R-6"), old);

  // A year later on the server's calendar, nothing of 2024 moves any more.
  QVERIFY(testing::Escribir(c, u"update \"facturas detalles\" set remision = 'R-3'"_s));
  session.FechaFija = u"20250102"_s;
  QVERIFY(mSaldos::RecalcularStatusRemisiones(c, session, {}).ok);
  QCOMPARE(status({u"R-1"_s, u"R-3"_s}), u"A-1|BAJA"_s);
}

void TstBalances::orderFulfilment_data() {
  QTest::addColumn<QString>("orders");
  QTest::addColumn<QString>("key");
  QTest::addColumn<QString>("deliveries");
  QTest::addColumn<QString>("delivery_key");
  QTest::newRow("purchase orders by receipts")
      << u"ordenes de compra"_s << u"orden"_s << u"compras detalles"_s << u"compra"_s;
  QTest::newRow("sales orders by delivery notes")
      << u"pedidos"_s << u"pedido"_s << u"remisiones detalles"_s << u"remision"_s;
}

void TstBalances::orderFulfilment() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  QFETCH(QString, orders);
  QFETCH(QString, key);
  QFETCH(QString, deliveries);
  QFETCH(QString, delivery_key);
  QVERIFY(InsertarFilas(c, orders, {key, u"status"_s},
                        {{u"O-1"_s, u"POR SURTIR"_s},
                         {u"O-2"_s, u"POR SURTIR"_s},
                         {u"O-3"_s, u"SURTIDO"_s},
                         {u"O-4"_s, u"BAJA"_s},
                         {u"O-5"_s, u"BACKORDER"_s}}));
  QVERIFY(InsertarFilas(c, orders + u" detalles"_s,
                        {key, u"item"_s, u"codigo"_s, u"cantidad"_s, u"surtir"_s},
                        {{u"O-1"_s, 1, u"A"_s, 10, 99},
                         {u"O-1"_s, 2, u"B"_s, 5, 99},
                         {u"O-2"_s, 3, u"A"_s, 3, 99},
                         {u"O-3"_s, 4, u"A"_s, 2, 99},
                         {u"O-4"_s, 5, u"A"_s, 1, 99}}));
  int item = 0;
  const auto deliver = [&](const QString& k, const QString& codigo, double cantidad) {
    return InsertarFilas(c, deliveries, {delivery_key, u"item"_s, key, u"codigo"_s, u"cantidad"_s},
                         {{u"D-1"_s, ++item, k, codigo, cantidad}});
  };
  QVERIFY(deliver(u"O-1"_s, u"A"_s, 6));
  QVERIFY(deliver(u"O-1"_s, u"A"_s, 4));  // two receipts of one row both count
  QVERIFY(deliver(u"O-2"_s, u"A"_s, 4));  // more than ordered
  QVERIFY(deliver(u"O-4"_s, u"A"_s, 1));

  const auto recalcular = [&](const QStringList& scope) {
    return orders == u"pedidos" ? mSaldos::RecalcularSurtirPedidos(c, scope)
                                : mSaldos::RecalcularSurtirOrdenes(c, scope);
  };
  // Each order as its status and what is left to deliver of every row.
  const auto state = [&](const QString& k) {
    QString out = Leer(c, orders, key, k, u"status"_s).toString();
    QSqlQuery q = c.Exec(u"select codigo, surtir from %1 where %2 = ? order by item"_s.arg(
                             dialect::Name(orders + u" detalles"_s), dialect::Name(key)),
                         {k});
    while (q.next()) out += u' ' + q.value(0).toString() + u'=' + q.value(1).toString();
    return out;
  };
  const Outcome done = recalcular({});
  QVERIFY2(done.ok, qPrintable(done.message));
  QCOMPARE(state(u"O-1"_s), u"BACKORDER A=0 B=5"_s);  // one row delivered, one pending
  QCOMPARE(state(u"O-2"_s), u"SURTIDO A=-1"_s);
  QCOMPARE(state(u"O-3"_s), u"POR SURTIR A=2"_s);
  QCOMPARE(Leer(c, orders, key, u"O-4"_s, u"status"_s).toString(), u"BAJA"_s);
  QCOMPARE(state(u"O-5"_s), u"BACKORDER"_s);  // no rows: nothing to judge by

  // The rest of B arrives; only the order in scope is looked at, and the list of nothing
  // looks at none.
  QVERIFY(deliver(u"O-1"_s, u"B"_s, 5));
  QVERIFY(deliver(u"O-3"_s, u"A"_s, 2));
  QVERIFY(recalcular({u"O-1"_s}).ok);
  QCOMPARE(state(u"O-1"_s), u"SURTIDO A=0 B=0"_s);
  QCOMPARE(state(u"O-3"_s), u"POR SURTIR A=2"_s);
  QVERIFY(recalcular({QString()}).ok);
  QCOMPARE(state(u"O-3"_s), u"POR SURTIR A=2"_s);
}

QTEST_GUILESS_MAIN(TstBalances)
#include "tst_balances.moc"
