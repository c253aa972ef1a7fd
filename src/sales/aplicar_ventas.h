#pragma once

#include <vector>

#include <QString>
#include <QVariantMap>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// What the pricing buttons of the sales screens do to a document's rows, and the rows a
// note or an order brings in from an order or a quotation. Rows are the capture engine's
// (codigo, cantidad, precio, dcto, costo, ...); only rows with a code are touched.
namespace ventarix::ventas {

using Partidas = std::vector<QVariantMap>;

// AplicarDescuento: every row with a code takes the discount percent.
void AplicarDescuento(Partidas& partidas, double dcto);

// AplicarDescuentoEnPrecio: the discount moves into the price, worked from the catalogue's
// sale price (not the row's): Venta - Venta * Dcto / 100, and Dcto becomes 0.
Outcome AplicarDescuentoEnPrecio(Connection& c, Partidas& partidas);

// AplicarUtilidadxPartida: the row's price from its cost (column Costo) and a profit of at
// least 10%, by the company's formula; nothing changes when it has none.
inline constexpr double kUtilidadMinima = 10;
Outcome AplicarUtilidadxPartida(const RowValues& empresa, QVariantMap& partida, double utilidad);

// AplicarPedido: what is still to be delivered of the order, its quantity `surtir`, with the
// order's key in `pedido` and the store's stock in `existencia`.
Partidas PartidasDePedido(Connection& c, int tienda, const QString& pedido);

// AplicarCotizacion: the quotation's rows as they were quoted.
Partidas PartidasDeCotizacion(Connection& c, const QString& cotizacion);

// The prices a clerk chooses from for a row (F1 on the price): the sale price and the five
// levels, without tax, and the client's own price when it has one.
struct PrecioDeLista {
  QString nombre;
  double precio = 0;
};
std::vector<PrecioDeLista> ListaDePrecios(Connection& c, qint32 cliente, const QString& codigo);

}  // namespace ventarix::ventas
