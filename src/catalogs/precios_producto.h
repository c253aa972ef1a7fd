#pragma once

#include <array>

#include <QString>

#include "core/outcome.h"
#include "core/session.h"

// The five price levels of one product as a person chooses among them: each level's margin
// and its price with tax.
namespace ventarix::precios_producto {

struct Nivel {
  QString nombre;  // "Precio 1" to "Precio 5"
  double utilidad = 0;
  double precio = 0;  // with tax
};
using Niveles = std::array<Nivel, 5>;

// The stored figures a product's levels are shown from.
struct Figuras {
  double costo = 0;
  double venta = 0;
  double precio = 0;
  double impuesto = 0;
  std::array<double, 5> utilidades{};
  std::array<double, 5> precios{};
};

// Level k shows margin k and price k with the product's tax. A product without cost or without
// a first margin has no levels of its own: every level shows its margin beside the final
// price (Venta when Precio is 0).
Niveles Calcular(const Figuras& figuras);

// The levels of the product with the code; a code not in the catalogue gives zeros. A failed
// read gives the engine's words as a stop.
Outcome Leer(const Session& session, const QString& codigo, Niveles& niveles);

}  // namespace ventarix::precios_producto
