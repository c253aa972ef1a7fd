// How prices follow costs: the two formulas and which one a company uses, the figures a
// capture screen shows, the price a client finds for a document row, what a purchase's cost
// does to the catalogue, the net cost under a limit, and a brand's levels priced in SQL.
#include <optional>

#include <QTest>

#include "catalogs/mFunciones_precios.h"
#include "catalogs/marcas.h"
#include "catalogs/price_formulas.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::catalogs;
using namespace Qt::StringLiterals;

using Utilidades = std::array<double, kNiveles>;
using Opcional = std::optional<double>;
Q_DECLARE_METATYPE(Formula)
Q_DECLARE_METATYPE(Opcional)
Q_DECLARE_METATYPE(Utilidades)

namespace {

RowValues Empresa(const QStringList& banderas) {
  RowValues empresa;
  for (const QString& bandera : banderas) empresa.Set(bandera, u"S"_s);
  return empresa;
}

// A product of brand 1 with cost 100, tax 16 and the given margins and stored prices.
bool Producto(Connection& c, const QString& codigo, const QVariantMap& columnas) {
  QVariantMap fila{{u"codigo"_s, codigo},  {u"marca"_s, 1},        {u"linea"_s, 1},
                   {u"costo"_s, 100.0},    {u"impuesto"_s, 16.0},  {u"utilidad1"_s, 20.0},
                   {u"utilidad2"_s, 25.0}, {u"utilidad3"_s, 30.0}, {u"utilidad4"_s, 40.0},
                   {u"utilidad5"_s, 50.0}, {u"precio1"_s, 1.0},    {u"precio2"_s, 2.0},
                   {u"precio3"_s, 3.0},    {u"precio4"_s, 4.0},    {u"precio5"_s, 5.0},
                   {u"venta"_s, 7.0},      {u"precio"_s, 8.12}};
  for (auto it = columnas.begin(); it != columnas.end(); ++it) fila[it.key()] = it.value();
  QString error;
  const bool ok = testing::InsertarFila(c, u"productos"_s, fila, &error);
  if (!ok) qWarning() << error;
  return ok;
}

double Columna(Connection& c, const QString& codigo, const QString& columna) {
  return c.Scalar(u"select "_s + columna + u" from productos where codigo = ?"_s, {codigo})
      .toDouble();
}

// The formulas touch no database: their rows run once, on the first engine.
#define SOLO_UNA_VEZ()            \
  QFETCH_GLOBAL(QString, engine); \
  if (engine != u"sqlite"_s) QSKIP("no database involved")

}  // namespace

