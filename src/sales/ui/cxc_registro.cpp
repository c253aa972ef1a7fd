#include "sales/ui/cxc_registro.h"

#include "documents/ui/pagos_registro.h"
#include "sales/ui/pantalla_cxc.h"

namespace ventarix {

void RegistrarCuentasPorCobrar(FormRegistry& registry) {
  RegistrarPantallasPagos(registry, PantallaCxC(), QStringLiteral("FrmCxC"));
}

}  // namespace ventarix
