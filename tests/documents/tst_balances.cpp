// Balances, statuses and pending quantities rebuilt from the rows, with their scopes, on both
// engines.
#include <QSqlQuery>
#include <QTest>

#include "core/dialect.h"
#include "documents/mSaldos.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using testing::InsertarFila;

namespace {

QString S(const char* text) { return QString::fromUtf8(text); }

QVariant Read(Connection& c, const QString& table, const QString& key_column, const QVariant& key,
              const QString& column) {
  return c.Scalar(QStringLiteral("select %1 from %2 where %3 = ?")
                      .arg(dialect::Name(column), dialect::Name(table), dialect::Name(key_column)),
                  {key});
}

bool Invoice(Connection& c, const QString& key, double total, int cliente = 1,
             const QVariantMap& more = {}) {
  QVariantMap row = more;
  row[QStringLiteral("factura")] = key;
  row[QStringLiteral("total")] = total;
  row[QStringLiteral("cliente")] = cliente;
  return InsertarFila(c, QStringLiteral("facturas"), row);
}

bool Payment(Connection& c, const QString& pago, int item, const QString& factura, double abono) {
  return InsertarFila(c, QStringLiteral("cxc detalles"),
                      {{QStringLiteral("pago"), pago},
                       {QStringLiteral("item"), item},
                       {QStringLiteral("factura"), factura},
                       {QStringLiteral("abono"), abono}});
}

bool CreditNote(Connection& c, const QString& nota, const QString& factura, double total) {
  return InsertarFila(c, QStringLiteral("notas cliente detalles"),
                      {{QStringLiteral("nota"), nota},
                       {QStringLiteral("item"), 1},
                       {QStringLiteral("factura"), factura},
                       {QStringLiteral("total"), total}});
}

bool Party(Connection& c, const QString& table, int numero, double saldo) {
  return InsertarFila(c, table,
                      {{QStringLiteral("numero"), numero},
                       {QStringLiteral("nombre"), QStringLiteral("CLIENTE")},
                       {QStringLiteral("saldo"), saldo}});
}

double Saldo(Connection& c, const QString& table, int numero) {
  return Read(c, table, QStringLiteral("numero"), numero, QStringLiteral("saldo")).toDouble();
}

}  // namespace

class TstBalances : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void invoiceBalance_data();
  void invoiceBalance();
  void receiptAndNoteSettleThenCancellationReopens();
  void cancelledInvoiceStaysCancelled();
  void invoiceScopes_data();
  void invoiceScopes();
  void clientBalancesFollowTheEngine();
  void purchasesAndSuppliers();
  void deliveryNotesFollowTheirInvoice();
  void deliveryNoteScopes();
  void orderFulfilment_data();
  void orderFulfilment();
};

void TstBalances::invoiceBalance_data() {
  QTest::addColumn<double>("total");
  QTest::addColumn<QList<double>>("payments");
  QTest::addColumn<QList<double>>("notes");
  QTest::addColumn<double>("saldo");
  QTest::addColumn<QString>("status");
  const QString cobrar = QStringLiteral("POR COBRAR");
  const QString liquidado = QStringLiteral("LIQUIDADO");
  QTest::newRow("nothing paid") << 116.0 << QList<double>{} << QList<double>{} << 116.0 << cobrar;
  QTest::newRow("partly paid") << 116.0 << QList<double>{50} << QList<double>{} << 66.0 << cobrar;
  QTest::newRow("two payments in one receipt")
      << 100.0 << QList<double>{60, 40} << QList<double>{} << 0.0 << liquidado;
  QTest::newRow("99.995 on 100.00 rounds to nothing owed")
      << 100.0 << QList<double>{99.995} << QList<double>{} << 0.0 << liquidado;
  QTest::newRow("99.994 on 100.00 leaves a cent")
      << 100.0 << QList<double>{99.994} << QList<double>{} << 0.01 << cobrar;
  QTest::newRow("four-decimal total is owed to the cent")
      << 0.1875 << QList<double>{} << QList<double>{} << 0.19 << cobrar;
  QTest::newRow("receipt and credit note")
      << 116.0 << QList<double>{100} << QList<double>{16} << 0.0 << liquidado;
  QTest::newRow("overpaid") << 116.0 << QList<double>{120} << QList<double>{} << -4.0 << liquidado;
}

