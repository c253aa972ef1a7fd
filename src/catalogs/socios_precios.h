#pragma once

#include <array>
#include <vector>

#include <QString>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// A client's own prices: a price level and discount per brand (clientes utilidades) and a
// fixed price per product (productos precios), captured on the client's change screen. The
// sale screens look them up before the catalogue's prices.
namespace ventarix::socios {

// One brand as the client's grid shows it: the brand's five margins, and the client's level
// (1 to 5 picks the product's price list of that number; 0 none) and discount.
struct UtilidadMarca {
  qint32 marca = 0;
  QString nombre;
  std::array<double, 5> utilidades{};
  int nivel = 0;
  double dcto = 0;
};

// A product with the client's own price.
struct PrecioProducto {
  QString codigo;
  QString producto;
  double precio = 0;
};

struct PreciosCliente {
  std::vector<UtilidadMarca> marcas;      // every brand, in the order of their numbers
  std::vector<PrecioProducto> productos;  // by brand and code
};

Outcome LeerPreciosCliente(const Session& session, qint32 cliente, PreciosCliente* precios);

// The product a code typed in the grid names, by any of its codes: its own code and name.
bool BuscarProducto(const Session& session, const QString& codigo, PrecioProducto* producto);

// Inside the client's save: both tables of the client rewritten from the grids, brands with a
// level of at least 1 and products with a code, numbered from 1 in the grid's order. A level
// above 5 or a code not in productos is refused before anything is written.
Outcome EscribirPreciosCliente(Connection& connection, qint32 cliente,
                               const PreciosCliente& precios);

}  // namespace ventarix::socios
