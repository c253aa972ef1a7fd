// The main window as a clerk meets it: menu entries open their screens once, the toolbar and
// the year panel speak to the screen in front, the menu mask hides what a user may not reach,
// and the users catalogue asks for the password first.
#include <QAction>
#include <QBuffer>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QSet>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "core/database.h"
#include "core/inicio.h"
#include "core/passwords.h"
#include "core/startup.h"
#include "core/ui/form_registry.h"
#include "core/ui/mdi_inicio.h"
#include "core/ui/mdi_inicio_presentacion.h"
#include "core/ui/pantalla_pendiente.h"
#include "support/modal_catcher.h"
#include "support/test_company.h"

using ventarix::MDIInicio;
using ventarix::Session;
using ventarix::testing::ModalCatcher;

// A browser stand-in that remembers the keys and alignments the main window hands it.
class Navegador : public QWidget {
  Q_OBJECT

 public:
  explicit Navegador(const QString& titulo) { setWindowTitle(titulo); }
  QList<QKeyCombination> teclas;
  QList<int> alineaciones;

 public slots:
  void AlinearGrid(int alineacion) { alineaciones << alineacion; }

 protected:
  void keyPressEvent(QKeyEvent* event) override { teclas << event->keyCombination(); }
};

namespace {

bool AgregarUsuario(const QString& cadena, const QString& usuario, const QString& contrasena,
                    int tienda, bool administrador, const QString& permisos) {
  ventarix::Connection c(cadena);
  return c.Run(QStringLiteral("insert into usuarios (usuario, \"contraseña\", tienda, "
                              "administrador, gerente, permisos) values (?, ?, ?, ?, 'N', ?)"),
               {usuario, ventarix::passwords::Hash(contrasena), tienda,
                administrador ? QStringLiteral("S") : QStringLiteral("N"), permisos});
}

QString Mascara(std::initializer_list<int> apagadas) {
  QString permisos(200, u'1');
  for (int posicion : apagadas) permisos[posicion - 1] = u'0';
  return permisos;
}

QString FormaDe(const MDIInicio& ventana) {
  QWidget* forma = ventana.FormaActiva();
  if (auto* pendiente = qobject_cast<ventarix::PantallaPendiente*>(forma))
    return pendiente->forma();
  if (forma == nullptr) return {};
  return forma->objectName().isEmpty() ? forma->windowTitle() : forma->objectName();
}

void Elegir(MDIInicio& ventana, const char* entrada) {
  QAction* accion = ventana.findChild<QAction*>(QString::fromLatin1(entrada));
  QVERIFY2(accion != nullptr, entrada);
  accion->trigger();
}

}  // namespace