void TstBalances::invoiceBalance() {
  VENTARIX_COMPANY(company);
  QFETCH(double, total);
  QFETCH(QList<double>, payments);
  QFETCH(QList<double>, notes);
  QFETCH(double, saldo);
  QFETCH(QString, status);
  Connection c(company.cadena());
  QVERIFY(Invoice(c, QStringLiteral("A-1"), total));
  for (int i = 0; i < payments.size(); ++i) {
    QVERIFY(Payment(c, QStringLiteral("P-1"), i + 1, QStringLiteral("A-1"), payments[i]));
  }
  for (int i = 0; i < notes.size(); ++i) {
    QVERIFY(CreditNote(c, QStringLiteral("NC-%1").arg(i + 1), QStringLiteral("A-1"), notes[i]));
  }
  const Outcome done = mSaldos::RecalcularSaldosFacturas(c, {QStringLiteral("A-1")});
  QVERIFY2(done.ok, qPrintable(done.message));
  auto value = [&](const char* column) {
    return Read(c, QStringLiteral("facturas"), QStringLiteral("factura"), QStringLiteral("A-1"),
                S(column));
  };
  double paid = 0;
  for (double p : payments) paid += p;
  double credited = 0;
  for (double n : notes) credited += n;
  QCOMPARE(value("abonos").toDouble(), paid);
  QCOMPARE(value("descuentos").toDouble(), credited);
  QCOMPARE(value("saldo").toDouble(), saldo);
  QCOMPARE(value("status").toString(), status);
}

void TstBalances::receiptAndNoteSettleThenCancellationReopens() {
  VENTARIX_COMPANY(company);
  Connection c(company.cadena());
  QVERIFY(Party(c, QStringLiteral("clientes"), 7, 0));
  QVERIFY(Invoice(c, QStringLiteral("A-10"), 580.0, 7));
  QVERIFY(Invoice(c, QStringLiteral("A-11"), 20.0, 7));
  // The client pays 500 and gets a credit note of 80 for returned goods.
  QVERIFY(Payment(c, QStringLiteral("P-3"), 1, QStringLiteral("A-10"), 500));
  QVERIFY(CreditNote(c, QStringLiteral("NC-2"), QStringLiteral("A-10"), 80));
  const QStringList scope = {QStringLiteral("A-10"), QStringLiteral("A-11")};
  QVERIFY(mSaldos::RecalcularSaldosFacturas(c, scope).ok);
  QVERIFY(mSaldos::RecalcularSaldoClientes(c, 7).ok);
  QCOMPARE(Read(c, QStringLiteral("facturas"), QStringLiteral("factura"), QStringLiteral("A-10"),
                QStringLiteral("status"))
               .toString(),
           QStringLiteral("LIQUIDADO"));
  QCOMPARE(Saldo(c, QStringLiteral("clientes"), 7), 20.0);

  // The receipt is cancelled: its rows leave the sum and the invoice is owed again.
  QVERIFY(c.Run(QStringLiteral("update \"cxc detalles\" set abono = 0 where pago = 'P-3'")));
  QVERIFY(mSaldos::RecalcularSaldosFacturas(c, scope).ok);
  QVERIFY(mSaldos::RecalcularSaldoClientes(c, 7).ok);
  QCOMPARE(Read(c, QStringLiteral("facturas"), QStringLiteral("factura"), QStringLiteral("A-10"),
                QStringLiteral("status"))
               .toString(),
           QStringLiteral("POR COBRAR"));
  QCOMPARE(Read(c, QStringLiteral("facturas"), QStringLiteral("factura"), QStringLiteral("A-10"),
                QStringLiteral("saldo"))
               .toDouble(),
           500.0);
  QCOMPARE(Saldo(c, QStringLiteral("clientes"), 7), 520.0);
}

