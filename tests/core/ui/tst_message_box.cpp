// The message service every form uses: the box, its icon, the field that takes the focus,
// and the error trap's log line.
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include "core/mFunciones.h"
#include "core/ui/message_box.h"
#include "support/modal_catcher.h"

using namespace Qt::StringLiterals;
using ventarix::Outcome;
using ventarix::testing::ModalCatcher;

class TestMessageBox : public QObject {
  Q_OBJECT

 private slots:
  void ShowOutcomeFocusesTheField() {
    QWidget form;
    auto* layout = new QVBoxLayout(&form);
    auto* rfc = new QLineEdit(u"XAXX"_s, &form);
    rfc->setObjectName(u"rfc"_s);
    auto* nombre = new QLineEdit(u"JUAN"_s, &form);
    nombre->setObjectName(u"nombre"_s);
    layout->addWidget(rfc);
    layout->addWidget(nombre);
    form.show();

    ModalCatcher catcher;
    const ventarix::Session session;  // no folders: nothing logged
    ventarix::ui::ShowOutcome(&form, session,
                              Outcome::Warning(u"Se requiere el nombre"_s, u"nombre"_s));
    QCOMPARE(catcher.texts, QStringList{u"Se requiere el nombre"_s});
    QCOMPARE(catcher.titles, QStringList{u"Ventarix"_s});
    QCOMPARE(catcher.icons.value(0), QMessageBox::Warning);
    QCOMPARE(form.focusWidget(), nombre);
    QCOMPARE(nombre->selectedText(), u"JUAN"_s);

    ventarix::ui::ShowOutcome(&form, session, Outcome::Stop(u"No se pudo"_s, u"rfc"_s));
    QCOMPARE(catcher.icons.value(1), QMessageBox::Critical);
    QCOMPARE(form.focusWidget(), rfc);

    ventarix::ui::ShowOutcome(&form, session, Outcome::Ok());  // nothing to say
    QTest::qWait(100);
    QCOMPARE(catcher.texts.size(), 2);
  }

  void AskReturnsTheButton() {
    ModalCatcher catcher({{QString(), true, QMessageBox::No}});
    QCOMPARE(ventarix::ui::Ask(nullptr, u"¿Continuar?"_s), QMessageBox::No);
    QCOMPARE(catcher.icons.value(0), QMessageBox::Question);
  }

  // Qt's own buttons and dialogs speak Spanish like the rest of the system: a question, a
  // notice and the open-file dialog Qt draws itself.
  void BotonesEnEspanol() {
    ModalCatcher catcher({{QString(), true, QMessageBox::Cancel}, {}, {}}, u"botones_"_s);
    ventarix::ui::Ask(nullptr, u"¿Guardar los cambios?"_s,
                      QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    ventarix::ui::Inform(nullptr, u"Listo"_s);
    QFileDialog::getOpenFileName(nullptr, u"Abrir"_s, QString(), QString(), nullptr,
                                 QFileDialog::DontUseNativeDialog);
    QCOMPARE(catcher.buttons.value(0), (QStringList{u"Sí"_s, u"No"_s, u"Cancelar"_s}));
    QCOMPARE(catcher.buttons.value(1), QStringList{u"Aceptar"_s});
    QVERIFY(catcher.buttons.value(2).contains(u"Cancelar"_s));
  }

  // The trap: normal pointer back, a stop message with the description, one line in the log;
  // an outcome shown by any screen takes the same trap when it is a run-time error, and a
  // user's mistake or a rule's refusal stays out of the log.
  void MostrarErrorLogs() {
    QTemporaryDir dir;
    ventarix::Session session;
    session.Usuario = u"CAJERA"_s;
    session.CarpetaErrores = dir.path();
    session.CarpetaEmpresa = dir.filePath(u"XAXX010101000"_s);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ModalCatcher catcher;
    ventarix::MostrarError(nullptr, session, u"no such table: facturas"_s);
    QVERIFY(QApplication::overrideCursor() == nullptr);
    QCOMPARE(catcher.texts, QStringList{u"no such table: facturas"_s});
    QCOMPARE(catcher.icons.value(0), QMessageBox::Critical);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ventarix::ui::ShowOutcome(nullptr, session, Outcome::Stop(u"disk I/O error"_s));
    QVERIFY(QApplication::overrideCursor() == nullptr);
    ventarix::ui::ShowOutcome(nullptr, session, Outcome::Warning(u"Se requiere el nombre"_s));
    ventarix::ui::ShowOutcome(nullptr, session, Outcome::Refuse(u"El mes no corresponde al RFC"_s));
    QCOMPARE(catcher.icons,
             (QList<QMessageBox::Icon>{QMessageBox::Critical, QMessageBox::Critical,
                                       QMessageBox::Warning, QMessageBox::Critical}));
    QFile log(ventarix::mFunciones::ArchivoDeErrores(session, QDate::currentDate()));
    QVERIFY2(log.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(log.fileName()));
    const QStringList lineas = QString::fromUtf8(log.readAll()).split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(lineas.size(), 2);
    QVERIFY(lineas[0].contains(QLatin1String("CAJERA")));
    QVERIFY(lineas[0].contains(QLatin1String("no such table: facturas")));
    QVERIFY(lineas[1].contains(QLatin1String("disk I/O error")));
  }
};

QTEST_MAIN(TestMessageBox)
#include "tst_message_box.moc"
