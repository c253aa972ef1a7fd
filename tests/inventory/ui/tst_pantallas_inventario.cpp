// The stock capture screens as a storekeeper uses them from the keyboard, on the demo company
// and both engines: a count adjustment of warehouse 2 and a transfer from warehouse 1 to 2,
// each captured from its browser, with a short quantity refused on the way.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QTest>

#include "app/formularios.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "core/mBrowse.h"
#include "core/session_load.h"
#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "inventory/ui/forma_inventario.h"
#include "inventory/ui/rejilla_inventario.h"
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
using ventarix::testing::Mostrar;
using ventarix::testing::Valor;

namespace {

const QString kTornillo = u"1-00004"_s;
const QString kTaquete = u"1-00032"_s;

double Existencia(const Session& s, const QString& codigo, int almacen) {
  return Valor(s, u"select almacen%1 from productos where codigo = ?"_s.arg(almacen), {codigo})
      .toDouble();
}

// Opens the browser of `forma` and presses Insert, `paso` working on the add screen.
template <typename Paso>
void Alta(Session& session, const char* forma, Paso paso) {
  FormRegistry registry;
  RegistrarFormularios(registry);
  auto* navegador =
      new Navegador(session, *mBrowse::FamiliaDeForma(QLatin1String(forma)), registry);
  QVERIFY(Mostrar(*navegador));
  AlAbrirse([paso](QWidget* modal) {
    auto* alta = qobject_cast<FormaInventario*>(modal);
    QVERIFY(alta != nullptr);
    paso(*alta);
  });
  QTest::keyClick(navegador->grid(), Qt::Key_Insert);
  navegador->close();
  delete navegador;
}

}  // namespace

