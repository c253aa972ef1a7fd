// The company and terminal settings screens from the keyboard: the company's name and a tax
// rule changed and found again on reopening, a refusal that brings its field's tab to the
// front, a mail provider and the PAC's test account chosen from the screen, the logo with its
// size, and an administrator setting up a cashier's ticket.
#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "catalogs/configurar_datos.h"
#include "catalogs/empresa_datos.h"
#include "catalogs/ui/mdi_inicio_configurar.h"
#include "catalogs/ui/mdi_inicio_empresa.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "core/database.h"
#include "core/session_load.h"
#include "core/usuarios.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::Guardar;
using ventarix::testing::ModalCatcher;
using ventarix::testing::Mostrar;

namespace {

// The shop of the examples, over the values a new company starts with.
RowValues EmpresaCompleta(const Session& session) {
  RowValues e = empresa::LeerEmpresa(session);
  const std::pair<const char*, const char*> valores[] = {
      {"rfc", "EKU9003173C9"},
      {"empresa", "FERRETERÍA KEMPER"},
      {"nombre", "ESCUELA KEMPER URGATE SA DE CV"},
      {"calle", "AV. REVOLUCIÓN"},
      {"noexterior", "1425"},
      {"colonia", "CAMPESTRE"},
      {"localidad", "CIUDAD DE MÉXICO"},
      {"municipio", "ÁLVARO OBREGÓN"},
      {"estado", "CIUDAD DE MÉXICO"},
      {"pais", "MÉXICO"},
      {"codigopostal", "01040"},
      {"servidorsmtp", "mail.kemper.example"}};
  for (const auto& [columna, valor] : valores) {
    e.Set(QString::fromLatin1(columna), QString::fromUtf8(valor));
  }
  return e;
}

// A small picture, as a logo file would hold it.
QByteArray Logotipo() {
  QImage imagen(120, 60, QImage::Format_RGB32);
  imagen.fill(QColor(0x1f, 0x3b, 0x5c));
  for (int x = 10; x < 110; ++x) {
    for (int y = 20; y < 40; ++y) imagen.setPixel(x, y, qRgb(0xf0, 0xa0, 0x20));
  }
  QByteArray datos;
  QBuffer buffer(&datos);
  buffer.open(QIODevice::WriteOnly);
  imagen.save(&buffer, "BMP");
  return datos;
}

template <typename T = QLineEdit>
T* Campo(QWidget& forma, const QString& nombre) {
  return forma.findChild<T*>(nombre);
}

// Ctrl+Tab until the tab with that title is in front.
void Pestana(QTabWidget* tabs, const QString& titulo) {
  for (int i = 0; i < tabs->count() && tabs->tabText(tabs->currentIndex()).remove(u'&') != titulo;
       ++i) {
    QTest::keyClick(tabs, Qt::Key_Tab, Qt::ControlModifier);
  }
}

// Clicks into a field, as the person does after changing tab, and types over its text.
void Teclear(QLineEdit* campo, const QString& texto) {
  QTest::mouseClick(campo, Qt::LeftButton);
  QTRY_VERIFY(campo->hasFocus());
  campo->selectAll();
  QTest::keyClicks(campo, texto);
}

}  // namespace

class TestEmpresaForms : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { ventarix::testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  // The name typed over from the RFC with Enter, a tax rate and the sizes flag on the rules
  // tab; Guardar reloads the session and the reopened screen shows what was saved.
  void CambiarEmpresaYReabrir() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    CargarSesion(session);
    RowValues inicial = EmpresaCompleta(session);
    inicial.Set(u"logotipo"_s, Logotipo());
    QVERIFY(empresa::GuardarEmpresa(session, inicial));
    CargarSesion(session);

    MDIInicioEmpresa forma(session);
    QVERIFY(Mostrar(forma));
    auto* rfc = Campo(forma, u"Rfc"_s);
    QCOMPARE(QApplication::focusWidget(), rfc);
    QCOMPARE(rfc->text(), u"EKU9003173C9"_s);
    QTest::keyClick(rfc, Qt::Key_Return);
    auto* nombre = Campo(forma, u"Empresa"_s);
    QCOMPARE(QApplication::focusWidget(), nombre);
    QTest::keyClicks(nombre, u"kemper norte"_s);
    QCOMPARE(nombre->text(), u"KEMPER NORTE"_s);

