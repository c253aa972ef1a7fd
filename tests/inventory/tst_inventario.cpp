// Adjustments, transfers and production orders saved through the capture engine on the demo
// company, told as the storekeeper's day: what each does to the warehouses, what is refused,
// and that the repair sweeps find nothing to put right afterwards.
#include <QSqlQuery>
#include <QTest>

#include "core/session_load.h"
#include "documents/bajas.h"
#include "documents/captura.h"
#include "inventory/familias_inventario.h"
#include "maintenance/sweeps.h"
#include "support/empresa_demo.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using captura::Documento;

namespace {

const QString kTornillo = u"1-00004"_s;
const QString kTaquete = u"1-00032"_s;

Session SesionDe(const testing::TestCompany& company) {
  Session s = company.MakeSession();
  CargarSesion(s);
  return s;
}

double Existencia(Connection& c, const QString& codigo, int almacen = 1) {
  return c.Scalar(u"select almacen%1 from productos where codigo = ?"_s.arg(almacen), {codigo})
      .toDouble();
}

QString Texto(Connection& c, const QString& sql, const QString& llave) {
  return c.Scalar(sql, {llave}).toString();
}

Documento Traspaso(const QVariant& de, const QVariant& a, std::vector<QVariantMap> partidas) {
  Documento d;
  d.encabezado = {{u"de"_s, de}, {u"a"_s, a}, {u"obs"_s, u"SURTIR SUCURSAL"_s}};
  d.partidas = std::move(partidas);
  return d;
}

QVariantMap Partida(const QString& codigo, double cantidad) {
  return {{u"codigo"_s, codigo}, {u"cantidad"_s, cantidad}};
}

// The finished product of the demo: the one with materials.
QString ProductoTerminado(Connection& c) {
  return c.Scalar(u"select codigo from \"productos consumos\" order by codigo"_s).toString();
}

// Every stock figure of the company, as one text to compare.
QString Existencias(Connection& c) {
  QSqlQuery q = c.Exec(
      u"select codigo, almacen1, almacen2, almacen3, almacen4, almacen5 from productos"
      u" order by codigo"_s);
  QStringList filas;
  while (q.next()) {
    QStringList fila{q.value(0).toString()};
    for (int i = 1; i <= 5; ++i) fila << QString::number(q.value(i).toDouble(), 'f', 4);
    filas << fila.join(u' ');
  }
  return filas.join(u'\n');
}

}  // namespace

