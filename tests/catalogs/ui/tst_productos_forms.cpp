// The product, quick-price and brand screens as a clerk uses them from the keyboard: a new
// product under a brand with margins (refused without brand, a taken alternate code cleared,
// the five levels computed), a quick price change, and a brand's margins pushed into its
// products.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QTest>

#include "catalogs/ui/frm_marcas.h"
#include "catalogs/ui/frm_productos_a.h"
#include "catalogs/ui/frm_productos_c.h"
#include "catalogs/ui/frm_productos_g.h"
#include "catalogs/ui/frm_productos_p.h"
#include "catalogs/ui/grid_niveles.h"
#include "catalogs/ui/mdi_inicio_cambiar.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "core/database.h"
#include "core/mFunciones_valores.h"
#include "core/session_load.h"
#include "core/ui/form_registry.h"
#include "demo/demo_company.h"
#include "support/document_rows.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::ModalCatcher;
using ventarix::testing::Mostrar;

namespace {

// A clerk with every right on a company that prices arithmetically, applies brand margins
// and numbers codes per brand. Brand 12 has margins 10 to 50; line 1 exists; OTRO carries the
// alternate code ALT.
Session Tienda(const testing::TestCompany& company) {
  Session s = company.MakeSession();
  for (const QString& columna : {u"productos"_s, u"marcas"_s, u"lineas"_s}) {
    s.usuario.Set(columna, u"SSS"_s);
  }
  for (const QString& bandera :
       {u"Aplicar_Utilidad_Aritmetica"_s, u"Aplicar_Utilidades_De_Marcas_En_Productos"_s,
        u"Utilizar_Consecutivo_En_Codigo"_s}) {
    s.empresa.Set(bandera, u"S"_s);
  }
  s.empresa.Set(u"impuesto"_s, 16.0);
  Connection c(s.Cadena);
  const bool ok =
      testing::InsertarFila(c, u"marcas"_s,
                            {{u"numero"_s, 12},
                             {u"nombre"_s, u"TRUPER"_s},
                             {u"utilidad1"_s, 10.0},
                             {u"utilidad2"_s, 20.0},
                             {u"utilidad3"_s, 30.0},
                             {u"utilidad4"_s, 40.0},
                             {u"utilidad5"_s, 50.0}}) &&
      testing::InsertarFila(c, u"lineas"_s, {{u"numero"_s, 1}, {u"nombre"_s, u"HERRAMIENTA"_s}}) &&
      testing::InsertarFila(c, u"productos"_s,
                            {{u"codigo"_s, u"OTRO"_s},
                             {u"producto"_s, u"ARTICULO OTRO"_s},
                             {u"codigo2"_s, u"ALT"_s},
                             {u"marca"_s, 5}});
  if (!ok) qWarning("the shop's rows could not be written");
  return s;
}

void Enter(QWidget* campo = QApplication::focusWidget()) { QTest::keyClick(campo, Qt::Key_Return); }

// Types into the focused field and moves on with Enter.
void Teclear(const QString& texto) {
  QWidget* campo = QApplication::focusWidget();
  QTest::keyClicks(campo, texto);
  Enter(campo);
}

QString Texto(QWidget& forma, const QString& nombre) {
  if (auto* campo = forma.findChild<QLineEdit*>(nombre)) return campo->text();
  if (auto* etiqueta = forma.findChild<QLabel*>(nombre)) return etiqueta->text();
  return u"(no hay "_s + nombre + u')';
}

QVariant Columna(const Session& s, const QString& columna, const QString& codigo) {
  Connection c(s.Cadena);
  return c.Scalar(u"select "_s + columna + u" from productos where codigo = ?"_s, {codigo});
}

}  // namespace

