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

void RegistrarVentas(FormRegistry& registry) {
  AgregarCaptura<FrmRemisionesA>(registry, "FrmRemisionesA");
  AgregarCaptura<FrmRemisionesC>(registry, "FrmRemisionesC");
  AgregarCaptura<FrmCotizacionesA>(registry, "FrmCotizacionesA");
  AgregarCaptura<FrmCotizacionesC>(registry, "FrmCotizacionesC");
  AgregarCaptura<FrmPedidosA>(registry, "FrmPedidosA");
  AgregarCaptura<FrmPedidosC>(registry, "FrmPedidosC");
}

}  // namespace ventarix
