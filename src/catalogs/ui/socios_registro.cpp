#include "catalogs/ui/socios_registro.h"

#include "catalogs/ui/frm_socios.h"
#include "core/ui/form_registry.h"

namespace ventarix {

namespace {

template <typename Forma>
void Alta(FormRegistry& registry, const char* nombre) {
  registry.Add(QLatin1String(nombre),
               [](Session& session, const QString&) { return new Forma(session); });
}

template <typename Forma>
void Cambio(FormRegistry& registry, const char* nombre) {
  registry.Add(QLatin1String(nombre),
               [](Session& session, const QString& llave) { return new Forma(session, llave); });
}

}  // namespace

void RegistrarSocios(FormRegistry& registry) {
  Alta<FrmClientesA>(registry, "FrmClientesA");
  Cambio<FrmClientesC>(registry, "FrmClientesC");
  Alta<FrmProveedoresA>(registry, "FrmProveedoresA");
  Cambio<FrmProveedoresC>(registry, "FrmProveedoresC");
  Alta<FrmAgentesA>(registry, "FrmAgentesA");
  Cambio<FrmAgentesC>(registry, "FrmAgentesC");
  Alta<FrmBancosA>(registry, "FrmBancosA");
  Cambio<FrmBancosC>(registry, "FrmBancosC");
}

}  // namespace ventarix
