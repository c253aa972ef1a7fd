#include "app/desktop.h"

#include <optional>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QStandardPaths>

#include "app/desktop_flow.h"
#include "app/formularios.h"
#include "core/company_database.h"
#include "core/inicio.h"
#include "core/startup.h"
#include "core/ui/form_registry.h"
#include "core/ui/mdi_inicio.h"
#include "core/ui/mdi_inicio_entrada.h"
#include "core/ui/message_box.h"
#include "core/ui/traducciones.h"
#include "demo/demo_company.h"
#include "edocs/llaves_abiertas.h"

namespace ventarix {

namespace escritorio {

bool RevisarRegion() {
  if (startup::SeparadorDecimalEsPunto()) return true;
  ui::Inform(nullptr, startup::MensajeSeparadorDecimal(), MessageIcon::kStop);
  return false;
}

bool PedirDireccion(Session& session) {
  QString propuesta = startup::DireccionActual(session);
  for (;;) {
    bool aceptado = false;
    const QString respuesta = QInputDialog::getText(
        nullptr, QStringLiteral("IP pública del modem"),
        QStringLiteral("Cuál es la nueva IP pública para la conexión remota ?\n"
                       "Ejemplo: 187.123.34.231"),
        QLineEdit::Normal, propuesta, &aceptado);
    if (!aceptado) return false;
    const startup::RespuestaDireccion revisada = startup::RevisarDireccion(respuesta);
    if (revisada.vacia) return false;
    if (revisada.valida) return startup::CambiarDireccionRemota(session, revisada.direccion);
    ui::Inform(nullptr, QStringLiteral("Esta IP no es válida"), MessageIcon::kWarning);
    propuesta = respuesta;
  }
}

namespace {

const QString kTituloAbrir = QStringLiteral("Abrir base de datos SqlServer / Access");

// Where the dialogs of a first start open: the user's documents, or home without them.
QString CarpetaInicial() {
  const QString documentos = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QFileInfo(documentos).isDir() ? documentos : QDir::homePath();
}

QString ElegirArchivo() {
  return QFileDialog::getOpenFileName(
      nullptr, kTituloAbrir, CarpetaInicial(),
      QStringLiteral("Access / Conexiones (*.mdb *.txt);;Access (*.mdb);;Conexiones (*.txt)"));
}

void Elegir(Session& session, const QString& path) {
  startup::AplicarEleccion(session, startup::EleccionDeArchivo(path));
  startup::GuardarEleccion(session);
}

// A company made where the owner says, as "ventarix empresa nueva" or "ventarix demo" make
// it: a new SQLite file, or the tables of an existing connection file's empty catalogue.
// Its path, or empty when the dialog was cancelled or the company was not made.
QString CrearEmpresaInicial(bool demo) {
  QFileDialog dialogo(nullptr,
                      demo ? QStringLiteral("Crear la empresa de demostración")
                           : QStringLiteral("Crear una empresa nueva"),
                      CarpetaInicial(), QStringLiteral("Access (*.mdb);;Conexiones (*.txt)"));
  dialogo.setAcceptMode(QFileDialog::AcceptSave);
  dialogo.setDefaultSuffix(QStringLiteral("mdb"));
  // Nothing is written over: a database that holds tables is refused.
  dialogo.setOption(QFileDialog::DontConfirmOverwrite);
  dialogo.selectFile(demo ? QStringLiteral("demo.mdb") : QStringLiteral("empresa.mdb"));
  if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty()) return {};
  const QString path = dialogo.selectedFiles().constFirst();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  const Outcome hecha = demo ? CrearEmpresaDemo(path) : CrearEmpresa(path);
  QApplication::restoreOverrideCursor();
  if (!hecha) {
    ui::Inform(nullptr,
               QStringLiteral("No se creó la empresa ") + QDir::toNativeSeparators(path) +
                   QStringLiteral("\n\n") + hecha.message,
               MessageIcon::kStop);
    return {};
  }
  if (!hecha.message.isEmpty()) ui::Inform(nullptr, hecha.message, hecha.icon);
  return path;
}

// No file chosen: the program says it ends without one, and offers to make a company
// instead. nullopt to end; an empty path goes back to the open-file dialog.
std::optional<QString> OfrecerEmpresa() {
  const int respuesta = ui::Elegir(
      nullptr,
      QStringLiteral("No se eligió una base de datos: sin ella el sistema termina.\n\n"
                     "Puede crear una empresa nueva, vacía, o la empresa de demostración "
                     "(una ferretería con clientes, productos y existencias) para conocer "
                     "el sistema."),
      {QStringLiteral("Empresa &nueva"), QStringLiteral("Empresa de &demostración"),
       QStringLiteral("&Salir del sistema")});
  if (respuesta != 0 && respuesta != 1) return std::nullopt;
  return CrearEmpresaInicial(respuesta == 1);
}

}  // namespace

bool SeleccionarBaseDatos(Session& session, const QString& empresa) {
  if (!empresa.isEmpty()) Elegir(session, QFileInfo(empresa).absoluteFilePath());
  for (;;) {
    startup::AplicarEleccion(session, startup::LeerEleccion());
    if (!session.BaseDatos.isEmpty() && QFileInfo::exists(session.BaseDatos)) {
      const Outcome revision = startup::ChecarEmpresa(session);
      if (revision) return true;
      if (!revision.message.isEmpty()) ui::ShowOutcome(nullptr, session, revision);
      if (session.Sql && startup::PedirDireccionRemota(session) && PedirDireccion(session)) {
        continue;
      }
    }
    QString path = ElegirArchivo();
    if (path.isEmpty()) {
      const std::optional<QString> hecha = OfrecerEmpresa();
      if (!hecha) return false;
      path = *hecha;
    }
    if (!path.isEmpty()) Elegir(session, QFileInfo(path).absoluteFilePath());
  }
}

bool Identificar(Session& session) {
  if (startup::EntrarSinAcceso(session)) return true;
  MDIInicioEntrada entrada(session);
  return entrada.exec() == QDialog::Accepted;
}

}  // namespace escritorio

int RunDesktop(int& argc, char** argv, const QString& empresa) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Ventarix"));
  QApplication::setApplicationVersion(QStringLiteral(VENTARIX_VERSION));
  CargarTraducciones(app);
  if (!escritorio::RevisarRegion()) return 1;

  Session session;
  inicio::PrepararSesion(session);
  if (!escritorio::SeleccionarBaseDatos(session, empresa)) return 0;
  if (!escritorio::Identificar(session)) return 0;

  FormRegistry registry;
  RegistrarFormularios(registry);
  MDIInicio ventana(session, registry);
  ventana.Cargar();
  ventana.show();
  const int salida = QApplication::exec();
  // The session ends: the folio ranges' opened keys go with it.
  edocs::OlvidarLlaves();
  return salida;
}

}  // namespace ventarix
