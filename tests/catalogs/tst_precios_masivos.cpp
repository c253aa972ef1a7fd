// Mass maintenance of costs and prices as the person in charge of a price list uses it: a
// spreadsheet pasted into the grid, costs that move the five price levels by the company's
// formula, final prices, new products from the same sheet, a product's code carried through
// the documents even when the change was cut short, and the price levels shown to a clerk.
#include <QTest>

#include "catalogs/cambio_codigo.h"
#include "catalogs/costos_masivos.h"
#include "catalogs/precios_producto.h"
#include "catalogs/producto_filas.h"
#include "catalogs/productos_cambio_codigo.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using costos_masivos::Fila;
using costos_masivos::Modo;
using testing::ColumnaDeProducto;
using testing::InsertarFila;
using testing::ProductoConMargenes;

namespace {

int Contar(Connection& c, const QString& tabla, const QString& condicion,
           const QVariantList& valores) {
  return c.Scalar(u"select count(*) from \""_s + tabla + u"\" where "_s + condicion, valores)
      .toInt();
}

Session SesionCon(const testing::TestCompany& company, const QString& formula) {
  Session session = company.MakeSession();
  if (!formula.isEmpty()) session.empresa.Set(formula, u"S"_s);
  return session;
}

}  // namespace

class TestPreciosMasivos : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // What a spreadsheet leaves on the clipboard: tabs between cells, a line break after each
  // row, quotes around a cell that holds a line break, a tab or a quote.
  void textoPegado_data() {
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QList<Fila>>("filas");
    QTest::newRow("two rows, closing line break")
        << u"A1\t10\r\nB2\t20\r\n"_s << QList<Fila>{{u"A1"_s, u"10"_s}, {u"B2"_s, u"20"_s}};
    QTest::newRow("no closing line break, empty cells kept")
        << u"A1\t\t3\nB2"_s << QList<Fila>{{u"A1"_s, QString(), u"3"_s}, {u"B2"_s}};
    QTest::newRow("quoted cell with line break, tab and doubled quote")
        << u"A1\t\"TORNILLO\n3/4\t\"\"X\"\"\"\t7\r\n"_s
        << QList<Fila>{{u"A1"_s, u"TORNILLO\n3/4\t\"X\""_s, u"7"_s}};
    QTest::newRow("a blank line is an empty row")
        << u"A1\n\nB2\n"_s << QList<Fila>{{u"A1"_s}, {QString()}, {u"B2"_s}};
    QTest::newRow("nothing") << QString() << QList<Fila>{};
  }
  void textoPegado() {
    QFETCH(QString, texto);
    QFETCH(QList<Fila>, filas);
    QCOMPARE(costos_masivos::LeerTextoPegado(texto), filas);
  }

  // A sheet with its heading, two costs, cells that are no cost (a 0, a negative figure, a
  // word), an empty row and one more cost: the run stops at the empty row and says so; the
  // cells without a cost and the product below the gap leave their products alone.
  void huecoTerminaEnEsaFila() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    for (const QString& codigo : {u"A1"_s, u"B2"_s, u"C3"_s}) {
      QVERIFY(ProductoConMargenes(c, codigo));
    }
    QVERIFY(ProductoConMargenes(c, u"D4"_s, 7.5));
    Session session = SesionCon(company, u"aplicar_utilidad_aritmetica"_s);
    const QList<Fila> filas = {{u"Código"_s, u"Costo"_s}, {u"a1"_s, u"10"_s},
                               {u"B2"_s, u"20"_s},        {u"D4"_s, u"0"_s},
                               {u"D4"_s, u"-4"_s},        {u"D4"_s, u"sin costo"_s},
                               {QString(), u"99"_s},      {u"C3"_s, u"30"_s}};
    const auto resultado = costos_masivos::GuardarCostos(session, filas, Modo::kActualizar, true);
    QVERIFY(resultado.outcome.ok);
    QCOMPARE(resultado.outcome.message, u"Los costos se han actualizado hasta la fila 7"_s);
    QCOMPARE(resultado.outcome.icon, MessageIcon::kInformation);
    QCOMPARE(resultado.fila, 7);
    QCOMPARE(resultado.productos, 2);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"A1"_s), 10.0);
    QCOMPARE(ColumnaDeProducto(c, u"precio1"_s, u"A1"_s), 13.0);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"B2"_s), 20.0);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"C3"_s), 5.0);
    QCOMPARE(ColumnaDeProducto(c, u"precio1"_s, u"C3"_s), 0.0);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"D4"_s), 7.5);
    QCOMPARE(ColumnaDeProducto(c, u"precio1"_s, u"D4"_s), 0.0);
    QCOMPARE(ColumnaDeProducto(c, u"venta"_s, u"D4"_s), 0.0);
  }

  // A new cost moves the five levels by the company's formula, unrounded; Venta and Precio
  // only when asked; without formula nothing at all is written, not even the cost.
  void costoMueveLosNiveles_data() {
    QTest::addColumn<QString>("formula");
    QTest::addColumn<bool>("venta_y_precio");
    QTest::addColumn<QList<double>>("esperado");  // costo, precio1..5, venta, precio
    const double f = 10.0;
    QTest::newRow("financial") << u"aplicar_utilidad_financiera"_s << false
                               << QList<double>{f,        f / 0.7, f / 0.75, f / 0.8,
                                                f / 0.85, f / 0.9, 0,        0};
    QTest::newRow("financial with venta and precio")
        << u"aplicar_utilidad_financiera"_s << true
        << QList<double>{f, f / 0.7, f / 0.75, f / 0.8, f / 0.85, f / 0.9, f / 0.7, f / 0.7 * 1.16};
    QTest::newRow("arithmetic with venta and precio")
        << u"aplicar_utilidad_aritmetica"_s << true
        << QList<double>{f, 13, 12.5, 12, 11.5, 11, 13, 15.08};
    QTest::newRow("no formula: nothing written")
        << QString() << true << QList<double>{5, 0, 0, 0, 0, 0, 0, 0};
  }
  void costoMueveLosNiveles() {
    VENTARIX_COMPANY(company);
    QFETCH(QString, formula);
    QFETCH(bool, venta_y_precio);
    QFETCH(QList<double>, esperado);
    Connection c(company.cadena());
    QVERIFY(ProductoConMargenes(c, u"T-10"_s));
    Session session = SesionCon(company, formula);
    const auto resultado = costos_masivos::GuardarCostos(session, {{u"T-10"_s, u"$10.00"_s}},
                                                         Modo::kActualizar, venta_y_precio);
    QCOMPARE(resultado.outcome.message, u"Los costos se han actualizado hasta la fila 2"_s);
    const QStringList columnas = {u"costo"_s,   u"precio1"_s, u"precio2"_s, u"precio3"_s,
                                  u"precio4"_s, u"precio5"_s, u"venta"_s,   u"precio"_s};
    for (int i = 0; i < columnas.size(); ++i) {
      const double leido = ColumnaDeProducto(c, columnas[i], u"T-10"_s);
      QVERIFY2(qFuzzyCompare(1 + leido, 1 + esperado[i]),
               qPrintable(columnas[i] + u" = "_s + QString::number(leido, 'g', 17)));
    }
  }

  // The same sheet in both modes: adding creates only the codes the catalogue lacks, with the
  // sheet's texts cleaned; updating touches only the codes it has.
  void agregarContraActualizar() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(ProductoConMargenes(c, u"VIEJO"_s, 5));
    Session session = SesionCon(company, u"aplicar_utilidad_aritmetica"_s);
    const QList<Fila> filas = {
        {u"viejo"_s, u"8"_s, u"otro nombre"_s, u"KG"_s, u"2"_s, u"3"_s, u"16"_s},
        {u"nuevo-1"_s, u"12.5"_s, u"Taladro\r\n'3/8'"_s, u"pza"_s, u"2"_s, u"3"_s, u"16"_s}};

    const auto agregados = costos_masivos::GuardarCostos(session, filas, Modo::kAgregar, false);
    QCOMPARE(agregados.outcome.message, u"Los productos se han agregado hasta la fila 3"_s);
    QCOMPARE(agregados.productos, 1);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"VIEJO"_s), 5.0);
    QCOMPARE(c.Scalar(u"select producto from productos where codigo = 'VIEJO'"_s).toString(),
             u"PRODUCTO VIEJO"_s);
    QSqlQuery nuevo = c.Exec(
        u"select producto, unidad, marca, linea, impuesto, costo, status, precio1 "
        "from productos where codigo = 'NUEVO-1'"_s);
    QVERIFY(nuevo.next());
    QCOMPARE(nuevo.value(0).toString(), u"TALADRO3/8"_s);
    QCOMPARE(nuevo.value(1).toString(), u"PZA"_s);
    QCOMPARE(nuevo.value(2).toInt(), 2);
    QCOMPARE(nuevo.value(3).toInt(), 3);
    QCOMPARE(nuevo.value(4).toDouble(), 16.0);
    QCOMPARE(nuevo.value(5).toDouble(), 12.5);
    QCOMPARE(nuevo.value(6).toString(), u"ALTA"_s);
    QCOMPARE(nuevo.value(7).toDouble(), 0.0);
    nuevo.finish();  // an open read would keep this connection on the old rows

    QVERIFY(testing::Escribir(c, u"delete from productos where codigo = 'NUEVO-1'"_s));
    const auto actualizados =
        costos_masivos::GuardarCostos(session, filas, Modo::kActualizar, false);
    QCOMPARE(actualizados.productos, 1);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"VIEJO"_s), 8.0);
    QCOMPARE(ColumnaDeProducto(c, u"precio1"_s, u"VIEJO"_s), 10.4);
    QCOMPARE(Contar(c, u"productos"_s, u"codigo = ?"_s, {u"NUEVO-1"_s}), 0);
  }

  // A row the catalogue cannot take stops the run at that row and cell, and undoes the rows
  // above it: the sheet can be fixed and saved again.
  void filaRechazadaDeshaceTodo_data() {
    QTest::addColumn<Fila>("mala");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<int>("columna");
    QTest::newRow("no brand") << Fila{u"X2"_s, u"1"_s, u"B"_s, u"PZA"_s, u"0"_s, u"1"_s}
                              << u"Se requiere la entrada de una marca"_s
                              << int(costos_masivos::kMarca);
    QTest::newRow("no line") << Fila{u"X2"_s, u"1"_s, u"B"_s, u"PZA"_s, u"4"_s, u"x"_s}
                             << u"Se requiere la entrada de una línea"_s
                             << int(costos_masivos::kLinea);
    QTest::newRow("credit note line")
        << Fila{u"dppp"_s, u"1"_s, u"B"_s, u"PZA"_s, u"1"_s, u"1"_s}
        << u"Este código se utiliza para notas de crédito"_s << int(costos_masivos::kCodigo);
  }
  void filaRechazadaDeshaceTodo() {
    VENTARIX_COMPANY(company);
    QFETCH(Fila, mala);
    QFETCH(QString, mensaje);
    QFETCH(int, columna);
    Session session = company.MakeSession();
    const QList<Fila> filas = {{u"X1"_s, u"1"_s, u"A"_s, u"PZA"_s, u"1"_s, u"1"_s}, mala};
    const auto resultado = costos_masivos::GuardarCostos(session, filas, Modo::kAgregar, false);
    QVERIFY(!resultado.outcome.ok);
    QCOMPARE(resultado.outcome.message, mensaje);
    QCOMPARE(resultado.outcome.icon, MessageIcon::kWarning);
    QCOMPARE(resultado.fila, 2);
    QCOMPARE(resultado.columna, columna);
    Connection c(company.cadena());
    QCOMPARE(Contar(c, u"productos"_s, u"1 = 1"_s, {}), 0);
  }

  // A margin of 100 has no financial price: the run stops there with the code named.
  void utilidadDeCienSinPrecio() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(ProductoConMargenes(c, u"A1"_s));
    QVERIFY(ProductoConMargenes(c, u"B2"_s));
    QVERIFY(testing::Escribir(c, u"update productos set utilidad3 = 100 where codigo = 'B2'"_s));
    Session session = SesionCon(company, u"aplicar_utilidad_financiera"_s);
    const auto resultado = costos_masivos::GuardarCostos(
        session, {{u"A1"_s, u"10"_s}, {u"B2"_s, u"10"_s}}, Modo::kActualizar, false);
    QVERIFY(!resultado.outcome.ok);
    QVERIFY2(resultado.outcome.message.contains(u"B2"_s), qPrintable(resultado.outcome.message));
    QCOMPARE(resultado.fila, 2);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"A1"_s), 5.0);
  }

  // Final prices: 116 with the product's 16 % tax leaves a sale price of 100; an empty price
  // leaves the product alone; adding takes Precio and Venta as typed.
  void netos() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(ProductoConMargenes(c, u"A1"_s));
    QVERIFY(ProductoConMargenes(c, u"B2"_s));
    QVERIFY(testing::Escribir(
        c, u"update productos set precio = 50, venta = 40 where codigo = 'B2'"_s));
    Session session = company.MakeSession();
    const Fila a1 = {u"A1"_s, u"1"_s, QString(), QString(), u"1"_s, u"1"_s, u"0"_s, u"116"_s};
    const Fila b2 = {u"B2"_s, u"1"_s, QString(), QString(), u"1"_s, u"1"_s, u"0"_s, QString()};
    const Fila c3 = {u"C3"_s, u"2"_s,  u"CABLE"_s, u"M"_s, u"1"_s,
                     u"1"_s,  u"16"_s, u"11.6"_s,  u"10"_s};
    auto resultado = costos_masivos::GuardarNetos(session, {a1, b2, c3}, Modo::kActualizar);
    QCOMPARE(resultado.outcome.message, u"Los precios se han actualizado hasta la fila 4"_s);
    QCOMPARE(resultado.productos, 1);
    QCOMPARE(ColumnaDeProducto(c, u"precio"_s, u"A1"_s), 116.0);
    QCOMPARE(ColumnaDeProducto(c, u"venta"_s, u"A1"_s), 100.0);
    QCOMPARE(ColumnaDeProducto(c, u"precio"_s, u"B2"_s), 50.0);
    QCOMPARE(ColumnaDeProducto(c, u"venta"_s, u"B2"_s), 40.0);

    resultado = costos_masivos::GuardarNetos(session, {a1, b2, c3}, Modo::kAgregar);
    QCOMPARE(resultado.outcome.message, u"Los productos se han agregado hasta la fila 4"_s);
    QCOMPARE(resultado.productos, 1);
    QCOMPARE(ColumnaDeProducto(c, u"precio"_s, u"C3"_s), 11.6);
    QCOMPARE(ColumnaDeProducto(c, u"venta"_s, u"C3"_s), 10.0);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"C3"_s), 2.0);
  }

  // A code change reaches a delivery note's row, the materials on both sides, and the
  // catalogue; then nothing is pending any more.
  void cambioDeCodigoLlegaALosDocumentos() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(InsertarFila(c, u"empresa"_s, {{u"numero"_s, 1}}));
    QVERIFY(ProductoConMargenes(c, u"VIEJO"_s));
    QVERIFY(InsertarFila(c, u"remisiones detalles"_s,
                         {{u"remision"_s, u"A-7"_s}, {u"codigo"_s, u"VIEJO"_s}}));
    QVERIFY(InsertarFila(c, u"productos consumos"_s,
                         {{u"codigo"_s, u"MESA"_s}, {u"equivale"_s, u"VIEJO"_s}}));
    QVERIFY(InsertarFila(c, u"productos consumos"_s,
                         {{u"codigo"_s, u"VIEJO"_s}, {u"equivale"_s, u"TORNILLO"_s}}));
    Session session = company.MakeSession();
    QVERIFY(productos::AnotarCambioDeCodigo(session, u"VIEJO"_s, u"NUEVO"_s).ok);
    session.CambioDeCodigoPendiente = true;

    QStringList tablas;
    cambio_codigo::Cambio leido;
    cambio_codigo::Avance avance;
    avance.cambio = [&](const cambio_codigo::Cambio& cambio) { leido = cambio; };
    avance.tabla = [&](const QString& tabla, int numero, int total) {
      tablas << tabla;
      QCOMPARE(numero, tablas.size());
      QCOMPARE(total, 13);
    };
    QVERIFY(cambio_codigo::Cambiar(session, avance).ok);
    QCOMPARE(leido.actual, u"VIEJO"_s);
    QCOMPARE(leido.nuevo, u"NUEVO"_s);
    QCOMPARE(tablas, cambio_codigo::Tablas());
    QCOMPARE(tablas.last(), u"productos"_s);
    QVERIFY(!session.CambioDeCodigoPendiente);
    QCOMPARE(
        c.Scalar(u"select codigo from \"remisiones detalles\" where remision = 'A-7'"_s).toString(),
        u"NUEVO"_s);
    QCOMPARE(Contar(c, u"productos consumos"_s, u"codigo = 'MESA' and equivale = 'NUEVO'"_s, {}),
             1);
    QCOMPARE(
        Contar(c, u"productos consumos"_s, u"codigo = 'NUEVO' and equivale = 'TORNILLO'"_s, {}), 1);
    QCOMPARE(Contar(c, u"productos"_s, u"codigo = 'NUEVO'"_s, {}), 1);
    QCOMPARE(Contar(c, u"productos"_s, u"codigo = 'VIEJO'"_s, {}), 0);
    QString error;
    QVERIFY(!cambio_codigo::Pendiente(c, &error).has_value());
    QVERIFY(error.isEmpty());

    // A company row without both codes has nothing waiting: the run ends at once and clears
    // the session's flag.
    QVERIFY(testing::Escribir(
        c, u"update empresa set \"codigo actual\" = 'NUEVO', \"codigo nuevo\" = null"_s));
    session.CambioDeCodigoPendiente = true;
    tablas.clear();
    QVERIFY(cambio_codigo::Cambiar(session, avance).ok);
    QVERIFY(!session.CambioDeCodigoPendiente);
    QVERIFY(tablas.isEmpty());
    QCOMPARE(Contar(c, u"productos"_s, u"codigo = 'NUEVO'"_s, {}), 1);
  }

  // A change cut short after `hechas` tables: the finished tables carry the new code, the
  // others the old one, and the change waits. The next start goes on: the finished tables
  // find nothing left, the others get their rows, and the change is done.
  void cambioInterrumpidoSeReanuda_data() {
    QTest::addColumn<int>("hechas");
    QTest::newRow("after the purchases") << 2;
    QTest::newRow("after the delivery notes") << 5;
    QTest::newRow("after the catalogue itself") << 13;
  }
  void cambioInterrumpidoSeReanuda() {
    VENTARIX_COMPANY(company);
    QFETCH(int, hechas);
    Connection c(company.cadena());
    QVERIFY(InsertarFila(c, u"empresa"_s, {{u"numero"_s, 1}}));
    QVERIFY(ProductoConMargenes(c, u"VIEJO"_s));
    const QStringList& tablas = cambio_codigo::Tablas();
    for (const QString& tabla : tablas.mid(0, 11)) {
      QVERIFY2(InsertarFila(c, tabla, {{u"codigo"_s, u"VIEJO"_s}}), qPrintable(tabla));
    }
    QVERIFY(InsertarFila(c, u"productos consumos"_s, {{u"codigo"_s, u"VIEJO"_s}}));
    Session session = company.MakeSession();
    QVERIFY(productos::AnotarCambioDeCodigo(session, u"VIEJO"_s, u"NUEVO"_s).ok);

    int corridas = 0;
    cambio_codigo::Avance corte;
    corte.detener = [&] { return ++corridas == hechas; };
    QVERIFY(cambio_codigo::Cambiar(session, corte).ok);
    QVERIFY(session.CambioDeCodigoPendiente);
    for (int i = 0; i < tablas.size(); ++i) {
      const QString codigo = i < hechas ? u"NUEVO"_s : u"VIEJO"_s;
      QCOMPARE(Contar(c, tablas[i], u"codigo = ?"_s, {codigo}), 1);
    }

    QList<int> filas;
    cambio_codigo::Avance reanudar;
    reanudar.hecho = [&](const QString&, int n) { filas << n; };
    QVERIFY(cambio_codigo::Cambiar(session, reanudar).ok);
    QVERIFY(!session.CambioDeCodigoPendiente);
    QCOMPARE(filas.size(), tablas.size());
    for (int i = 0; i < tablas.size(); ++i) {
      QCOMPARE(filas[i], i < hechas ? 0 : 1);
      QCOMPARE(Contar(c, tablas[i], u"codigo = 'VIEJO'"_s, {}), 0);
    }
    QString error;
    QVERIFY(!cambio_codigo::Pendiente(c, &error).has_value());
  }

  // The levels a clerk chooses from: each margin with its price and tax; a product without
  // cost or first margin shows its final price on every level; an unknown code shows zeros.
  void nivelesDePrecio_data() {
    QTest::addColumn<double>("costo");
    QTest::addColumn<double>("utilidad1");
    QTest::addColumn<double>("precio");
    QTest::addColumn<double>("venta");
    QTest::addColumn<QList<double>>("esperado");  // the five prices with tax
    QTest::newRow("levels with tax")
        << 10.0 << 30.0 << 99.0 << 80.0 << QList<double>{11.6, 23.2, 34.8, 46.4, 58.0};
    QTest::newRow("no cost: the final price")
        << 0.0 << 30.0 << 99.0 << 80.0 << QList<double>{99, 99, 99, 99, 99};
    QTest::newRow("no first margin, no final price: venta")
        << 10.0 << 0.0 << 0.0 << 80.0 << QList<double>{80, 80, 80, 80, 80};
  }
  void nivelesDePrecio() {
    VENTARIX_COMPANY(company);
    QFETCH(double, costo);
    QFETCH(double, utilidad1);
    QFETCH(double, precio);
    QFETCH(double, venta);
    QFETCH(QList<double>, esperado);
    Connection c(company.cadena());
    QVERIFY(ProductoConMargenes(c, u"P1"_s, costo));
    QVERIFY(testing::Escribir(
        c,
        u"update productos set precio = ?, venta = ?, utilidad1 = ?, utilidad2 = 20, "
        "precio1 = 10, precio2 = 20, precio3 = 30, precio4 = 40, precio5 = 50"_s,
        {precio, venta, utilidad1}));
    Session session = company.MakeSession();
    precios_producto::Niveles niveles;
    QVERIFY(precios_producto::Leer(session, u"P1"_s, niveles).ok);
    for (int k = 0; k < 5; ++k) {
      QCOMPARE(niveles[k].nombre, u"Precio %1"_s.arg(k + 1));
      QCOMPARE(niveles[k].precio, esperado[k]);
    }
    QCOMPARE(niveles[0].utilidad, utilidad1);
    QCOMPARE(niveles[1].utilidad, 20.0);

    QVERIFY(precios_producto::Leer(session, u"NO EXISTE"_s, niveles).ok);
    for (const auto& nivel : niveles) {
      QCOMPARE(nivel.utilidad, 0.0);
      QCOMPARE(nivel.precio, 0.0);
    }
  }
};

QTEST_MAIN(TestPreciosMasivos)
#include "tst_precios_masivos.moc"
