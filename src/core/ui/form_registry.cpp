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
#include "edocs/ui/folios_registro.h"
#include "edocs/ui/rpt_informe.h"
#include "maintenance/ui/mdi_inicio_manto.h"
#include "sales/ui/frm_ventas.h"

namespace ventarix {

QWidget* FormRegistry::Create(const QString& name, Session& session) const {
  const auto found = factories_.constFind(name);
  if (found == factories_.constEnd() || !*found) return new PantallaPendiente(name);
  return (*found)(session);
}

void RegistrarFormularios(FormRegistry& registry) {
  registry.Add(QStringLiteral("MDIInicioAutorizacion"),
               [](Session& session) { return new MDIInicioAutorizacion(session); });
  RegistrarNavegadores(registry);
  RegistrarUsuarios(registry);
  RegistrarSocios(registry);
  RegistrarProductos(registry);
  RegistrarPreciosMasivos(registry);
  RegistrarConfiguracion(registry);
  RegistrarMantenimiento(registry);
  RegistrarFolios(registry);
  RegistrarInformeSat(registry);
  RegistrarVentas(registry);
}

}  // namespace ventarix