void TstBalances::cancelledInvoiceStaysCancelled() {
  VENTARIX_COMPANY(company);
  Connection c(company.cadena());
  QVERIFY(Invoice(c, QStringLiteral("A-1"), 50.0, 1,
                  {{QStringLiteral("status"), QStringLiteral("BAJA")}}));
  QVERIFY(Invoice(c, QStringLiteral("A-2"), 0.0, 1,
                  {{QStringLiteral("status"), QStringLiteral("BAJA")}}));
  QVERIFY(mSaldos::RecalcularSaldosFacturas(c, {}).ok);
  for (const char* key : {"A-1", "A-2"}) {
    QCOMPARE(Read(c, QStringLiteral("facturas"), QStringLiteral("factura"), S(key),
                  QStringLiteral("status"))
                 .toString(),
             QStringLiteral("BAJA"));
  }
  QCOMPARE(Read(c, QStringLiteral("facturas"), QStringLiteral("factura"), QStringLiteral("A-1"),
                QStringLiteral("saldo"))
               .toDouble(),
           50.0);
}

void TstBalances::invoiceScopes_data() {
  QTest::addColumn<QStringList>("scope");
  QTest::addColumn<QStringList>("recomputed");
  QTest::newRow("a list limits") << QStringList{QStringLiteral("A-1"), QStringLiteral("A-3")}
                                 << QStringList{QStringLiteral("A-1"), QStringLiteral("A-3")};
  QTest::newRow("empty means all")
      << QStringList{}
      << QStringList{QStringLiteral("A-1"), QStringLiteral("A-2"), QStringLiteral("A-3")};
  QTest::newRow("the list of nothing means none") << QStringList{QString()} << QStringList{};
  QTest::newRow("a key with a quote is just a key")
      << QStringList{QStringLiteral("A-2"), QStringLiteral("X'); delete from facturas; --")}
      << QStringList{QStringLiteral("A-2")};
}

void TstBalances::invoiceScopes() {
  VENTARIX_COMPANY(company);
  QFETCH(QStringList, scope);
  QFETCH(QStringList, recomputed);
  Connection c(company.cadena());
  const QStringList keys = {QStringLiteral("A-1"), QStringLiteral("A-2"), QStringLiteral("A-3")};
  for (const QString& key : keys) {
    // Stale figures, as a workstation that failed halfway would leave them.
    QVERIFY(Invoice(c, key, 100.0, 1,
                    {{QStringLiteral("saldo"), 77.0}, {QStringLiteral("abonos"), 5.0}}));
    QVERIFY(Payment(c, QStringLiteral("P-1"), keys.indexOf(key) + 1, key, 100));
  }
  QVERIFY(mSaldos::RecalcularSaldosFacturas(c, scope).ok);
  for (const QString& key : keys) {
    const bool done = recomputed.contains(key);
    QCOMPARE(
        Read(c, QStringLiteral("facturas"), QStringLiteral("factura"), key, QStringLiteral("saldo"))
            .toDouble(),
        done ? 0.0 : 77.0);
    QCOMPARE(Read(c, QStringLiteral("facturas"), QStringLiteral("factura"), key,
                  QStringLiteral("abonos"))
                 .toDouble(),
             done ? 100.0 : 5.0);
    QCOMPARE(Read(c, QStringLiteral("facturas"), QStringLiteral("factura"), key,
                  QStringLiteral("status"))
                 .toString(),
             done ? QStringLiteral("LIQUIDADO") : QStringLiteral("POR COBRAR"));
  }
}

