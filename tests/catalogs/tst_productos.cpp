// The product catalogue on both engines: the checks of saving in their order, codes reserved,
// taken, consecutive and alternate, what a saved product holds, the quick prices, the code
// change noted for the carrying through, and a brand's margins pushed into its products.
#include <QTest>

#include "catalogs/lineas.h"
#include "catalogs/marcas.h"
#include "catalogs/precios_rapidos.h"
#include "catalogs/productos.h"
#include "catalogs/productos_cambio_codigo.h"
#include "catalogs/productos_codigos.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::productos;
using namespace Qt::StringLiterals;

namespace {

const QString kModificar = u"EnCompras_Modificar_Costos_y_Precios"_s;
const QString kAritmetica = u"Aplicar_Utilidad_Aritmetica"_s;
const QString kFinanciera = u"Aplicar_Utilidad_Financiera"_s;
const QString kDeMarcas = u"Aplicar_Utilidades_De_Marcas_En_Productos"_s;

// A clerk with every right on the three catalogues.
Session Sesion(const testing::TestCompany& company, const QStringList& banderas = {}) {
  Session s = company.MakeSession();
  for (const QString& columna : {u"productos"_s, u"marcas"_s, u"lineas"_s}) {
    s.usuario.Set(columna, u"SSS"_s);
  }
  for (const QString& bandera : banderas) s.empresa.Set(bandera, u"S"_s);
  return s;
}

bool Fila(Connection& c, const QString& tabla, const QVariantMap& valores) {
  QString error;
  if (testing::InsertarFila(c, tabla, valores, &error)) return true;
  qWarning() << error;
  return false;
}

bool Guardado(Connection& c, const QString& codigo, const QVariantMap& columnas = {}) {
  QVariantMap fila{{u"codigo"_s, codigo}, {u"producto"_s, u"ARTICULO "_s + codigo}};
  for (auto it = columnas.begin(); it != columnas.end(); ++it) fila[it.key()] = it.value();
  return Fila(c, u"productos"_s, fila);
}

Producto Nuevo(const QString& codigo) {
  Producto p;
  p.codigo = codigo;
  p.producto = u"TORNILLO 1/4"_s;
  p.unidad = u"PZA"_s;
  p.marca = 1;
  p.linea = 1;
  return p;
}

QVariant Valor(Connection& c, const QString& columna, const QString& codigo) {
  return c.Scalar(u"select "_s + columna + u" from productos where codigo = ?"_s, {codigo});
}

}  // namespace

