// From the start of the program to the main window: a company given on the command line, a
// fresh company without users, and a remote company that cannot be reached.
#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QScopeGuard>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include "app/desktop_flow.h"
#include "app/formularios.h"
#include "core/database.h"
#include "core/inicio.h"
#include "core/startup.h"
#include "core/ui/form_registry.h"
#include "core/ui/mdi_inicio.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using namespace Qt::StringLiterals;
using ventarix::Session;
using ventarix::testing::ModalCatcher;

class TestDesktop : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { ventarix::testing::AddEngineRows(); }
  void initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void init() { ventarix::startup::OlvidarEleccion(); }

  // A company fresh from "empresa nueva": kept as the stored choice, no login at all, and the
  // main window opens as ADMINISTRADOR with every menu entry.
  void EmpresaNuevaSinAcceso() {
    VENTARIX_COMPANY(company);
    Session session;
    ventarix::inicio::PrepararSesion(session);
    ModalCatcher catcher;
    QVERIFY(ventarix::escritorio::SeleccionarBaseDatos(session, company.path()));
    QCOMPARE(ventarix::startup::LeerEleccion().base_datos,
             QFileInfo(company.path()).absoluteFilePath());
    QCOMPARE(session.Sql, company.sql());
    QVERIFY(ventarix::escritorio::Identificar(session));
    QVERIFY2(catcher.texts.isEmpty(), qPrintable(catcher.texts.join(u'|')));

    ventarix::FormRegistry registry;
    ventarix::MDIInicio ventana(session, registry);
    ventana.Cargar();
    ventana.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ventana));
    QCOMPARE(ventana.Panel(6), u"ADMINISTRADOR"_s);
    QVERIFY(ventana.findChild<QWidget*>(u"Panel6"_s)->findChild<QLabel*>(u"Icono"_s)->isVisible());
    QCOMPARE(ventana.Panel(1), QFileInfo(company.path()).absoluteFilePath());
    QCOMPARE(ventana.Panel(2), u"Tienda 1"_s);
    QCOMPARE(ventana.Panel(3), company.sql() ? u"PostgreSQL"_s : u"SQLite"_s);
    QCOMPARE(ventana.Panel(5), QString::number(QDate::currentDate().year()));
    for (const char* entrada : {"mnuReg_8", "mnuReg_24", "mnuCat_17", "mnuRte_8", "mnuUtil_11"}) {
      QVERIFY2(ventana.findChild<QAction*>(QString::fromLatin1(entrada))->isEnabled(), entrada);
    }
    QCOMPARE(ventana.findChild<QAction*>(u"mnuUtil_1"_s)->isEnabled(), !company.sql());
    ventarix::testing::SaveShot(&ventana, u"mdi_inicio_"_s + engine);
  }

  // The first start: the open-file dialog in the owner's documents; cancelled, the program
  // says it ends without a company and offers to make one; the demo company made opens.
  void PrimerInicioConEmpresaDemo() {
    QFETCH_GLOBAL(QString, engine);
    ventarix::testing::TestCompany company(engine, false);
    if (company.skipped()) QSKIP("VENTARIX_TEST_PG is not set");
    QTemporaryDir casa;
    QVERIFY(QDir(casa.path()).mkdir(u"Documents"_s));
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(casa.path()));
    const auto regresar = qScopeGuard([&home] { qputenv("HOME", home); });
    Session session;
    ModalCatcher catcher({{}, {.boton = u"Empresa de demostración"_s}, {company.path()}},
                         u"primer_inicio_"_s);
    QVERIFY(ventarix::escritorio::SeleccionarBaseDatos(session, {}));
    QCOMPARE(catcher.texts.value(0), casa.filePath(u"Documents"_s));
    QVERIFY(catcher.texts.value(1).contains(u"sin ella el sistema termina"_s));
    QCOMPARE(catcher.buttons.value(1).size(), 3);
    QCOMPARE(ventarix::startup::LeerEleccion().base_datos,
             QFileInfo(company.path()).absoluteFilePath());
    QVERIFY(
        ventarix::Connection(session.Cadena).Scalar(u"select count(*) from productos"_s).toInt());
  }

  // A PostgreSQL company behind an address that does not answer: the address prompt, a wrong
  // address refused, a right one written into the connection file; an empty answer then leads
  // to the file dialog, and leaving it ends the program.
  void DireccionRemota() {
    QFETCH_GLOBAL(QString, engine);
    if (engine != QLatin1String("postgres"))
      QSKIP("remote addresses belong to PostgreSQL companies");
    QTemporaryDir dir;
    const QString path = dir.filePath(u"remota.txt"_s);
    {
      QFile file(path);
      QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Text));
      QTextStream(&file) << "postgresql://sa:x@127.0.0.1:1433/empresa\n"
                         << "postgresql://sa:x@127.0.0.1:1433/empresa\n";
    }
    Session session;
    ModalCatcher catcher(
        {{u"1.2.3"_s}, {}, {u" 127.0.0. 2 "_s}, {QString()}, {}, {.boton = u"Salir del sistema"_s}},
        u"direccion_"_s);
    QVERIFY(!ventarix::escritorio::SeleccionarBaseDatos(session, path));
    const QString prompt = QStringLiteral(
        "Cuál es la nueva IP pública para la conexión remota ?\nEjemplo: 187.123.34.231");
    QCOMPARE(catcher.texts.mid(0, 4),
             (QStringList{prompt, u"Esta IP no es válida"_s, prompt, prompt}));
    QCOMPARE(catcher.titles.value(0), u"IP pública del modem"_s);
    QCOMPARE(catcher.titles.value(4), u"Abrir base de datos SqlServer / Access"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    const QStringList lineas = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(lineas.size(), 2);
    QVERIFY2(lineas[0].contains(QLatin1String("@127.0.0.2:1433/empresa")), qPrintable(lineas[0]));
    QCOMPARE(lineas[1], lineas[0]);
  }

 private:
  QTemporaryDir settings_;
};

QTEST_MAIN(TestDesktop)
#include "tst_desktop.moc"
