// The partner screens as a clerk uses them from the keyboard, on both engines: a client with a
// wrong RFC refused, a good one saved and then given a price level on a brand, a supplier and
// a bank added, an agent's commission ranges changed, and the credit fields locked for a
// user without the right.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

#include "catalogs/socios_filas.h"
#include "catalogs/socios_guardar.h"
#include "catalogs/ui/frm_socios.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "catalogs/ui/socios_registro.h"
#include "core/database.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/form_registry.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::Guardar;
using ventarix::testing::ModalCatcher;
using ventarix::testing::Mostrar;

namespace {

QWidget* Foco() { return QApplication::focusWidget(); }

// Key by key, accented letters too (which QTest::keyClicks can't map to a key).
void Teclear(QWidget* campo, const QString& texto) {
  for (const QChar letra : texto) {
    if (letra.unicode() < 128) {
      QTest::keyClick(campo, letra.toLatin1());
    } else {
      QTest::sendKeyEvent(QTest::Click, campo, Qt::Key_unknown, QString(letra), Qt::NoModifier);
    }
  }
}

// Types each value into the field that has the focus and presses Enter, as a clerk does.
void Capturar(const QStringList& valores) {
  for (const QString& valor : valores) {
    QWidget* campo = Foco();
    QVERIFY(campo != nullptr);
    Teclear(campo, valor);
    QTest::keyClick(campo, Qt::Key_Return);
  }
}

// Typing on a grid's cell opens it: the first key goes to the grid, the rest to the cell's
// editor, and Enter writes it back and closes it.
void EnCelda(QTableWidget* grid, const QString& texto) {
  QTest::keyClicks(grid, texto.left(1));
  QTest::keyClicks(Foco(), texto.mid(1));
  QTest::keyClick(Foco(), Qt::Key_Return);
  QCoreApplication::processEvents();  // the cell is written back once the key is handled
}

QVariant Valor(const Session& s, const QString& sentencia, const QVariantList& valores = {}) {
  Connection c(s.Cadena);
  return c.Scalar(sentencia, valores);
}

QString Texto(const QWidget& forma, const QString& nombre) {
  return forma.findChild<CampoCaptura*>(nombre)->text();
}

// The fiscal address and credit of a client, from the street to the payment method.
const QStringList kDomicilioYCredito = {
    u"av. juárez"_s, u"125"_s,       QString(),      u"centro"_s, u"santiago de querétaro"_s,
    QString(),       u"querétaro"_s, u"querétaro"_s, u"méxico"_s, u"76000"_s,
    u"0"_s,          u"50000"_s,     u"2"_s,         u"1"_s};

}  // namespace