class TestProductosForms : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // Guardar before a brand is refused on the brand; brand 12 then fills the code 12-00001 and
  // the margins; price 116 at 16 % with cost 80 shows sale 100, margin 20, tax 16, and levels
  // 88 to 120 (102.08 to 139.20 with tax). A taken alternate code is emptied; a level's margin
  // typed in the grid prices that level again; the product is saved with its levels.
  void ProductoBajoUnaMarca() {
    VENTARIX_COMPANY(company);
    Session s = Tienda(company);
    FrmProductosA alta(s);
    QVERIFY(Mostrar(alta));
    auto* codigo = alta.findChild<QLineEdit*>(u"Codigo"_s);
    QCOMPARE(QApplication::focusWidget(), codigo);
    Enter();
    Teclear(u"desarmador plano"_s);
    Enter();  // no description
    Teclear(u"pza"_s);
    auto* marca = alta.findChild<QLineEdit*>(u"Marca"_s);
    QCOMPARE(QApplication::focusWidget(), marca);
    {
      ModalCatcher catcher;
      alta.findChild<QPushButton*>(u"Guardar"_s)->setFocus();
      Enter();
      QCOMPARE(catcher.texts, QStringList{u"Se requiere la entrada de una marca"_s});
      QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Warning});
    }
    QCOMPARE(alta.focusWidget(), marca);
    QVERIFY(Mostrar(alta));
    Teclear(u"12"_s);
    QCOMPARE(codigo->text(), u"12-00001"_s);
    QCOMPARE(Texto(alta, u"NombreMarca"_s), u"TRUPER"_s);
    Teclear(u"1"_s);
    Teclear(u"pasillo 3"_s);
    // Zona, the alternate codes, the currency and the finished-product mark as they are.
    for (int i = 0; i < 6; ++i) Enter();
    Teclear(u"116"_s);
    QCOMPARE(QApplication::focusWidget(), alta.findChild<QLineEdit*>(u"Impuesto"_s));
    QCOMPARE(Texto(alta, u"Impuesto"_s), u"16.00"_s);
    Enter();
    Teclear(u"80"_s);
    QCOMPARE(Texto(alta, u"Venta"_s), u"100.0000"_s);
    QCOMPARE(Texto(alta, u"Utilidad"_s), u"20.0000"_s);
    QCOMPARE(Texto(alta, u"ImpuestoDinero"_s), u"16.0000"_s);
    auto* fg1 = alta.findChild<GridNiveles*>(u"Fg1"_s);
    const double sin_impuesto[] = {88, 96, 104, 112, 120};
    const double con_impuesto[] = {102.08, 111.36, 120.64, 129.92, 139.2};
    for (int k = 0; k < 5; ++k) {
      QCOMPARE(fg1->PrecioSinImpuesto(k), sin_impuesto[k]);
      QCOMPARE(fg1->PrecioConImpuesto(k), con_impuesto[k]);
    }
    // A cost above the sale price: the margin turns negative and bold.
    auto* costo = alta.findChild<QLineEdit*>(u"Costo"_s);
    costo->setFocus();
    Teclear(u"120"_s);
    QCOMPARE(Texto(alta, u"Utilidad"_s), u"-20.0000"_s);
    QVERIFY(alta.findChild<QLabel*>(u"Utilidad"_s)->font().bold());
    costo->setFocus();
    Teclear(u"80"_s);
    QVERIFY(!alta.findChild<QLabel*>(u"Utilidad"_s)->font().bold());

    auto* alterno = alta.findChild<QLineEdit*>(u"Codigo1"_s);
    alterno->setFocus();
    {
      ModalCatcher catcher;
      Teclear(u"alt"_s);
      QTRY_COMPARE(
          catcher.texts,
          QStringList{u"Este código alterno ya existe en el código: \nOTRO\nARTICULO OTRO"_s});
    }
    QCOMPARE(alterno->text(), QString());
    QCOMPARE(alta.focusWidget(), alterno);
    QVERIFY(Mostrar(alta));

    // The second level's margin typed in the grid.
    fg1->setFocus();
    fg1->setCurrentCell(1, 0);
    QTest::keyClick(fg1, Qt::Key_3);
    QTest::keyClicks(QApplication::focusWidget(), u"5"_s);
    Enter();  // the grid takes the typed margin once the event loop turns
    QTRY_COMPARE(fg1->PrecioSinImpuesto(1), 108.0);
    QCOMPARE(fg1->PrecioConImpuesto(1), 125.28);
    testing::SaveShot(&alta, u"frm_productos_a"_s);

    testing::Guardar(alta);
    QCOMPARE(alta.result(), int(QDialog::Accepted));
    QCOMPARE(alta.Guardada(), u"12-00001"_s);
    QCOMPARE(Columna(s, u"producto"_s, u"12-00001"_s).toString(), u"DESARMADOR PLANO"_s);
    QCOMPARE(Columna(s, u"venta"_s, u"12-00001"_s).toDouble(), 100.0);
    QCOMPARE(Columna(s, u"costo"_s, u"12-00001"_s).toDouble(), 80.0);
    QCOMPARE(Columna(s, u"utilidad2"_s, u"12-00001"_s).toDouble(), 35.0);
    QCOMPARE(Columna(s, u"precio2"_s, u"12-00001"_s).toDouble(), 108.0);
    QCOMPARE(Columna(s, u"precio5"_s, u"12-00001"_s).toDouble(), 120.0);
    QCOMPARE(Columna(s, u"zona"_s, u"12-00001"_s).toString(), u"ZONA00"_s);
  }

  // On a demo product Enter walks the screen as it reads, down the general column and then
  // down the prices to the levels, and every field it reaches wears the focus colour.
  void EnterSigueLaPantalla() {
    VENTARIX_DEMO_COMPANY(company);
    Session s = company.MakeSession();
    FrmProductosC cambio(s, u"1-00001"_s);
    QVERIFY(Mostrar(cambio));
    QStringList recorrido;
    for (QWidget* campo = QApplication::focusWidget();
         campo->objectName() != u"Fg1"_s && recorrido.size() < 25;
         campo = QApplication::focusWidget()) {
      recorrido << campo->objectName();
      QVERIFY2(campo->palette().color(QPalette::Base) == QColor::fromRgb(s.ColorFondo),
               qPrintable(campo->objectName()));
      if (campo->objectName() == u"Moneda"_s) testing::SaveShot(&cambio, u"frm_productos_c"_s);
      Enter();
    }
    QCOMPARE(recorrido.join(u' '),
             u"Producto Descripcion Unidad Marca Linea Ubicacion Zona Codigo1 Codigo2 Codigo3 "
             "Moneda pt Precio Impuesto Costo Venta Comision Descuento Min Max"_s);
  }

  // A demo product whose first level was left at 2 decimals by its brand: that level's net price
  // is Precio neto, a new name saved keeps it, and the fifth warehouse's stock shows.
  void UnPrecioNetoPorNivel() {
    QFETCH_GLOBAL(QString, engine);
    testing::TestCompany company(engine, testing::TestCompany::Contenido::kDemo);
    if (company.skipped()) QSKIP("VENTARIX_TEST_PG is not set");
    QVERIFY2(company.ok(), qPrintable(company.error()));
    Session s = company.MakeSession();
    CargarEmpresa(s);
    Connection c(s.Cadena);
    QSqlQuery q = c.Exec(
        u"select codigo from productos where "_s
        u"abs(precio1 - costo * (1 + utilidad1 / 100)) > 0.0001 order by codigo"_s);
    QVERIFY(q.next());
    const QString codigo = q.value(0).toString();
    const double precio1 = Columna(s, u"precio1"_s, codigo).toDouble();
    FrmProductosC cambio(s, codigo);
    QVERIFY(Mostrar(cambio));
    auto* fg1 = cambio.findChild<GridNiveles*>(u"Fg1"_s);
    QCOMPARE(fg1->PrecioSinImpuesto(0), precio1);
    QCOMPARE(fg1->PrecioConImpuesto(0), mFunciones::ValorNumerico(Texto(cambio, u"Precio"_s)));
    QCOMPARE(mFunciones::ValorNumerico(Texto(cambio, u"Almacen5"_s)),
             Columna(s, u"almacen5"_s, codigo).toDouble());
    testing::SaveShot(&cambio, u"frm_productos_c_demo"_s);
    Teclear(u"tornillo de prueba"_s);
    testing::Guardar(cambio);
    QCOMPARE(cambio.Guardada(), codigo);
    QCOMPARE(Columna(s, u"precio1"_s, codigo).toDouble(), precio1);
  }

  // The change screen opens on the product, with its code fixed and, for a clerk barred from
  // costs, its cost too.
  void CambioConCostoBloqueado() {
    VENTARIX_COMPANY(company);
    Session s = Tienda(company);
    s.Administrador = false;
    s.usuario.Set(u"ModificarCosto"_s, u"N"_s);
    FrmProductosC cambio(s, u"OTRO"_s);
    QVERIFY(Mostrar(cambio));
    QCOMPARE(Texto(cambio, u"Codigo"_s), u"OTRO"_s);
    QVERIFY(cambio.findChild<QLineEdit*>(u"Codigo"_s)->isReadOnly());
    QVERIFY(cambio.findChild<QLineEdit*>(u"Costo"_s)->isReadOnly());
    QCOMPARE(QApplication::focusWidget(), cambio.findChild<QLineEdit*>(u"Producto"_s));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(cambio.result(), int(QDialog::Rejected));
    QCOMPARE(cambio.Guardada(), QString());
  }

  // A product of brand 12 with margins of its own: passing through the brand field brings the
  // brand's margins back (the company applies them to its products); a click on the status
  // takes the product out of use, a second click would bring it back.
  void MarcaDejadaYProductoDeBaja() {
    VENTARIX_COMPANY(company);
    Session s = Tienda(company);
    {
      Connection c(s.Cadena);
      QVERIFY(testing::InsertarFila(c, u"productos"_s,
                                    {{u"codigo"_s, u"12-00009"_s},
                                     {u"marca"_s, 12},
                                     {u"costo"_s, 50.0},
                                     {u"utilidad1"_s, 77.0},
                                     {u"precio1"_s, 88.5}}));
    }
    FrmProductosC cambio(s, u"12-00009"_s);
    QVERIFY(Mostrar(cambio));
    Enter();  // Descripción
    Enter();  // Unidad
    Enter();  // Marca
    QCOMPARE(QApplication::focusWidget(), cambio.findChild<QLineEdit*>(u"Marca"_s));
    Enter();
    auto* fg1 = cambio.findChild<GridNiveles*>(u"Fg1"_s);
    QCOMPARE(fg1->Utilidades()[0], 10.0);
    QCOMPARE(fg1->PrecioSinImpuesto(0), 55.0);  // 50 * 1.10
    QCOMPARE(cambio.findChild<QLineEdit*>(u"Codigo"_s)->text(), u"12-00009"_s);
    auto* status = cambio.findChild<QLabel*>(u"Status"_s);
    QTest::mouseClick(status, Qt::LeftButton);
    QCOMPARE(status->text(), u"BAJA"_s);
    testing::Guardar(cambio);
    QCOMPARE(cambio.result(), int(QDialog::Accepted));
    QCOMPARE(Columna(s, u"utilidad1"_s, u"12-00009"_s).toDouble(), 10.0);
    QCOMPARE(Columna(s, u"utilidad5"_s, u"12-00009"_s).toDouble(), 50.0);
    QCOMPARE(Columna(s, u"precio5"_s, u"12-00009"_s).toDouble(), 75.0);
    QCOMPARE(Columna(s, u"zona"_s, u"12-00009"_s).toString(), u"ZONA00"_s);
    QCOMPARE(Columna(s, u"status"_s, u"12-00009"_s).toString(), u"BAJA"_s);
  }

  // OTRO becomes NUEVO: the reserved code is refused first; then the change is carried
  // through the materials and the catalogue and the new code goes back to the browser.
  void CambioDeCodigo() {
    VENTARIX_COMPANY(company);
    Session s = Tienda(company);
    {
      Connection c(s.Cadena);
      QVERIFY(testing::InsertarFila(c, u"empresa"_s, {{u"numero"_s, 1}}));
      QVERIFY(testing::InsertarFila(
          c, u"productos consumos"_s,
          {{u"codigo"_s, u"MESA"_s}, {u"equivale"_s, u"OTRO"_s}, {u"cantidad"_s, 4.0}}));
    }
    FormRegistry registro;
    registro.Add(u"MDIInicioCambiar"_s,
                 [](Session& sesion) { return new MDIInicioCambiar(sesion); });
    FrmProductosG cambio(s, &registro, u"OTRO"_s);
    QVERIFY(Mostrar(cambio));
    QCOMPARE(QApplication::focusWidget(), cambio.findChild<QLineEdit*>(u"Nuevo"_s));
    QCOMPARE(Texto(cambio, u"Actual"_s), u"OTRO"_s);
    {
      ModalCatcher catcher;
      Teclear(u"dppp"_s);
      Enter();
      QCOMPARE(catcher.texts, QStringList{u"Este código se utiliza para notas de crédito"_s});
    }
    QVERIFY(Mostrar(cambio));
    QCOMPARE(cambio.focusWidget(), cambio.findChild<QLineEdit*>(u"Nuevo"_s));
    {
      ModalCatcher catcher;
      Teclear(u"nuevo"_s);
      Enter();
      QTRY_COMPARE(cambio.result(), int(QDialog::Accepted));
    }
    QCOMPARE(cambio.Guardada(), u"NUEVO"_s);
    QVERIFY(!s.CambioDeCodigoPendiente);
    QCOMPARE(Columna(s, u"producto"_s, u"NUEVO"_s).toString(), u"ARTICULO OTRO"_s);
    QVERIFY(!Columna(s, u"producto"_s, u"OTRO"_s).isValid());
    Connection c(s.Cadena);
    QCOMPARE(c.Scalar(u"select equivale from \"productos consumos\""_s).toString(), u"NUEVO"_s);
    QCOMPARE(c.Scalar(u"select coalesce(\"codigo nuevo\", '') from empresa"_s).toString(),
             QString());
  }

  // Price 232 at 16 % gives sale 200; a sale of 150 typed back gives price 174; saved.
  void PreciosRapidos() {
    VENTARIX_COMPANY(company);
    Session s = Tienda(company);
    FrmProductosP precios(s, u"OTRO"_s);
    QVERIFY(Mostrar(precios));
    QCOMPARE(QApplication::focusWidget(), precios.findChild<QLineEdit*>(u"Precio"_s));
    Teclear(u"232"_s);
    QTest::keyClicks(QApplication::focusWidget(), u"16"_s);
    QCOMPARE(Texto(precios, u"Venta"_s), u"200.0000"_s);
    Enter();
    Teclear(u"99.5"_s);
    QTest::keyClicks(QApplication::focusWidget(), u"150"_s);
    QCOMPARE(Texto(precios, u"Precio"_s), u"174.0000"_s);
    Enter();
    testing::SaveShot(&precios, u"frm_productos_p"_s);
    QCOMPARE(QApplication::focusWidget(), precios.findChild<QPushButton*>(u"Guardar"_s));
    Enter();
    QCOMPARE(precios.result(), int(QDialog::Accepted));
    QCOMPARE(Columna(s, u"precio"_s, u"OTRO"_s).toDouble(), 174.0);
    QCOMPARE(Columna(s, u"venta"_s, u"OTRO"_s).toDouble(), 150.0);
    QCOMPARE(Columna(s, u"costo"_s, u"OTRO"_s).toDouble(), 99.5);
    QCOMPARE(Columna(s, u"impuesto"_s, u"OTRO"_s).toDouble(), 16.0);
  }

  // Brand 12's first margin changed to 25 and the brand taken out of use: its two products take
  // the margins, are priced at two decimals from their costs and sell at their first level;
  // OTRO, of brand 5, does not.
  void MargenesDeMarca() {
    VENTARIX_COMPANY(company);
    Session s = Tienda(company);
    {
      Connection c(s.Cadena);
      QVERIFY(testing::InsertarFila(c, u"productos"_s,
                                    {{u"codigo"_s, u"12-00001"_s},
                                     {u"marca"_s, 12},
                                     {u"costo"_s, 33.333},
                                     {u"impuesto"_s, 16.0}}));
      QVERIFY(testing::InsertarFila(c, u"productos"_s,
                                    {{u"codigo"_s, u"12-00002"_s},
                                     {u"marca"_s, 12},
                                     {u"costo"_s, 10.0},
                                     {u"impuesto"_s, 0.0}}));
    }
    FrmMarcasC cambio(s, u"12"_s);
    QVERIFY(Mostrar(cambio));
    QCOMPARE(Texto(cambio, u"Nombre"_s), u"TRUPER"_s);
    QCOMPARE(Texto(cambio, u"Utilidad3"_s), u"30.00"_s);
    Enter();
    Teclear(u"25"_s);
    QCOMPARE(QApplication::focusWidget(), cambio.findChild<QLineEdit*>(u"Utilidad2"_s));
    QTest::mouseClick(cambio.findChild<QLabel*>(u"Status"_s), Qt::LeftButton);
    testing::SaveShot(&cambio, u"frm_marcas_c"_s);
    testing::Guardar(cambio);
    QCOMPARE(cambio.result(), int(QDialog::Accepted));
    QCOMPARE(cambio.Guardada(), u"12"_s);
    {
      Connection c(s.Cadena);
      QCOMPARE(c.Scalar(u"select status from marcas where numero = 12"_s).toString(), u"BAJA"_s);
    }
    QCOMPARE(Columna(s, u"utilidad1"_s, u"12-00001"_s).toDouble(), 25.0);
    QCOMPARE(Columna(s, u"precio1"_s, u"12-00001"_s).toDouble(), 41.67);  // 41.66625
    QCOMPARE(Columna(s, u"precio3"_s, u"12-00001"_s).toDouble(), 43.33);  // 43.3329
    QCOMPARE(Columna(s, u"venta"_s, u"12-00001"_s).toDouble(), 41.67);
    QCOMPARE(Columna(s, u"precio"_s, u"12-00001"_s).toDouble(), 41.67 * 1.16);
    QCOMPARE(Columna(s, u"precio5"_s, u"12-00002"_s).toDouble(), 15.0);
    QCOMPARE(Columna(s, u"precio"_s, u"12-00002"_s).toDouble(), 12.5);
    QCOMPARE(Columna(s, u"utilidad1"_s, u"OTRO"_s).toDouble(), 0.0);
  }
};

QTEST_MAIN(TestProductosForms)
#include "tst_productos_forms.moc"