class TestMdiInicio : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { ventarix::testing::AddEngineRows(); }
  void initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
    QApplication::setQuitOnLastWindowClosed(false);
  }

  // Every entry opens a screen of its own, and a second choice brings it back to the front.
  void MenusAbrenSuPantalla() {
    VENTARIX_COMPANY(company);
    Session session = Sesion(company);
    ventarix::FormRegistry registry;
    MDIInicio ventana(session, registry);
    ventana.Cargar();
    ventana.show();
    QSet<QString> formas;
    int hojas = 0;
    for (QAction* accion : ventana.findChildren<QAction*>()) {
      if (!accion->objectName().startsWith(QLatin1String("mnu")) || accion->menu() != nullptr ||
          accion->objectName() == QLatin1String("mnuPresenta")) {
        continue;
      }
      ++hojas;
      if (!accion->isEnabled()) continue;  // file backup and compaction on PostgreSQL
      accion->trigger();
      const QString forma = FormaDe(ventana);
      QVERIFY2(!forma.isEmpty(), qPrintable(accion->objectName()));
      formas.insert(forma);
    }
    QCOMPARE(hojas, 65);
    const int abiertas = company.sql() ? hojas - 2 : hojas;
    QCOMPARE(formas.size(), abiertas);
    QCOMPARE(ventana.area()->subWindowList().size(), abiertas);
    QVERIFY(formas.contains(QStringLiteral("FrmTpv2")));
    QVERIFY(formas.contains(QStringLiteral("FrmUsuarios")));

    // Missing index numbers are separators: records 4, 9, 11, 13, 16, 19, 21 and 23.
    auto* registros = ventana.findChild<QMenu*>(QStringLiteral("mnuReg"));
    int separadores = 0;
    for (QAction* accion : registros->actions()) separadores += accion->isSeparator() ? 1 : 0;
    QCOMPARE(separadores, 8);
    for (const char* menu : {"mnuReg", "mnuRte", "mnuUtil"}) {
      auto* lista = ventana.findChild<QMenu*>(QString::fromLatin1(menu));
      lista->popup(ventana.mapToGlobal(QPoint(0, 0)));
      ventarix::testing::SaveShot(lista, QString::fromLatin1(menu) + u'_' + engine);
      lista->hide();
    }

    Elegir(ventana, "mnuRte8_12");
    QCOMPARE(FormaDe(ventana), QStringLiteral("rptInforme"));
    Elegir(ventana, "mnuCat_1");
    QCOMPARE(FormaDe(ventana), QStringLiteral("FrmClientes"));
    QCOMPARE(ventana.area()->subWindowList().size(), abiertas);
    ventana.area()->closeAllSubWindows();

    Elegir(ventana, "mnuReg_7");
    auto* aviso = ventana.FormaActiva()->findChild<QLabel*>(QStringLiteral("Aviso"));
    QCOMPARE(aviso->text(), QStringLiteral("Esta pantalla aún no está disponible."));
    ventarix::testing::SaveShot(&ventana, QStringLiteral("mdi_inicio_aviso_") + engine);
    Elegir(ventana, "Toolbar1_14");
    QVERIFY(ventana.area()->subWindowList().isEmpty());
  }

  // The year panel: the answer's first four characters become the year the browsers show, and
  // the screen in front reloads (F5). A nonsense answer changes nothing.
  void PanelDelAno() {
    VENTARIX_COMPANY(company);
    Session session = Sesion(company);
    Navegador* remisiones = nullptr;
    ventarix::FormRegistry registry;
    registry.Add(QStringLiteral("FrmRemisiones"), [&remisiones](Session&) {
      return remisiones = new Navegador(QStringLiteral("Remisiones"));
    });
    MDIInicio ventana(session, registry);
    ventana.Cargar();
    ventana.show();
    Elegir(ventana, "mnuReg_7");
    QVERIFY(remisiones != nullptr);

    ModalCatcher catcher({{QStringLiteral("2013 y más")}, {QStringLiteral("año")}},
                         QStringLiteral("ano_"));
    QWidget* panel = ventana.findChild<QWidget*>(QStringLiteral("Panel5"));
    QTest::mouseClick(panel, Qt::LeftButton);
    QCOMPARE(catcher.texts, QStringList{QStringLiteral("Año a Mostrar")});
    QCOMPARE(ventana.Panel(5), QStringLiteral("2013"));
    QCOMPARE(session.AnoAMostrar, 2013);
    QCOMPARE(remisiones->teclas, QList<QKeyCombination>{QKeyCombination(Qt::Key_F5)});

    QTest::mouseClick(panel, Qt::LeftButton);
    QCOMPARE(catcher.texts.size(), 2);
    QCOMPARE(ventana.Panel(5), QStringLiteral("2013"));
    QCOMPARE(session.AnoAMostrar, 2013);
    QCOMPARE(remisiones->teclas.size(), 1);
  }

  // Toolbar buttons hand their keys to the screen in front; the alignment button only acts
  // on the browsers it knows by caption.
  void BarraDeHerramientas() {
    VENTARIX_COMPANY(company);
    Session session = Sesion(company);
    QHash<QString, Navegador*> navegadores;
    ventarix::FormRegistry registry;
    for (const auto& [forma, titulo] :
         {std::pair{"FrmFacturas", "Facturas"}, std::pair{"FrmUsuarios", "Usuarios"}}) {
      const QString nombre = QString::fromLatin1(forma);
      const QString caption = QString::fromLatin1(titulo);
      registry.Add(nombre, [&navegadores, nombre, caption](Session&) {
        return navegadores[nombre] = new Navegador(caption);
      });
    }
    MDIInicio ventana(session, registry);
    ventana.Cargar();
    ventana.show();
    Elegir(ventana, "mnuReg_8");
    for (const char* boton :
         {"Toolbar1_1", "Toolbar1_3", "Toolbar1_4", "Toolbar1_5", "Toolbar1_7"}) {
      Elegir(ventana, boton);
    }
    Navegador* facturas = navegadores.value(QStringLiteral("FrmFacturas"));
    QCOMPARE(facturas->teclas,
             (QList<QKeyCombination>{Qt::Key_F9, Qt::Key_F4, Qt::ControlModifier | Qt::Key_B,
                                     Qt::ControlModifier | Qt::Key_F9}));
    QCOMPARE(facturas->alineaciones, QList<int>{int(Qt::AlignCenter)});

    Elegir(ventana, "mnuCat_17");
    Navegador* usuarios = navegadores.value(QStringLiteral("FrmUsuarios"));
    QVERIFY(usuarios != nullptr);
    Elegir(ventana, "Toolbar1_7");
    QVERIFY(usuarios->alineaciones.isEmpty());
    Elegir(ventana, "Toolbar1_14");
    QCOMPARE(ventana.FormaActiva(), facturas);
    Elegir(ventana, "Toolbar1_9");
    QVERIFY(!ventana.isVisible());
  }

  // A cashier without invoices, users or the point of sale in the mask: those entries and the
  // point-of-sale button are off, the rest on; PostgreSQL companies have no file backup.
  void MascaraDeMenus() {
    VENTARIX_COMPANY(company);
    QVERIFY(AgregarUsuario(company.cadena(), QStringLiteral("SUPERVISOR"), QStringLiteral("JEFE"),
                           1, true, Mascara({})));
    QVERIFY(AgregarUsuario(company.cadena(), QStringLiteral("CAJERA"), QStringLiteral("CAJA"), 3,
                           false, Mascara({8, 24, 50 + 17, 100 + 8, 150 + 4})));
    Session session = company.MakeSession();
    ventarix::inicio::PrepararSesion(session);
    QVERIFY(!ventarix::startup::EntrarSinAcceso(session));
    QVERIFY(
        ventarix::startup::Entrar(session, QStringLiteral("CAJERA"), QStringLiteral("CAJA")).ok);
    ventarix::FormRegistry registry;
    MDIInicio ventana(session, registry);
    ventana.Cargar();
    ventana.show();
    const QHash<QString, bool> esperado = {
        {QStringLiteral("mnuReg_7"), true},
        {QStringLiteral("mnuReg_8"), false},
        {QStringLiteral("mnuReg_24"), false},
        {QStringLiteral("mnuCat_1"), true},
        {QStringLiteral("mnuCat_17"), false},
        {QStringLiteral("mnuRte_7"), true},
        {QStringLiteral("mnuRte_8"), false},
        {QStringLiteral("mnuUtil_4"), false},
        {QStringLiteral("mnuUtil_11"), true},
        {QStringLiteral("Toolbar1_Tpv"), false},
        {QStringLiteral("mnuUtil_1"), !company.sql()},
        {QStringLiteral("mnuUtil_2"), !company.sql()},
    };
    for (auto it = esperado.cbegin(); it != esperado.cend(); ++it) {
      QAction* accion = ventana.findChild<QAction*>(it.key());
      QVERIFY2(accion != nullptr, qPrintable(it.key()));
      QVERIFY2(accion->isEnabled() == it.value(), qPrintable(it.key()));
    }
    QCOMPARE(ventana.Panel(6), QStringLiteral("CAJERA"));
    QCOMPARE(ventana.Panel(2), QStringLiteral("Tienda 3"));
    QVERIFY(!ventana.findChild<QWidget*>(QStringLiteral("Panel6"))
                 ->findChild<QLabel*>(QStringLiteral("Icono"))
                 ->isVisible());
  }

  // With an administrator in the company, the users catalogue (menu or user panel) asks for
  // the logged user's own password; a wrong one is refused with its message.
  void UsuariosConContrasena() {
    VENTARIX_COMPANY(company);
    QVERIFY(AgregarUsuario(company.cadena(), QStringLiteral("SUPERVISOR"), QStringLiteral("JEFE7"),
                           1, true, Mascara({})));
    Session session = company.MakeSession();
    ventarix::inicio::PrepararSesion(session);
    QVERIFY(!ventarix::startup::EntrarSinAcceso(session));
    QVERIFY(
        ventarix::startup::Entrar(session, QStringLiteral("SUPERVISOR"), QStringLiteral("JEFE7"))
            .ok);
    ventarix::FormRegistry registry;
    ventarix::RegistrarFormularios(registry);
    MDIInicio ventana(session, registry);
    ventana.Cargar();
    ventana.show();

    ModalCatcher catcher({{QStringLiteral("otra")}, {}, {QStringLiteral("jefe7")}},
                         QStringLiteral("autorizacion_"));
    Elegir(ventana, "mnuCat_17");
    QCOMPARE(catcher.texts,
             (QStringList{QStringLiteral("MDIInicioAutorizacion"),
                          QStringLiteral("Esta contraseña no corresponde para una autorización"),
                          QStringLiteral("MDIInicioAutorizacion")}));
    QCOMPARE(FormaDe(ventana), QStringLiteral("FrmUsuarios"));
    ventana.area()->closeAllSubWindows();

    catcher.Add({QStringLiteral("jefe7"), false});  // Esc: no authorization
    QTest::mouseClick(ventana.findChild<QWidget*>(QStringLiteral("Panel6")), Qt::LeftButton);
    QCOMPARE(catcher.texts.size(), 4);
    QVERIFY(!session.Autorizado);
    QVERIFY(ventana.area()->subWindowList().isEmpty());
  }

  // The terminal setting sends the cashier straight to the user's sale screen.
  void EntrarDirectoAlPuntoDeVenta() {
    VENTARIX_COMPANY(company);
    {
      ventarix::Connection c(company.cadena());
      QVERIFY(
          c.Run(QStringLiteral("insert into configurar (usuario, pantallapordefaultentpv, "
                               "entrardirectamenteatpv) values ('ADMINISTRADOR', 3, 'S')")));
    }
    Session session = Sesion(company);
    ventarix::FormRegistry registry;
    MDIInicio ventana(session, registry);
    ventana.Cargar();
    QCOMPARE(FormaDe(ventana), QStringLiteral("FrmTpv3"));
  }

  // The splash loads the company: its name and logo show, and the menu entry loads it again.
  void Presentacion() {
    VENTARIX_COMPANY(company);
    QImage imagen(64, 64, QImage::Format_RGB32);
    imagen.fill(QColor(0x20, 0x80, 0xc0));
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    QVERIFY(imagen.save(&buffer, "PNG"));
    {
      ventarix::Connection c(company.cadena());
      QVERIFY(c.Run(QStringLiteral("insert into empresa (numero, empresa, rfc, logotipo) "
                                   "values (1, ?, 'FES990101AB1', ?)"),
                    {QStringLiteral("FERRETERÍA LA ESTRELLA"), png}));
    }
    Session session = Sesion(company);
    {
      ventarix::MDIInicioPresentacion presentacion(session);
      presentacion.show();
      QCOMPARE(presentacion.windowTitle(), QStringLiteral("Versión 1.0.0"));
      QCOMPARE(presentacion.findChild<QLabel*>(QStringLiteral("Empresa"))->text(),
               QStringLiteral("FERRETERÍA LA ESTRELLA"));
      QVERIFY(!presentacion.findChild<QLabel*>(QStringLiteral("Image1"))->pixmap().isNull());
      ventarix::testing::SaveShot(&presentacion, QStringLiteral("presentacion_") + engine);
    }
    ventarix::FormRegistry registry;
    MDIInicio ventana(session, registry);
    ventana.Cargar();
    QCOMPARE(ventana.windowTitle(), QStringLiteral("Ventarix - FERRETERÍA LA ESTRELLA"));
    {
      ventarix::Connection c(company.cadena());
      QVERIFY(c.Run(QStringLiteral("update empresa set empresa = 'ABARROTES EL SOL'")));
    }
    Elegir(ventana, "mnuPresenta");
    QCOMPARE(ventana.windowTitle(), QStringLiteral("Ventarix - ABARROTES EL SOL"));
  }

  // Panel 1 forgets the stored database on Yes only; the panels keep their shares of the width.
  void BarraDeEstado() {
    VENTARIX_COMPANY(company);
    Session session = Sesion(company);
    ventarix::startup::GuardarEleccion(session);
    ventarix::FormRegistry registry;
    MDIInicio ventana(session, registry);
    ventana.Cargar();
    ventana.resize(1200, 600);
    ventana.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ventana));

    ModalCatcher catcher({{QString(), true, QMessageBox::No}, {QString(), true, QMessageBox::Yes}});
    QWidget* panel1 = ventana.findChild<QWidget*>(QStringLiteral("Panel1"));
    QTest::mouseClick(panel1, Qt::LeftButton);
    QCOMPARE(catcher.texts.value(0),
             QStringLiteral("Abrir una base de datos al iniciar el sistema"));
    QCOMPARE(ventana.Panel(1), session.BaseDatos);
    QCOMPARE(ventarix::startup::LeerEleccion().base_datos, session.BaseDatos);
    QTest::mouseClick(panel1, Qt::LeftButton);
    QCOMPARE(ventana.Panel(1), QStringLiteral("Listo"));
    QVERIFY(ventarix::startup::LeerEleccion().base_datos.isEmpty());

    const std::array<double, 6> partes = {0.58, 0.06, 0.09, 0.1, 0.05, 0.12};
    for (int ancho : {1200, 700}) {
      ventana.resize(ancho, 600);
      QApplication::processEvents();
      int total = 0;
      std::array<int, 6> anchos{};
      for (int i = 0; i < 6; ++i) {
        anchos[i] = ventana.findChild<QWidget*>(QStringLiteral("Panel%1").arg(i + 1))->width();
        total += anchos[i];
      }
      for (int i = 0; i < 6; ++i) {
        QVERIFY2(
            qAbs(anchos[i] - partes[i] * total) <= 2,
            qPrintable(QStringLiteral("panel %1: %2 of %3").arg(i + 1).arg(anchos[i]).arg(total)));
      }
    }
  }

 private:
  // A company without users: the session enters as ADMINISTRADOR.
  static Session Sesion(const ventarix::testing::TestCompany& company) {
    Session session = company.MakeSession();
    ventarix::inicio::PrepararSesion(session);
    ventarix::startup::EntrarSinAcceso(session);
    return session;
  }

  QTemporaryDir settings_;
};

QTEST_MAIN(TestMdiInicio)
#include "tst_mdi_inicio.moc"
