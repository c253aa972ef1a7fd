#include "sales/ui/pantallas_ventas.h"

#include "sales/familias_ventas.h"
#include "sales/ui/acciones_ventas.h"

namespace ventarix::ventas_ui {

using namespace Qt::StringLiterals;
using captura_ui::Accion;
using captura_ui::Campo;
using captura_ui::Dato;

namespace {

const Accion kDescuento{
    .nombre = "AplicarDescuento", .texto = "&Descuento", .hacer = AplicarDescuento};
const Accion kDescuentoEnPrecio{.nombre = "AplicarDescuentoEnPrecio",
                                .texto = "Dcto. en &precio",
                                .hacer = AplicarDescuentoEnPrecio};

// What a quotation and an order ask above the tabs: the client, agent, term, observations
// and reference.
std::vector<Dato> DatosDePedido() {
  return {{.indice = 0, .columna = "folio", .titulo = "Folio", .campo = Campo::kNumero},
          {.indice = 1, .columna = "cliente", .titulo = "Cliente", .campo = Campo::kCliente},
          {.indice = 2, .columna = "agente", .titulo = "Agente", .campo = Campo::kAgente},
          {.indice = 3, .columna = "plazo", .titulo = "Plazo", .campo = Campo::kNumero},
          {.indice = 20, .columna = "referencia", .titulo = "Referencia"},
          {.indice = 5, .columna = "obs", .titulo = "Observaciones"}};
}

}  // namespace

const captura_ui::Pantalla& Remisiones() {
  static const captura_ui::Pantalla p{
      .familia = ventas::Remisiones(),
      .alta = "FrmRemisionesA",
      .cambio = "FrmRemisionesC",
      .titulo = "REMISIONES",
      .tipos = {u"DIRECTA"_s, u"ESPERA"_s, u"FACTURA"_s, u"COTIZACION"_s, u"PEDIDO"_s},
      .datos =
          {{.indice = 0, .columna = "folio", .titulo = "Folio", .campo = Campo::kNumero},
           {.indice = 1, .columna = "cliente", .titulo = "Cliente", .campo = Campo::kCliente},
           {.indice = 2, .columna = "agente", .titulo = "Agente", .campo = Campo::kAgente},
           {.indice = 3, .columna = "plazo", .titulo = "Plazo", .campo = Campo::kNumero},
           {.indice = 4, .columna = "pedido", .titulo = "Pedido", .longitud = 20},
           {.indice = 5, .columna = "obs", .titulo = "Observaciones"},
           {.indice = 20, .columna = "orden de compra", .titulo = "Orden de compra", .pagina = 1},
           {.indice = 21, .columna = "solicitado por", .titulo = "Solicitado por", .pagina = 1},
           {.indice = 22, .columna = "referencia", .titulo = "Referencia", .pagina = 1},
           {.indice = 23, .columna = "enviar a", .titulo = "Enviar a", .pagina = 1},
           {.indice = 30,
            .columna = "metodo",
            .titulo = "Método de pago",
            .campo = Campo::kMetodo,
            .pagina = 1},
           {.indice = 31,
            .columna = "numctapago",
            .titulo = "Cuenta de pago",
            .pagina = 1,
            .longitud = 4},
           {.indice = 32,
            .columna = "condicionesdepago",
            .titulo = "Condiciones de pago",
            .pagina = 1}},
      .acciones = {kDescuento,
                   kDescuentoEnPrecio,
                   {.nombre = "AplicarUtilidadxPartida",
                    .texto = "&Utilidad",
                    .hacer = AplicarUtilidadxPartida},
                   {.nombre = "AplicarPedido", .texto = "P&edido", .hacer = AplicarPedido}},
      .credito = MostrarCredito,
      .lista_de_precios = ListaDePrecios,
      .avisar_existencias = true,
      .deshacer = true,
  };
  return p;
}

const captura_ui::Pantalla& Cotizaciones() {
  static const captura_ui::Pantalla p{
      .familia = ventas::Cotizaciones(),
      .alta = "FrmCotizacionesA",
      .cambio = "FrmCotizacionesC",
      .titulo = "COTIZACIONES",
      .tipos = {u"DIRECTA"_s, u"FACTURA"_s, u"PEDIDO"_s},
      .datos = DatosDePedido(),
      .acciones = {kDescuento, kDescuentoEnPrecio},
      .lista_de_precios = ListaDePrecios,
  };
  return p;
}

const captura_ui::Pantalla& Pedidos() {
  static const captura_ui::Pantalla p{
      .familia = ventas::Pedidos(),
      .alta = "FrmPedidosA",
      .cambio = "FrmPedidosC",
      .titulo = "PEDIDOS",
      .tipos = {u"DIRECTA"_s, u"FACTURA"_s, u"COTIZACION"_s, u"PEDIDO"_s, u"CONSIGNACION"_s,
                u"TICKET"_s, u"SERVICIO"_s, u"GARANTIA"_s},
      .datos = DatosDePedido(),
      .acciones = {kDescuento,
                   kDescuentoEnPrecio,
                   {.nombre = "AplicarCotizacion",
                    .texto = "&Cotización",
                    .hacer = AplicarCotizacion,
                    .en_cambio = false}},
      .con_surtir = true,
      .credito = MostrarCredito,
      .lista_de_precios = ListaDePrecios,
  };
  return p;
}

}  // namespace ventarix::ventas_ui
