// Payments to suppliers on the demo company, told as the treasurer's day: a cheque that pays
// one purchase off and another in part, the next cheque of each bank, a payment cancelled, the
// checks in their order; and the maintenance sweeps finding every figure as the saves left it.
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

#include "core/session_load.h"
#include "documents/bajas.h"
#include "documents/captura.h"
#include "maintenance/sweeps.h"
#include "purchasing/compras_por_pagar.h"
#include "purchasing/cuentas_por_pagar.h"
#include "purchasing/familias_proveedor.h"
#include "support/empresa_demo.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using captura::Documento;

namespace {

constexpr qint32 kProveedor = 9001;
constexpr qint32 kOtro = 9002;
constexpr qint32 kBanco = 2;
const QDate kOctubre(2026, 10, 5);

QVariantMap Abono(const QString& compra, double abono) {
  return {{u"compra"_s, compra}, {u"abono"_s, abono}};
}

Documento Cheque(const QString& cheque, std::vector<QVariantMap> partidas) {
  Documento d;
  d.encabezado = {{u"proveedor"_s, kProveedor},
                  {u"banco"_s, kBanco},
                  {u"cheque"_s, cheque},
                  {u"beneficiario"_s, u"FERRETERA DEL NORTE"_s},
                  {u"anotacion"_s, u"PAGO FACTURAS"_s}};
  d.partidas = std::move(partidas);
  return d;
}

// The demo company with supplier 9001 owed purchases C-1 (100, the older) and C-2 (50).
std::optional<testing::EmpresaConSesion> ConCompras() {
  return testing::EmpresaDemoCon([](Connection& c) {
    return testing::InsertarCompras(
        c, {kProveedor, kOtro},
        {{u"C-1"_s, kProveedor, 100, kOctubre.addDays(-20)}, {u"C-2"_s, kProveedor, 50, kOctubre}});
  });
}

// "status saldo abonos" of a purchase.
QString Compra(Connection& c, const QString& compra) {
  QSqlQuery q = c.Exec(u"select status, saldo, abonos from compras where compra = ?"_s, {compra});
  if (!q.next()) return u"no existe"_s;
  return u"%1 %2 %3"_s.arg(q.value(0).toString())
      .arg(q.value(1).toDouble())
      .arg(q.value(2).toDouble());
}

double SaldoProveedor(Connection& c, qint32 proveedor) {
  return c.Scalar(u"select saldo from proveedores where numero = ?"_s, {proveedor}).toDouble();
}

// Every balance, status and pending quantity the sweeps derive, as one text.
QString Derivados(Connection& c) {
  QString texto;
  for (const QString& sentencia :
       {u"select compra, status, saldo, abonos, descuentos from compras order by compra"_s,
        u"select numero, saldo from proveedores order by numero"_s,
        u"select factura, status, saldo from facturas order by factura"_s,
        u"select numero, saldo from clientes order by numero"_s,
        u"select orden, status, total from \"ordenes de compra\" order by orden"_s,
        u"select orden, item, surtir from \"ordenes de compra detalles\" order by orden, item"_s,
        u"select nota, total from \"notas proveedor\" order by nota"_s}) {
    QSqlQuery q = c.Exec(sentencia);
    while (q.next()) {
      for (int i = 0; i < q.record().count(); ++i) texto += q.value(i).toString() + u' ';
      texto += u'\n';
    }
  }
  return texto;
}

}  // namespace

