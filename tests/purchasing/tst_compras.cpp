// Purchases saved through the capture engine on the demo company, told as the buyer's day:
// goods into a warehouse, an expense, an order received, a cancellation, and the sweeps that
// find nothing to repair afterwards.
#include <QSqlQuery>
#include <QTest>

#include "core/session_load.h"
#include "app/ventarix_run.h"
#include "documents/bajas.h"
#include "documents/captura.h"
#include "maintenance/sweeps.h"
#include "purchasing/familia_compras.h"
#include "purchasing/importar_cfdi.h"
#include "sales/familias_ventas.h"
#include "support/document_rows.h"
#include "support/empresa_demo.h"
#include "support/escribir.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using captura::Documento;

namespace {

const QString kCodigo = u"1-00001"_s;
const QString kOtro = u"1-00002"_s;

QVariantMap Partida(const QString& codigo, double cantidad, double precio) {
  return {{u"codigo"_s, codigo}, {u"cantidad"_s, cantidad}, {u"precio"_s, precio}};
}

Documento Compra(const QString& movimiento, std::vector<QVariantMap> partidas) {
  Documento d;
  d.encabezado = {{u"proveedor"_s, 1},         {u"factura"_s, u"F-881"_s},
                  {u"obs"_s, u"MERCANCIA"_s},  {u"tipo"_s, u"CONTADO"_s},
                  {u"movimiento"_s, movimiento}, {u"plazo"_s, 30}};
  d.partidas = std::move(partidas);
  return d;
}

double Numero(Connection& c, const QString& sql, const QVariantList& valores = {}) {
  return c.Scalar(sql, valores).toDouble();
}
double Almacen(Connection& c, int n, const QString& codigo) {
  return Numero(c, u"select almacen%1 from productos where codigo = ?"_s.arg(n), {codigo});
}

QString Muestra(const QString& nombre) {
  return QStringLiteral(VENTARIX_SOURCE_DIR "/tests/purchasing/xml/") + nombre;
}

Session SesionDe(const testing::TestCompany& company) {
  Session s = company.MakeSession();
  CargarSesion(s);
  return s;
}

// What the sweeps rebuild: stock of the codes bought, the purchases' figures, the suppliers'
// balances.
QStringList Derivados(Connection& c) {
  QStringList v;
  QSqlQuery p = c.Exec(
      u"select codigo, almacen1, almacen2, almacen3, almacen4, almacen5 from productos "
      u"where codigo in (?, ?) order by codigo"_s,
      {kCodigo, kOtro});
  while (p.next()) {
    for (int i = 0; i < 6; ++i) v << p.value(i).toString();
  }
  QSqlQuery q = c.Exec(u"select compra, total, saldo, status from compras order by compra"_s);
  while (q.next()) v << q.value(0).toString() + u' ' + QString::number(q.value(1).toDouble(), 'f', 2) +
                            u' ' + QString::number(q.value(2).toDouble(), 'f', 2) + u' ' +
                            q.value(3).toString();
  QSqlQuery r = c.Exec(u"select numero, saldo from proveedores order by numero"_s);
  while (r.next()) v << r.value(0).toString() + u' ' + QString::number(r.value(1).toDouble(), 'f', 2);
  return v;
}

}  // namespace

