// The main window as a clerk meets it: menu entries open their screens once, the toolbar and
// the year panel speak to the screen in front, the menu mask hides what a user may not reach,
// and the users catalogue asks for the password first.
#include <functional>
#include <optional>

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

#include "app/formularios.h"
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

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::ModalCatcher;

// A browser stand-in that remembers the keys and alignments the main window hands it.
class NavegadorFalso : public QWidget {
  Q_OBJECT

 public:
  explicit NavegadorFalso(const QString& titulo) { setWindowTitle(titulo); }
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
  Connection c(cadena);
  return testing::Escribir(
      c,
      QStringLiteral("insert into usuarios (usuario, \"contraseña\", tienda, "
                     "administrador, gerente, permisos) values (?, ?, ?, ?, 'N', ?)"),
      {usuario, passwords::Hash(contrasena), tienda, administrador ? u"S"_s : u"N"_s, permisos});
}

QString Mascara(std::initializer_list<int> apagadas) {
  QString permisos(200, u'1');
  for (int posicion : apagadas) permisos[posicion - 1] = u'0';
  return permisos;
}

QString FormaDe(const MDIInicio& ventana) {
  QWidget* forma = ventana.FormaActiva();
  if (auto* pendiente = qobject_cast<PantallaPendiente*>(forma)) return pendiente->forma();
  if (forma == nullptr) return {};
  return forma->objectName().isEmpty() ? forma->windowTitle() : forma->objectName();
}

// The main window over the screens `registrar` adds, loaded and, unless told, shown.
struct Principal {
  using Registrar = std::function<void(FormRegistry&)>;
  explicit Principal(Session& session, const Registrar& registrar = {}, bool mostrar = true)
      : registry(Registro(registrar)), ventana(session, registry) {
    ventana.Cargar();
    if (mostrar) ventana.show();
  }
  static FormRegistry Registro(const Registrar& registrar) {
    FormRegistry registro;
    if (registrar) registrar(registro);
    return registro;
  }
  FormRegistry registry;
  MDIInicio ventana;
};