class TestProductos : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // ---- The checks of saving, in order ----

  // The catalogue holds OTRO with alternates X1, X2, X3, and MIO with alternate M1.
  void Revisar_data() {
    QTest::addColumn<QVariantMap>("cambios");
    QTest::addColumn<QString>("derechos");
    QTest::addColumn<bool>("alta");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("campo");
    const auto fila = [](const char* nombre, QVariantMap cambios, bool alta, QString mensaje = {},
                         QString campo = {}, QString derechos = u"SSS"_s) {
      QTest::newRow(nombre) << cambios << derechos << alta << mensaje << campo;
    };
    const QString alterno = u"Este código alterno ya existe en el código: \nOTRO\nARTICULO OTRO"_s;
    const QString reservado = u"Este código se utiliza para notas de crédito"_s;
    fila("sin derecho de alta", {{u"codigo"_s, u"DPPP"_s}}, true,
         u"Este usuario no tiene permisos para el registro de altas"_s, {}, u"NSS"_s);
    fila("sin derecho de cambio", {}, false,
         u"Este usuario no tiene permisos para cambios de registros"_s, {}, u"SSN"_s);
    fila("código reservado antes que la marca", {{u"codigo"_s, u"DPPP"_s}, {u"marca"_s, 0}}, true,
         reservado, u"Codigo"_s);
    fila("reservado en minúsculas", {{u"codigo"_s, u"dppp"_s}}, true, reservado, u"Codigo"_s);
    fila("marca antes que línea", {{u"marca"_s, 0}, {u"linea"_s, 0}}, true,
         u"Se requiere la entrada de una marca"_s, u"Marca"_s);
    fila("línea", {{u"linea"_s, 0}}, false, u"Se requiere la entrada de una línea"_s, u"Linea"_s);
    fila("alterno 1 es el 2 de otro", {{u"codigo1"_s, u"X2"_s}}, true, alterno, u"Codigo1"_s);
    fila("alterno 3 es el 1 de otro", {{u"codigo3"_s, u"X1"_s}}, false, alterno, u"Codigo3"_s);
    fila("alterno antes que código tomado", {{u"codigo"_s, u"OTRO"_s}, {u"codigo2"_s, u"M1"_s}},
         true, u"Este código alterno ya existe en el código: \nMIO\nARTICULO MIO"_s, u"Codigo2"_s);
    fila("el alterno propio al cambiar", {{u"codigo1"_s, u"M1"_s}}, false);
    fila("código tomado al agregar", {{u"codigo"_s, u"OTRO"_s}}, true,
         u"Este código ya existe en el catálogo de productos"_s, u"Codigo"_s);
    fila("código vacío al agregar", {{u"codigo"_s, u"  "_s}}, true,
         u"Se requiere la entrada de un código"_s, u"Codigo"_s);
    fila("todo en orden", {{u"codigo1"_s, u"NUEVO1"_s}}, true);
  }

  void Revisar() {
    VENTARIX_COMPANY(company);
    QFETCH(QVariantMap, cambios);
    QFETCH(QString, derechos);
    QFETCH(bool, alta);
    QFETCH(QString, mensaje);
    QFETCH(QString, campo);
    Session s = Sesion(company);
    s.usuario.Set(u"productos"_s, derechos);
    Connection c(s.Cadena);
    QVERIFY(Guardado(c, u"OTRO"_s,
                     {{u"codigo1"_s, u"X1"_s}, {u"codigo2"_s, u"X2"_s}, {u"codigo3"_s, u"X3"_s}}));
    QVERIFY(Guardado(c, u"MIO"_s, {{u"codigo1"_s, u"M1"_s}}));
    Producto p = Nuevo(alta ? u"NUEVO"_s : u"MIO"_s);
    p.codigo = cambios.value(u"codigo"_s, p.codigo).toString();
    p.marca = cambios.value(u"marca"_s, p.marca).toInt();
    p.linea = cambios.value(u"linea"_s, p.linea).toInt();
    p.codigo1 = cambios.value(u"codigo1"_s).toString();
    p.codigo2 = cambios.value(u"codigo2"_s).toString();
    p.codigo3 = cambios.value(u"codigo3"_s).toString();
    const Outcome revision = RevisarProducto(s, p, alta);
    QCOMPARE(revision.message, mensaje);
    QCOMPARE(revision.ok, mensaje.isEmpty());
    QCOMPARE(revision.field, campo);
    if (!revision.ok) QCOMPARE(revision.icon, MessageIcon::kWarning);
    // A refused save writes nothing.
    const int antes = c.Scalar(u"select count(*) from productos"_s).toInt();
    const Outcome guardado = alta ? AltaProducto(s, p) : CambioProducto(s, p);
    QCOMPARE(guardado.message, mensaje);
    QCOMPARE(c.Scalar(u"select count(*) from productos"_s).toInt(), antes + (guardado && alta));
  }

  // ---- Codes ----

  void Consecutivo_data() {
    QTest::addColumn<int>("marca");
    QTest::addColumn<int>("de_la_marca");
    QTest::addColumn<QString>("codigo");
    QTest::newRow("45o de la marca 12") << 12 << 44 << u"12-00045"_s;
    QTest::newRow("primero de la marca 3") << 3 << 0 << u"3-00001"_s;
    QTest::newRow("marca 0 vacía el campo") << 0 << 0 << QString();
    QTest::newRow("marca negativa") << -4 << 0 << QString();
  }

  void Consecutivo() {
    VENTARIX_COMPANY(company);
    QFETCH(int, marca);
    QFETCH(int, de_la_marca);
    QFETCH(QString, codigo);
    const Session s = Sesion(company);
    Connection c(s.Cadena);
    for (int i = 0; i < de_la_marca; ++i) {
      QVERIFY(Guardado(c, u"M%1-%2"_s.arg(marca).arg(i), {{u"marca"_s, marca}}));
    }
    QVERIFY(Guardado(c, u"DE OTRA"_s, {{u"marca"_s, 99}}));
    QCOMPARE(CodigoConsecutivo(s, marca), codigo);
  }

  // A deleted product makes the next consecutive code collide; leaving the code says so.
  void ConsecutivoTrasUnaBaja() {
    VENTARIX_COMPANY(company);
    const Session s = Sesion(company);
    Connection c(s.Cadena);
    QVERIFY(Guardado(c, u"12-00001"_s, {{u"marca"_s, 12}}));
    QVERIFY(Guardado(c, u"12-00003"_s, {{u"marca"_s, 12}}));
    const QString siguiente = CodigoConsecutivo(s, 12);
    QCOMPARE(siguiente, u"12-00003"_s);
    const Outcome revision = RevisarCodigoNuevo(s, siguiente);
    QCOMPARE(revision.message, u"Este código ya existe en el catálogo de productos"_s);
    QCOMPARE(revision.field, u"Codigo"_s);
    QVERIFY(RevisarCodigoNuevo(s, u"12-00004"_s).ok);
  }

  void Zona_data() {
    QTest::addColumn<QString>("tecleado");
    QTest::addColumn<QString>("zona");
    QTest::newRow("un dígito") << u"3"_s << u"ZONA03"_s;
    QTest::newRow("dos dígitos") << u"12"_s << u"ZONA12"_s;
    QTest::newRow("ya con texto") << u"ZONA07"_s << u"ZONA07"_s;
    QTest::newRow("cero") << u"0"_s << u"ZONA00"_s;
    QTest::newRow("vacío") << u" "_s << QString();
  }

  void Zona() {
    QFETCH_GLOBAL(QString, engine);
    if (engine != u"sqlite"_s) QSKIP("no database involved");
    QFETCH(QString, tecleado);
    QFETCH(QString, zona);
    QCOMPARE(FormatoZona(tecleado), zona);
  }

  // ---- Saving ----

  // A clerk adds a screw under an arithmetic company, with two client prices (one line
  // without client) and one material; then changes it, once leaving the lists alone.
  void AltaYCambio() {
    VENTARIX_COMPANY(company);
    const Session s = Sesion(company, {kAritmetica});
    Connection c(s.Cadena);
    Producto p = Nuevo(u"T-1"_s);
    p.precio = 116;
    p.impuesto = 16;
    p.costo = 33.3333;
    p.venta = 100;
    p.utilidades = {10, 20, 30, 40, 50};
    p.precios_clientes = {{7, 90.5}, {0, 80}, {9, 88}};
    p.consumos = {{u"ALAMBRE"_s, 0.25}, {QString(), 3}};
    p.moneda = u"USD"_s;
    p.pt = true;
    QVERIFY2(AltaProducto(s, p).ok, qPrintable(AltaProducto(s, p).message));
    QCOMPARE(Valor(c, u"zona"_s, u"T-1"_s).toString(), u"ZONA00"_s);
    QCOMPARE(Valor(c, u"status"_s, u"T-1"_s).toString(), u"ALTA"_s);
    QCOMPARE(Valor(c, u"pt"_s, u"T-1"_s).toString(), u"S"_s);
    QCOMPARE(Valor(c, u"moneda"_s, u"T-1"_s).toString(), u"USD"_s);
    QCOMPARE(Valor(c, u"precio"_s, u"T-1"_s).toDouble(), 116.0);
    // Levels priced from the cost at 4 decimals: 36.66663 and 49.99995.
    QCOMPARE(Valor(c, u"precio1"_s, u"T-1"_s).toDouble(), 36.6666);
    QCOMPARE(Valor(c, u"precio5"_s, u"T-1"_s).toDouble(), 50.0);
    QCOMPARE(c.Scalar(u"select count(*) from \"productos precios\" where codigo = 'T-1'"_s).toInt(),
             2);
    QCOMPARE(c.Scalar(u"select item from \"productos precios\" where cliente = 9"_s).toInt(), 2);
    QCOMPARE(c.Scalar(u"select cantidad from \"productos consumos\" where equivale = 'ALAMBRE'"_s)
                 .toDouble(),
             0.25);

    Leido leido;
    QVERIFY(LeerProducto(s, u"T-1"_s, &leido).ok);
    QCOMPARE(leido.producto.precios_clientes.size(), std::size_t{2});
    QCOMPARE(leido.producto.consumos.size(), std::size_t{1});
    Producto cambio = leido.producto;
    cambio.zona = u"ZONA04"_s;
    cambio.status = u"BAJA"_s;
    cambio.precios_clientes.clear();  // untouched on screen: not rewritten
    cambio.consumos.clear();
    cambio.consumos_cambiados = true;
    QVERIFY(CambioProducto(s, cambio).ok);
    QCOMPARE(Valor(c, u"zona"_s, u"T-1"_s).toString(), u"ZONA04"_s);
    QCOMPARE(Valor(c, u"status"_s, u"T-1"_s).toString(), u"BAJA"_s);
    QCOMPARE(c.Scalar(u"select count(*) from \"productos precios\""_s).toInt(), 2);
    QCOMPARE(c.Scalar(u"select count(*) from \"productos consumos\""_s).toInt(), 0);
  }

  // Quick prices are read back as saved, refused on an unknown code or without the right. A
  // clerk without the cost right changes a product: the stored cost stays, and the levels
  // follow it rather than the figure that came in, on both screens.
  void PreciosRapidosYCostoBloqueado() {
    VENTARIX_COMPANY(company);
    Session s = Sesion(company, {kAritmetica});
    Connection c(s.Cadena);
    QVERIFY(Guardado(c, u"R"_s, {{u"costo"_s, 50.0}}));
    QVERIFY(GuardarPreciosRapidos(s, u"R"_s, {58, 16, 40, 50}).ok);
    productos::PreciosRapidos leidos;
    QVERIFY(LeerPreciosRapidos(s, u"R"_s, &leidos).ok);
    QCOMPARE(leidos.precio, 58.0);
    QCOMPARE(leidos.impuesto, 16.0);
    QCOMPARE(leidos.costo, 40.0);
    QCOMPARE(leidos.venta, 50.0);
    QCOMPARE(GuardarPreciosRapidos(s, u"NADA"_s, {1, 1, 1, 1}).message,
             u"Este código no existe en el catálogo de productos"_s);
    s.usuario.Set(u"productos"_s, u"SSN"_s);
    QVERIFY(!GuardarPreciosRapidos(s, u"R"_s, {1, 1, 1, 1}).ok);
    QCOMPARE(Valor(c, u"precio"_s, u"R"_s).toDouble(), 58.0);

    s.usuario.Set(u"productos"_s, u"SSS"_s);
    s.Administrador = false;
    s.usuario.Set(u"modificarcosto"_s, u"N"_s);
    QVERIFY(Guardado(c, u"K"_s, {{u"costo"_s, 50.0}, {u"utilidad1"_s, 10.0}}));
    Leido leido;
    QVERIFY(LeerProducto(s, u"K"_s, &leido).ok);
    leido.producto.costo = 1;
    QVERIFY(CambioProducto(s, leido.producto).ok);
    QCOMPARE(Valor(c, u"costo"_s, u"K"_s).toDouble(), 50.0);
    QCOMPARE(Valor(c, u"precio1"_s, u"K"_s).toDouble(), 55.0);
    QVERIFY(GuardarPreciosRapidos(s, u"K"_s, {232, 16, 2, 200}).ok);
    QCOMPARE(Valor(c, u"costo"_s, u"K"_s).toDouble(), 50.0);
    QCOMPARE(Valor(c, u"precio"_s, u"K"_s).toDouble(), 232.0);
    QCOMPARE(Valor(c, u"venta"_s, u"K"_s).toDouble(), 200.0);
  }

  // ---- Code change ----

  void CambioDeCodigo_data() {
    QTest::addColumn<QString>("actual");
    QTest::addColumn<QString>("nuevo");
    QTest::addColumn<bool>("con_empresa");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("campo");
    QTest::newRow("reservado") << u"VIEJO"_s << u"DPPP"_s << true
                               << u"Este código se utiliza para notas de crédito"_s << u"Nuevo"_s;
    QTest::newRow("nuevo existente")
        << u"VIEJO"_s << u"OTRO"_s << true
        << u"Este código a cambiar ya existe en el catálogo de productos"_s << u"Nuevo"_s;
    QTest::newRow("actual inexistente")
        << u"NADA"_s << u"NUEVO"_s << true
        << u"Este código a cambiar no existe en el catálogo de productos"_s << u"Actual"_s;
    QTest::newRow("se anota") << u"VIEJO"_s << u"NUEVO"_s << true << QString() << QString();
    QTest::newRow("sin fila de empresa")
        << u"VIEJO"_s << u"NUEVO"_s << false << QString() << QString();
  }

  void CambioDeCodigo() {
    VENTARIX_COMPANY(company);
    QFETCH(QString, actual);
    QFETCH(QString, nuevo);
    QFETCH(bool, con_empresa);
    QFETCH(QString, mensaje);
    QFETCH(QString, campo);
    const Session s = Sesion(company);
    Connection c(s.Cadena);
    QVERIFY(Guardado(c, u"VIEJO"_s));
    QVERIFY(Guardado(c, u"OTRO"_s));
    if (con_empresa) QVERIFY(Fila(c, u"empresa"_s, {{u"numero"_s, 1}}));
    const Outcome anotado = AnotarCambioDeCodigo(s, actual, nuevo);
    QCOMPARE(anotado.message, mensaje);
    QCOMPARE(anotado.field, campo);
    QSqlQuery q = c.Exec(u"select \"codigo actual\", \"codigo nuevo\" from empresa"_s);
    if (!mensaje.isEmpty()) {
      QVERIFY(!q.next() || q.value(1).toString().isEmpty());
      return;
    }
    QVERIFY(q.next());
    QCOMPARE(q.value(0).toString(), actual);
    QCOMPARE(q.value(1).toString(), nuevo);
    QVERIFY(!q.next());
    // Only the note is written: the product keeps its code until the change is carried out.
    QVERIFY(Valor(c, u"codigo"_s, u"VIEJO"_s).isValid());
  }

  // ---- Brands pushed into their products ----

  // Brand 1 gets margins 12.5/20/33.333/40/50 on a company that applies brand margins. Its
  // products take them and are priced rounded to 2; venta follows the first level and precio
  // adds the tax to it. Brand 2 is not touched.
  void MargenesDeMarca_data() {
    QTest::addColumn<QStringList>("banderas");
    QTest::addColumn<double>("precio1");
    QTest::addColumn<double>("precio3");
    QTest::addColumn<bool>("empujado");
    QTest::newRow("aritmética") << QStringList{kDeMarcas, kAritmetica} << 37.5 << 44.44 << true;
    QTest::newRow("financiera") << QStringList{kDeMarcas, kFinanciera} << 38.09 << 50.0 << true;
    QTest::newRow("sin fórmula: márgenes y venta, sin precios")
        << QStringList{kDeMarcas} << 3.0 << 9.0 << true;
    QTest::newRow("sin aplicar a productos") << QStringList{kAritmetica} << 3.0 << 9.0 << false;
  }

  void MargenesDeMarca() {
    VENTARIX_COMPANY(company);
    QFETCH(QStringList, banderas);
    QFETCH(double, precio1);
    QFETCH(double, precio3);
    QFETCH(bool, empujado);
    const Session s = Sesion(company, banderas);
    Connection c(s.Cadena);
    QVERIFY(Fila(c, u"marcas"_s, {{u"numero"_s, 1}, {u"nombre"_s, u"ACME"_s}}));
    const QVariantMap guardados{{u"costo"_s, 33.333}, {u"impuesto"_s, 16.0}, {u"precio1"_s, 3.0},
                                {u"precio3"_s, 9.0},  {u"venta"_s, 1.0},     {u"precio"_s, 1.0}};
    QVariantMap de_otra = guardados;
    de_otra[u"marca"_s] = 2;
    QVERIFY(Guardado(c, u"A"_s, guardados));
    QVERIFY(Guardado(c, u"Z"_s, de_otra));
    marcas::Marca marca{1, u"ACME"_s, {12.5, 20, 33.333, 40, 50}, u"ALTA"_s};
    const Outcome hecho = marcas::CambioMarca(s, marca);
    QVERIFY2(hecho.ok, qPrintable(hecho.message));
    QCOMPARE(c.Scalar(u"select utilidad3 from marcas where numero = 1"_s).toDouble(), 33.333);
    QCOMPARE(Valor(c, u"utilidad3"_s, u"A"_s).toDouble(), empujado ? 33.333 : 0.0);
    QCOMPARE(Valor(c, u"precio1"_s, u"A"_s).toDouble(), precio1);
    QCOMPARE(Valor(c, u"precio3"_s, u"A"_s).toDouble(), precio3);
    QCOMPARE(Valor(c, u"venta"_s, u"A"_s).toDouble(), empujado ? precio1 : 1.0);
    QCOMPARE(Valor(c, u"precio"_s, u"A"_s).toDouble(), empujado ? precio1 * 1.16 : 1.0);
    QCOMPARE(Valor(c, u"precio1"_s, u"Z"_s).toDouble(), 3.0);
    QCOMPARE(Valor(c, u"utilidad1"_s, u"Z"_s).toDouble(), 0.0);
  }

  // Brands and lines take the next number; a name is required.
  void MarcasYLineasNumeradas() {
    VENTARIX_COMPANY(company);
    const Session s = Sesion(company);
    Connection c(s.Cadena);
    QVERIFY(Fila(c, u"marcas"_s, {{u"numero"_s, 4}, {u"nombre"_s, u"VIEJA"_s}}));
    qint32 numero = 0;
    QVERIFY(marcas::AltaMarca(s, {0, u"NUEVA"_s, {5, 10, 15, 20, 25}, u"ALTA"_s}, &numero).ok);
    QCOMPARE(numero, 5);
    marcas::Marca leida;
    QVERIFY(marcas::LeerMarca(s, 5, &leida).ok);
    QCOMPARE(leida.utilidades[4], 25.0);
    QCOMPARE(marcas::AltaMarca(s, {0, u" "_s, {}, u"ALTA"_s}, &numero).field, u"Nombre"_s);
    QVERIFY(lineas::AltaLinea(s, {0, u"TORNILLERIA"_s, u"ALTA"_s}, &numero).ok);
    QCOMPARE(numero, 1);
    QVERIFY(lineas::CambioLinea(s, {1, u"TORNILLOS"_s, u"BAJA"_s}).ok);
    lineas::Linea linea;
    QVERIFY(lineas::LeerLinea(s, 1, &linea).ok);
    QCOMPARE(linea.nombre, u"TORNILLOS"_s);
    QCOMPARE(linea.status, u"BAJA"_s);
  }
};

QTEST_GUILESS_MAIN(TestProductos)
#include "tst_productos.moc"