class TestCuentasPorPagar : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // Cheque 9 of bank 2 pays C-1 in full and 20 of C-2: C-1 is 'LIQUIDADA', the supplier is
  // owed 30. Cheque 10 pays 30 more, and the bank's next cheque is 11 (not 10: the numbers are
  // text); bank 1 still starts at 1. Cancelling cheque 10 gives C-2 its 30 back, and the
  // purchasing office then orders 4 of a product and sends back one unit of C-2 on a credit
  // note of 20, which leaves C-2 owing 10. The sweeps find nothing to mend.
  void ChequesOrdenYNota() {
    auto e = ConCompras();
    if (!e) return;
    Connection c(e->s.Cadena);
    QCOMPARE(compras::SiguientesDelBanco(c, kBanco).cheque, 1);
    const captura::Guardado primero = captura::GuardarDocumento(
        e->s, compras::CxP(), Cheque(u"9"_s, {Abono(u"C-1"_s, 100), Abono(u"C-2"_s, 20)}));
    QVERIFY2(primero.outcome.ok, qPrintable(primero.outcome.message));
    QVERIFY(primero.llave.startsWith(e->s.SerieCxP + u'-'));
    QCOMPARE(Compra(c, u"C-1"_s), u"LIQUIDADA 0 100"_s);
    QCOMPARE(Compra(c, u"C-2"_s), u"POR PAGAR 30 20"_s);
    QCOMPARE(SaldoProveedor(c, kProveedor), 30.0);
    QCOMPARE(SaldoProveedor(c, kOtro), 0.0);
    QCOMPARE(c.Scalar(u"select abono from cxp where pago = ?"_s, {primero.llave}).toDouble(),
             120.0);
    const auto abiertas = pagos::Abiertos(e->s, compras::LadoCxP(), kProveedor);
    QCOMPARE(int(abiertas.size()), 1);
    QCOMPARE(abiertas[0].referencia, u"FC-2/RC-2"_s);

    const captura::Guardado segundo =
        captura::GuardarDocumento(e->s, compras::CxP(), Cheque(u"10"_s, {Abono(u"C-2"_s, 30)}));
    QVERIFY2(segundo.outcome.ok, qPrintable(segundo.outcome.message));
    QCOMPARE(Compra(c, u"C-2"_s), u"LIQUIDADA 0 50"_s);
    QCOMPARE(compras::SiguientesDelBanco(c, kBanco).cheque, 11);
    QCOMPARE(compras::SiguientesDelBanco(c, 1).cheque, 1);

    QVERIFY(bajas::DarDeBaja(e->s, u"CXP"_s, segundo.llave, u"CHEQUE CANCELADO"_s));
    QCOMPARE(Compra(c, u"C-2"_s), u"POR PAGAR 30 20"_s);
    QCOMPARE(SaldoProveedor(c, kProveedor), 30.0);

    const QString codigo = c.Scalar(u"select min(codigo) from productos"_s).toString();
    Documento orden;
    orden.encabezado = {{u"proveedor"_s, kProveedor}, {u"tipo"_s, u"DIRECTA"_s}};
    orden.partidas = {{{u"codigo"_s, codigo}, {u"cantidad"_s, 4}, {u"precio"_s, 10}}};
    const captura::Guardado ordenada =
        captura::GuardarDocumento(e->s, compras::OrdenesCompra(), orden);
    QVERIFY2(ordenada.outcome.ok, qPrintable(ordenada.outcome.message));
    QSqlQuery q = c.Exec(
        u"select o.status, d.surtir, d.descripcion from \"ordenes de compra\" o, "
        u"\"ordenes de compra detalles\" d where o.orden = d.orden and o.orden = ?"_s,
        {ordenada.llave});
    QVERIFY(q.next());
    QCOMPARE(q.value(0).toString(), u"POR SURTIR"_s);
    QCOMPARE(q.value(1).toDouble(), 4.0);
    QVERIFY(!q.value(2).toString().isEmpty());  // the catalogue's description
    q.finish();  // a SQLite reader left open would keep seeing the company as it is now

    Documento nota;
    nota.encabezado = {{u"proveedor"_s, kProveedor}, {u"nota proveedor"_s, u"NC-77"_s}};
    nota.partidas = {{{u"compra"_s, u"C-2"_s},
                      {u"codigo"_s, codigo},
                      {u"cantidad"_s, 1},
                      {u"precio"_s, 20},
                      {u"impuesto"_s, 0}}};
    nota.partidas[0].insert(u"compra"_s, u"C-9"_s);
    QCOMPARE(captura::GuardarDocumento(e->s, compras::NotasProveedor(), nota).outcome.message,
             u"La compra C-9 no es del proveedor 9001"_s);
    nota.partidas[0].insert(u"compra"_s, u"C-2"_s);
    QVERIFY(captura::GuardarDocumento(e->s, compras::NotasProveedor(), nota).outcome.ok);
    QCOMPARE(Compra(c, u"C-2"_s), u"POR PAGAR 10 20"_s);
    QCOMPARE(SaldoProveedor(c, kProveedor), 10.0);

    const QString antes = Derivados(c);
    QVERIFY(mantenimiento::Manto1(e->s).ok);
    QVERIFY(mantenimiento::Manto2(e->s).ok);
    QCOMPARE(Derivados(c), antes);
  }

  // The payment's checks in their order, each with its words; nothing is written.
  void PagoRechazado_data() {
    QTest::addColumn<QString>("caso");
    QTest::addColumn<QString>("mensaje");
    QTest::newRow("no right to add")
        << u"derechos"_s << u"Este usuario no tiene permisos para el registro de altas"_s;
    QTest::newRow("no supplier") << u"proveedor"_s << u"Se requiere un número de proveedor"_s;
    QTest::newRow("no bank") << u"banco"_s << u"Se requiere la entrada de un banco"_s;
    QTest::newRow("no beneficiary")
        << u"beneficiario"_s << u"Se requiere la entrada de un beneficiario"_s;
    QTest::newRow("no annotation")
        << u"anotacion"_s << u"Se requiere la entrada de una anotación"_s;
    QTest::newRow("another supplier's purchase")
        << u"otro"_s << u"La compra C-1 no está por pagar al proveedor 9002"_s;
    QTest::newRow("only an amount above the balance")
        << u"excedido"_s << u"Se requiere la entrada de un abono"_s;
  }
  void PagoRechazado() {
    QFETCH(QString, caso);
    QFETCH(QString, mensaje);
    auto e = ConCompras();
    if (!e) return;
    Documento d = Cheque(u"1"_s, {Abono(u"C-1"_s, 10)});
    if (caso == u"derechos"_s) e->s.usuario.Set(u"CxP"_s, u"NSS"_s);
    if (caso == u"proveedor"_s || caso == u"banco"_s) d.encabezado.insert(caso, 0);
    if (caso == u"beneficiario"_s || caso == u"anotacion"_s) d.encabezado.insert(caso, u" "_s);
    if (caso == u"otro"_s) d.encabezado.insert(u"proveedor"_s, kOtro);
    if (caso == u"excedido"_s) d.partidas = {Abono(u"C-2"_s, 50.01)};
    Connection c(e->s.Cadena);
    QCOMPARE(captura::GuardarDocumento(e->s, compras::CxP(), d).outcome.message, mensaje);
    // The demo's own payments stay; none pays the test's purchases.
    QCOMPARE(
        c.Scalar(u"select count(*) from \"cxp detalles\" where compra in ('C-1', 'C-2')"_s).toInt(),
        0);
    QCOMPARE(Compra(c, u"C-1"_s), u"POR PAGAR 100 0"_s);
  }
};

QTEST_GUILESS_MAIN(TestCuentasPorPagar)
#include "tst_cuentas_por_pagar.moc"
