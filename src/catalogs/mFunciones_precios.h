#pragma once

#include <optional>

#include <QString>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// The price look-ups every sales document makes for a row, and what a saved purchase does to
// its products' costs and prices. The client of the open document comes in as an argument and
// the price and discount found come back as a value, rather than living in the session.
namespace ventarix::mFunciones {

// A price found for a client: PrecioEncontrado without tax, DctoEncontrado percent.
struct PrecioHallado {
  double PrecioEncontrado = 0;
  double DctoEncontrado = 0;
};

// The client's fixed price of the product in [productos precios], without discount; nothing
// when the client has none. A null price counts as 0.
std::optional<PrecioHallado> PrecioEspecial(Connection& c, qint32 ClienteActual,
                                            const QString& codigo);

// The price a client gets on the product's brand. `producto` is the product's row (marca,
// precio, impuesto, venta, precio1..precio5). Without a row in [clientes utilidades] the
// sale price, or when it is 0 or less the larger of it and the final price without tax; with
// a level 1 to 5 that level's price and the row's discount; any other level the sale price.
PrecioHallado PrecioPorCliente(Connection& c, qint32 ClienteActual, const RowValues& producto);

// The look-up of a document row: the fixed price first, then the brand's level. Nothing when
// no product has that code.
std::optional<PrecioHallado> BuscarPrecio(Connection& c, qint32 ClienteActual,
                                          const QString& codigo);

// A purchase's cost of one product carried into the catalogue, under the company's
// EnCompras_... settings: always with Al_Ultimo_Costo, only when it is dearer with
// Al_Costo_Mas_Alto. The cost, the sale price from the first margin, the final price and the
// five levels are written unrounded; a level a financial margin of 100 cannot price keeps its
// stored value. With neither formula nothing is written, not even the cost. Runs on the
// purchase's own connection, inside its save. *aplicado tells whether the row was written.
Outcome ActualizarCostoDesdeCompra(Connection& c, const RowValues& empresa, const QString& codigo,
                                   double costo, bool* aplicado = nullptr);

// The product's cost with its tax, or 0 when the cost is at or above the limit (or there is no
// such product).
double CostoNeto(Connection& c, const QString& codigo, double limite);

}  // namespace ventarix::mFunciones