class TestSociosForms : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // The RFC typed with hyphens is cleaned on leaving and found wanting; Guardar stops on it
  // with the focus back on the RFC, and nothing is written.
  void ClienteConRfcInvalido() {
    VENTARIX_SOCIOS(company, session);
    FrmClientesA alta(session);
    QVERIFY(Mostrar(alta));
    QCOMPARE(Texto(alta, u"Numero"_s), u"1"_s);
    QCOMPARE(alta.findChild<QLabel*>(u"Status"_s)->text(), u"ALTA"_s);
    QCOMPARE(alta.findChild<QLabel*>(u"CuentaSugerida"_s)->text(), u"100-003-000001"_s);
    auto* rfc = alta.findChild<CampoCaptura*>(u"Rfc"_s);
    QCOMPARE(Foco(), alta.findChild<CampoCaptura*>(u"Nombre"_s));
    Capturar({u"ferretería del centro"_s});
    QCOMPARE(Foco(), rfc);
    Capturar({u"fce-85.0923"_s});
    QCOMPARE(rfc->text(), u"FCE850923"_s);
    QCOMPARE(alta.findChild<QLabel*>(u"Fecha"_s)->text(), u"Este RFC es NO es válido"_s);
    Capturar(kDomicilioYCredito);
    QCOMPARE(alta.findChild<CampoCatalogo*>(u"Agente"_s)->nombre()->text(), u"JUAN MÉNDEZ"_s);
    QCOMPARE(alta.findChild<CampoCatalogo*>(u"Metodo"_s)->nombre()->text(), u"EFECTIVO"_s);
    QCOMPARE(Foco(), alta.findChild<CampoCaptura*>(u"NumCtaPago"_s));
    testing::SaveShot(&alta, u"frm_clientes_a"_s);
    {
      ModalCatcher catcher;
      Guardar(alta);
      QCOMPARE(catcher.texts, QStringList{u"El RFC de éste cliente no es válido"_s});
      QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
      QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Warning});
    }
    QCOMPARE(alta.focusWidget(), rfc);
    QVERIFY(alta.isVisible());
    QCOMPARE(Valor(session, u"select count(*) from clientes"_s).toInt(), 0);
  }

  // Ctrl+1 gives the generic RFC and its date; the account of payment keeps its last four
  // digits; a credit term of 0 is kept as 1. The change screen then reads the client back
  // and a brand gets price level 3 with a discount, typed into the brand grid.
  void ClienteYSusPreciosPorMarca() {
    VENTARIX_SOCIOS(company, session);
    {
      FrmClientesA alta(session);
      QVERIFY(Mostrar(alta));
      Capturar({u"público en general"_s});
      QTest::keyClick(Foco(), Qt::Key_1, Qt::ControlModifier);
      QCOMPARE(Texto(alta, u"Rfc"_s), u"XAXX010101000"_s);
      QCOMPARE(alta.findChild<QLabel*>(u"Fecha"_s)->text(), u"01 ene 2001"_s);
      Capturar({QString()});
      Capturar(kDomicilioYCredito);
      Capturar({u"0012345678"_s});
      QCOMPARE(Texto(alta, u"NumCtaPago"_s), u"5678"_s);
      Capturar(
          {u"1"_s, u"Juan Pérez"_s, QString(), QString(), QString(), u"Compras@Centro.Example"_s});
      QCOMPARE(Texto(alta, u"Email1"_s), u"compras@centro.example"_s);
      ModalCatcher catcher;
      Guardar(alta);
      QVERIFY2(catcher.texts.isEmpty(), qPrintable(catcher.texts.join(u'\n')));
      QCOMPARE(alta.result(), int(QDialog::Accepted));
      QCOMPARE(alta.Guardada(), u"1"_s);
    }
    QCOMPARE(Valor(session, u"select plazo from clientes where numero = 1"_s).toInt(), 1);
    QCOMPARE(Valor(session, u"select numctapago from clientes where numero = 1"_s).toString(),
             u"5678"_s);
    QCOMPARE(Valor(session, u"select localidad from clientes where numero = 1"_s).toString(),
             u"SANTIAGO DE QUERÉTARO"_s);

    FrmClientesC cambio(session, u"1"_s);
    QVERIFY(Mostrar(cambio));
    QCOMPARE(Texto(cambio, u"Nombre"_s), u"PÚBLICO EN GENERAL"_s);
    QCOMPARE(cambio.findChild<QLabel*>(u"Fecha"_s)->text(), u"01 ene 2001"_s);
    QCOMPARE(cambio.findChild<CampoCatalogo*>(u"Banco"_s)->nombre()->text(), u"BANORTE"_s);
    QCOMPARE(cambio.findChild<QComboBox*>(u"Addenda"_s)->currentText(), QString());
    auto* tabs = cambio.findChild<QTabWidget*>();
    auto* marcas = cambio.findChild<QTableWidget*>(u"Marcas"_s);
    QCOMPARE(marcas->rowCount(), 3);
    QCOMPARE(marcas->item(1, 1)->text(), u"URREA"_s);
    tabs->setCurrentWidget(marcas);
    marcas->setFocus();
    marcas->setCurrentCell(1, 7);
    EnCelda(marcas, u"3"_s);
    marcas->setCurrentCell(1, 8);
    EnCelda(marcas, u"7.5"_s);
    QCOMPARE(marcas->item(1, 7)->text(), u"3"_s);
    QCOMPARE(cambio.findChild<QLabel*>(u"Modificado"_s)->text(), u"Precios modificados"_s);
    QCoreApplication::processEvents();  // the label's new width
    testing::SaveShot(&cambio, u"frm_clientes_c"_s);

    // A product by its bar code becomes its own code with its name, and a new empty line
    // waits below it.
    auto* productos = cambio.findChild<QTableWidget*>(u"Productos"_s);
    tabs->setCurrentWidget(productos);
    productos->setFocus();
    productos->setCurrentCell(0, 0);
    EnCelda(productos, u"7501206610"_s);
    QCOMPARE(productos->item(0, 0)->text(), u"MAR-16"_s);
    QCOMPARE(productos->item(0, 1)->text(), u"MARTILLO 16 OZ"_s);
    QCOMPARE(productos->rowCount(), 2);
    productos->setCurrentCell(0, 2);
    EnCelda(productos, u"99.5"_s);

    // F1 on the agent opens the agents' list; Enter takes the first.
    tabs->setCurrentIndex(0);
    auto* agente = cambio.findChild<CampoCatalogo*>(u"Agente"_s);
    agente->campo()->setFocus();
    {
      ModalCatcher catcher;
      QTest::keyClick(agente->campo(), Qt::Key_F1);
      QCOMPARE(catcher.titles, QStringList{u"Agentes"_s});
    }
    QCOMPARE(agente->nombre()->text(), u"MOSTRADOR"_s);
    {
      ModalCatcher catcher;
      Guardar(cambio);
      QVERIFY2(catcher.texts.isEmpty(), qPrintable(catcher.texts.join(u'\n')));
    }
    QCOMPARE(cambio.result(), int(QDialog::Accepted));
    QCOMPARE(Valor(session, u"select count(*) from \"clientes utilidades\""_s).toInt(), 1);
    QCOMPARE(Valor(session,
                   u"select utilidad from \"clientes utilidades\" "
                   "where cliente = 1 and marca = 2"_s)
                 .toInt(),
             3);
    QCOMPARE(
        Valor(session, u"select dcto from \"clientes utilidades\" where cliente = 1"_s).toDouble(),
        7.5);
    QCOMPARE(Valor(session,
                   u"select precio from \"productos precios\" where cliente = 1 "
                   "and codigo = 'MAR-16' and item = 1"_s)
                 .toDouble(),
             99.5);
    QCOMPARE(Valor(session, u"select agente from clientes where numero = 1"_s).toInt(), 1);
  }

  // On a demo client Ctrl+Tab goes from the general data into the brand grid and on from
  // inside it; Ctrl+Shift+Tab, Ctrl+PgUp and Ctrl+PgDn go back and forth, the page reached
  // takes the keyboard, and the tabs have Alt letters.
  void PestanasPorTeclado() {
    VENTARIX_DEMO_COMPANY(company);
    Session session = company.MakeSession();
    FrmClientesC cambio(session, u"1"_s);
    QVERIFY(Mostrar(cambio));
    auto* tabs = cambio.findChild<QTabWidget*>();
    const std::pair<QKeyCombination, int> pasos[] = {
        {Qt::ControlModifier | Qt::Key_Tab, 1},
        {Qt::ControlModifier | Qt::Key_Tab, 2},
        {Qt::ControlModifier | Qt::ShiftModifier | Qt::Key_Backtab, 1},
        {Qt::ControlModifier | Qt::Key_PageUp, 0},
        {Qt::ControlModifier | Qt::Key_PageDown, 1}};
    for (const auto& [tecla, pagina] : pasos) {
      QTest::keyClick(Foco(), tecla.key(), tecla.keyboardModifiers());
      QCOMPARE(tabs->currentIndex(), pagina);
      QVERIFY(tabs->currentWidget() == Foco() || tabs->currentWidget()->isAncestorOf(Foco()));
    }
    for (int pagina : {2, 0}) {
      const QString titulo = tabs->tabText(pagina);
      QTest::keyClick(Foco(), titulo[titulo.indexOf(u'&') + 1].toLower().toLatin1(),
                      Qt::AltModifier);
      QCOMPARE(tabs->currentIndex(), pagina);
    }
    testing::SaveShot(&cambio, u"frm_clientes_c_pestanas"_s);
  }

  void AltaDeProveedor() {
    VENTARIX_SOCIOS(company, session);
    FrmProveedoresA alta(session);
    QVERIFY(Mostrar(alta));
    QVERIFY(alta.findChild<QLabel*>(u"Fecha"_s) == nullptr);
    Capturar({u"tornillos y fijaciones de méxico sa de cv"_s, u"tfm 020514 ab1"_s});
    QCOMPARE(Texto(alta, u"Rfc"_s), u"TFM020514AB1"_s);
    Capturar({u"calle morelos"_s, u"40"_s, QString(), u"centro"_s, u"toluca de lerdo"_s, QString(),
              u"toluca"_s, u"estado de méxico"_s, u"méxico"_s, u"50000"_s, u"30"_s, u"250,000"_s});
    QCOMPARE(alta.findChild<QLabel*>(u"CuentaSugerida"_s)->text(), u"200-100-000001"_s);
    QTest::keyClick(Foco(), Qt::Key_F1);  // takes the proposed account
    QCOMPARE(Texto(alta, u"Cuenta"_s), u"200-100-000001"_s);
    testing::SaveShot(&alta, u"frm_proveedores_a"_s);
    ModalCatcher catcher;
    Guardar(alta);
    QVERIFY2(catcher.texts.isEmpty(), qPrintable(catcher.texts.join(u'\n')));
    QCOMPARE(alta.result(), int(QDialog::Accepted));
    QCOMPARE(alta.Guardada(), u"1"_s);
    QCOMPARE(Valor(session, u"select credito from proveedores where numero = 1"_s).toDouble(),
             250000.0);
    QCOMPARE(Valor(session, u"select cuenta from proveedores where numero = 1"_s).toString(),
             u"200-100-000001"_s);
    QCOMPARE(Valor(session, u"select status from proveedores where numero = 1"_s).toString(),
             u"ALTA"_s);
  }

  // Guardar waits for a name; the browser registry opens the screen by its name.
  void AltaDeBanco() {
    VENTARIX_SOCIOS(company, session);
    FormRegistry registry;
    RegistrarSocios(registry);
    std::unique_ptr<QWidget> pantalla(registry.Create(u"FrmBancosA"_s, session));
    auto* alta = qobject_cast<FormaSocio*>(pantalla.get());
    QVERIFY(alta != nullptr);
    QVERIFY(Mostrar(*alta));
    auto* guardar = alta->findChild<QPushButton*>(u"Guardar"_s);
    QVERIFY(!guardar->isEnabled());
    Capturar({u"santander"_s});
    QVERIFY(guardar->isEnabled());
    QCOMPARE(alta->findChild<QLabel*>(u"CuentaSugerida"_s)->text(), u"100-002-000002"_s);
    QTest::keyClick(Foco(), Qt::Key_F1);
    Capturar({QString()});
    QCOMPARE(Foco(), guardar);
    testing::SaveShot(alta, u"frm_bancos_a"_s);
    QTest::keyClick(guardar, Qt::Key_Return);
    QCOMPARE(alta->result(), int(QDialog::Accepted));
    QCOMPARE(alta->Guardada(), u"2"_s);
    QCOMPARE(
        Valor(session, u"select nombre || ' ' || cuenta from bancos where numero = 2"_s).toString(),
        u"SANTANDER 100-002-000002"_s);
  }

  // The agent's ranges are typed after the base commission; a click on the status label
  // takes the agent out.
  void CambioDeAgente() {
    VENTARIX_SOCIOS(company, session);
    FrmAgentesC cambio(session, u"2"_s);
    QVERIFY(Mostrar(cambio));
    QCOMPARE(Texto(cambio, u"Nombre"_s), u"JUAN MÉNDEZ"_s);
    cambio.findChild<CampoCaptura*>(u"Comision"_s)->setFocus();
    Capturar(
        {u"2.5"_s, QString(), QString(), u"0"_s, u"30"_s, u"2.5"_s, u"31"_s, u"60"_s, u"1.25"_s});
    QCOMPARE(Foco(), cambio.findChild<CampoCaptura*>(u"Dias5"_s));
    auto* status = cambio.findChild<QLabel*>(u"Status"_s);
    QTest::mouseClick(status, Qt::LeftButton);
    QCOMPARE(status->text(), u"BAJA"_s);
    testing::SaveShot(&cambio, u"frm_agentes_c"_s);
    Guardar(cambio);
    QCOMPARE(cambio.result(), int(QDialog::Accepted));
    QCOMPARE(Valor(session, u"select dias4 from agentes where numero = 2"_s).toInt(), 60);
    QCOMPARE(Valor(session, u"select comision2 from agentes where numero = 2"_s).toDouble(), 1.25);
    QCOMPARE(Valor(session, u"select status from agentes where numero = 2"_s).toString(),
             u"BAJA"_s);
  }

  // Credit term and limit can't be touched without their rights; an administrator may.
  void CamposDeCreditoBloqueados() {
    VENTARIX_SOCIOS(company, session);
    socios::Registro cliente = testing::ClienteValido();
    QVERIFY(socios::GuardarSocio(session, socios::Socio::kClientes, false, cliente).outcome);
    session.Administrador = false;
    session.usuario.Set(u"ModificarPlazo"_s, u"N"_s);
    session.usuario.Set(u"ModificarCredito"_s, u"S"_s);
    FrmClientesC cambio(session, u"1"_s);
    QVERIFY(!cambio.Campo(u"Plazo"_s)->isEnabled());
    QVERIFY(cambio.Campo(u"Credito"_s)->isEnabled());
    QCOMPARE(Texto(cambio, u"Credito"_s), u"50,000.00"_s);
    session.Administrador = true;
    FrmClientesC administrador(session, u"1"_s);
    QVERIFY(administrador.Campo(u"Plazo"_s)->isEnabled());
  }
};

QTEST_MAIN(TestSociosForms)
#include "tst_socios_forms.moc"