class TestPrecios : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // ---- Formulas, without a database ----

  void FormulaDeLaEmpresa_data() {
    QTest::addColumn<QStringList>("banderas");
    QTest::addColumn<Formula>("esperada");
    QTest::newRow("ninguna") << QStringList{} << Formula::kNinguna;
    QTest::newRow("financiera") << QStringList{u"Aplicar_Utilidad_Financiera"_s}
                                << Formula::kFinanciera;
    QTest::newRow("aritmetica") << QStringList{u"Aplicar_Utilidad_Aritmetica"_s}
                                << Formula::kAritmetica;
    QTest::newRow("las dos: gana la financiera")
        << QStringList{u"Aplicar_Utilidad_Aritmetica"_s, u"Aplicar_Utilidad_Financiera"_s}
        << Formula::kFinanciera;
  }

  void FormulaDeLaEmpresa() {
    SOLO_UNA_VEZ();
    QFETCH(QStringList, banderas);
    QFETCH(Formula, esperada);
    QCOMPARE(FormulaDeEmpresa(Empresa(banderas)), esperada);
  }

  void Formulas_data() {
    QTest::addColumn<Formula>("formula");
    QTest::addColumn<double>("costo");
    QTest::addColumn<double>("utilidad");
    QTest::addColumn<Opcional>("precio");
    QTest::newRow("financiera 20") << Formula::kFinanciera << 100.0 << 20.0 << Opcional(125);
    QTest::newRow("financiera 50") << Formula::kFinanciera << 80.0 << 50.0 << Opcional(160);
    QTest::newRow("financiera 0") << Formula::kFinanciera << 80.0 << 0.0 << Opcional(80);
    QTest::newRow("financiera 100 no da precio")
        << Formula::kFinanciera << 80.0 << 100.0 << Opcional();
    QTest::newRow("aritmetica 20") << Formula::kAritmetica << 100.0 << 20.0 << Opcional(120);
    QTest::newRow("aritmetica 100") << Formula::kAritmetica << 80.0 << 100.0 << Opcional(160);
    QTest::newRow("aritmetica negativa") << Formula::kAritmetica << 80.0 << -25.0 << Opcional(60);
    QTest::newRow("sin formula") << Formula::kNinguna << 80.0 << 20.0 << Opcional();
  }

  void Formulas() {
    SOLO_UNA_VEZ();
    QFETCH(Formula, formula);
    QFETCH(double, costo);
    QFETCH(double, utilidad);
    QFETCH(Opcional, precio);
    const Opcional calculado = PrecioPorFormula(formula, costo, utilidad);
    QCOMPARE(calculado.has_value(), precio.has_value());
    if (!precio) return;
    QCOMPARE(*calculado, *precio);
    // The margin read back from the price is the one the price came from.
    QCOMPARE(*UtilidadDePrecio(formula, costo, *calculado) + 1, utilidad + 1);
  }

  // The screen rounds price and cost to 4, tax to 2, and shows results to 4.
  void Desglose_data() {
    QTest::addColumn<double>("precio");
    QTest::addColumn<double>("impuesto");
    QTest::addColumn<double>("costo");
    QTest::addColumn<double>("venta");
    QTest::addColumn<double>("margen");
    QTest::addColumn<double>("impuesto_en_dinero");
    QTest::newRow("116 al 16") << 116.0 << 16.0 << 80.0 << 100.0 << 20.0 << 16.0;
    QTest::newRow("margen negativo") << 58.0 << 16.0 << 80.0 << 50.0 << -30.0 << 8.0;
    QTest::newRow("sin impuesto") << 99.5 << 0.0 << 0.0 << 99.5 << 99.5 << 0.0;
    QTest::newRow("a cuatro decimales") << 100.0 << 16.0 << 0.0 << 86.2069 << 86.2069 << 13.793104;
    QTest::newRow("impuesto a dos") << 110.0 << 9.999 << 0.0 << 100.0 << 100.0 << 10.0;
  }

  void Desglose() {
    SOLO_UNA_VEZ();
    QFETCH(double, precio);
    QFETCH(double, impuesto);
    QFETCH(double, costo);
    QFETCH(double, venta);
    QFETCH(double, margen);
    QFETCH(double, impuesto_en_dinero);
    const catalogs::Desglose d = DesgloseDePrecio(precio, impuesto, costo);
    QCOMPARE(d.venta, venta);
    QCOMPARE(d.margen + 1000, margen + 1000);
    QCOMPARE(d.impuesto + 1, impuesto_en_dinero + 1);
  }

  // The levels of the screen's grid, cost 100 at 16 % (-1: the level has no price). A
  // financial margin of 100 leaves that level alone; the others are priced.
  void Niveles_data() {
    QTest::addColumn<Formula>("formula");
    QTest::addColumn<Utilidades>("utilidades");
    QTest::addColumn<Utilidades>("sin_impuesto");
    QTest::addColumn<Utilidades>("con_impuesto");
    QTest::newRow("aritmetica") << Formula::kAritmetica << Utilidades{10, 20, 30, 40, 50}
                                << Utilidades{110, 120, 130, 140, 150}
                                << Utilidades{127.6, 139.2, 150.8, 162.4, 174};
    QTest::newRow("financiera") << Formula::kFinanciera << Utilidades{10, 20, 30, 40, 50}
                                << Utilidades{111.1111, 125, 142.8571, 166.6667, 200}
                                << Utilidades{128.8889, 145, 165.7142, 193.3334, 232};
    QTest::newRow("financiera con 100") << Formula::kFinanciera << Utilidades{20, 100, 30, 40, 50}
                                        << Utilidades{125, -1, 142.8571, 166.6667, 200}
                                        << Utilidades{145, -1, 165.7142, 193.3334, 232};
    QTest::newRow("sin formula") << Formula::kNinguna << Utilidades{20, 25, 30, 40, 50}
                                 << Utilidades{-1, -1, -1, -1, -1}
                                 << Utilidades{-1, -1, -1, -1, -1};
  }

  void Niveles() {
    SOLO_UNA_VEZ();
    QFETCH(Formula, formula);
    QFETCH(Utilidades, utilidades);
    QFETCH(Utilidades, sin_impuesto);
    QFETCH(Utilidades, con_impuesto);
    const catalogs::Niveles niveles = CalcularNiveles(formula, 100, 16, utilidades);
    for (int k = 0; k < kNiveles; ++k) {
      QCOMPARE(niveles[k].utilidad, utilidades[k]);
      QCOMPARE(niveles[k].precio.value_or(-1), sin_impuesto[k]);
      QCOMPARE(niveles[k].precio_con_impuesto.value_or(-1), con_impuesto[k]);
    }
  }

  // ---- Price look-ups of a document row ----

  // Client 7 buys product P of brand 1 (cost 100, 16 %, levels 121.5 to 125.5).
  void PrecioDeUnCliente_data() {
    QTest::addColumn<double>("venta");
    QTest::addColumn<double>("precio");
    QTest::addColumn<QVariantList>("utilidades");  // [cliente, marca, utilidad, dcto] or empty
    QTest::addColumn<QVariantList>("especial");    // [cliente, precio] or empty
    QTest::addColumn<double>("encontrado");
    QTest::addColumn<double>("dcto");
    const QVariantList nada;
    QTest::newRow("venta 0 y precio 116 al 16") << 0.0 << 116.0 << nada << nada << 100.0 << 0.0;
    QTest::newRow("venta sobre cero") << 90.0 << 116.0 << nada << nada << 90.0 << 0.0;
    QTest::newRow("venta negativa, precio cero") << -5.0 << 0.0 << nada << nada << 0.0 << 0.0;
    QTest::newRow("venta negativa, precio sobre") << -5.0 << 58.0 << nada << nada << 50.0 << 0.0;
    QTest::newRow("nivel 3 con descuento")
        << 90.0 << 116.0 << QVariantList{7, 1, 3, 5.5} << nada << 123.5 << 5.5;
    QTest::newRow("nivel 1") << 90.0 << 116.0 << QVariantList{7, 1, 1, 2.0} << nada << 121.5 << 2.0;
    QTest::newRow("nivel 5") << 90.0 << 116.0 << QVariantList{7, 1, 5, 0.0} << nada << 125.5 << 0.0;
    QTest::newRow("utilidad 0: venta sin descuento")
        << 90.0 << 116.0 << QVariantList{7, 1, 0, 9.0} << nada << 90.0 << 0.0;
    QTest::newRow("utilidad 6: venta sin descuento")
        << 90.0 << 116.0 << QVariantList{7, 1, 6, 9.0} << nada << 90.0 << 0.0;
    QTest::newRow("nivel de otra marca no cuenta")
        << 90.0 << 116.0 << QVariantList{7, 2, 3, 9.0} << nada << 90.0 << 0.0;
    QTest::newRow("nivel de otro cliente no cuenta")
        << 90.0 << 116.0 << QVariantList{8, 1, 3, 9.0} << nada << 90.0 << 0.0;
    QTest::newRow("precio especial gana")
        << 90.0 << 116.0 << QVariantList{7, 1, 3, 9.0} << QVariantList{7, 77.25} << 77.25 << 0.0;
    QTest::newRow("precio especial nulo es cero")
        << 90.0 << 116.0 << nada << QVariantList{7, QVariant(QMetaType(QMetaType::Double))} << 0.0
        << 0.0;
    QTest::newRow("precio especial de otro cliente")
        << 90.0 << 116.0 << nada << QVariantList{8, 77.25} << 90.0 << 0.0;
  }

  void PrecioDeUnCliente() {
    VENTARIX_COMPANY(company);
    QFETCH(double, venta);
    QFETCH(double, precio);
    QFETCH(QVariantList, utilidades);
    QFETCH(QVariantList, especial);
    QFETCH(double, encontrado);
    QFETCH(double, dcto);
    Connection c(company.cadena());
    QVERIFY(Producto(c, u"P"_s,
                     {{u"venta"_s, venta},
                      {u"precio"_s, precio},
                      {u"precio1"_s, 121.5},
                      {u"precio2"_s, 122.5},
                      {u"precio3"_s, 123.5},
                      {u"precio4"_s, 124.5},
                      {u"precio5"_s, 125.5}}));
    if (!utilidades.isEmpty()) {
      QVERIFY(testing::InsertarFila(c, u"clientes utilidades"_s,
                                    {{u"cliente"_s, utilidades[0]},
                                     {u"marca"_s, utilidades[1]},
                                     {u"utilidad"_s, utilidades[2]},
                                     {u"dcto"_s, utilidades[3]}}));
    }
    if (!especial.isEmpty()) {
      QVERIFY(testing::InsertarFila(
          c, u"productos precios"_s,
          {{u"codigo"_s, u"P"_s}, {u"cliente"_s, especial[0]}, {u"precio"_s, especial[1]}}));
    }
    const auto hallado = mFunciones::BuscarPrecio(c, 7, u"P"_s);
    QVERIFY(hallado.has_value());
    QCOMPARE(hallado->PrecioEncontrado, encontrado);
    QCOMPARE(hallado->DctoEncontrado, dcto);
    QCOMPARE(mFunciones::PrecioEspecial(c, 7, u"P"_s).has_value(),
             !especial.isEmpty() && especial[0].toInt() == 7);
    QVERIFY(!mFunciones::BuscarPrecio(c, 7, u"NO EXISTE"_s).has_value());
  }

  // ---- A purchase's cost carried into the catalogue ----

  // Product C: cost 100, 16 %, margins 20/25/30/40/50, levels 1 to 5, venta 7, precio 8.12.
  void CostoDesdeCompra_data() {
    QTest::addColumn<QStringList>("banderas");
    QTest::addColumn<double>("nuevo");
    QTest::addColumn<double>("margen5");
    QTest::addColumn<bool>("aplicado");
    QTest::addColumn<double>("costo");
    QTest::addColumn<double>("venta");
    QTest::addColumn<Utilidades>("niveles");
    const QString modificar = u"EnCompras_Modificar_Costos_y_Precios"_s;
    const QString ultimo = u"EnCompras_Modificar_Al_Ultimo_Costo"_s;
    const QString alto = u"EnCompras_Modificar_Al_Costo_Mas_Alto"_s;
    const QString fin = u"Aplicar_Utilidad_Financiera"_s;
    const QString ari = u"Aplicar_Utilidad_Aritmetica"_s;
    const Utilidades guardados{1, 2, 3, 4, 5};
    QTest::newRow("último costo, más barato")
        << QStringList{modificar, ultimo, ari} << 80.0 << 50.0 << true << 80.0 << 96.0
        << Utilidades{96, 100, 104, 112, 120};
    QTest::newRow("costo cero no cambia nada")
        << QStringList{modificar, ultimo, ari} << 0.0 << 50.0 << false << 100.0 << 7.0 << guardados;
    QTest::newRow("costo negativo no cambia nada") << QStringList{modificar, ultimo, ari} << -3.0
                                                   << 50.0 << false << 100.0 << 7.0 << guardados;
    QTest::newRow("sin formula ni el costo")
        << QStringList{modificar, ultimo} << 80.0 << 50.0 << false << 100.0 << 7.0 << guardados;
    QTest::newRow("compras no modifican")
        << QStringList{ultimo, ari} << 80.0 << 50.0 << false << 100.0 << 7.0 << guardados;
    QTest::newRow("más alto, más barato")
        << QStringList{modificar, alto, ari} << 80.0 << 50.0 << false << 100.0 << 7.0 << guardados;
    QTest::newRow("más alto, igual")
        << QStringList{modificar, alto, ari} << 100.0 << 50.0 << false << 100.0 << 7.0 << guardados;
    QTest::newRow("más alto, más caro")
        << QStringList{modificar, alto, ari} << 120.0 << 50.0 << true << 120.0 << 144.0
        << Utilidades{144, 150, 156, 168, 180};
    QTest::newRow("ni último ni más alto")
        << QStringList{modificar, ari} << 120.0 << 50.0 << false << 100.0 << 7.0 << guardados;
    QTest::newRow("financiera gana")
        << QStringList{modificar, ultimo, ari, fin} << 80.0 << 50.0 << true << 80.0 << 100.0
        << Utilidades{100, 106.66666666666667, 114.28571428571429, 133.33333333333334, 160};
    QTest::newRow("financiera 100 deja el nivel")
        << QStringList{modificar, ultimo, fin} << 80.0 << 100.0 << true << 80.0 << 100.0
        << Utilidades{100, 106.66666666666667, 114.28571428571429, 133.33333333333334, 5};
    QTest::newRow("sin redondeo") << QStringList{modificar, ultimo, ari} << 10.12345 << 50.0 << true
                                  << 10.12345 << 12.14814
                                  << Utilidades{12.14814, 12.6543125, 13.160485, 14.17283,
                                                15.185175};
  }

  void CostoDesdeCompra() {
    VENTARIX_COMPANY(company);
    QFETCH(QStringList, banderas);
    QFETCH(double, nuevo);
    QFETCH(double, margen5);
    QFETCH(bool, aplicado);
    QFETCH(double, costo);
    QFETCH(double, venta);
    QFETCH(Utilidades, niveles);
    Connection c(company.cadena());
    QVERIFY(Producto(c, u"C"_s, {{u"utilidad5"_s, margen5}}));
    QVERIFY(Producto(c, u"OTRO"_s, {}));
    bool escrito = !aplicado;
    const Outcome hecho =
        mFunciones::ActualizarCostoDesdeCompra(c, Empresa(banderas), u"C"_s, nuevo, &escrito);
    QVERIFY2(hecho.ok, qPrintable(hecho.message));
    QCOMPARE(escrito, aplicado);
    QCOMPARE(Columna(c, u"C"_s, u"costo"_s), costo);
    QCOMPARE(Columna(c, u"C"_s, u"venta"_s), venta);
    // The final price follows the sale price with the tax, or stays as stored.
    QCOMPARE(Columna(c, u"C"_s, u"precio"_s), aplicado ? venta * 1.16 : 8.12);
    for (int k = 0; k < kNiveles; ++k) {
      QCOMPARE(Columna(c, u"C"_s, u"precio"_s + QString::number(k + 1)), niveles[k]);
    }
    // Another product is never touched; one that does not exist is no error.
    QCOMPARE(Columna(c, u"OTRO"_s, u"costo"_s), 100.0);
    QCOMPARE(Columna(c, u"OTRO"_s, u"precio1"_s), 1.0);
    escrito = true;
    QVERIFY(mFunciones::ActualizarCostoDesdeCompra(c, Empresa(banderas), u"NADA"_s, 50, &escrito));
    QVERIFY(!escrito);
  }

  // ---- Net cost under a limit ----

  void CostoNeto_data() {
    QTest::addColumn<double>("limite");
    QTest::addColumn<QString>("codigo");
    QTest::addColumn<double>("neto");
    QTest::newRow("bajo el límite") << 150.0 << u"N"_s << 116.0;
    QTest::newRow("justo en el límite") << 100.0 << u"N"_s << 0.0;
    QTest::newRow("sobre el límite") << 99.99 << u"N"_s << 0.0;
    QTest::newRow("apenas bajo") << 100.01 << u"N"_s << 116.0;
    QTest::newRow("producto inexistente") << 150.0 << u"X"_s << 0.0;
  }

  void CostoNeto() {
    VENTARIX_COMPANY(company);
    QFETCH(double, limite);
    QFETCH(QString, codigo);
    QFETCH(double, neto);
    Connection c(company.cadena());
    QVERIFY(Producto(c, u"N"_s, {}));
    QCOMPARE(mFunciones::CostoNeto(c, codigo, limite) + 1, neto + 1);
  }

  // ---- A brand's levels priced in SQL ----

  // Brand 1 holds A (first margin 100) and B (first margin 20); brand 2 holds Z. Under the
  // financial formula A cannot be priced on level 1 and keeps its price there; the rest of
  // A's levels, B and nothing of brand 2 are priced, rounded to 2.
  void MarcaConUtilidadCien() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(Producto(c, u"A"_s, {{u"utilidad1"_s, 100.0}, {u"costo"_s, 33.33}}));
    QVERIFY(Producto(c, u"B"_s, {{u"costo"_s, 33.33}}));
    QVERIFY(Producto(c, u"Z"_s, {{u"marca"_s, 2}}));
    QString error;
    QVERIFY2(marcas::RecalcularPreciosDeMarca(c, Formula::kFinanciera, 1, &error),
             qPrintable(error));
    QCOMPARE(Columna(c, u"A"_s, u"precio1"_s), 1.0);
    QCOMPARE(Columna(c, u"A"_s, u"precio2"_s), 44.44);  // 33.33 / 0.75
    QCOMPARE(Columna(c, u"A"_s, u"precio3"_s), 47.61);  // 47.6142...
    QCOMPARE(Columna(c, u"B"_s, u"precio1"_s), 41.66);  // 41.6625: two decimals in SQL
    QCOMPARE(Columna(c, u"B"_s, u"precio5"_s), 66.66);
    QCOMPARE(Columna(c, u"Z"_s, u"precio1"_s), 1.0);
    QVERIFY(marcas::RecalcularPreciosDeMarca(c, Formula::kAritmetica, 1, &error));
    QCOMPARE(Columna(c, u"A"_s, u"precio1"_s), 66.66);
    QCOMPARE(Columna(c, u"B"_s, u"precio1"_s), 40.0);  // 39.996
  }
};

QTEST_GUILESS_MAIN(TestPrecios)
#include "tst_precios.moc"
