// The login form as a clerk uses it: typing in upper case, Enter and the arrows moving
// through the fields, the exact messages for a wrong user and a wrong password, and entry.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "core/database.h"
#include "core/inicio.h"
#include "core/passwords.h"
#include "core/startup.h"
#include "core/ui/mdi_inicio_entrada.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace Qt::StringLiterals;
using ventarix::MDIInicioEntrada;
using ventarix::Session;
using ventarix::testing::ModalCatcher;

namespace {

bool AgregarUsuario(const QString& cadena, const QString& usuario, const QString& contrasena,
                    int tienda, bool administrador) {
  ventarix::Connection c(cadena);
  return ventarix::testing::Escribir(
      c,
      QStringLiteral("insert into usuarios (usuario, \"contraseña\", tienda, "
                     "administrador, gerente, permisos) values (?, ?, ?, ?, 'N', ?)"),
      {usuario, ventarix::passwords::Hash(contrasena), tienda, administrador ? u"S"_s : u"N"_s,
       QString(200, u'1')});
}

}  // namespace

class TestMdiInicioEntrada : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { ventarix::testing::AddEngineRows(); }
  void initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
    QApplication::setQuitOnLastWindowClosed(false);
  }

  // Wrong user, then wrong password, each with its message and the focus back on its field;
  // then the right pair enters with the user's store and role.
  void UsuarioYContrasena() {
    VENTARIX_COMPANY(company);
    QVERIFY(AgregarUsuario(company.cadena(), u"SUPERVISOR"_s, u"CLAVE9"_s, 2, true));
    Session session = company.MakeSession();
    ventarix::inicio::PrepararSesion(session);
    QVERIFY(!ventarix::startup::EntrarSinAcceso(session));

    MDIInicioEntrada entrada(session);
    entrada.show();
    entrada.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&entrada));
    auto* usuario = entrada.findChild<QLineEdit*>(u"usuario"_s);
    auto* contrasena = entrada.findChild<QLineEdit*>(u"contrasena"_s);
    auto* aceptar = entrada.findChild<QPushButton*>(u"Aceptar"_s);
    QVERIFY(usuario && contrasena && aceptar);
    QCOMPARE(contrasena->echoMode(), QLineEdit::Password);
    QCOMPARE(entrada.findChild<QLabel*>(u"Path"_s)->text(), session.BaseDatos);

    usuario->setFocus();
    QTest::keyClicks(usuario, u"nadie"_s);
    QCOMPARE(usuario->text(), u"NADIE"_s);
    QVERIFY(!aceptar->isEnabled());
    // Enter cannot accept yet, so it moves on.
    QTest::keyClick(usuario, Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), contrasena);
    QTest::keyClick(contrasena, Qt::Key_Up);
    QCOMPARE(QApplication::focusWidget(), usuario);
    QTest::keyClick(usuario, Qt::Key_Down);
    QCOMPARE(QApplication::focusWidget(), contrasena);
    QTest::keyClicks(contrasena, u"clave9"_s);
    QCOMPARE(contrasena->text(), u"CLAVE9"_s);
    QVERIFY(aceptar->isEnabled());
    ventarix::testing::SaveShot(&entrada, u"entrada_"_s + engine);

    ModalCatcher catcher({}, u"entrada_mensaje_"_s);
    QTest::keyClick(contrasena, Qt::Key_Return);
    QCOMPARE(catcher.texts, QStringList{u"Usuario no registrado para acceso al sistema"_s});
    QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
    QCOMPARE(catcher.icons.value(0), QMessageBox::Warning);
    QCOMPARE(entrada.focusWidget(), usuario);
    QCOMPARE(usuario->selectedText(), u"NADIE"_s);

    QTest::keyClicks(usuario, u"supervisor"_s);  // replaces the selection
    QCOMPARE(usuario->text(), u"SUPERVISOR"_s);
    contrasena->clear();
    QTest::keyClicks(contrasena, u"otra"_s);
    QTest::keyClick(contrasena, Qt::Key_Return);
    QCOMPARE(catcher.texts.value(1), u"Contraseña no válida para acceso al sistema"_s);
    QCOMPARE(entrada.focusWidget(), contrasena);
    QVERIFY(entrada.isVisible());

    QTest::keyClicks(contrasena, u"clave9"_s);
    QTest::keyClick(contrasena, Qt::Key_Return);
    QCOMPARE(catcher.texts.size(), 2);
    QCOMPARE(entrada.result(), int(QDialog::Accepted));
    QCOMPARE(session.Usuario, u"SUPERVISOR"_s);
    QCOMPARE(session.Tienda, 2);
    QVERIFY(session.Administrador);

    // With upper case off the field keeps the password as typed, and it still enters.
    Session tal_cual = company.MakeSession();
    tal_cual.UtilizarMayusculas = false;
    MDIInicioEntrada otra(tal_cual);
    otra.show();
    otra.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&otra));
    QTest::keyClicks(otra.findChild<QLineEdit*>(u"usuario"_s), u"SUPERVISOR"_s);
    auto* clave = otra.findChild<QLineEdit*>(u"contrasena"_s);
    QTest::keyClicks(clave, u"clave9"_s);
    QCOMPARE(clave->text(), u"clave9"_s);
    QTest::keyClick(clave, Qt::Key_Return);
    QCOMPARE(otra.result(), int(QDialog::Accepted));
  }

  // Esc only leads to Salir; Salir leaves without entering.
  void EscapeYSalir() {
    VENTARIX_COMPANY(company);
    QVERIFY(AgregarUsuario(company.cadena(), u"SUPERVISOR"_s, u"CLAVE9"_s, 1, true));
    Session session = company.MakeSession();
    MDIInicioEntrada entrada(session);
    entrada.show();
    entrada.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&entrada));
    auto* usuario = entrada.findChild<QLineEdit*>(u"usuario"_s);
    usuario->setFocus();
    QTest::keyClick(usuario, Qt::Key_Escape);
    QVERIFY(entrada.isVisible());
    QCOMPARE(QApplication::focusWidget(), entrada.findChild<QPushButton*>(u"Salir"_s));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(entrada.isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QCOMPARE(entrada.result(), int(QDialog::Rejected));
    QVERIFY(!entrada.isVisible());
    QCOMPARE(session.Usuario, u"ADMINISTRADOR"_s);
  }

  // A double click on the database path forgets the stored choice.
  void OlvidarBaseDatos() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    ventarix::startup::GuardarEleccion(session);
    QCOMPARE(ventarix::startup::LeerEleccion().base_datos, session.BaseDatos);
    MDIInicioEntrada entrada(session);
    entrada.show();
    ModalCatcher catcher;
    QTest::mouseDClick(entrada.findChild<QLabel*>(u"Path"_s), Qt::LeftButton);
    QCOMPARE(catcher.texts, QStringList{u"Se ha quitado el acceso a esta base de datos"_s});
    QCOMPARE(entrada.result(), int(QDialog::Rejected));
    QVERIFY(ventarix::startup::LeerEleccion().base_datos.isEmpty());
  }

 private:
  QTemporaryDir settings_;
};

QTEST_MAIN(TestMdiInicioEntrada)
#include "tst_mdi_inicio_entrada.moc"
