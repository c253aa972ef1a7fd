// The users screens as an administrator uses them from the keyboard: adding a user (a wrong
// store first), giving and taking menu entries and rights, changing one's own password, and
// the authorization prompt refusing a wrong password before taking the right one.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include "core/database.h"
#include "core/mFunciones.h"
#include "core/passwords.h"
#include "core/startup.h"
#include "core/ui/frm_usuarios_a.h"
#include "core/ui/frm_usuarios_b.h"
#include "core/ui/frm_usuarios_c.h"
#include "core/ui/frm_usuarios_p.h"
#include "core/ui/mdi_inicio_autorizacion.h"
#include "core/usuarios.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using ventarix::testing::ModalCatcher;

namespace {

QVariant Columna(const Session& s, const QString& columna, const QString& usuario) {
  Connection c(s.Cadena);
  return c.Scalar(u"select "_s + columna + u" from usuarios where usuario = ?"_s, {usuario});
}

bool Mostrar(QWidget& forma) {
  forma.show();
  forma.activateWindow();
  return QTest::qWaitForWindowActive(&forma);
}

QTreeWidgetItem* Entrada(QTreeWidget* arbol, const QString& titulo) {
  const QList<QTreeWidgetItem*> encontradas = arbol->findItems(titulo, Qt::MatchExactly);
  return encontradas.isEmpty() ? nullptr : encontradas.first();
}

void Enter(QWidget* campo) { QTest::keyClick(campo, Qt::Key_Return); }

}  // namespace

