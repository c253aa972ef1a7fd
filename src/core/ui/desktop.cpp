#include "core/ui/desktop.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>

#include "core/inicio.h"
#include "core/startup.h"
#include "core/ui/desktop_flow.h"
#include "core/ui/form_registry.h"
#include "core/ui/mdi_inicio.h"
#include "core/ui/mdi_inicio_entrada.h"
#include "core/ui/message_box.h"
#include "core/ui/traducciones.h"

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

QString ElegirArchivo() {
  return QFileDialog::getOpenFileName(
      nullptr, QStringLiteral("Abrir base de datos SqlServer / Access"),
      QCoreApplication::applicationDirPath(),
      QStringLiteral("Access / Conexiones (*.mdb *.txt);;Access (*.mdb);;Conexiones (*.txt)"));
}

void Elegir(Session& session, const QString& path) {
  startup::AplicarEleccion(session, startup::EleccionDeArchivo(path));
  startup::GuardarEleccion(session);
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
    const QString path = ElegirArchivo();
    if (path.isEmpty()) return false;
    Elegir(session, path);
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
  return QApplication::exec();
}

}  // namespace ventarix