void TstBalances::clientBalancesFollowTheEngine() {
  VENTARIX_COMPANY(company);
  Connection c(company.cadena());
  for (int numero : {1, 2, 3}) QVERIFY(Party(c, QStringLiteral("clientes"), numero, 999));
  QVERIFY(Invoice(c, QStringLiteral("A-1"), 100.0, 1));
  QVERIFY(Invoice(c, QStringLiteral("A-2"), 50.0, 2, {{QStringLiteral("saldo"), 50.0}}));
  QVERIFY(Invoice(c, QStringLiteral("A-3"), 25.5, 2, {{QStringLiteral("saldo"), 25.5}}));
  QVERIFY(mSaldos::RecalcularSaldosFacturas(c, {QStringLiteral("A-1")}).ok);
  if (company.sql()) {
    // Every client is refreshed, whatever the scope; a client without invoices owes nothing.
    QCOMPARE(Saldo(c, QStringLiteral("clientes"), 1), 100.0);
    QCOMPARE(Saldo(c, QStringLiteral("clientes"), 2), 75.5);
    QCOMPARE(Saldo(c, QStringLiteral("clientes"), 3), 0.0);
  } else {
    // No client statement here: the caller follows with RecalcularSaldoClientes.
    for (int numero : {1, 2, 3}) QCOMPARE(Saldo(c, QStringLiteral("clientes"), numero), 999.0);
  }
  QVERIFY(c.Run(QStringLiteral("update clientes set saldo = 999")));
  QVERIFY(mSaldos::RecalcularSaldoClientes(c, 2).ok);
  QCOMPARE(Saldo(c, QStringLiteral("clientes"), 1), 999.0);
  QCOMPARE(Saldo(c, QStringLiteral("clientes"), 2), 75.5);
  QVERIFY(mSaldos::RecalcularSaldoClientes(c, 0).ok);
  QCOMPARE(Saldo(c, QStringLiteral("clientes"), 1), 100.0);
  QCOMPARE(Saldo(c, QStringLiteral("clientes"), 2), 75.5);
  QCOMPARE(Saldo(c, QStringLiteral("clientes"), 3), 0.0);
}

void TstBalances::purchasesAndSuppliers() {
  VENTARIX_COMPANY(company);
  Connection c(company.cadena());
  for (int numero : {4, 5}) QVERIFY(Party(c, QStringLiteral("proveedores"), numero, 999));
  const auto purchase = [&](const char* key, double total, int proveedor) {
    return InsertarFila(c, QStringLiteral("compras"),
                        {{QStringLiteral("compra"), S(key)},
                         {QStringLiteral("total"), total},
                         {QStringLiteral("proveedor"), proveedor}});
  };
  QVERIFY(purchase("C-1", 1160, 4));
  QVERIFY(purchase("C-2", 300, 5));
  QVERIFY(InsertarFila(c, QStringLiteral("cxp detalles"),
                       {{QStringLiteral("pago"), QStringLiteral("PP-1")},
                        {QStringLiteral("item"), 1},
                        {QStringLiteral("compra"), QStringLiteral("C-1")},
                        {QStringLiteral("abono"), 1000.0}}));
  QVERIFY(InsertarFila(c, QStringLiteral("notas proveedor detalles"),
                       {{QStringLiteral("nota"), QStringLiteral("NP-1")},
                        {QStringLiteral("item"), 1},
                        {QStringLiteral("compra"), QStringLiteral("C-1")},
                        {QStringLiteral("total"), 160.0}}));
  QVERIFY(mSaldos::RecalcularSaldosCompras(c, {}).ok);
  QCOMPARE(Read(c, QStringLiteral("compras"), QStringLiteral("compra"), QStringLiteral("C-1"),
                QStringLiteral("status"))
               .toString(),
           QStringLiteral("LIQUIDADA"));
  QCOMPARE(Read(c, QStringLiteral("compras"), QStringLiteral("compra"), QStringLiteral("C-2"),
                QStringLiteral("status"))
               .toString(),
           QStringLiteral("POR PAGAR"));
  QCOMPARE(Saldo(c, QStringLiteral("proveedores"), 5), company.sql() ? 300.0 : 999.0);
  QVERIFY(mSaldos::RecalcularSaldoProveedores(c, 5).ok);
  QCOMPARE(Saldo(c, QStringLiteral("proveedores"), 5), 300.0);
  QCOMPARE(Saldo(c, QStringLiteral("proveedores"), 4), company.sql() ? 0.0 : 999.0);
  QVERIFY(mSaldos::RecalcularSaldoProveedores(c, 0).ok);
  QCOMPARE(Saldo(c, QStringLiteral("proveedores"), 4), 0.0);
}

