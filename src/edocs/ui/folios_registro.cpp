#include "edocs/ui/folios_registro.h"

#include "core/ui/form_registry.h"
#include "edocs/ui/frm_folios.h"

namespace ventarix {

namespace {

template <typename Forma>
void Agregar(FormRegistry& registry, const char* nombre) {
  registry.Add(QLatin1String(nombre), [](Session& session) { return new Forma(session); });
}

}  // namespace

void RegistrarFolios(FormRegistry& registry) {
  Agregar<FrmFoliosFacturasA>(registry, "FrmFoliosFacturasA");
  Agregar<FrmFoliosFacturasC>(registry, "FrmFoliosFacturasC");
  Agregar<FrmFoliosNotasA>(registry, "FrmFoliosNotasA");
  Agregar<FrmFoliosNotasC>(registry, "FrmFoliosNotasC");
}

}  // namespace ventarix
