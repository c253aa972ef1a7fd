// What the receivables screens show of the client's side.
#include "sales/ui/pantalla_cxc.h"

#include "sales/cuentas_por_cobrar.h"

namespace ventarix {

const PantallaPagos& PantallaCxC() {
  static const PantallaPagos p{
      .lado = ventas::LadoCxC(),
      .familia = ventas::CxC,
      .familia_saldar = ventas::CxCSaldar,
      .alta = "FrmCxCa",
      .cambio = "FrmCxCc",
      .saldar = "FrmCxCs",
      .titulo_alta = "CUENTAS POR COBRAR - ALTAS",
      .titulo_cambio = "CUENTAS POR COBRAR - CAMBIOS",
      .titulo_saldar = "SALDAR Cuentas x Cobrar de Clientes",
      .titulo_socio = "Cliente",
      .socio = Catalogo::kClientes,
      .ayuda_socio = "CLIENTES",
      .campos = {{.columna = "metodo",
                  .titulo = "Método de pago",
                  .catalogo = true,
                  .cual = Catalogo::kMetodos,
                  .ayuda = "METODOS"},
                 {.columna = "banco",
                  .titulo = "Banco",
                  .catalogo = true,
                  .cual = Catalogo::kBancos,
                  .ayuda = "BANCOS"}},
      .documento = "Factura",
      .referencia_saldar = "Depto",
      .quitar = "Quitar factura de ajuste de pagos",
      .seguro_quitar = "Seguro quitar factura de ajuste de pagos",
  };
  return p;
}

}  // namespace ventarix
