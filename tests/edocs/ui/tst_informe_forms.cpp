// The monthly SAT report as the accountant uses it, by keys, on both engines: the scheme and
// the month chosen, the month listed with its amounts, the file made only after both
// confirmations, the final message with the path and the file shown by the program's own
// viewer on a machine without one, and the dialog of earlier reports.
#include <QComboBox>
#include <QDateEdit>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTest>

#include "app/formularios.h"
#include "catalogs/ui/pantallas_prueba.h"
#include "core/mFunciones.h"
#include "core/ui/form_registry.h"
#include "edocs/informe_filas.h"
#include "edocs/ui/rpt_informe.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::ModalCatcher;

namespace {

QString Celda(QTableWidget* grid, int fila, const QString& columna) {
  for (int c = 0; c < grid->columnCount(); ++c) {
    if (grid->horizontalHeaderItem(c)->text() == columna) {
      return grid->item(fila, c) ? grid->item(fila, c)->text() : u"<vacía>"_s;
    }
  }
  return u"<sin columna>"_s;
}

}  // namespace

class TestInformeForms : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void InformeDelMesPorTeclas() {
    VENTARIX_COMPANY(company);
    QString error;
    QVERIFY2(testing::PrepararMes(company.cadena(), &error), qPrintable(error));
    Session session = company.MakeSession();
    session.empresa.Set(u"rfc"_s, u"EKU9003173C9"_s);
    session.FechaFija = u"20240417"_s;
    mFunciones::CrearCarpetas(session);

    FormRegistry registry;
    RegistrarFormularios(registry);
    std::unique_ptr<QWidget> forma(registry.Create(u"rptInforme"_s, session));
    auto* informe = qobject_cast<rptInforme*>(forma.get());
    QVERIFY(informe != nullptr);
    // A machine without a viewer of its own: the program's viewer shows the file.
    QStringList vistos;
    informe->PonerVisor([&vistos](const QString& path) {
      vistos << path;
      return false;
    });
    QVERIFY(testing::Mostrar(*informe));
    // A toolbar key, pressed with the report window in front as after any message.
    const auto tecla = [informe](Qt::Key key) {
      informe->activateWindow();
      QVERIFY(QTest::qWaitForWindowActive(informe));
      QTest::keyClick(informe, key);
    };
    auto* combo = informe->findChild<QComboBox*>(u"Combo"_s);
    auto* fecha = informe->findChild<QDateEdit*>(u"Fecha"_s);
    auto* fg1 = informe->findChild<QTableWidget*>(u"Fg1"_s);
    auto* archivo = informe->findChild<QLabel*>(u"Archivo"_s);
    QVERIFY(combo && fecha && fg1 && archivo);
    QCOMPARE(informe->windowTitle(), u"INFORME MENSUAL SAT AL MES DE abril 2024"_s);

