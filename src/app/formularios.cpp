#include "app/formularios.h"

#include "catalogs/ui/configuracion_registro.h"
#include "catalogs/ui/precios_masivos_registro.h"
#include "catalogs/ui/productos_registro.h"
#include "catalogs/ui/socios_registro.h"
#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "core/ui/usuarios_registro.h"
#include "documents/ui/bajas_registro.h"
#include "edocs/ui/folios_registro.h"
#include "edocs/ui/rpt_informe.h"
#include "inventory/ui/frm_inventario.h"
#include "maintenance/ui/mdi_inicio_manto.h"
#include "purchasing/ui/cxp_registro.h"
#include "purchasing/ui/frm_compras.h"
#include "purchasing/ui/pantallas_proveedor.h"
#include "sales/ui/cxc_registro.h"
#include "sales/ui/frm_facturas.h"
#include "sales/ui/frm_ventas.h"

namespace ventarix {

void RegistrarFormularios(FormRegistry& registry) {
  RegistrarNavegadores(registry);
  RegistrarBajas(registry);
  RegistrarUsuarios(registry);
  RegistrarSocios(registry);
  RegistrarProductos(registry);
  RegistrarPreciosMasivos(registry);
  RegistrarConfiguracion(registry);
  RegistrarMantenimiento(registry);
  RegistrarFolios(registry);
  RegistrarInformeSat(registry);
  RegistrarVentas(registry);
  RegistrarFacturas(registry);
  RegistrarCuentasPorCobrar(registry);
  RegistrarCompras(registry);
  RegistrarCuentasPorPagar(registry);
  RegistrarDocumentosProveedor(registry);
  RegistrarInventario(registry);
}

}  // namespace ventarix