class TestCompras : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // The buyer receives 10 units into warehouse 2 on two rows of one product (4 at a high
  // price, then 6 cheaper), part of a purchase order: the warehouse rises by 10, the later
  // row's price is the last cost, the supplier the last one, the cost rises to the highest
  // price (the demo's rule), the order is filled, the supplier owes the total. An expense
  // changes neither stock nor costs. Cancelling gives the 10 back; a purchase whose goods
  // were sold is refused naming the warehouse. The sweeps find nothing to repair.
  void UnDiaDeCompras() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    s.empresa.Set(u"guardar_sin_existencias"_s, u"N"_s);
    Connection c(company->cadena());
    const double almacen2 = Almacen(c, 2, kCodigo), almacen1 = Almacen(c, 1, kCodigo);
    const double costo = Numero(c, u"select costo from productos where codigo = ?"_s, {kCodigo});
    const qint32 anterior =
        c.Scalar(u"select proveedor1 from productos where codigo = ?"_s, {kCodigo}).toInt();
    QVERIFY(testing::InsertarFila(c, u"ordenes de compra"_s,
                                  {{u"orden"_s, u"OC-1"_s}, {u"serie"_s, u"OC"_s}, {u"folio"_s, 1},
                                   {u"proveedor"_s, 1}, {u"status"_s, u"POR SURTIR"_s}}));
    QVERIFY(testing::InsertarFila(c, u"ordenes de compra detalles"_s,
                                  {{u"orden"_s, u"OC-1"_s}, {u"item"_s, 1}, {u"codigo"_s, kCodigo},
                                   {u"cantidad"_s, 10}, {u"surtir"_s, 10}, {u"precio"_s, costo}}));
    QVariantMap cara = Partida(kCodigo, 4, costo * 2);
    QVariantMap barata = Partida(kCodigo, 6, costo / 2);
    cara.insert(u"orden"_s, u"OC-1"_s);
    barata.insert(u"orden"_s, u"OC-1"_s);
    barata.insert(u"caducidad"_s, QDate(2027, 3, 31));
    const captura::Guardado g =
        captura::GuardarDocumento(s, compras::Compras(), Compra(u"ALMACEN2"_s, {cara, barata}));
    QVERIFY2(g.outcome.ok, qPrintable(g.outcome.message));
    QCOMPARE(s.CompraActual, g.llave);
    QCOMPARE(Almacen(c, 2, kCodigo), almacen2 + 10);
    QCOMPARE(Almacen(c, 1, kCodigo), almacen1);
    QSqlQuery p = c.Exec(
        u"select \"ultimo costo\", proveedor1, proveedor2, costo, \"fecha ultima compra\" "
        u"from productos where codigo = ?"_s,
        {kCodigo});
    QVERIFY(p.next());
    QCOMPARE(p.value(0).toDouble(), std::round(costo / 2 * 100) / 100);
    QCOMPARE(p.value(1).toInt(), 1);
    QCOMPARE(p.value(2).toInt(), 1);  // the same supplier twice: its own previous one
    QVERIFY2(qAbs(p.value(3).toDouble() - costo * 2) < 0.01, qPrintable(p.value(3).toString()));
    const QDate fecha =
        c.Scalar(u"select fecha from compras where compra = ?"_s, {g.llave}).toDateTime().date();
    QCOMPARE(p.value(4).toDateTime().date(), fecha);
    p.finish();
    Q_UNUSED(anterior);
    QCOMPARE(c.Scalar(u"select status from \"ordenes de compra\" where orden = 'OC-1'"_s).toString(),
             u"SURTIDO"_s);
    QVERIFY(c.Scalar(u"select caducidad from \"compras detalles\" where compra = ? and item = 1"_s,
                     {g.llave})
                .isNull());
    QCOMPARE(c.Scalar(u"select caducidad from \"compras detalles\" where compra = ? and item = 2"_s,
                      {g.llave})
                 .toDateTime()
                 .date(),
             QDate(2027, 3, 31));
    const double total = Numero(c, u"select total from compras where compra = ?"_s, {g.llave});
    QVERIFY(total > 0);
    QCOMPARE(c.Scalar(u"select status from compras where compra = ?"_s, {g.llave}).toString(),
             u"POR PAGAR"_s);
    QCOMPARE(Numero(c, u"select saldo from compras where compra = ?"_s, {g.llave}),
             std::round(total * 100) / 100);  // the balance is kept to cents

    // An expense: nothing moves in stock nor in the costs.
    const double ultimo = Numero(c, u"select \"ultimo costo\" from productos where codigo = ?"_s,
                                 {kCodigo});
    const captura::Guardado gasto = captura::GuardarDocumento(
        s, compras::Compras(), Compra(u"GASTOS"_s, {Partida(kCodigo, 3, costo * 5)}));
    QVERIFY2(gasto.outcome.ok, qPrintable(gasto.outcome.message));
    QCOMPARE(Almacen(c, 2, kCodigo), almacen2 + 10);
    QCOMPARE(Almacen(c, 1, kCodigo), almacen1);
    QCOMPARE(Numero(c, u"select \"ultimo costo\" from productos where codigo = ?"_s, {kCodigo}),
             ultimo);
    QVERIFY(qAbs(Numero(c, u"select costo from productos where codigo = ?"_s, {kCodigo}) -
                 costo * 2) < 0.01);

    // Cancelled, the purchase gives the 10 units back.
    QVERIFY(bajas::DarDeBaja(s, u"COMPRAS"_s, g.llave, u"ERROR DE CAPTURA"_s).ok);
    QCOMPARE(Almacen(c, 2, kCodigo), almacen2);

    // Goods bought into warehouse 3 and sold from there cannot be returned to the supplier.
    const double almacen3 = Almacen(c, 3, kOtro);
    const captura::Guardado tercera = captura::GuardarDocumento(
        s, compras::Compras(), Compra(u"ALMACEN3"_s, {Partida(kOtro, 5, 10)}));
    QVERIFY2(tercera.outcome.ok, qPrintable(tercera.outcome.message));
    Session tienda3 = s;
    tienda3.Tienda = 3;
    Documento nota;
    nota.encabezado = {{u"cliente"_s, 2}, {u"obs"_s, u"MOSTRADOR"_s}, {u"tipo"_s, u"DIRECTA"_s},
                       {u"metodo"_s, 1}};
    nota.partidas = {QVariantMap{{u"codigo"_s, kOtro}, {u"cantidad"_s, almacen3 + 5}}};
    const captura::Guardado vendida = captura::GuardarDocumento(tienda3, ventas::Remisiones(), nota);
    QVERIFY2(vendida.outcome.ok, qPrintable(vendida.outcome.message));
    const Outcome negada = bajas::DarDeBaja(s, u"COMPRAS"_s, tercera.llave, u"DEVOLUCION"_s);
    QVERIFY(!negada.ok);
    QVERIFY2(negada.message.contains(u"ALMACEN3"_s), qPrintable(negada.message));
    QCOMPARE(Almacen(c, 3, kOtro), 0.0);

    const QStringList antes = Derivados(c);
    QVERIFY(mantenimiento::Manto1(s).ok);
    QVERIFY(mantenimiento::Manto2(s).ok);
    QCOMPARE(Derivados(c), antes);
  }

  // The checks stop a purchase in their order, each with its words; nothing is written.
  void CompraRechazada_data() {
    QTest::addColumn<QString>("caso");
    QTest::addColumn<QString>("mensaje");
    QTest::newRow("no right to add")
        << u"derechos"_s << u"Este usuario no tiene permisos para el registro de altas"_s;
    QTest::newRow("no type") << u"tipo"_s << u"Se requiere la entrada de un tipo de compra"_s;
    QTest::newRow("no reference")
        << u"referencia"_s << u"Se requiere la entrada de una remisión o una factura"_s;
    QTest::newRow("no observation")
        << u"obs"_s << u"Se requiere la entrada de una observación"_s;
    QTest::newRow("no rows") << u"partidas"_s
                             << u"Se requiere al menos el registro de una partida"_s;
    QTest::newRow("unknown code")
        << u"codigo"_s << u"Se requiere una descripción ó unidad para la fila: 1"_s;
  }
  void CompraRechazada() {
    QFETCH(QString, caso);
    QFETCH(QString, mensaje);
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    Connection c(company->cadena());
    Documento d = Compra(u"ALMACEN1"_s, {Partida(kCodigo, 3, 10)});
    if (caso == u"derechos"_s) s.usuario.Set(u"Compras"_s, u"NSS"_s);
    if (caso == u"tipo"_s) d.encabezado.remove(u"tipo"_s);
    if (caso == u"referencia"_s) d.encabezado.remove(u"factura"_s);
    if (caso == u"obs"_s) d.encabezado.remove(u"obs"_s);
    if (caso == u"partidas"_s) d.partidas.clear();
    if (caso == u"codigo"_s) d.partidas = {Partida(u"NOEXISTE"_s, 1, 1)};
    const double antes = Almacen(c, 1, kCodigo);
    const int compras = c.Scalar(u"select count(*) from compras"_s).toInt();
    const captura::Guardado g = captura::GuardarDocumento(s, compras::Compras(), d);
    QCOMPARE(g.outcome.message, mensaje);
    QCOMPARE(c.Scalar(u"select count(*) from compras"_s).toInt(), compras);
    QCOMPARE(Almacen(c, 1, kCodigo), antes);
  }

  // A supplier's invoice of each version gives its number and its three concepts: codes,
  // quantities and unit prices; a file that is not one says so and gives no rows.
  void FacturaDeProveedor_data() {
    QTest::addColumn<QString>("archivo");
    QTest::addColumn<QString>("factura");
    QTest::newRow("CFDi 3.2") << u"proveedor_cfdi32.xml"_s << u"PA321"_s;
    QTest::newRow("CFDI 3.3") << u"proveedor_cfdi33.xml"_s << u"PC333"_s;
    QTest::newRow("CFDI 4.0") << u"proveedor_cfdi40.xml"_s << u"PB404"_s;
    QTest::newRow("not a CFDI") << u"no_es_cfdi.xml"_s << QString();
    QTest::newRow("not XML") << u"hacer_muestras.py"_s << QString();
  }
  void FacturaDeProveedor() {
    QFETCH_GLOBAL(QString, engine);
    if (engine != u"sqlite"_s) QSKIP("reads a file only");
    QFETCH(QString, archivo);
    QFETCH(QString, factura);
    const compras::FacturaDeProveedor leida = compras::LeerFacturaDeProveedor(Muestra(archivo));
    if (factura.isEmpty()) {
      QVERIFY(leida.outcome.message.startsWith(u"El archivo no es un CFD o CFDi válido"_s));
      QVERIFY(leida.partidas.empty());
      return;
    }
    QVERIFY2(leida.outcome.ok, qPrintable(leida.outcome.message));
    QCOMPARE(leida.Factura(), factura);
    QStringList filas;
    for (const QVariantMap& p : leida.partidas) {
      filas << p.value(u"codigo"_s).toString() + u' ' + p.value(u"cantidad"_s).toString() + u' ' +
                   p.value(u"precio"_s).toString();
    }
    QCOMPARE(filas, (QStringList{u"1-00001 10 12.5"_s, u"1-00002 4 30"_s, u"1-00003 2.5 8.2"_s}));
  }

  // The command line saves a CFDI 4.0 as a purchase into warehouse 1 and prints its key.
  void ImportadaDesdeLaLineaDeOrdenes() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Connection c(company->cadena());
    const double antes = Almacen(c, 1, kCodigo);
    const testing::Run run = testing::Ventarix(
        {u"compra"_s, u"importar"_s, Muestra(u"proveedor_cfdi40.xml"_s), u"--empresa"_s,
         company->path(), u"--proveedor"_s, u"1"_s, u"--movimiento"_s, u"ALMACEN1"_s});
    QVERIFY2(run.code == 0, qPrintable(testing::Describe(run)));
    const QString llave = run.out.trimmed();
    QCOMPARE(c.Scalar(u"select factura from compras where compra = ?"_s, {llave}).toString(),
             u"PB404"_s);
    QCOMPARE(Almacen(c, 1, kCodigo), antes + 10);
    QCOMPARE(Numero(c, u"select count(*) from \"compras detalles\" where compra = ?"_s, {llave}),
             3.0);
  }
};

QTEST_GUILESS_MAIN(TestCompras)
#include "tst_compras.moc"