class TestInventario : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // Warehouse 1 sends 3 screws and 2 plugs to warehouse 2: the one drops, the other rises, and
  // the transfer is priced. Lowering the screws to 1 moves only the difference; cancelling it
  // puts everything back where it was.
  void TraspasoMueveExistenciasYSuBajaLasDevuelve() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    Connection c(company->cadena());
    const double t1 = Existencia(c, kTornillo, 1), t2 = Existencia(c, kTornillo, 2);
    const double p1 = Existencia(c, kTaquete, 1), p2 = Existencia(c, kTaquete, 2);
    const captura::Guardado g = captura::GuardarDocumento(
        s, inventario::Traspasos(),
        Traspaso(u"ALMACEN1"_s, u"ALMACEN2"_s, {Partida(kTornillo, 3), Partida(kTaquete, 2)}));
    QVERIFY2(g.outcome.ok, qPrintable(g.outcome.message));
    QCOMPARE(s.TraspasoActual, g.llave);
    QCOMPARE(Existencia(c, kTornillo, 1), t1 - 3);
    QCOMPARE(Existencia(c, kTornillo, 2), t2 + 3);
    QCOMPARE(Existencia(c, kTaquete, 1), p1 - 2);
    QCOMPARE(Existencia(c, kTaquete, 2), p2 + 2);
    QCOMPARE(Texto(c, u"select status from traspasos where traspaso = ?"_s, g.llave),
             u"APLICADO"_s);
    QVERIFY(c.Scalar(u"select total from traspasos where traspaso = ?"_s, {g.llave}).toDouble() >
            0);

    captura::Leido leido = captura::LeerDocumento(s, inventario::Traspasos(), g.llave);
    QVERIFY(leido.outcome.ok && leido.modificable);
    leido.documento.partidas[0].insert(u"cantidad"_s, 1);
    const captura::Guardado cambio =
        captura::GuardarDocumento(s, inventario::Traspasos(), leido.documento);
    QVERIFY2(cambio.outcome.ok, qPrintable(cambio.outcome.message));
    QCOMPARE(Existencia(c, kTornillo, 1), t1 - 1);
    QCOMPARE(Existencia(c, kTornillo, 2), t2 + 1);

    const Outcome baja = bajas::DarDeBaja(s, u"TRASPASOS"_s, g.llave, u"SE CAPTURÓ DOS VECES"_s);
    QVERIFY2(baja.ok, qPrintable(baja.message));
    QCOMPARE(Existencia(c, kTornillo, 1), t1);
    QCOMPARE(Existencia(c, kTornillo, 2), t2);
    QCOMPARE(Existencia(c, kTaquete, 1), p1);
    QCOMPARE(Existencia(c, kTaquete, 2), p2);
    QCOMPARE(Texto(c, u"select status from traspasos where traspaso = ?"_s, g.llave), u"BAJA"_s);
  }

  // The checks of a transfer in their order, each with its words; nothing is written. All the
  // stock of the source warehouse may go.
  void TraspasoRevisado_data() {
    QTest::addColumn<QString>("caso");
    QTest::addColumn<QString>("mensaje");
    QTest::newRow("same warehouse") << u"mismo"_s << u"El traspaso debe ser de diferente tipo"_s;
    QTest::newRow("no observation") << u"obs"_s << u"Se requiere la entrada de una observación"_s;
    QTest::newRow("unknown code") << u"codigo"_s
                                  << u"Este código no existe en productos\n\nNOEXISTE"_s;
    QTest::newRow("short on the second row")
        << u"corto"_s
        << u"Existencias Insuficientes en almacén 3 !!!\n\nFila: 2\nCódigo: "_s + kTornillo;
    QTest::newRow("all the stock") << u"todo"_s << QString();
  }
  void TraspasoRevisado() {
    QFETCH(QString, caso);
    QFETCH(QString, mensaje);
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    s.empresa.Set(u"guardar_sin_existencias"_s, u"N"_s);
    Connection c(company->cadena());
    const double hay = Existencia(c, kTornillo, 3);
    const int traspasos = c.Scalar(u"select count(*) from traspasos"_s).toInt();
    Documento d = Traspaso(3, 4, {Partida(kTornillo, hay)});
    if (caso == u"mismo"_s) d.encabezado.insert(u"a"_s, u"ALMACEN3"_s);
    if (caso == u"obs"_s) d.encabezado.remove(u"obs"_s);
    if (caso == u"codigo"_s) d.partidas = {Partida(u"noexiste"_s, 1)};
    // Two rows of one product: together they pass the stock.
    if (caso == u"corto"_s) d.partidas = {Partida(kTornillo, hay), Partida(kTornillo, 1)};
    const captura::Guardado g = captura::GuardarDocumento(s, inventario::Traspasos(), d);
    QCOMPARE(g.outcome.message, mensaje);
    QCOMPARE(Existencia(c, kTornillo, 3), mensaje.isEmpty() ? 0.0 : hay);
    QCOMPARE(c.Scalar(u"select count(*) from traspasos"_s).toInt(),
             traspasos + (mensaje.isEmpty() ? 1 : 0));
  }

  // A count of warehouse 2: the screws counted at 7 leave 7 whatever the system said, the
  // snapshot of what it said stays on the row; a row with entries and exits applies their
  // difference; the total values the difference at cost.
  void AjusteDeConteo() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    Connection c(company->cadena());
    const double antes = Existencia(c, kTornillo, 2), taquetes = Existencia(c, kTaquete, 2);
    Documento d;
    d.encabezado = {{u"almacen"_s, u"ALMACEN2"_s}, {u"obs"_s, u"CONTEO FISICO"_s}};
    d.partidas = {{{u"codigo"_s, kTornillo}, {u"real"_s, 7}},
                  {{u"codigo"_s, kTaquete}, {u"entradas"_s, 5}, {u"salidas"_s, 2}}};
    Documento sin_obs = d;
    sin_obs.encabezado.remove(u"obs"_s);
    QCOMPARE(captura::GuardarDocumento(s, inventario::Ajustes(), sin_obs).outcome.message,
             u"Se requiere la entrada de una observación"_s);

    const captura::Guardado g = captura::GuardarDocumento(s, inventario::Ajustes(), d);
    QVERIFY2(g.outcome.ok, qPrintable(g.outcome.message));
    QCOMPARE(Existencia(c, kTornillo, 2), 7.0);
    QCOMPARE(Existencia(c, kTaquete, 2), taquetes + 3);
    QSqlQuery q = c.Exec(
        u"select existencias, entradas, salidas, \"real\", costo from"
        u" \"ajustes de inventario detalles\" where ajuste = ? order by item"_s,
        {g.llave});
    double total = 0;
    QVERIFY(q.next());
    QCOMPARE(q.value(0).toDouble(), antes);
    QCOMPARE(q.value(1).toDouble() - q.value(2).toDouble(), 7 - antes);
    QCOMPARE(q.value(3).toDouble(), 7.0);
    total += (7 - antes) * q.value(4).toDouble();
    QVERIFY(q.next());
    QCOMPARE(q.value(3).toDouble(), taquetes + 3);
    total += 3 * q.value(4).toDouble();
    q.finish();
    QVERIFY(
        qAbs(c.Scalar(u"select total from \"ajustes de inventario\" where ajuste = ?"_s, {g.llave})
                 .toDouble() -
             total) < 1e-6);
  }

  // An order for 2 sets takes each material out of warehouse 1 at once and leaves the set
  // alone; closing brings the 2 sets in, closing again nothing more; clearing the date takes
  // them out. A product without materials cannot be ordered.
  void ProduccionConsumeYCierraUnaVez() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    Connection c(company->cadena());
    const QString juego = ProductoTerminado(c);
    QVERIFY(!juego.isEmpty());
    const double juegos = Existencia(c, juego), tornillos = Existencia(c, kTornillo);
    Documento d;
    d.encabezado = {{u"codigo"_s, juego}, {u"cantidad"_s, 2}, {u"obs"_s, u"PEDIDO DE OBRA"_s}};
    const captura::Guardado g = captura::GuardarDocumento(s, inventario::Produccion(), d);
    QVERIFY2(g.outcome.ok, qPrintable(g.outcome.message));
    QCOMPARE(Existencia(c, kTornillo), tornillos - 2);
    QCOMPARE(Existencia(c, juego), juegos);
    QCOMPARE(Texto(c, u"select status from produccion where produccion = ?"_s, g.llave),
             u"EN PROCESO"_s);
    QVERIFY(c.Scalar(u"select costo from produccion where produccion = ?"_s, {g.llave}).toDouble() >
            0);

    const QDate hoy = QDate::currentDate();
    QVERIFY(inventario::CerrarProduccion(s, g.llave, hoy, u"JUAN"_s).ok);
    QVERIFY(inventario::CerrarProduccion(s, g.llave, hoy).ok);
    QCOMPARE(Existencia(c, juego), juegos + 2);
    QCOMPARE(Texto(c, u"select status from produccion where produccion = ?"_s, g.llave),
             u"CERRADA"_s);
    QCOMPARE(inventario::TerminoDe(s, g.llave), std::optional<QDate>(hoy));
    QVERIFY(inventario::CerrarProduccion(s, g.llave, std::nullopt).ok);
    QCOMPARE(Existencia(c, juego), juegos);
    QCOMPARE(Texto(c, u"select status from produccion where produccion = ?"_s, g.llave),
             u"EN PROCESO"_s);
    QCOMPARE(inventario::TerminoDe(s, g.llave), std::nullopt);

    Documento sin_materiales = d;
    sin_materiales.encabezado.insert(u"codigo"_s, kTornillo);
    QCOMPARE(captura::GuardarDocumento(s, inventario::Produccion(), sin_materiales).outcome.message,
             u"Se requiere al menos el registro de una partida"_s);
  }

  // A day of all three, one of them changed and one cancelled, and the order closed: the stock
  // the saves moved step by step is the stock the sweeps rebuild from every document.
  void LosBarridosNoCambianNada() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session s = SesionDe(*company);
    Connection c(company->cadena());
    const captura::Guardado t = captura::GuardarDocumento(
        s, inventario::Traspasos(), Traspaso(1, 5, {Partida(kTornillo, 4), Partida(kTaquete, 1)}));
    QVERIFY2(t.outcome.ok, qPrintable(t.outcome.message));
    captura::Leido leido = captura::LeerDocumento(s, inventario::Traspasos(), t.llave);
    leido.documento.encabezado.insert(u"a"_s, 4);  // the other branch after all
    QVERIFY(captura::GuardarDocumento(s, inventario::Traspasos(), leido.documento).outcome.ok);
    const captura::Guardado otro = captura::GuardarDocumento(
        s, inventario::Traspasos(), Traspaso(2, 1, {Partida(kTaquete, 1)}));
    QVERIFY(otro.outcome.ok);
    QVERIFY(bajas::DarDeBaja(s, u"TRASPASOS"_s, otro.llave, u"ERROR DE CAPTURA"_s).ok);
    Documento ajuste;
    ajuste.encabezado = {{u"almacen"_s, 4}, {u"obs"_s, u"CONTEO"_s}};
    ajuste.partidas = {{{u"codigo"_s, kTornillo}, {u"real"_s, 1}}};
    QVERIFY(captura::GuardarDocumento(s, inventario::Ajustes(), ajuste).outcome.ok);
    Documento orden;
    orden.encabezado = {
        {u"codigo"_s, ProductoTerminado(c)}, {u"cantidad"_s, 3}, {u"obs"_s, u"STOCK"_s}};
    const captura::Guardado p = captura::GuardarDocumento(s, inventario::Produccion(), orden);
    QVERIFY2(p.outcome.ok, qPrintable(p.outcome.message));
    QVERIFY(inventario::CerrarProduccion(s, p.llave, QDate::currentDate()).ok);

    const QString antes = Existencias(c);
    QVERIFY(mantenimiento::Manto1(s).ok);
    QVERIFY(mantenimiento::Manto2(s).ok);
    QCOMPARE(Existencias(c), antes);
  }
};

QTEST_GUILESS_MAIN(TestInventario)
#include "tst_inventario.moc"
