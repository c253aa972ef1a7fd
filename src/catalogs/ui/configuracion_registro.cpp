#include "catalogs/ui/configuracion_registro.h"

#include "catalogs/ui/mdi_inicio_configurar.h"
#include "catalogs/ui/mdi_inicio_empresa.h"
#include "core/ui/form_registry.h"

namespace ventarix {

void RegistrarConfiguracion(FormRegistry& registry) {
  registry.Add(QStringLiteral("MDIInicioEmpresa"),
               [](Session& session) { return new MDIInicioEmpresa(session); });
  registry.Add(QStringLiteral("MDIInicioConfigurar"),
               [](Session& session) { return new MDIInicioConfigurar(session); });
}

}  // namespace ventarix
