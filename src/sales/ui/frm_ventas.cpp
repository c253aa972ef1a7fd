#include "sales/ui/frm_ventas.h"

#include "core/ui/form_registry.h"
#include "sales/ui/pantallas_ventas.h"

namespace ventarix {

FrmRemisionesA::FrmRemisionesA(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, ventas_ui::Remisiones(), false, llave, parent) {}
FrmRemisionesC::FrmRemisionesC(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, ventas_ui::Remisiones(), true, llave, parent) {}
FrmCotizacionesA::FrmCotizacionesA(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, ventas_ui::Cotizaciones(), false, llave, parent) {}
FrmCotizacionesC::FrmCotizacionesC(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, ventas_ui::Cotizaciones(), true, llave, parent) {}
FrmPedidosA::FrmPedidosA(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, ventas_ui::Pedidos(), false, llave, parent) {}
FrmPedidosC::FrmPedidosC(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, ventas_ui::Pedidos(), true, llave, parent) {}

namespace {

// Each screen opens the document whose key it is given (none for a new one) and tells the
// browser, through LlaveGuardada, the one it saved.
template <typename Forma>
void Agregar(FormRegistry& registry, const char* nombre) {
  registry.Add(QLatin1String(nombre), [](Session& session, const QString& llave) -> QWidget* {
    return new Forma(session, llave);
  });
}

}  // namespace

void RegistrarVentas(FormRegistry& registry) {
  Agregar<FrmRemisionesA>(registry, "FrmRemisionesA");
  Agregar<FrmRemisionesC>(registry, "FrmRemisionesC");
  Agregar<FrmCotizacionesA>(registry, "FrmCotizacionesA");
  Agregar<FrmCotizacionesC>(registry, "FrmCotizacionesC");
  Agregar<FrmPedidosA>(registry, "FrmPedidosA");
  Agregar<FrmPedidosC>(registry, "FrmPedidosC");
}

}  // namespace ventarix
