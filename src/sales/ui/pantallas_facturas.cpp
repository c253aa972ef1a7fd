#include "sales/ui/pantallas_facturas.h"

#include "sales/familias_ventas.h"
#include "sales/ui/acciones_facturas.h"
#include "sales/ui/acciones_ventas.h"

namespace ventarix::ventas_ui {

using namespace Qt::StringLiterals;
using captura_ui::Campo;
using captura_ui::Dato;

namespace {

const QStringList kTipos = {u"DIRECTA"_s,    u"ESPERA"_s,   u"FACTURA"_s,
                            u"COTIZACION"_s, u"PEDIDO"_s,   u"CONSIGNACION"_s,
                            u"TICKET"_s,     u"SERVICIO"_s, u"GARANTIA"_s};

// The second tab of both: who asked, where it goes, how it is paid and where it is issued.
std::vector<Dato> DatosDePago() {
  return {
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
      {.indice = 32, .columna = "condicionesdepago", .titulo = "Condiciones de pago", .pagina = 1},
      {.indice = 34, .columna = "lugarexpedicion", .titulo = "Lugar de expedición", .pagina = 1}};
}

const Dato kResumen{.indice = 6,
                    .columna = "descripcion",
                    .titulo = "Descripción <F2>",
                    .campo = Campo::kResumen,
                    .longitud = 250};

std::vector<Dato> DatosDeFactura() {
  std::vector<Dato> datos = {
      {.indice = 0, .columna = "folio", .titulo = "Folio", .campo = Campo::kNumero},
      {.indice = 1, .columna = "cliente", .titulo = "Cliente", .campo = Campo::kCliente},
      {.indice = 2, .columna = "agente", .titulo = "Agente", .campo = Campo::kAgente},
      {.indice = 3, .columna = "plazo", .titulo = "Plazo", .campo = Campo::kNumero},
      {.indice = 4, .columna = "pedido", .titulo = "Pedido", .longitud = 20},
      {.indice = 5, .columna = "obs", .titulo = "Observaciones"},
      kResumen,
      {.indice = 10,
       .columna = "retencion isr $",
       .titulo = "Retención ISR <F1>",
       .campo = Campo::kRetencion},
      {.indice = 11,
       .columna = "retencion iva $",
       .titulo = "Retención IVA <F1>",
       .campo = Campo::kRetencion},
      {.indice = 12,
       .columna = "retencion ced $",
       .titulo = "Retención cedular <F1>",
       .campo = Campo::kRetencion}};
  for (const Dato& d : DatosDePago()) datos.push_back(d);
  return datos;
}

std::vector<Dato> DatosDeNota() {
  std::vector<Dato> datos = {
      {.indice = 0, .columna = "folio", .titulo = "Folio", .campo = Campo::kNumero},
      {.indice = 1, .columna = "cliente", .titulo = "Cliente", .campo = Campo::kCliente},
      {.indice = 5, .columna = "obs", .titulo = "Observaciones"},
      kResumen};
  for (const Dato& d : DatosDePago()) {
    if (d.indice >= 22) datos.push_back(d);
  }
  return datos;
}

const captura_ui::Rango kFoliosFacturas{.ayuda = "FOLIOS FACTURAS"};
const captura_ui::Rango kFoliosNotas{.ayuda = "FOLIOS NOTAS"};

}  // namespace

const captura_ui::Pantalla& Facturas() {
  static const captura_ui::Pantalla p{
      .familia = ventas::Facturas(),
      .alta = "FrmFacturasA",
      .cambio = "FrmFacturasC",
      .titulo = "FACTURAS",
      .tipos = kTipos,
      .datos = DatosDeFactura(),
      .acciones = {{.nombre = "Remisiones",
                    .texto = "&Remisiones",
                    .hacer = FacturarRemisiones,
                    .en_cambio = false},
                   {.nombre = "Addenda", .texto = "&Addenda", .hacer = Addenda, .en_alta = false}},
      .fuente = "remision",
      .titulo_fuente = "Remisión",
      .rango = &kFoliosFacturas,
      .con_moneda = true,
      .con_depto = true,
      .codigos_libres = true,
      .al_abrir = DatosFiscales,
      .lista_de_precios = ListaDePrecios,
  };
  return p;
}

const captura_ui::Pantalla& NotasCliente() {
  static const captura_ui::Pantalla p{
      .familia = ventas::NotasCliente(),
      .alta = "FrmNotasClienteA",
      .cambio = "FrmNotasClienteC",
      .titulo = "NOTAS DE CREDITO CLIENTES",
      .tipos = kTipos,
      .datos = DatosDeNota(),
      .con_factura = true,
      .fuente = nullptr,
      .rango = &kFoliosNotas,
      .con_moneda = true,
      .codigos_libres = true,
      .factura_escrita = FacturaEscrita,
      .al_abrir = DatosDeNota,
      .ayuda_de_fila = AyudaDeNota,
  };
  return p;
}

}  // namespace ventarix::ventas_ui