    // CBB first: nothing was issued under it, which is said after listing and again before
    // the confirmations of an empty file. The month is picked as a month.
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_End);
    QCOMPARE(combo->currentText(), u"CBB"_s);
    QTest::keyClick(combo, Qt::Key_Return);
    QVERIFY(fecha->hasFocus());
    QCOMPARE(fecha->text(), u"abril 2024"_s);
    QTest::keyClick(fecha, Qt::Key_Down);
    QCOMPARE(fecha->text(), u"marzo 2024"_s);
    {
      ModalCatcher catcher({{}, {}, {{}, true, QMessageBox::No}}, u"rpt_informe_vacio_"_s);
      QTest::keyClick(fecha, Qt::Key_Return);
      QCOMPARE(informe->focusWidget(), fg1);
      QCOMPARE(fg1->rowCount(), 0);
      tecla(Qt::Key_F6);
      QTRY_COMPARE(catcher.pending(), 0);
      const QString vacio = u"No hay documentos CBB en el mes de marzo 2024"_s;
      QCOMPARE(catcher.texts.mid(0, 2), QStringList({vacio, vacio}));
      QCOMPARE(catcher.icons.value(0), QMessageBox::Warning);
      QVERIFY(catcher.texts.value(2).startsWith(u"Crear informe archivo mensual"_s));
    }

    // Then CFD, listed with F5.
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Home);
    tecla(Qt::Key_F5);
    QCOMPARE(fg1->rowCount(), 4);
    QCOMPARE(informe->windowTitle(), u"INFORME MENSUAL SAT AL MES DE marzo 2024"_s);
    QCOMPARE(Celda(fg1, 0, u"Serie"_s), QString());
    QCOMPARE(Celda(fg1, 0, u"Status"_s), u"0"_s);
    QCOMPARE(Celda(fg1, 0, u"Monto Total $"_s), u"580.00"_s);
    QCOMPARE(Celda(fg1, 1, u"Monto Total $"_s), u"1,160.50"_s);
    QCOMPARE(Celda(fg1, 1, u"Iva $"_s), u"160.07"_s);
    QCOMPARE(Celda(fg1, 2, u"Moneda"_s), u"MXN"_s);
    QCOMPARE(Celda(fg1, 3, u"Fecha"_s), u"31/03/2024 23:59:59"_s);
    const QString path = session.CarpetaBak + u"/1EKU9003173C9032024.txt"_s;
    QCOMPARE(QDir::fromNativeSeparators(archivo->text()), path);
    testing::SaveShot(informe, u"rpt_informe"_s);

    // No at the second question: no file.
    const QString ruta = u"\n\n"_s + QDir::toNativeSeparators(path);
    {
      ModalCatcher catcher({{{}, true, QMessageBox::Yes}, {{}, true, QMessageBox::No}});
      tecla(Qt::Key_F6);
      QTRY_COMPARE(catcher.pending(), 0);
      QCOMPARE(catcher.texts,
               QStringList({u"Crear informe archivo mensual para enviar al SAT"_s + ruta,
                            u"Seguro crear informe archivo mensual para enviar al SAT"_s + ruta}));
      QCOMPARE(catcher.icons.value(0), QMessageBox::Question);
    }
    QVERIFY(!QFile::exists(path));
    QVERIFY(vistos.isEmpty());

    // Yes twice: the file, the message with its path, and the viewer opens it.
    {
      ModalCatcher catcher({{{}, true, QMessageBox::Yes}, {{}, true, QMessageBox::Yes}, {}},
                           u"rpt_informe_crear_"_s);
      tecla(Qt::Key_F6);
      QTRY_COMPARE(catcher.pending(), 0);
      QCOMPARE(catcher.texts.value(2), u"El informe archivo a enviar al SAT es"_s + ruta);
      QCOMPARE(catcher.titles.value(2), u"Ventarix"_s);
    }
    QCOMPARE(vistos, QStringList{path});
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray texto = file.readAll();
    auto* visor = informe->findChild<QPlainTextEdit*>(u"Texto"_s);
    QVERIFY(visor != nullptr && visor->isReadOnly());
    QCOMPARE(visor->toPlainText(), QString::fromUtf8(texto).remove(u'\r'));
    testing::SaveShot(visor->window(), u"rpt_informe_visor"_s);
    const QList<QByteArray> lineas = texto.split('\n');
    QCOMPARE(lineas.size(), 4);
    QCOMPARE(lineas[3], QByteArray("|9|202412345|31/03/2024 23:59:59|100.00|16.00|1|I|MXN|1|||||"));

    // Earlier reports: the dialog of the backup folder; the one chosen opens the same way.
    {
      ModalCatcher catcher({{path}});
      tecla(Qt::Key_F7);
      QTRY_COMPARE(catcher.pending(), 0);
      QCOMPARE(catcher.titles.value(0), u"Informes mensuales SAT"_s);
    }
    QCOMPARE(vistos, QStringList({path, path}));
    QCOMPARE(informe->findChildren<QPlainTextEdit*>(u"Texto"_s).size(), 2);
  }
};

QTEST_MAIN(TestInformeForms)
#include "tst_informe_forms.moc"