namespace {

bool DeliveryNote(Connection& c, const char* key, int periodo, const char* status,
                  const QVariant& facturada = QVariant(QMetaType(QMetaType::QDateTime))) {
  return InsertarFila(c, QStringLiteral("remisiones"),
                      {{QStringLiteral("remision"), S(key)},
                       {QStringLiteral("periodo"), periodo},
                       {QStringLiteral("fecha"), QDate(periodo, 6, 1)},
                       {QStringLiteral("status"), S(status)},
                       {QStringLiteral("facturada"), facturada}});
}

bool InvoiceHolding(Connection& c, const char* factura, const char* status, const QDateTime& hora,
                    const QStringList& remisiones) {
  if (!Invoice(c, S(factura), 10, 1,
               {{QStringLiteral("status"), S(status)}, {QStringLiteral("hora"), hora}})) {
    return false;
  }
  int item = 0;
  for (const QString& remision : remisiones) {
    if (!InsertarFila(c, QStringLiteral("facturas detalles"),
                      {{QStringLiteral("factura"), S(factura)},
                       {QStringLiteral("item"), ++item},
                       {QStringLiteral("remision"), remision}})) {
      return false;
    }
  }
  return true;
}

QString NoteStatus(Connection& c, const char* key) {
  return Read(c, QStringLiteral("remisiones"), QStringLiteral("remision"), S(key),
              QStringLiteral("status"))
      .toString();
}

QDateTime Invoiced(Connection& c, const char* key) {
  return dialect::ReadDate(Read(c, QStringLiteral("remisiones"), QStringLiteral("remision"), S(key),
                                QStringLiteral("facturada")));
}

}  // namespace

void TstBalances::deliveryNotesFollowTheirInvoice() {
  VENTARIX_COMPANY(company);
  Session session = company.MakeSession();
  session.FechaFija = QStringLiteral("20240315");
  Connection c(company.cadena());
  const QDateTime hora(QDate(2024, 3, 14), QTime(10, 30));
  const QDateTime old(QDate(2024, 1, 2), QTime(9, 0));
  QVERIFY(DeliveryNote(c, "R-1", 2024, "POR FACTURAR"));
  QVERIFY(DeliveryNote(c, "R-2", 2024, "A-9", old));  // its invoice was deleted
  QVERIFY(DeliveryNote(c, "R-3", 2024, "BAJA"));
  QVERIFY(DeliveryNote(c, "R-4", 2024, "A-2", old));
  QVERIFY(DeliveryNote(c, "R-5", 2023, "POR FACTURAR"));
  QVERIFY(DeliveryNote(c, "R-6", 2023, "A-8", old));
  QVERIFY(
      InvoiceHolding(c, "A-1", "POR COBRAR", hora, {QStringLiteral("R-1"), QStringLiteral("R-5")}));
  QVERIFY(InvoiceHolding(c, "A-2", "BAJA", hora, {QStringLiteral("R-4")}));

  QVERIFY(mSaldos::RecalcularStatusRemisiones(c, session, {}).ok);
  QCOMPARE(NoteStatus(c, "R-1"), QStringLiteral("A-1"));
  QCOMPARE(Invoiced(c, "R-1"), hora);
  QCOMPARE(NoteStatus(c, "R-2"), QStringLiteral("POR FACTURAR"));
  QVERIFY(!Invoiced(c, "R-2").isValid());
  QCOMPARE(NoteStatus(c, "R-3"), QStringLiteral("BAJA"));
  QCOMPARE(NoteStatus(c, "R-4"), QStringLiteral("POR FACTURAR"));  // its invoice is cancelled
  // Last year's notes are left as they stand, even with every note in scope.
  QCOMPARE(NoteStatus(c, "R-5"), QStringLiteral("POR FACTURAR"));
  QCOMPARE(NoteStatus(c, "R-6"), QStringLiteral("A-8"));
  QCOMPARE(Invoiced(c, "R-6"), old);

  // A year later on the server's calendar, nothing of 2024 moves any more.
  QVERIFY(c.Run(QStringLiteral("update \"facturas detalles\" set remision = 'R-3'")));
  session.FechaFija = QStringLiteral("20250102");
  QVERIFY(mSaldos::RecalcularStatusRemisiones(c, session, {}).ok);
  QCOMPARE(NoteStatus(c, "R-1"), QStringLiteral("A-1"));
  QCOMPARE(NoteStatus(c, "R-3"), QStringLiteral("BAJA"));
}

