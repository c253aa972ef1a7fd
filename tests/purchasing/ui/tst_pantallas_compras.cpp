// The purchase screens as a buyer uses them from the keyboard, on the demo company and both
// engines: a purchase into warehouse 2 typed from the browser, with a supplier's CFDI 3.3
// brought in by the Facturas button, then the supplier's account from the browser.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QTableWidget>
#include <QTest>

#include "app/formularios.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "core/mBrowse.h"
#include "core/session_load.h"
#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "documents/ui/forma_captura.h"
#include "documents/ui/rejilla_captura.h"
#include "sales/ui/captura_prueba.h"
#include "support/empresa_demo.h"
#include "support/modal_catcher.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::AlAbrirse;
using ventarix::testing::Capturar;
using ventarix::testing::EnCelda;
using ventarix::testing::Foco;
using ventarix::testing::Guardar;
using ventarix::testing::ModalCatcher;
using ventarix::testing::Mostrar;
using ventarix::testing::Valor;
using R = RejillaCaptura;

class TestPantallasCompras : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // Insert, supplier 1, delivery note R-15, 30 days, 10 units of 1-00001 at 25, the CFDI's
  // three concepts after them, warehouse 2 chosen: the purchase raises warehouse 2 by the 20
  // units of that code, the CFDI's price is the last cost, its serie and folio the invoice.
  void CompraConFacturaDelProveedor() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    const QString codigo = u"1-00001"_s;
    auto almacen2 = [&] {
      return Valor(session, u"select almacen2 from productos where codigo = ?"_s, {codigo})
          .toDouble();
    };
    const double antes = almacen2();
    FormRegistry registry;
    RegistrarFormularios(registry);
    auto* navegador = new Navegador(session, *mBrowse::FamiliaDeForma(u"FrmCompras"_s), registry);
    QVERIFY(Mostrar(*navegador));
    AlAbrirse([&](QWidget* modal) {
      auto* alta = qobject_cast<FormaCaptura*>(modal);
      QVERIFY(alta != nullptr);
      QCOMPARE(alta->windowTitle(), u"COMPRAS - ALTAS"_s);
      QCOMPARE(alta->findChild<QLabel*>(u"Status"_s)->text(), u"POR PAGAR"_s);
      Capturar({u"1"_s, u"r-15"_s, QString(), u"30"_s, u"mercancia"_s});
      auto* grid = alta->rejilla();
      QCOMPARE(Foco(), grid);
      EnCelda(grid, codigo);
      EnCelda(grid, u"10"_s);
      QCOMPARE(grid->currentColumn(), grid->Col(R::kPrecio));
      EnCelda(grid, u"25"_s);
      {
        // The file dialog alone is answered: the screen itself stays the clerk's.
        ModalCatcher archivo({{.input = QStringLiteral(
                                   VENTARIX_SOURCE_DIR "/tests/purchasing/xml/proveedor_cfdi33.xml")}});
        QTest::mouseClick(alta->findChild<QPushButton*>(u"Facturas"_s), Qt::LeftButton);
      }
      QCOMPARE(grid->Codigo(1), codigo);
      QCOMPARE(grid->Numero(1, R::kCantidad), 10.0);
      QCOMPARE(grid->Numero(1, R::kPrecio), 12.5);
      QCOMPARE(grid->Codigo(3), u"1-00003"_s);
      auto* movimiento = alta->findChild<QComboBox*>(u"Movimiento"_s);
      movimiento->setFocus();
      QTest::keyClick(movimiento, Qt::Key_Down);
      QCOMPARE(movimiento->currentText(), u"ALMACEN2"_s);
      testing::SaveShot(alta, u"frm_compras_a"_s);
      Guardar(*alta);
    });
    QTest::keyClick(navegador->grid(), Qt::Key_Insert);
    const QString llave = session.CompraActual;
    QVERIFY(!llave.isEmpty());
    QCOMPARE(almacen2(), antes + 20);
    QCOMPARE(Valor(session, u"select factura || '/' || remision from compras where compra = ?"_s,
                   {llave})
                 .toString(),
             u"PC333/R-15"_s);
    QCOMPARE(
        Valor(session, u"select \"ultimo costo\" from productos where codigo = ?"_s, {codigo})
            .toDouble(),
        12.5);

    AlAbrirse([&](QWidget* modal) {
      QCOMPARE(modal->objectName(), u"CuentaProveedor"_s);
      auto* fg1 = modal->findChild<QTableWidget*>(u"Fg1"_s);
      QStringList compras;
      for (int i = 0; i < fg1->rowCount(); ++i) compras << fg1->item(i, 0)->text();
      QVERIFY2(compras.contains(llave), qPrintable(compras.join(u',')));
      testing::SaveShot(modal, u"cuenta_proveedor"_s);
      modal->close();
    });
    navegador->findChild<QAction*>(u"Toolbar_11"_s)->trigger();
    navegador->close();
  }
};

QTEST_MAIN(TestPantallasCompras)
#include "tst_pantallas_compras.moc"