// The session after a user's login with the password, as the startup leaves it.
std::optional<Session> Entrar(const testing::TestCompany& company, const QString& usuario,
                              const QString& contrasena) {
  Session session = company.MakeSession();
  inicio::PrepararSesion(session);
  if (startup::EntrarSinAcceso(session)) return std::nullopt;
  if (!startup::Entrar(session, usuario, contrasena).ok) return std::nullopt;
  return session;
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
  void initTestCase_data() { testing::AddEngineRows(); }
  void initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
    QApplication::setQuitOnLastWindowClosed(false);
  }

  // Every entry opens a screen of its own, and a second choice brings it back to the front.
  void MenusAbrenSuPantalla() {
    VENTARIX_COMPANY(company);
    Session session = Sesion(company);
    Principal principal(session);
    MDIInicio& ventana = principal.ventana;
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
    QVERIFY(formas.contains(u"FrmTpv2"_s));
    QVERIFY(formas.contains(u"FrmUsuarios"_s));

    // Missing index numbers are separators: records 4, 9, 11, 13, 16, 19, 21 and 23.
    auto* registros = ventana.findChild<QMenu*>(u"mnuReg"_s);
    int separadores = 0;
    for (QAction* accion : registros->actions()) separadores += accion->isSeparator() ? 1 : 0;
    QCOMPARE(separadores, 8);
    for (const char* menu : {"mnuReg", "mnuRte", "mnuUtil"}) {
      auto* lista = ventana.findChild<QMenu*>(QString::fromLatin1(menu));
      lista->popup(ventana.mapToGlobal(QPoint(0, 0)));
      testing::SaveShot(lista, QString::fromLatin1(menu) + u'_' + engine);
      lista->hide();
    }

    Elegir(ventana, "mnuRte8_12");
    QCOMPARE(FormaDe(ventana), u"rptInforme"_s);
    Elegir(ventana, "mnuCat_1");
    QCOMPARE(FormaDe(ventana), u"FrmClientes"_s);
    QCOMPARE(ventana.area()->subWindowList().size(), abiertas);
    ventana.area()->closeAllSubWindows();

    Elegir(ventana, "mnuReg_7");
    auto* aviso = ventana.FormaActiva()->findChild<QLabel*>(u"Aviso"_s);
    QCOMPARE(aviso->text(), u"Esta pantalla aún no está disponible."_s);
    testing::SaveShot(&ventana, u"mdi_inicio_aviso_"_s + engine);
    Elegir(ventana, "Toolbar1_14");
    QVERIFY(ventana.area()->subWindowList().isEmpty());
    // The notice closes with Esc and with Ctrl+F4 too, as every window does.
    ventana.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&ventana));
    for (const QKeyCombination tecla :
         {QKeyCombination(Qt::Key_Escape), QKeyCombination(Qt::ControlModifier | Qt::Key_F4)}) {
      Elegir(ventana, "mnuReg_7");
      QTest::keyClick(QApplication::focusWidget(), tecla.key(), tecla.keyboardModifiers());
      QTRY_VERIFY(ventana.area()->subWindowList().isEmpty());
    }
  }

  // The year panel: the answer's first four characters become the year the browsers show, and
  // the screen in front reloads (F5). A nonsense answer changes nothing.
  void PanelDelAno() {
    VENTARIX_COMPANY(company);
    Session session = Sesion(company);
    NavegadorFalso* remisiones = nullptr;
    Principal principal(session, [&remisiones](FormRegistry& registry) {
      registry.Add(u"FrmRemisiones"_s, [&remisiones](Session&) {
        return remisiones = new NavegadorFalso(u"Remisiones"_s);
      });
    });
    MDIInicio& ventana = principal.ventana;
    Elegir(ventana, "mnuReg_7");
    QVERIFY(remisiones != nullptr);

    ModalCatcher catcher({{u"2013 y más"_s}, {u"año"_s}}, u"ano_"_s);
    QWidget* panel = ventana.findChild<QWidget*>(u"Panel5"_s);
    QTest::mouseClick(panel, Qt::LeftButton);
    QCOMPARE(catcher.texts, QStringList{u"Año a Mostrar"_s});
    QCOMPARE(ventana.Panel(5), u"2013"_s);
    QCOMPARE(session.AnoAMostrar, 2013);
    QCOMPARE(remisiones->teclas, QList<QKeyCombination>{QKeyCombination(Qt::Key_F5)});

    QTest::mouseClick(panel, Qt::LeftButton);
    QCOMPARE(catcher.texts.size(), 2);
    QCOMPARE(ventana.Panel(5), u"2013"_s);
    QCOMPARE(session.AnoAMostrar, 2013);
    QCOMPARE(remisiones->teclas.size(), 1);
  }

  // Toolbar buttons hand their keys to the screen in front; the alignment button only acts
  // on the browsers it knows by caption.
  void BarraDeHerramientas() {
    VENTARIX_COMPANY(company);
    Session session = Sesion(company);
    QHash<QString, NavegadorFalso*> navegadores;
    Principal principal(session, [&navegadores](FormRegistry& registry) {
      for (const auto& [nombre, caption] : {std::pair{u"FrmFacturas"_s, u"Facturas"_s},
                                            std::pair{u"FrmUsuarios"_s, u"Usuarios"_s}}) {
        registry.Add(nombre, [&navegadores, nombre, caption](Session&) {
          return navegadores[nombre] = new NavegadorFalso(caption);
        });
      }
    });
    MDIInicio& ventana = principal.ventana;
    Elegir(ventana, "mnuReg_8");
    for (const char* boton :
         {"Toolbar1_1", "Toolbar1_3", "Toolbar1_4", "Toolbar1_5", "Toolbar1_7"}) {
      Elegir(ventana, boton);
    }
    NavegadorFalso* facturas = navegadores.value(u"FrmFacturas"_s);
    QCOMPARE(facturas->teclas,
             (QList<QKeyCombination>{Qt::Key_F9, Qt::Key_F4, Qt::ControlModifier | Qt::Key_B,
                                     Qt::ControlModifier | Qt::Key_F9}));
    QCOMPARE(facturas->alineaciones, QList<int>{int(Qt::AlignCenter)});

    Elegir(ventana, "mnuCat_17");
    NavegadorFalso* usuarios = navegadores.value(u"FrmUsuarios"_s);
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
    QVERIFY(AgregarUsuario(company.cadena(), u"SUPERVISOR"_s, u"JEFE"_s, 1, true, Mascara({})));
    QVERIFY(AgregarUsuario(company.cadena(), u"CAJERA"_s, u"CAJA"_s, 3, false,
                           Mascara({8, 24, 50 + 17, 100 + 8, 150 + 4})));
    std::optional<Session> session = Entrar(company, u"CAJERA"_s, u"CAJA"_s);
    QVERIFY(session);
    Principal principal(*session);
    MDIInicio& ventana = principal.ventana;
    const QHash<QString, bool> esperado = {
        {u"mnuReg_7"_s, true},
        {u"mnuReg_8"_s, false},
        {u"mnuReg_24"_s, false},
        {u"mnuCat_1"_s, true},
        {u"mnuCat_17"_s, false},
        {u"mnuRte_7"_s, true},
        {u"mnuRte_8"_s, false},
        {u"mnuUtil_4"_s, false},
        {u"mnuUtil_11"_s, true},
        {u"Toolbar1_Tpv"_s, false},
        {u"mnuUtil_1"_s, !company.sql()},
        {u"mnuUtil_2"_s, !company.sql()},
    };
    for (auto it = esperado.cbegin(); it != esperado.cend(); ++it) {
      QAction* accion = ventana.findChild<QAction*>(it.key());
      QVERIFY2(accion != nullptr, qPrintable(it.key()));
      QVERIFY2(accion->isEnabled() == it.value(), qPrintable(it.key()));
    }
    QCOMPARE(ventana.Panel(6), u"CAJERA"_s);
    QCOMPARE(ventana.Panel(2), u"Tienda 3"_s);
    QVERIFY(!ventana.findChild<QWidget*>(u"Panel6"_s)->findChild<QLabel*>(u"Icono"_s)->isVisible());
  }

  // With an administrator in the company, the users catalogue (menu or user panel) asks for
  // the logged user's own password; a wrong one is refused with its message.
  void UsuariosConContrasena() {
    VENTARIX_COMPANY(company);
    QVERIFY(AgregarUsuario(company.cadena(), u"SUPERVISOR"_s, u"JEFE7"_s, 1, true, Mascara({})));
    std::optional<Session> session = Entrar(company, u"SUPERVISOR"_s, u"JEFE7"_s);
    QVERIFY(session);
    Principal principal(*session, RegistrarFormularios);
    MDIInicio& ventana = principal.ventana;

    ModalCatcher catcher({{u"otra"_s}, {}, {u"jefe7"_s}}, u"autorizacion_"_s);
    Elegir(ventana, "mnuCat_17");
    QCOMPARE(catcher.texts, (QStringList{u"MDIInicioAutorizacion"_s,
                                         u"Esta contraseña no corresponde para una autorización"_s,
                                         u"MDIInicioAutorizacion"_s}));
    QCOMPARE(FormaDe(ventana), u"FrmUsuarios"_s);
    ventana.area()->closeAllSubWindows();

    catcher.Add({u"jefe7"_s, false});  // Esc: no authorization
    QTest::mouseClick(ventana.findChild<QWidget*>(u"Panel6"_s), Qt::LeftButton);
    QCOMPARE(catcher.texts.size(), 4);
    QVERIFY(ventana.area()->subWindowList().isEmpty());
  }

  // The terminal setting sends the cashier straight to the user's sale screen.
  void EntrarDirectoAlPuntoDeVenta() {
    VENTARIX_COMPANY(company);
    {
      Connection c(company.cadena());
      QVERIFY(testing::Escribir(
          c, QStringLiteral("insert into configurar (usuario, pantallapordefaultentpv, "
                            "entrardirectamenteatpv) values ('ADMINISTRADOR', 3, 'S')")));
    }
    Session session = Sesion(company);
    Principal principal(session, {}, false);
    MDIInicio& ventana = principal.ventana;
    QCOMPARE(FormaDe(ventana), u"FrmTpv3"_s);
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
      Connection c(company.cadena());
      QVERIFY(
          testing::Escribir(c,
                            QStringLiteral("insert into empresa (numero, empresa, rfc, logotipo) "
                                           "values (1, ?, 'FES990101AB1', ?)"),
                            {u"FERRETERÍA LA ESTRELLA"_s, png}));
    }
    Session session = Sesion(company);
    {
      MDIInicioPresentacion presentacion(session);
      presentacion.show();
      QCOMPARE(presentacion.windowTitle(), u"Versión 1.0.0"_s);
      QCOMPARE(presentacion.findChild<QLabel*>(u"Empresa"_s)->text(), u"FERRETERÍA LA ESTRELLA"_s);
      QVERIFY(!presentacion.findChild<QLabel*>(u"Image1"_s)->pixmap().isNull());
      testing::SaveShot(&presentacion, u"presentacion_"_s + engine);
    }
    Principal principal(session, {}, false);
    MDIInicio& ventana = principal.ventana;
    QCOMPARE(ventana.windowTitle(), u"Ventarix - FERRETERÍA LA ESTRELLA"_s);
    {
      Connection c(company.cadena());
      QVERIFY(testing::Escribir(c, u"update empresa set empresa = 'ABARROTES EL SOL'"_s));
    }
    Elegir(ventana, "mnuPresenta");
    QCOMPARE(ventana.windowTitle(), u"Ventarix - ABARROTES EL SOL"_s);
  }

  // Panel 1 forgets the stored database on Yes only; the panels keep their shares of the width.
  void BarraDeEstado() {
    VENTARIX_COMPANY(company);
    Session session = Sesion(company);
    startup::GuardarEleccion(session);
    Principal principal(session, {}, false);
    MDIInicio& ventana = principal.ventana;
    ventana.resize(1200, 600);
    ventana.show();
    QVERIFY(QTest::qWaitForWindowExposed(&ventana));

    ModalCatcher catcher({{QString(), true, QMessageBox::No}, {QString(), true, QMessageBox::Yes}});
    QWidget* panel1 = ventana.findChild<QWidget*>(u"Panel1"_s);
    QTest::mouseClick(panel1, Qt::LeftButton);
    QCOMPARE(catcher.texts.value(0), u"Abrir una base de datos al iniciar el sistema"_s);
    QCOMPARE(ventana.Panel(1), session.BaseDatos);
    QCOMPARE(startup::LeerEleccion().base_datos, session.BaseDatos);
    QTest::mouseClick(panel1, Qt::LeftButton);
    QCOMPARE(ventana.Panel(1), u"Listo"_s);
    QVERIFY(startup::LeerEleccion().base_datos.isEmpty());

    const std::array<double, 6> partes = {0.40, 0.06, 0.09, 0.28, 0.05, 0.12};
    for (int ancho : {1200, 700}) {
      ventana.resize(ancho, 600);
      QApplication::processEvents();
      int total = 0;
      std::array<int, 6> anchos{};
      for (int i = 0; i < 6; ++i) {
        anchos[i] = ventana.findChild<QWidget*>(u"Panel%1"_s.arg(i + 1))->width();
        total += anchos[i];
      }
      for (int i = 0; i < 6; ++i) {
        QVERIFY2(qAbs(anchos[i] - partes[i] * total) <= 2,
                 qPrintable(u"panel %1: %2 of %3"_s.arg(i + 1).arg(anchos[i]).arg(total)));
      }
    }
  }

 private:
  // A company without users: the session enters as ADMINISTRADOR.
  static Session Sesion(const testing::TestCompany& company) {
    Session session = company.MakeSession();
    inicio::PrepararSesion(session);
    startup::EntrarSinAcceso(session);
    return session;
  }

  QTemporaryDir settings_;
};

QTEST_MAIN(TestMdiInicio)
#include "tst_mdi_inicio.moc"
