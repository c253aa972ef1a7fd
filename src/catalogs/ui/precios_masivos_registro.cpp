#include "catalogs/ui/precios_masivos_registro.h"

#include "catalogs/ui/mdi_inicio_cambiar.h"
#include "catalogs/ui/mdi_inicio_costos.h"
#include "catalogs/ui/mdi_inicio_precios.h"
#include "core/ui/form_registry.h"

namespace ventarix {

void RegistrarPreciosMasivos(FormRegistry& registry) {
  registry.Add(QStringLiteral("MDIInicioCostos"),
               [](Session& session) { return new MDIInicioCostos(session); });
  registry.Add(QStringLiteral("MDIInicioNetos"),
               [](Session& session) { return new MDIInicioNetos(session); });
  registry.Add(QStringLiteral("MDIInicioCambiar"),
               [](Session& session) { return new MDIInicioCambiar(session); });
  registry.Add(QStringLiteral("MDIInicioPrecios"), [](Session& session, const QString& codigo) {
    return new MDIInicioPrecios(session, codigo);
  });
}

}  // namespace ventarix
