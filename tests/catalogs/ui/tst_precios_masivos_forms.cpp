// The mass maintenance screens as the person in charge of prices uses them: a sheet copied
// from a spreadsheet and pasted with Ctrl+V, Guardar with Alt+G and the closing message; a
// refused row shown at its cell; the code change counting its tables as it goes; and a
// clerk choosing a price level with the arrows and Enter.
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QProgressBar>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

#include "catalogs/producto_filas.h"
#include "catalogs/ui/mdi_inicio_cambiar.h"
#include "catalogs/ui/mdi_inicio_costos.h"
#include "catalogs/ui/mdi_inicio_precios.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "catalogs/ui/precios_masivos_registro.h"
#include "catalogs/ui/rejilla_pegado.h"
#include "core/mFunciones.h"
#include "core/ui/form_registry.h"
#include "support/document_rows.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::ColumnaDeProducto;
using testing::InsertarFila;
using testing::ModalCatcher;
using testing::Mostrar;
using testing::ProductoConMargenes;

namespace {

Session Sesion(const testing::TestCompany& company) {
  Session session = company.MakeSession();
  mFunciones::CrearCarpetas(session);
  return session;
}

}  // namespace

class TestPreciosMasivosForms : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // Three products copied from a sheet with its heading: pasted into the grid opened from the
  // utilities menu, saved, and the closing message names the row after the last one.
  void pegarCostosYGuardar() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    for (const QString& codigo : {u"A1"_s, u"B2"_s, u"C3"_s})
      QVERIFY(ProductoConMargenes(c, codigo));
    Session session = Sesion(company);
    session.empresa.Set(u"aplicar_utilidad_aritmetica"_s, u"S"_s);
    FormRegistry registry;
    RegistrarPreciosMasivos(registry);
    std::unique_ptr<QWidget> pantalla(registry.Create(u"MDIInicioCostos"_s, session));
    auto* costos = qobject_cast<MDIInicioCostos*>(pantalla.get());
    QVERIFY(costos != nullptr);
    QVERIFY(Mostrar(*costos));
    RejillaDePegado* rejilla = costos->rejilla();
    QCOMPARE(QApplication::focusWidget(), rejilla);

    QApplication::clipboard()->setText(
        u"CÓDIGO\tCOSTO\tPRODUCTO\r\na1\t10\tTALADRO\r\nB2\t$1,020.50\t\"BROCA\r\n1/4\"\r\n"
        "C3\t0\t\r\n"_s);
    QTest::keyClick(rejilla, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(rejilla->item(2, 1)->text(), u"$1,020.50"_s);
    QCOMPARE(rejilla->item(2, 2)->text(), u"BROCA\r\n1/4"_s);
    QCOMPARE(costos->findChild<QLabel*>(u"Filas"_s)->text(), u"Filas con código: 4"_s);
    testing::SaveShot(costos, u"mdi_inicio_costos"_s);

    ModalCatcher catcher;
    QTest::keyClick(costos, Qt::Key_G, Qt::AltModifier);
    QTRY_COMPARE(catcher.texts, QStringList{u"Los costos se han actualizado hasta la fila 5"_s});
    QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
    QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Information});
    QCOMPARE(rejilla->currentRow(), 4);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"A1"_s), 10.0);
    QCOMPARE(ColumnaDeProducto(c, u"precio1"_s, u"A1"_s), 13.0);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"B2"_s), 1020.5);
    QCOMPARE(ColumnaDeProducto(c, u"costo"_s, u"C3"_s), 5.0);
  }

  // New products from a prices sheet, the second without a brand: the warning, the grid on
  // that row's brand, and nothing added until it is fixed; then both are added.
  void netosRechazaUnaFila() {
    VENTARIX_COMPANY(company);
    Session session = Sesion(company);
    MDIInicioNetos netos(session);
    QVERIFY(Mostrar(netos));
    QTest::keyClick(&netos, Qt::Key_A, Qt::AltModifier);
    QTRY_VERIFY(netos.findChild<QRadioButton*>(u"Agregar"_s)->isChecked());
    RejillaDePegado* rejilla = netos.rejilla();
    rejilla->setFocus();
    rejilla->setCurrentCell(0, 0);
    QApplication::clipboard()->setText(
        u"N1\t10\tCABLE\tM\t1\t1\t16\t11.6\t10\nN2\t4\tCINTA\tPZA\t\t1\t16\t5.8\t5\n"_s);
    QTest::keyClick(rejilla, Qt::Key_V, Qt::ControlModifier);

    ModalCatcher catcher;
    QTest::keyClick(&netos, Qt::Key_G, Qt::AltModifier);
    QTRY_COMPARE(catcher.texts, QStringList{u"Se requiere la entrada de una marca"_s});
    QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Warning});
    QCOMPARE(rejilla->currentRow(), 1);
    QCOMPARE(rejilla->currentColumn(), int(costos_masivos::kMarca));
    Connection c(company.cadena());
    QCOMPARE(c.Scalar(u"select count(*) from productos"_s).toInt(), 0);

    QVERIFY(Mostrar(netos));
    QTest::keyClicks(rejilla, u"3"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    // The grid takes the typed cell on the next turn of the event loop.
    QTRY_COMPARE(rejilla->item(1, costos_masivos::kMarca)->text(), u"3"_s);
    QTest::keyClick(&netos, Qt::Key_G, Qt::AltModifier);
    QTRY_COMPARE(catcher.texts.size(), 2);
    QCOMPARE(catcher.texts.last(), u"Los productos se han agregado hasta la fila 3"_s);
    QCOMPARE(ColumnaDeProducto(c, u"marca"_s, u"N2"_s), 3.0);
    QCOMPARE(ColumnaDeProducto(c, u"precio"_s, u"N2"_s), 5.8);
  }

  // The change waiting in the company row runs as the window shows: the bar counts the
  // tables, Esc is refused half-way, and at the end the window closes with the new code.
  void cambiarMuestraSuAvance() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(InsertarFila(
        c, u"empresa"_s,
        {{u"numero"_s, 1}, {u"codigo actual"_s, u"VIEJO"_s}, {u"codigo nuevo"_s, u"NUEVO"_s}}));
    QVERIFY(ProductoConMargenes(c, u"VIEJO"_s));
    QVERIFY(InsertarFila(c, u"facturas detalles"_s,
                         {{u"factura"_s, u"A-1"_s}, {u"codigo"_s, u"VIEJO"_s}}));
    Session session = Sesion(company);
    session.CambioDeCodigoPendiente = true;
    MDIInicioCambiar cambiar(session);
    auto* barra = cambiar.findChild<QProgressBar*>(u"Avance"_s);
    auto* paso = cambiar.findChild<QLabel*>(u"Paso"_s);
    QList<int> avance;
    QStringList pasos;
    bool visto = false;
    QTimer reloj;
    connect(&reloj, &QTimer::timeout, &cambiar, [&] {
      if (!cambiar.corriendo()) return;
      if (avance.isEmpty() || avance.last() != barra->value()) {
        avance << barra->value();
        pasos << paso->text();
      }
      if (barra->value() == 6 && !visto) {
        visto = true;
        testing::SaveShot(&cambiar, u"mdi_inicio_cambiar"_s);
        QTest::keyClick(&cambiar, Qt::Key_Escape);
      }
    });
    reloj.start(0);
    cambiar.show();
    QTRY_VERIFY_WITH_TIMEOUT(!cambiar.isVisible(), 20000);
    QCOMPARE(cambiar.result(), int(QDialog::Accepted));
    QCOMPARE(barra->value(), 13);
    QCOMPARE(barra->maximum(), 13);
    QVERIFY(visto);
    QVERIFY2(avance.size() > 5, qPrintable(pasos.join(u", "_s)));
    QVERIFY(std::is_sorted(avance.cbegin(), avance.cend()));
    QVERIFY(pasos.contains(u"remisiones detalles"_s) || pasos.contains(u"facturas detalles"_s));
    QCOMPARE(cambiar.findChild<QLabel*>(u"Codigos"_s)->text(), u"Código VIEJO por NUEVO"_s);
    QCOMPARE(cambiar.Guardada(), u"NUEVO"_s);
    QVERIFY(!session.CambioDeCodigoPendiente);
    QCOMPARE(c.Scalar(u"select codigo from \"facturas detalles\""_s).toString(), u"NUEVO"_s);
    QCOMPARE(c.Scalar(u"select count(*) from productos where codigo = 'NUEVO'"_s).toInt(), 1);
  }

  // A table that can't be changed: the stop message, the window closes refused, and the
  // change still waits for the next start.
  void cambiarFallaYQuedaPendiente() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(InsertarFila(
        c, u"empresa"_s,
        {{u"numero"_s, 1}, {u"codigo actual"_s, u"VIEJO"_s}, {u"codigo nuevo"_s, u"NUEVO"_s}}));
    QVERIFY(testing::Escribir(c, u"drop table \"traspasos detalles\""_s));
    Session session = Sesion(company);
    ModalCatcher catcher;
    MDIInicioCambiar cambiar(session);
    cambiar.show();
    QTRY_VERIFY_WITH_TIMEOUT(!cambiar.isVisible(), 20000);
    QCOMPARE(cambiar.result(), int(QDialog::Rejected));
    QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Critical});
    QVERIFY2(catcher.texts.value(0).contains(u"traspasos detalles"_s),
             qPrintable(catcher.texts.value(0)));
    QVERIFY(session.CambioDeCodigoPendiente);
    QCOMPARE(cambiar.Guardada(), QString());
    QCOMPARE(c.Scalar(u"select \"codigo nuevo\" from empresa"_s).toString(), u"NUEVO"_s);
  }

  // A clerk looks at a product's levels, moves down to the third and takes it with Enter;
  // Esc takes nothing.
  void preciosElegirNivel() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(ProductoConMargenes(c, u"A1"_s));
    QVERIFY(testing::Escribir(
        c,
        u"update productos set costo = 10, precio1 = 13, precio2 = 12.5, precio3 = 12, "
        "precio4 = 11.5, precio5 = 11 where codigo = 'A1'"_s));
    Session session = Sesion(company);
    {
      MDIInicioPrecios precios(session, u"A1"_s);
      QVERIFY(Mostrar(precios));
      auto* fg1 = precios.findChild<QTableWidget*>(u"Fg1"_s);
      QCOMPARE(fg1->item(2, 0)->text(), u"Precio 3"_s);
      QCOMPARE(fg1->item(2, 1)->text(), u"20.00"_s);
      QCOMPARE(fg1->item(2, 2)->text(), u"13.92"_s);
      testing::SaveShot(&precios, u"mdi_inicio_precios"_s);
      QTest::keyClick(fg1, Qt::Key_Down);
      QTest::keyClick(fg1, Qt::Key_Down);
      QTest::keyClick(fg1, Qt::Key_Return);
      QCOMPARE(precios.result(), int(QDialog::Accepted));
      QCOMPARE(precios.precio(), 13.92);
    }
    MDIInicioPrecios otra(session, u"NO EXISTE"_s);
    QVERIFY(Mostrar(otra));
    auto* fg1 = otra.findChild<QTableWidget*>(u"Fg1"_s);
    QCOMPARE(fg1->item(4, 2)->text(), u"0.00"_s);
    QTest::keyClick(fg1, Qt::Key_Escape);
    QCOMPARE(otra.result(), int(QDialog::Rejected));
    QCOMPARE(otra.precio(), 0.0);
  }
};

QTEST_MAIN(TestPreciosMasivosForms)
#include "tst_precios_masivos_forms.moc"