void TstBalances::deliveryNoteScopes() {
  VENTARIX_COMPANY(company);
  Session session = company.MakeSession();
  session.FechaFija = QStringLiteral("20240315");
  Connection c(company.cadena());
  for (const char* key : {"R-1", "R-2", "R-3"}) QVERIFY(DeliveryNote(c, key, 2024, "POR FACTURAR"));
  QVERIFY(InvoiceHolding(c, "A-1", "POR COBRAR", QDateTime(QDate(2024, 3, 1), QTime(8, 0)),
                         {QStringLiteral("R-1"), QStringLiteral("R-2"), QStringLiteral("R-3")}));
  QVERIFY(mSaldos::RecalcularStatusRemisiones(c, session, {QString()}).ok);
  for (const char* key : {"R-1", "R-2", "R-3"})
    QCOMPARE(NoteStatus(c, key), QStringLiteral("POR FACTURAR"));
  QVERIFY(mSaldos::RecalcularStatusRemisiones(c, session, {QStringLiteral("R-2")}).ok);
  QCOMPARE(NoteStatus(c, "R-1"), QStringLiteral("POR FACTURAR"));
  QCOMPARE(NoteStatus(c, "R-2"), QStringLiteral("A-1"));
  QCOMPARE(NoteStatus(c, "R-3"), QStringLiteral("POR FACTURAR"));
}

void TstBalances::orderFulfilment_data() {
  QTest::addColumn<QString>("orders");
  QTest::addColumn<QString>("key");
  QTest::addColumn<QString>("deliveries");
  QTest::addColumn<QString>("delivery_key");
  QTest::newRow("purchase orders by receipts")
      << QStringLiteral("ordenes de compra") << QStringLiteral("orden")
      << QStringLiteral("compras detalles") << QStringLiteral("compra");
  QTest::newRow("sales orders by delivery notes")
      << QStringLiteral("pedidos") << QStringLiteral("pedido")
      << QStringLiteral("remisiones detalles") << QStringLiteral("remision");
}