class TestUsuariosForms : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { ventarix::testing::AddEngineRows(); }
  void initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
    QApplication::setQuitOnLastWindowClosed(false);
  }

  // The first user of a company, typed field after field with Enter: store 4 is refused with
  // the focus back on it; store 2 saves, and she becomes administrator with every entry.
  void AltaDelPrimerUsuario() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    FrmUsuariosA alta(session);
    QVERIFY(Mostrar(alta));
    auto* usuario = alta.findChild<QLineEdit*>(u"Usuario"_s);
    auto* contrasena = alta.findChild<QLineEdit*>(u"Contrasena"_s);
    auto* tienda = alta.findChild<QLineEdit*>(u"Tienda"_s);
    QVERIFY(usuario && contrasena && tienda);
    QCOMPARE(QApplication::focusWidget(), usuario);
    QTest::keyClicks(usuario, u"ana"_s);
    QCOMPARE(usuario->text(), u"ANA"_s);
    Enter(usuario);
    QCOMPARE(QApplication::focusWidget(), contrasena);
    QTest::keyClicks(contrasena, u"clave"_s);
    QCOMPARE(contrasena->echoMode(), QLineEdit::Password);
    Enter(contrasena);
    QCOMPARE(QApplication::focusWidget(), tienda);
    QTest::keyClicks(tienda, u"4"_s);
    QCOMPARE(tienda->text(), u"4"_s);
    Enter(tienda);                       // Administrador
    Enter(QApplication::focusWidget());  // Gerente
    Enter(QApplication::focusWidget());  // Guardar
    auto* guardar = alta.findChild<QPushButton*>(u"Guardar"_s);
    QCOMPARE(QApplication::focusWidget(), guardar);
    testing::SaveShot(&alta, u"frm_usuarios_a"_s);
    {
      ModalCatcher catcher;
      Enter(guardar);
      QCOMPARE(catcher.texts, QStringList{u"Se requiere la entrada de la tienda 1, 2 o 3"_s});
      QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
      QCOMPARE(catcher.icons, QList<QMessageBox::Icon>{QMessageBox::Warning});
    }
    QCOMPARE(alta.focusWidget(), tienda);
    QCOMPARE(tienda->selectedText(), u"4"_s);
    QVERIFY(alta.isVisible());
    QCOMPARE(Connection(session.Cadena).Scalar(u"select count(*) from usuarios"_s).toInt(), 0);

    QTest::keyClicks(tienda, u"2"_s);
    guardar->setFocus();
    Enter(guardar);
    QCOMPARE(alta.result(), int(QDialog::Accepted));
    QCOMPARE(alta.Guardada(), u"ANA"_s);
    QCOMPARE(Columna(session, u"tienda"_s, u"ANA"_s).toInt(), 2);
    QCOMPARE(Columna(session, u"administrador"_s, u"ANA"_s).toString(), u"S"_s);
    QVERIFY(
        passwords::Verify(u"CLAVE"_s, Columna(session, u"\"contraseña\""_s, u"ANA"_s).toString()));
  }

  // The rights screen opens on the user's mask; Check1 clears and ticks every entry, one entry
  // is unticked with the space bar, a rights text is typed and the catalogues all given.
  void PermisosDeUnUsuario() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    QVERIFY(usuarios::AltaUsuario(session, {u"ANA"_s, u"UNO"_s, u"1"_s, false, false}));
    FrmUsuariosP permisos(session, u"ANA"_s);
    QVERIFY(Mostrar(permisos));
    auto* registros = permisos.findChild<QTreeWidget*>(u"mnuReg"_s);
    auto* catalogos = permisos.findChild<QTreeWidget*>(u"mnuCat"_s);
    auto* reportes = permisos.findChild<QTreeWidget*>(u"mnuRte"_s);
    QVERIFY(registros && catalogos && reportes);
    QTreeWidgetItem* remisiones = Entrada(registros, u"Remisiones"_s);
    QVERIFY(remisiones);
    QCOMPARE(remisiones->checkState(0), Qt::Checked);
    QCOMPARE(Entrada(catalogos, u"Usuarios"_s)->checkState(0), Qt::Checked);
    // A sub-menu's entries are shown under it without a box of their own.
    QTreeWidgetItem* ventas = Entrada(reportes, u"Ventas"_s);
    QVERIFY(ventas && ventas->childCount() == 8);
    QVERIFY(!ventas->child(0)->flags().testFlag(Qt::ItemIsUserCheckable));
    // A separator stands between Contrarecibos (3) and Cotizaciones (5).
    QVERIFY(!registros->topLevelItem(3)->flags().testFlag(Qt::ItemIsEnabled));

    auto* check1 = permisos.findChild<QCheckBox*>(u"Check1"_s);
    check1->setFocus();
    QTest::keyClick(check1, Qt::Key_Space);
    QTest::keyClick(check1, Qt::Key_Space);
    QCOMPARE(remisiones->checkState(0), Qt::Unchecked);
    QCOMPARE(Entrada(catalogos, u"Usuarios"_s)->checkState(0), Qt::Unchecked);
    QTest::keyClick(check1, Qt::Key_Space);
    QCOMPARE(remisiones->checkState(0), Qt::Checked);

    registros->setFocus();
    registros->setCurrentItem(remisiones);
    QTest::keyClick(registros, Qt::Key_Space);
    QCOMPARE(remisiones->checkState(0), Qt::Unchecked);

    auto* facturas = permisos.findChild<QLineEdit*>(u"Facturas"_s);
    facturas->setFocus();
    QTest::keyClicks(facturas, u"snsx"_s);
    QCOMPARE(facturas->text(), u"SNS"_s);
    auto* check3 = permisos.findChild<QCheckBox*>(u"Check3"_s);
    check3->setFocus();
    QTest::keyClick(check3, Qt::Key_Space);
    QCOMPARE(permisos.findChild<QLineEdit*>(u"FoliosNotas"_s)->text(), u"SSS"_s);
    testing::SaveShot(&permisos, u"frm_usuarios_p"_s);

    auto* guardar = permisos.findChild<QPushButton*>(u"Guardar"_s);
    guardar->setFocus();
    Enter(guardar);
    QCOMPARE(permisos.result(), int(QDialog::Accepted));
    QCOMPARE(permisos.Guardada(), u"ANA"_s);
    const QString mascara = Columna(session, u"permisos"_s, u"ANA"_s).toString();
    QCOMPARE(mascara.size(), 200);
    QCOMPARE(mascara.at(6), u'0');   // Remisiones, unticked
    QCOMPARE(mascara.at(7), u'1');   // Facturas
    QCOMPARE(mascara.at(3), u'0');   // the separator after Contrarecibos
    QCOMPARE(mascara.at(23), u'1');  // point of sale, the last entry
    QCOMPARE(mascara.mid(24, 26), QString(26, u'0'));
    QCOMPARE(mascara.at(50 + 16), u'1');  // Usuarios
    QCOMPARE(mascara.at(100 + 7), u'1');  // the sales reports
    QCOMPARE(Columna(session, u"facturas"_s, u"ANA"_s).toString(), u"SNS"_s);
    QCOMPARE(Columna(session, u"clientes"_s, u"ANA"_s).toString(), u"SSS"_s);
    QCOMPARE(Columna(session, u"remisiones"_s, u"ANA"_s).toString(), QString());
  }

  // Someone who is no administrator cannot open another user's row; on their own, Mostrar
  // shows the new password only while held, the manager flag stays out of reach, and the
  // new password is the one that enters.
  void CambioDeLaPropiaContrasena() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    QVERIFY(usuarios::AltaUsuario(session, {u"ANA"_s, u"UNO"_s, u"1"_s, false, false}));
    QVERIFY(usuarios::AltaUsuario(session, {u"LUIS"_s, u"DOS"_s, u"1"_s, false, false}));
    QVERIFY(startup::Entrar(session, u"LUIS"_s, u"DOS"_s));

    {
      FrmUsuariosC ajeno(session, u"ANA"_s);
      ModalCatcher catcher;
      QCOMPARE(ajeno.exec(), int(QDialog::Rejected));
      QCOMPARE(catcher.texts,
               QStringList{u"Este usuario no tiene permisos para cambios de registros"_s});
    }

    FrmUsuariosC cambio(session, u"LUIS"_s);
    QVERIFY(Mostrar(cambio));
    auto* contrasena = cambio.findChild<QLineEdit*>(u"Contrasena"_s);
    auto* mostrar = cambio.findChild<QToolButton*>(u"Mostrar"_s);
    QCOMPARE(mostrar->text(), u"+"_s);
    QVERIFY(!cambio.findChild<QCheckBox*>(u"Gerente"_s)->isEnabled());
    QVERIFY(!cambio.findChild<QCheckBox*>(u"Administrador"_s)->isEnabled());
    QCOMPARE(QApplication::focusWidget(), contrasena);
    QTest::keyClicks(contrasena, u"nueva"_s);
    QTest::mousePress(mostrar, Qt::LeftButton);
    QCOMPARE(contrasena->echoMode(), QLineEdit::Normal);
    QCOMPARE(contrasena->displayText(), u"NUEVA"_s);
    QTest::mouseRelease(mostrar, Qt::LeftButton);
    QCOMPARE(contrasena->echoMode(), QLineEdit::Password);
    Enter(contrasena);
    QTest::keyClicks(QApplication::focusWidget(), u"3"_s);
    auto* guardar = cambio.findChild<QPushButton*>(u"Guardar"_s);
    guardar->setFocus();
    Enter(guardar);
    QCOMPARE(cambio.result(), int(QDialog::Accepted));
    QCOMPARE(cambio.Guardada(), u"LUIS"_s);
    Session otra = company.MakeSession();
    QVERIFY(startup::Entrar(otra, u"LUIS"_s, u"NUEVA"_s));
    QCOMPARE(otra.Tienda, 3);
  }

  // Deleting asks first, with the safe answer under Enter; Borrar deletes and leaves the key
  // for the browser.
  void BorrarUnUsuario() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    QVERIFY(usuarios::AltaUsuario(session, {u"ANA"_s, u"UNO"_s, u"1"_s, false, false}));
    QVERIFY(usuarios::AltaUsuario(session, {u"LUIS"_s, u"DOS"_s, u"1"_s, false, false}));
    {
      FrmUsuariosB borrar(session, u"LUIS"_s);
      QVERIFY(Mostrar(borrar));
      Enter(borrar.focusWidget());
      QCOMPARE(borrar.result(), int(QDialog::Rejected));
    }
    FrmUsuariosB borrar(session, u"LUIS"_s);
    QVERIFY(Mostrar(borrar));
    auto* boton = borrar.findChild<QPushButton*>(u"Borrar"_s);
    boton->setFocus();
    Enter(boton);
    QCOMPARE(borrar.result(), int(QDialog::Accepted));
    QCOMPARE(borrar.Guardada(), u"LUIS"_s);
    Connection c(session.Cadena);
    QCOMPARE(c.Scalar(u"select usuario from usuarios"_s).toString(), u"ANA"_s);
    QCOMPARE(c.Scalar(u"select count(*) from usuarios"_s).toInt(), 1);
  }

  // A wrong password gets the message and stays selected for the next try; any of the right
  // ones authorizes, the built-in one of a company without manager too, though the field
  // upper-cases it; Esc leaves without authorizing.
  void AutorizacionDelGerente() {
    Session session;
    const QString titulo = u"Escriba la contraseña del gerente"_s;
    const QStringList claves{passwords::Hash(u"GERENTE"_s),
                             QString::fromLatin1(mFunciones::kClaveFija)};
    MDIInicioAutorizacion prompt(session, titulo, claves);
    QVERIFY(!prompt.autorizado());
    // Driven here by key clicks rather than by the catcher, which answers modal windows.
    prompt.setModal(false);
    QVERIFY(Mostrar(prompt));
    QCOMPARE(prompt.findChild<QLabel*>(u"Titulo"_s)->text(), titulo);
    auto* autorizar = prompt.findChild<QLineEdit*>(u"Autorizar"_s);
    QCOMPARE(QApplication::focusWidget(), autorizar);
    QTest::keyClicks(autorizar, u"mala"_s);
    QCOMPARE(autorizar->text(), u"MALA"_s);
    {
      ModalCatcher catcher;
      Enter(autorizar);
      QCOMPARE(catcher.texts,
               QStringList{u"Esta contraseña no corresponde para una autorización"_s});
      QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
    }
    QVERIFY(prompt.isVisible());
    QVERIFY(!prompt.autorizado());
    QCOMPARE(prompt.focusWidget(), autorizar);
    QCOMPARE(autorizar->selectedText(), u"MALA"_s);
    testing::SaveShot(&prompt, u"mdi_inicio_autorizacion"_s);
    QTest::keyClicks(autorizar, u"gerente"_s);
    QCOMPARE(autorizar->text(), u"GERENTE"_s);
    Enter(autorizar);
    QCOMPARE(prompt.result(), int(QDialog::Accepted));
    QVERIFY(prompt.autorizado());

    for (const bool escape : {false, true}) {
      MDIInicioAutorizacion otra(session, titulo, claves);
      otra.setModal(false);
      QVERIFY(Mostrar(otra));
      QTest::keyClicks(otra.findChild<QLineEdit*>(u"Autorizar"_s), u"qxlmarda_vep"_s);
      if (escape) {
        QTest::keyClick(otra.findChild<QLineEdit*>(u"Autorizar"_s), Qt::Key_Escape);
      } else {
        Enter(otra.findChild<QLineEdit*>(u"Autorizar"_s));
      }
      QCOMPARE(otra.result(), int(escape ? QDialog::Rejected : QDialog::Accepted));
      QCOMPARE(otra.autorizado(), !escape);
    }
  }

 private:
  QTemporaryDir settings_;
};

QTEST_MAIN(TestUsuariosForms)
#include "tst_usuarios_forms.moc"
