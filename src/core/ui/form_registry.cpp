#include "core/ui/form_registry.h"

#include <QWidget>

#include "catalogs/ui/configuracion_registro.h"
#include "catalogs/ui/precios_masivos_registro.h"
#include "catalogs/ui/productos_registro.h"
#include "catalogs/ui/socios_registro.h"
#include "core/ui/mdi_inicio_autorizacion.h"
#include "core/ui/navegador.h"
#include "core/ui/pantalla_pendiente.h"
#include "core/ui/usuarios_registro.h"
#include "documents/ui/bajas_registro.h"
#include "edocs/ui/folios_registro.h"
#include "edocs/ui/rpt_informe.h"
#include "maintenance/ui/mdi_inicio_manto.h"

namespace ventarix {

QWidget* FormRegistry::Create(const QString& name, Session& session) const {
  const auto found = factories_.constFind(name);
  if (found == factories_.constEnd() || !*found) return new PantallaPendiente(name);
  return (*found)(session);
}

QStringList FormRegistry::Actuar(const QString& name, Session& session, const QString& tabla,
                                 const QStringList& llaves, QWidget* parent) const {
  const auto found = acciones_.constFind(name);
  if (found != acciones_.constEnd() && *found) return (*found)(session, tabla, llaves, parent);
  auto* pendiente = new PantallaPendiente(name);
  pendiente->setAttribute(Qt::WA_DeleteOnClose);
  pendiente->show();
  return {};
}

void RegistrarFormularios(FormRegistry& registry) {
  registry.Add(QStringLiteral("MDIInicioAutorizacion"),
               [](Session& session) { return new MDIInicioAutorizacion(session); });
  RegistrarNavegadores(registry);
  RegistrarBajas(registry);
  RegistrarUsuarios(registry);
  RegistrarSocios(registry);
  RegistrarProductos(registry);
  RegistrarPreciosMasivos(registry);
  RegistrarConfiguracion(registry);
  RegistrarMantenimiento(registry);
  RegistrarFolios(registry);
  RegistrarInformeSat(registry);
}

}  // namespace ventarix
