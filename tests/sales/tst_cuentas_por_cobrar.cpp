// Receipts on the demo company, told as the cashier's day: invoices paid in parts, an amount
// above the balance thrown away, a receipt cancelled, the checks in their order, and the
// month's small balances closed by one settle receipt.
#include <QSqlQuery>
#include <QTest>

#include "core/session_load.h"
#include "documents/bajas.h"
#include "documents/captura.h"
#include "sales/cuentas_por_cobrar.h"
#include "sales/facturas_por_cobrar.h"
#include "support/empresa_demo.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using captura::Documento;

namespace {

constexpr qint32 kCliente = 9001;
constexpr qint32 kOtro = 9002;
const QDate kOctubre(2026, 10, 5);

QVariantMap Abono(const QString& factura, double abono) {
  return {{u"factura"_s, factura}, {u"abono"_s, abono}};
}

Documento Recibo(std::vector<QVariantMap> partidas, qint32 cliente = kCliente) {
  Documento d;
  d.encabezado = {
      {u"cliente"_s, cliente}, {u"metodo"_s, 1}, {u"banco"_s, 1}, {u"anotacion"_s, u"DEPOSITO"_s}};
  d.partidas = std::move(partidas);
  return d;
}

// The demo company with client 9001 owing invoices T-1 (100, the older) and T-2 (50).
std::optional<testing::EmpresaConSesion> ConFacturas() {
  return testing::EmpresaDemoCon([](Connection& c) {
    return testing::InsertarFacturas(
        c, {kCliente, kOtro},
        {{u"T-1"_s, kCliente, 100, kOctubre.addDays(-20)}, {u"T-2"_s, kCliente, 50, kOctubre}});
  });
}

// "status saldo abonos" of an invoice.
QString Factura(Connection& c, const QString& factura) {
  QSqlQuery q =
      c.Exec(u"select status, saldo, abonos from facturas where factura = ?"_s, {factura});
  if (!q.next()) return u"no existe"_s;
  return u"%1 %2 %3"_s.arg(q.value(0).toString())
      .arg(q.value(1).toDouble())
      .arg(q.value(2).toDouble());
}

double SaldoCliente(Connection& c, qint32 cliente) {
  return c.Scalar(u"select saldo from clientes where numero = ?"_s, {cliente}).toDouble();
}

}  // namespace

