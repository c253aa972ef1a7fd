// The view editor as an administrator uses it: the users with their manager flag, the view's
// current permissions on show, Guardar refused while no part is marked to apply, then the
// marked user's row written with the new permissions only.
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "core/database.h"
#include "core/passwords.h"
#include "core/ui/mdi_inicio_formato.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::ModalCatcher;

class TestMdiInicioFormato : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() { QApplication::setQuitOnLastWindowClosed(false); }

  void PermisosParaUnUsuario() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    Connection c(session.Cadena);
    for (const auto& [usuario, gerente] : {std::pair{u"ANA"_s, u"N"_s}, {u"LUIS"_s, u"S"_s}}) {
      QVERIFY(testing::Escribir(
          c,
          u"insert into usuarios (usuario, \"contraseña\", tienda, administrador, "
          u"gerente, permisos) values (?, ?, 1, 'N', ?, '')"_s,
          {usuario, passwords::Hash(u"X"_s), gerente}));
    }
    QVERIFY(testing::Escribir(
        c,
        u"insert into tablas (tabla, usuario, sentencia, permisos, ordenar) values "
        u"('facturas', 'ADMINISTRADOR', 'select * from facturas', '1111', "
        u"'[folio] Asc')"_s));

    MDIInicioFormato dialogo(session, u"facturas"_s, {{u"factura"_s, mBrowse::kTipoTexto}});
    dialogo.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialogo));
    auto* usuarios = dialogo.findChild<QTableWidget*>(u"Usuarios"_s);
    QCOMPARE(usuarios->rowCount(), 3);
    QCOMPARE(usuarios->item(0, 0)->text(), u"ADMINISTRADOR"_s);
    QCOMPARE(usuarios->item(2, 0)->text(), u"LUIS"_s);
    QCOMPARE(usuarios->item(2, 1)->text(), u"S"_s);
    auto* permisos = dialogo.findChild<QLineEdit*>(u"Permisos"_s);
    QCOMPARE(permisos->text(), u"1111"_s);
    QCOMPARE(dialogo.findChild<QPlainTextEdit*>(u"Sentencia"_s)->toPlainText(),
             u"select * from facturas"_s);
    QVERIFY(!permisos->isEnabled());
    auto* guardar = dialogo.findChild<QPushButton*>(u"Guardar"_s);

    ModalCatcher catcher;
    QTest::mouseClick(guardar, Qt::LeftButton);
    QCOMPARE(catcher.texts, QStringList{u"Se requiere Aplicar Permisos, Aplicar Seguridad, "
                                        u"Aplicar Ordenar o Aplicar Sql"_s});
    QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
    QVERIFY(dialogo.isVisible());

    QTest::mouseClick(dialogo.findChild<QCheckBox*>(u"AplicarPermisos"_s), Qt::LeftButton);
    QVERIFY(permisos->isEnabled());
    permisos->selectAll();
    QTest::keyClicks(permisos, u"01a2"_s);  // only 1 and 0 are taken
    QCOMPARE(permisos->text(), u"01"_s);
    usuarios->item(1, 0)->setCheckState(Qt::Checked);
    testing::SaveShot(&dialogo, u"mdi_inicio_formato"_s);
    QTest::mouseClick(guardar, Qt::LeftButton);
    QCOMPARE(catcher.texts.value(1), u"Permisos guardados con éxito"_s);
    QCOMPARE(catcher.icons.value(1), QMessageBox::Information);
    QCOMPARE(dialogo.result(), int(QDialog::Accepted));

    QCOMPARE(c.Scalar(u"select permisos from tablas where tabla = 'facturas' and usuario = "
                      u"'ANA'"_s)
                 .toString(),
             u"01"_s);
    QCOMPARE(c.Scalar(u"select ordenar from tablas where usuario = 'ANA'"_s).toString(),
             u"[folio] Asc"_s);
    QCOMPARE(c.Scalar(u"select permisos from tablas where usuario = 'ADMINISTRADOR'"_s).toString(),
             u"1111"_s);
  }
};

QTEST_MAIN(TestMdiInicioFormato)
#include "tst_mdi_inicio_formato.moc"