    auto* tabs = Campo<QTabWidget>(forma, u"Tab1"_s);
    Pestana(tabs, u"Reglas"_s);
    QCOMPARE(tabs->tabText(tabs->currentIndex()).remove(u'&'), u"Reglas"_s);
    auto* impuesto = Campo(forma, u"Impuesto"_s);
    QCOMPARE(impuesto->text(), u"16.00"_s);
    Teclear(impuesto, u"8"_s);
    auto* tallas = Campo<QCheckBox>(forma, u"Tallas"_s);
    QVERIFY(!tallas->isChecked());
    tallas->setFocus();
    QTest::keyClick(tallas, Qt::Key_Space);
    QVERIFY(tallas->isChecked());
    testing::SaveShot(&forma, u"mdi_inicio_empresa_reglas"_s);
    Guardar(forma);
    QCOMPARE(forma.result(), int(QDialog::Accepted));
    QCOMPARE(session.empresa.Text(u"empresa"_s), u"KEMPER NORTE"_s);
    QCOMPARE(session.empresa.Number(u"impuesto"_s), 8.0);
    QVERIFY(session.empresa.Flag(u"tallas"_s));

    MDIInicioEmpresa otra(session);
    QVERIFY(Mostrar(otra));
    QCOMPARE(Campo(otra, u"Empresa"_s)->text(), u"KEMPER NORTE"_s);
    QCOMPARE(Campo(otra, u"Impuesto"_s)->text(), u"8.00"_s);
    QVERIFY(Campo<QCheckBox>(otra, u"Tallas"_s)->isChecked());
    QVERIFY(!Campo<QCheckBox>(otra, u"Aplicar_Retenciones"_s)->isChecked());
    // The logo saved before is still there, with its size.
    auto* tabs_otra = Campo<QTabWidget>(otra, u"Tab1"_s);
    Pestana(tabs_otra, u"Logotipo"_s);
    QCOMPARE(Campo<QLabel>(otra, u"Tamano"_s)->text(),
             u"%1 Kb"_s.arg((Logotipo().size() + 1023) / 1024));
    QVERIFY(!Campo<QLabel>(otra, u"Image1"_s)->pixmap().isNull());
    testing::SaveShot(&otra, u"mdi_inicio_empresa_logotipo"_s);
    Pestana(tabs_otra, u"Empresa"_s);
    testing::SaveShot(&otra, u"mdi_inicio_empresa"_s);
  }

  // An empty Colonia, with the mail tab in front: the warning, and the focus back on Colonia
  // on its own tab; nothing is written.
  void RevisionLlevaASuPestana() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    CargarSesion(session);
    QVERIFY(empresa::GuardarEmpresa(session, EmpresaCompleta(session)));
    MDIInicioEmpresa forma(session);
    QVERIFY(Mostrar(forma));
    auto* colonia = Campo(forma, u"Colonia"_s);
    Teclear(colonia, QString());
    QTest::keyClick(colonia, Qt::Key_Backspace);
    auto* tabs = Campo<QTabWidget>(forma, u"Tab1"_s);
    Pestana(tabs, u"Correo"_s);
    {
      ModalCatcher catcher;
      Guardar(forma);
      QTRY_COMPARE(catcher.texts, QStringList{u"Se requiere la entrada de una Colonia"_s});
      QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
      QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Warning});
    }
    QCOMPARE(tabs->tabText(tabs->currentIndex()).remove(u'&'), u"Empresa"_s);
    QCOMPARE(forma.focusWidget(), colonia);
    QVERIFY(forma.isVisible());
    Connection c(session.Cadena);
    QCOMPARE(c.Scalar(u"select colonia from empresa"_s).toString(), u"CAMPESTRE"_s);
  }

  // Gmail picked with the arrow keys fills server and port; the test account replaces the
  // PAC's; reopened, the list shows Gmail again.
  void CorreoYCuentaDePrueba() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    CargarSesion(session);
    RowValues inicial = EmpresaCompleta(session);
    inicial.Set(u"pacproduccion"_s, u"S"_s);
    QVERIFY(empresa::GuardarEmpresa(session, inicial));
    MDIInicioEmpresa forma(session);
    QVERIFY(Mostrar(forma));
    auto* tabs = Campo<QTabWidget>(forma, u"Tab1"_s);
    Pestana(tabs, u"Correo"_s);
    auto* combo = Campo<QComboBox>(forma, u"Combo"_s);
    QCOMPARE(combo->currentText(), u"Otro servidor"_s);
    combo->setFocus();
    for (int i = 0; i < 3; ++i) QTest::keyClick(combo, Qt::Key_Down);
    QCOMPARE(combo->currentText(), u"Gmail"_s);
    QCOMPARE(Campo(forma, u"ServidorSMTP"_s)->text(), u"smtp.gmail.com"_s);
    QCOMPARE(Campo(forma, u"PuertoSMTP"_s)->text(), u"465"_s);
    testing::SaveShot(&forma, u"mdi_inicio_empresa_correo"_s);

    Pestana(tabs, u"Timbrado"_s);
    auto* prueba = Campo<QPushButton>(forma, u"Prueba"_s);
    prueba->setFocus();
    QTest::keyClick(prueba, Qt::Key_Return);
    QCOMPARE(Campo(forma, u"PacUsuario"_s)->text(), u"testing@solucionfactible.com"_s);
    QVERIFY(!Campo<QCheckBox>(forma, u"PacProduccion"_s)->isChecked());
    Guardar(forma);
    QCOMPARE(forma.result(), int(QDialog::Accepted));
    QCOMPARE(session.empresa.Text(u"pacproduccion"_s), u"N"_s);

    MDIInicioEmpresa otra(session);
    QCOMPARE(Campo<QComboBox>(otra, u"Combo"_s)->currentText(), u"Gmail"_s);
    QCOMPARE(Campo(otra, u"PacPassword"_s)->text(), u"timbrado.SF.16672"_s);
  }

  // The administrator picks LUIS, is refused a sale screen 4 on the point-of-sale tab, then
  // gives him a ticket serie, two originals and a header line; LUIS's next session runs on
  // them, the administrator's stays, and LUIS himself sees only his own row.
  void AdministradorConfiguraACajero() {
    VENTARIX_COMPANY(company);
    Session admin = company.MakeSession();
    CargarSesion(admin);
    QVERIFY(usuarios::AltaUsuario(admin, {u"ANA"_s, u"UNO"_s, u"1"_s, true, false}));
    QVERIFY(usuarios::AltaUsuario(admin, {u"LUIS"_s, u"DOS"_s, u"2"_s, false, false}));

    MDIInicioConfigurar forma(admin);
    QVERIFY(Mostrar(forma));
    auto* usuario = Campo<QComboBox>(forma, u"Usuario"_s);
    QCOMPARE(QApplication::focusWidget(), usuario);
    QCOMPARE(usuario->currentText(), u"ADMINISTRADOR"_s);
    QTest::keyClick(usuario, Qt::Key_Down);
    QTest::keyClick(usuario, Qt::Key_Down);
    QCOMPARE(usuario->currentText(), u"LUIS"_s);

    auto* pantalla = Campo(forma, u"PantallaPorDefaultEnTpv"_s);
    QCOMPARE(pantalla->text(), u"2"_s);
    Teclear(pantalla, u"4"_s);
    auto* tabs = Campo<QTabWidget>(forma, u"Tab1"_s);
    Pestana(tabs, u"Ticket"_s);
    auto* serie = Campo(forma, u"TicketSerie"_s);
    Teclear(serie, u"t"_s);
    QTest::keyClick(serie, Qt::Key_Return);
    auto* originales = Campo(forma, u"TicketImpresionesEnOriginal"_s);
    QCOMPARE(QApplication::focusWidget(), originales);
    QTest::keyClicks(originales, u"2"_s);
    Teclear(Campo(forma, u"ticketenc0"_s), u"ferreteria kemper"_s);
    {
      ModalCatcher catcher;
      Guardar(forma);
      QTRY_COMPARE(catcher.texts, QStringList{u"Se requiere la pantalla de venta 1, 2 o 3"_s});
    }
    QCOMPARE(tabs->tabText(tabs->currentIndex()).remove(u'&'), u"Punto de venta"_s);
    QCOMPARE(forma.focusWidget(), pantalla);
    QTest::keyClicks(pantalla, u"1"_s);
    Pestana(tabs, u"Ticket"_s);
    testing::SaveShot(&forma, u"mdi_inicio_configurar"_s);
    Guardar(forma);
    QCOMPARE(forma.result(), int(QDialog::Accepted));
    QCOMPARE(admin.DocumentosTpv, u"T,N,C"_s);
    QCOMPARE(admin.SerieTpv, u"A"_s);

    Session luis = company.MakeSession();
    luis.Usuario = u"LUIS"_s;
    luis.Administrador = false;
    CargarSesion(luis);
    QCOMPARE(luis.DocumentosTpv, u"T"_s);
    QCOMPARE(luis.SerieTpv, u"T"_s);
    QCOMPARE(luis.configurar.Integer(u"PantallaPorDefaultEnTpv"_s), 1);
    QCOMPARE(luis.configurar.Integer(u"TicketImpresionesEnOriginal"_s), 2);
    QCOMPARE(luis.configurar.Text(u"ticketenc0"_s), u"FERRETERIA KEMPER"_s);

    MDIInicioConfigurar suya(luis);
    auto* solo = Campo<QComboBox>(suya, u"Usuario"_s);
    QCOMPARE(solo->count(), 1);
    QCOMPARE(solo->currentText(), u"LUIS"_s);
    QVERIFY(!solo->isEnabled());
    QCOMPARE(Campo(suya, u"TicketSerie"_s)->text(), u"T"_s);
  }
};

QTEST_MAIN(TestEmpresaForms)
#include "tst_empresa_forms.moc"