void TstBalances::orderFulfilment() {
  VENTARIX_COMPANY(company);
  QFETCH(QString, orders);
  QFETCH(QString, key);
  QFETCH(QString, deliveries);
  QFETCH(QString, delivery_key);
  Connection c(company.cadena());
  int item = 0;
  const auto order = [&](const char* k, const char* status,
                         const QList<QPair<const char*, double>>& rows) {
    if (!InsertarFila(c, orders, {{key, S(k)}, {QStringLiteral("status"), S(status)}}))
      return false;
    for (const auto& [codigo, cantidad] : rows) {
      if (!InsertarFila(c, orders + QStringLiteral(" detalles"),
                        {{key, S(k)},
                         {QStringLiteral("item"), ++item},
                         {QStringLiteral("codigo"), S(codigo)},
                         {QStringLiteral("cantidad"), cantidad},
                         {QStringLiteral("surtir"), 99.0}})) {
        return false;
      }
    }
    return true;
  };
  const auto deliver = [&](const char* k, const char* codigo, double cantidad) {
    return InsertarFila(c, deliveries,
                        {{delivery_key, QStringLiteral("D-1")},
                         {QStringLiteral("item"), ++item},
                         {key, S(k)},
                         {QStringLiteral("codigo"), S(codigo)},
                         {QStringLiteral("cantidad"), cantidad}});
  };
  QVERIFY(order("O-1", "POR SURTIR", {{"A", 10}, {"B", 5}}));
  QVERIFY(order("O-2", "POR SURTIR", {{"A", 3}}));
  QVERIFY(order("O-3", "SURTIDO", {{"A", 2}}));
  QVERIFY(order("O-4", "BAJA", {{"A", 1}}));
  QVERIFY(order("O-5", "BACKORDER", {}));
  QVERIFY(deliver("O-1", "A", 6));
  QVERIFY(deliver("O-1", "A", 4));  // two receipts of one row both count
  QVERIFY(deliver("O-2", "A", 4));  // more than ordered
  QVERIFY(deliver("O-4", "A", 1));

  const Outcome done = orders == QLatin1String("pedidos") ? mSaldos::RecalcularSurtirPedidos(c, {})
                                                          : mSaldos::RecalcularSurtirOrdenes(c, {});
  QVERIFY2(done.ok, qPrintable(done.message));
  const auto status = [&](const char* k) {
    return Read(c, orders, key, S(k), QStringLiteral("status")).toString();
  };
  const auto pending = [&](const char* k, const char* codigo) {
    return c
        .Scalar(QStringLiteral("select surtir from %1 where %2 = ? and codigo = ?")
                    .arg(dialect::Name(orders + QStringLiteral(" detalles")), dialect::Name(key)),
                {S(k), S(codigo)})
        .toDouble();
  };
  QCOMPARE(pending("O-1", "A"), 0.0);
  QCOMPARE(pending("O-1", "B"), 5.0);
  QCOMPARE(status("O-1"), QStringLiteral("BACKORDER"));  // one row delivered, one pending
  QCOMPARE(pending("O-2", "A"), -1.0);
  QCOMPARE(status("O-2"), QStringLiteral("SURTIDO"));
  QCOMPARE(pending("O-3", "A"), 2.0);
  QCOMPARE(status("O-3"), QStringLiteral("POR SURTIR"));
  QCOMPARE(status("O-4"), QStringLiteral("BAJA"));
  QCOMPARE(status("O-5"), QStringLiteral("BACKORDER"));  // no rows: nothing to judge by

  // The rest of B arrives; only the order in scope is looked at.
  QVERIFY(deliver("O-1", "B", 5));
  QVERIFY(deliver("O-3", "A", 2));
  const QStringList scope = {QStringLiteral("O-1")};
  QVERIFY((orders == QLatin1String("pedidos") ? mSaldos::RecalcularSurtirPedidos(c, scope)
                                              : mSaldos::RecalcularSurtirOrdenes(c, scope))
              .ok);
  QCOMPARE(status("O-1"), QStringLiteral("SURTIDO"));
  QCOMPARE(pending("O-3", "A"), 2.0);
  QCOMPARE(status("O-3"), QStringLiteral("POR SURTIR"));
  QVERIFY((orders == QLatin1String("pedidos") ? mSaldos::RecalcularSurtirPedidos(c, {QString()})
                                              : mSaldos::RecalcularSurtirOrdenes(c, {QString()}))
              .ok);
  QCOMPARE(pending("O-3", "A"), 2.0);
}

QTEST_GUILESS_MAIN(TstBalances)
#include "tst_balances.moc"
