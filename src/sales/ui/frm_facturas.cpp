#include "sales/ui/frm_facturas.h"

#include "core/ui/form_registry.h"
#include "sales/ui/frm_ventas.h"
#include "sales/ui/navegador_facturas.h"
#include "sales/ui/pantallas_facturas.h"

namespace ventarix {

FrmFacturasA::FrmFacturasA(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, ventas_ui::Facturas(), false, llave, parent) {}
FrmFacturasC::FrmFacturasC(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, ventas_ui::Facturas(), true, llave, parent) {}
FrmNotasClienteA::FrmNotasClienteA(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, ventas_ui::NotasCliente(), false, llave, parent) {}
FrmNotasClienteC::FrmNotasClienteC(Session& session, const QString& llave, QWidget* parent)
    : FormaCaptura(session, ventas_ui::NotasCliente(), true, llave, parent) {}

void RegistrarFacturas(FormRegistry& registry) {
  AgregarCaptura<FrmFacturasA>(registry, "FrmFacturasA");
  AgregarCaptura<FrmFacturasC>(registry, "FrmFacturasC");
  AgregarCaptura<FrmNotasClienteA>(registry, "FrmNotasClienteA");
  AgregarCaptura<FrmNotasClienteC>(registry, "FrmNotasClienteC");
  registry.AddNavegador(QStringLiteral("FrmFacturas"), ventas_ui::NavegadorDeFacturas());
  registry.AddNavegador(QStringLiteral("FrmNotasCliente"), ventas_ui::NavegadorDeNotasCliente());
}

}  // namespace ventarix
