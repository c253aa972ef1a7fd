#include "catalogs/ui/socios_registro.h"

#include "catalogs/ui/frm_socios.h"
#include "core/ui/form_registry.h"

namespace ventarix {

namespace {

template <typename Forma>
void Agregar(FormRegistry& registry, const char* nombre) {
  registry.Add(QLatin1String(nombre), [](Session& session) { return new Forma(session); });
}

}  // namespace

void RegistrarSocios(FormRegistry& registry) {
  Agregar<FrmClientesA>(registry, "FrmClientesA");
  Agregar<FrmClientesC>(registry, "FrmClientesC");
  Agregar<FrmProveedoresA>(registry, "FrmProveedoresA");
  Agregar<FrmProveedoresC>(registry, "FrmProveedoresC");
  Agregar<FrmAgentesA>(registry, "FrmAgentesA");
  Agregar<FrmAgentesC>(registry, "FrmAgentesC");
  Agregar<FrmBancosA>(registry, "FrmBancosA");
  Agregar<FrmBancosC>(registry, "FrmBancosC");
}

}  // namespace ventarix