class TestCuentasPorCobrar : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // 40 on T-1, then 60 on T-1 with 500 on T-2: T-1 is paid off, the 500 (above T-2's 50) is
  // thrown away; the client owes T-2 alone. Cancelling the second receipt gives T-1 its 60
  // back.
  void FacturaPagadaEnDosRecibos() {
    auto e = ConFacturas();
    if (!e) return;
    Connection c(e->s.Cadena);
    const captura::Guardado primero =
        captura::GuardarDocumento(e->s, ventas::CxC(), Recibo({Abono(u"T-1"_s, 40)}));
    QVERIFY2(primero.outcome.ok, qPrintable(primero.outcome.message));
    QVERIFY(primero.llave.startsWith(e->s.SerieCxC + u'-'));
    QCOMPARE(e->s.PagoActual, primero.llave);
    QCOMPARE(Factura(c, u"T-1"_s), u"POR COBRAR 60 40"_s);
    QCOMPARE(SaldoCliente(c, kCliente), 110.0);

    const captura::Guardado segundo = captura::GuardarDocumento(
        e->s, ventas::CxC(), Recibo({Abono(u"T-1"_s, 60), Abono(u"T-2"_s, 500)}));
    QVERIFY2(segundo.outcome.ok, qPrintable(segundo.outcome.message));
    QCOMPARE(Factura(c, u"T-1"_s), u"LIQUIDADO 0 100"_s);
    QCOMPARE(Factura(c, u"T-2"_s), u"POR COBRAR 50 0"_s);
    QCOMPARE(SaldoCliente(c, kCliente), 50.0);
    // The 500 left no row: the receipt holds 60.
    QCOMPARE(c.Scalar(u"select abono from cxc where pago = ?"_s, {segundo.llave}).toDouble(), 60.0);
    QCOMPARE(c.Scalar(u"select count(*) from \"cxc detalles\" where pago = ?"_s, {segundo.llave})
                 .toInt(),
             1);
    // A paid-off invoice is offered no more.
    const auto abiertas = pagos::Abiertos(e->s, ventas::LadoCxC(), kCliente);
    QCOMPARE(int(abiertas.size()), 1);
    QCOMPARE(abiertas[0].documento, u"T-2"_s);

    QVERIFY(bajas::DarDeBaja(e->s, u"CXC"_s, segundo.llave, u"DEPOSITO DEVUELTO"_s));
    QCOMPARE(Factura(c, u"T-1"_s), u"POR COBRAR 60 40"_s);
    QCOMPARE(SaldoCliente(c, kCliente), 110.0);
  }

  // The receipt's checks in their order, each with its words; nothing is written.
  void ReciboRechazado_data() {
    QTest::addColumn<QString>("caso");
    QTest::addColumn<QString>("mensaje");
    QTest::newRow("no right to add")
        << u"derechos"_s << u"Este usuario no tiene permisos para el registro de altas"_s;
    QTest::newRow("no client") << u"cliente"_s << u"Se requiere un número de cliente"_s;
    QTest::newRow("no method") << u"metodo"_s << u"Se requiere la entrada de un método de pago"_s;
    QTest::newRow("no bank") << u"banco"_s << u"Se requiere la entrada de un banco"_s;
    QTest::newRow("no annotation")
        << u"anotacion"_s << u"Se requiere la entrada de una anotación"_s;
    QTest::newRow("another client's invoice")
        << u"otro"_s << u"La factura T-1 no está por cobrar al cliente 9002"_s;
    QTest::newRow("only an amount above the balance")
        << u"excedido"_s << u"Se requiere la entrada de un abono de cliente"_s;
  }
  void ReciboRechazado() {
    QFETCH(QString, caso);
    QFETCH(QString, mensaje);
    auto e = ConFacturas();
    if (!e) return;
    Documento d = Recibo({Abono(u"T-1"_s, 10)});
    if (caso == u"derechos"_s) e->s.usuario.Set(u"CxC"_s, u"NSS"_s);
    if (caso == u"cliente"_s) d.encabezado.remove(u"cliente"_s);
    if (caso == u"metodo"_s || caso == u"banco"_s) d.encabezado.insert(caso, 0);
    if (caso == u"anotacion"_s) d.encabezado.insert(caso, u"  "_s);
    if (caso == u"otro"_s) d.encabezado.insert(u"cliente"_s, kOtro);
    if (caso == u"excedido"_s) d.partidas = {Abono(u"T-2"_s, 50.01)};
    Connection c(e->s.Cadena);
    const captura::Guardado g = captura::GuardarDocumento(e->s, ventas::CxC(), d);
    QCOMPARE(g.outcome.message, mensaje);
    // The demo's own receipts stay; none pays the test's invoices.
    QCOMPARE(c.Scalar(u"select count(*) from \"cxc detalles\" where factura in ('T-1', 'T-2')"_s)
                 .toInt(),
             0);
    QCOMPARE(Factura(c, u"T-1"_s), u"POR COBRAR 100 0"_s);
  }

  // October's balances between -2 and 2: T-3 owes 1.50, T-4 was overpaid by 0.50 and still
  // reads 'POR COBRAR'; T-2 (50) stays out. One settle receipt of 1.00 closes both, each row
  // under its own client.
  void SaldarSaldosPequenos() {
    auto e = ConFacturas();
    if (!e) return;
    Connection c(e->s.Cadena);
    QVERIFY(testing::InsertarFacturas(
        c, {},
        {{u"T-3"_s, kCliente, 20, kOctubre, 18.5}, {u"T-4"_s, kOtro, 100, kOctubre, 100.5}}));
    const auto facturas = pagos::Saldables(
        e->s, ventas::LadoCxC(),
        {.anio = kOctubre.year(), .mes = kOctubre.month(), .desde = -2, .hasta = 2});
    QCOMPARE(int(facturas.size()), 2);
    QCOMPARE(facturas[0].documento, u"T-3"_s);
    QCOMPARE(facturas[1].nombre, u"CLIENTE 9002"_s);
    QCOMPARE(pagos::SaldoFinal(facturas), 1.0);

    Documento d = Recibo({});
    d.encabezado.remove(u"cliente"_s);
    for (const auto& f : facturas) d.partidas.push_back({{u"factura"_s, f.documento}});
    QCOMPARE(captura::GuardarDocumento(e->s, ventas::CxCSaldar(), d).outcome.message,
             u"Se requiere la entrada de un periodo"_s);
    d.encabezado.insert(u"anio"_s, kOctubre.year());
    d.encabezado.insert(u"mes"_s, kOctubre.month());
    const captura::Guardado g = captura::GuardarDocumento(e->s, ventas::CxCSaldar(), d);
    QVERIFY2(g.outcome.ok, qPrintable(g.outcome.message));
    QCOMPARE(c.Scalar(u"select abono from cxc where pago = ?"_s, {g.llave}).toDouble(), 1.0);
    QCOMPARE(Factura(c, u"T-3"_s), u"LIQUIDADO 0 20"_s);
    QCOMPARE(Factura(c, u"T-4"_s), u"LIQUIDADO 0 100"_s);
    QCOMPARE(Factura(c, u"T-2"_s), u"POR COBRAR 50 0"_s);
    QCOMPARE(SaldoCliente(c, kCliente), 150.0);  // T-1 and T-2
    QCOMPARE(SaldoCliente(c, kOtro), 0.0);
    // Cancelled, the receipt gives each of its clients the cents back.
    QVERIFY(bajas::DarDeBaja(e->s, u"CXC"_s, g.llave, u"ERROR DE CAPTURA"_s));
    QCOMPARE(SaldoCliente(c, kCliente), 151.5);
    QCOMPARE(SaldoCliente(c, kOtro), -0.5);
  }
};

QTEST_GUILESS_MAIN(TestCuentasPorCobrar)
#include "tst_cuentas_por_cobrar.moc"
