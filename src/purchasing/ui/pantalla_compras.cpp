#include "purchasing/ui/pantalla_compras.h"

#include "purchasing/familia_compras.h"
#include "purchasing/ui/acciones_compras.h"

namespace ventarix::compras_ui {

using namespace Qt::StringLiterals;
using captura_ui::Campo;

const captura_ui::Pantalla& Compras() {
  static const captura_ui::Pantalla p{
      .familia = compras::Compras(),
      .alta = "FrmComprasA",
      .cambio = "FrmComprasC",
      .titulo = "COMPRAS",
      .tipos = {u"CREDITO"_s, u"CONTADO"_s, u"CONSIGNACION"_s},
      .movimientos = {u"ALMACEN1"_s, u"ALMACEN2"_s, u"ALMACEN3"_s, u"ALMACEN4"_s, u"ALMACEN5"_s,
                      QString::fromUtf8(compras::kGastos)},
      .datos = {{.indice = 0, .columna = "folio", .titulo = "Folio", .campo = Campo::kNumero},
                {.indice = 1,
                 .columna = "proveedor",
                 .titulo = "Proveedor",
                 .campo = Campo::kProveedor},
                {.indice = 2, .columna = "remision", .titulo = "Remisión", .longitud = 20},
                {.indice = 3, .columna = "factura", .titulo = "Factura", .longitud = 20},
                {.indice = 4, .columna = "plazo", .titulo = "Plazo", .campo = Campo::kNumero},
                {.indice = 5, .columna = "obs", .titulo = "Observaciones"}},
      .acciones = {{.nombre = "Ordenes", .texto = "&Ordenes", .hacer = AplicarOrden},
                   {.nombre = "Facturas", .texto = "&Facturas", .hacer = ImportarFactura}},
      .fuente = "orden",
      .titulo_fuente = "Orden",
  };
  return p;
}

}  // namespace ventarix::compras_ui