class TestPantallasInventario : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // Warehouse 2 chosen with Down, an observation, the screws with 5 in and 2 out: the grid
  // shows what the warehouse had and the 3 more it will have, and the save leaves that.
  void AjusteDesdeElNavegador() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    const double antes = Existencia(session, kTornillo, 2);
    Alta(session, "FrmAjustes", [&](FormaInventario& alta) {
      QCOMPARE(alta.objectName(), u"FrmAjustesA"_s);
      QCOMPARE(alta.windowTitle(), u"AJUSTES DE INVENTARIO - ALTAS"_s);
      QCOMPARE(alta.findChild<QLabel*>(u"Status"_s)->text(), u"ALTA"_s);
      QCOMPARE(Foco()->objectName(), u"Almacen"_s);
      QTest::keyClick(Foco(), Qt::Key_Down);
      QCOMPARE(alta.findChild<QComboBox*>(u"Almacen"_s)->currentText(), u"ALMACEN2"_s);
      QTest::keyClick(Foco(), Qt::Key_Return);
      Capturar({u"conteo de fin de mes"_s});
      RejillaInventario* grid = alta.rejilla();
      QCOMPARE(Foco(), grid);
      EnCelda(grid, kTornillo);
      QCOMPARE(grid->Numero(0, u"existencias"_s), antes);
      QCOMPARE(grid->currentColumn(), grid->Col(u"entradas"_s));
      EnCelda(grid, u"5"_s);
      EnCelda(grid, u"2"_s);
      QCOMPARE(grid->Numero(0, u"real"_s), antes + 3);
      QCOMPARE(grid->currentRow(), 1);
      testing::SaveShot(&alta, u"frm_ajustes_a"_s);
      Guardar(alta);
    });
    QVERIFY(session.AjusteActual.startsWith(session.SerieAjustes + u'-'));
    QCOMPARE(Existencia(session, kTornillo, 2), antes + 3);
    QCOMPARE(Valor(session, u"select obs from \"ajustes de inventario\" where ajuste = ?"_s,
                   {session.AjusteActual})
                 .toString(),
             u"CONTEO DE FIN DE MES"_s);
  }

  // From warehouse 1 to 2: more plugs than warehouse 1 holds are refused at the row with the
  // warehouse's message, the quantity typed again passes; a 10 % discount from its button;
  // the save moves both rows and the change screen shows them.
  void TraspasoDesdeElNavegador() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    session.empresa.Set(u"guardar_sin_existencias"_s, u"N"_s);
    const double t1 = Existencia(session, kTornillo, 1), t2 = Existencia(session, kTornillo, 2);
    const double p1 = Existencia(session, kTaquete, 1);
    Alta(session, "FrmTraspasos", [&](FormaInventario& alta) {
      QCOMPARE(alta.objectName(), u"FrmTraspasosA"_s);
      QCOMPARE(alta.findChild<QLabel*>(u"Status"_s)->text(), u"APLICADO"_s);
      QCOMPARE(Foco()->objectName(), u"Combo0"_s);
      QTest::keyClick(Foco(), Qt::Key_Return);
      QCOMPARE(Foco()->objectName(), u"Combo1"_s);
      QTest::keyClick(Foco(), Qt::Key_Down);
      QTest::keyClick(Foco(), Qt::Key_Return);
      Capturar({u"R-1"_s, u"surtir sucursal"_s});
      RejillaInventario* grid = alta.rejilla();
      QCOMPARE(Foco(), grid);
      EnCelda(grid, kTornillo);
      QCOMPARE(grid->Numero(0, u"almacen2"_s), t2);
      EnCelda(grid, u"3"_s);
      QTest::keyClick(grid, Qt::Key_Return);  // price as it came
      QTest::keyClick(grid, Qt::Key_Return);  // no discount
      EnCelda(grid, kTaquete);
      QTest::keyClicks(grid, QString::number(p1 + 1));
      {
        testing::ModalCatcher aviso;
        QTest::keyClick(Foco(), Qt::Key_Return);
        QTRY_COMPARE(aviso.texts.size(), 1);
        QCOMPARE(aviso.texts, QStringList{u"Existencias Insuficientes en almacén 1 !!!\n\nFila: "
                                          u"2\nCódigo: "_s +
                                          kTaquete});
      }
      alta.activateWindow();  // the window manager's part, which offscreen has none of
      QVERIFY(QTest::qWaitForWindowActive(&alta));
      QTRY_COMPARE(Foco(), grid);
      QCOMPARE(grid->currentRow(), 1);
      QCOMPARE(grid->currentColumn(), grid->Col(u"cantidad"_s));
      EnCelda(grid, u"2"_s);
      auto* boton = alta.findChild<QPushButton*>(u"AplicarDescuento"_s);
      boton->setFocus();
      {
        testing::ModalCatcher porcentaje({{.input = u"10"_s}});
        QTest::keyClick(boton, Qt::Key_Return);
        QCOMPARE(porcentaje.texts, QStringList{u"Aplicar descuento %"_s});
      }
      QCOMPARE(grid->Numero(1, u"dcto"_s), 10.0);
      QVERIFY(alta.findChild<QLabel*>(u"Descuento"_s)->text() != u"0.00"_s);
      testing::SaveShot(&alta, u"frm_traspasos_a"_s);
      Guardar(alta);
    });
    const QString llave = session.TraspasoActual;
    QVERIFY(!llave.isEmpty());
    QCOMPARE(Existencia(session, kTornillo, 1), t1 - 3);
    QCOMPARE(Existencia(session, kTornillo, 2), t2 + 3);
    QCOMPARE(Existencia(session, kTaquete, 1), p1 - 2);

    FormRegistry registry;
    RegistrarFormularios(registry);
    auto* cambio =
        qobject_cast<FormaInventario*>(registry.Create(u"FrmTraspasosC"_s, session, llave));
    QVERIFY(cambio != nullptr);
    QCOMPARE(cambio->rejilla()->Codigo(1), kTaquete);
    QCOMPARE(cambio->findChild<QComboBox*>(u"Combo1"_s)->currentText(), u"ALMACEN2"_s);
    QVERIFY(Mostrar(*cambio));
    testing::SaveShot(cambio, u"frm_traspasos_c"_s);
    delete cambio;
  }

  // The finished product and 3 of it bring its materials for 3; the order saved, Terminar's
  // date closes it and the sets come in.
  void ProduccionYSuCierre() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Session session = company->MakeSession();
    CargarSesion(session);
    const QString juego =
        Valor(session, u"select codigo from \"productos consumos\" order by codigo"_s).toString();
    const double juegos = Existencia(session, juego, 1);
    FormRegistry registry;
    RegistrarFormularios(registry);
    auto* alta = qobject_cast<FormaInventario*>(registry.Create(u"FrmProduccionA"_s, session));
    QVERIFY(alta != nullptr && Mostrar(*alta));
    Capturar({juego, u"3"_s, QString(), u"taller"_s, u"exhibicion"_s});
    QCOMPARE(alta->rejilla()->Partidas().size(), size_t(3));
    QCOMPARE(alta->rejilla()->Numero(0, u"consumo"_s), 3.0);
    testing::SaveShot(alta, u"frm_produccion_a"_s);
    Guardar(*alta);
    QCOMPARE(alta->result(), int(QDialog::Accepted));
    const QString llave = alta->Guardada();
    delete alta;
    auto* cierre = qobject_cast<QDialog*>(registry.Create(u"FrmProduccionT"_s, session, llave));
    QVERIFY(cierre != nullptr && Mostrar(*cierre));
    Capturar({QDate::currentDate().toString(u"dd/MM/yyyy"_s), u"juan"_s});
    testing::SaveShot(cierre, u"frm_produccion_t"_s);
    QTest::keyClick(Foco(), Qt::Key_Return);  // Aceptar
    QCOMPARE(cierre->result(), int(QDialog::Accepted));
    delete cierre;
    QCOMPARE(Existencia(session, juego, 1), juegos + 3);
  }
};

QTEST_MAIN(TestPantallasInventario)
#include "tst_pantallas_inventario.moc"
