#include "purchasing/ui/frm_compras.h"

#include "core/ui/form_registry.h"
#include "purchasing/ui/cuenta_proveedor_vista.h"
#include "purchasing/ui/pantalla_compras.h"

namespace ventarix {

namespace {

template <typename Forma>
void AgregarCaptura(FormRegistry& registry, const char* nombre) {
  registry.Add(QLatin1String(nombre), [](Session& session, const QString& llave) -> QWidget* {
    return new Forma(session, llave);
  });
}

}  // namespace

FrmComprasA::FrmComprasA(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, compras_ui::Compras(), false, llave, parent) {}
FrmComprasC::FrmComprasC(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, compras_ui::Compras(), true, llave, parent) {}

void RegistrarCompras(FormRegistry& registry) {
  AgregarCaptura<FrmComprasA>(registry, "FrmComprasA");
  AgregarCaptura<FrmComprasC>(registry, "FrmComprasC");
  registry.AddNavegador(QStringLiteral("FrmCompras"), compras_ui::NavegadorDeCompras());
}

}  // namespace ventarix
