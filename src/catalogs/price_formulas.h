#pragma once

#include <array>
#include <optional>

#include "core/session.h"

// How prices follow costs. A company prices by one of two formulas, or by none: then prices
// are typed by hand and nothing is ever recomputed. The financial formula treats the margin
// as a share of the price, the arithmetic one as a share of the cost.
namespace ventarix::catalogs {

enum class Formula { kNinguna, kFinanciera, kAritmetica };

inline constexpr int kNiveles = 5;

// The company's formula. The financial setting is looked at first, so it wins when a company
// has both set.
Formula FormulaDeEmpresa(const RowValues& empresa);

// Price without tax of one level from cost and margin percent, unrounded:
// financial c / ((100 - u) / 100), arithmetic c * (1 + u / 100). Nothing when the company
// has no formula, or when the financial margin is 100 (the division by zero that makes the
// stored statements fail on that row).
std::optional<double> PrecioPorFormula(Formula formula, double costo, double utilidad);

// Price with tax: price * (1 + tax / 100), unrounded.
double ConImpuesto(double precio, double impuesto);
// Price without tax from the final one: price / (1 + tax / 100), unrounded. A tax of -100
// would divide by zero; it leaves the price as it is.
double SinImpuesto(double precio_con_impuesto, double impuesto);

// The margin percent that turns cost into price under a formula, the inverse of
// PrecioPorFormula. Nothing without formula, for a cost of 0 (arithmetic) or a price of 0
// (financial).
std::optional<double> UtilidadDePrecio(Formula formula, double costo, double precio);

// What a capture screen shows after Precio, Impuesto or Costo change: the figures are
// rounded as the screen rounds them (price and cost to 4, tax percent to 2, results to 4).
struct Desglose {
  double venta = 0;     // price without tax
  double margen = 0;    // venta - cost, in money; negative margins are shown bold
  double impuesto = 0;  // tax in money
};
Desglose DesgloseDePrecio(double precio, double impuesto, double costo);

// One level of the screen's grid: margin, price without tax and with tax, both rounded to 4.
// precio is empty when the level cannot be computed (no formula, or a financial margin of 100).
struct Nivel {
  double utilidad = 0;
  std::optional<double> precio;
  std::optional<double> precio_con_impuesto;
};
using Niveles = std::array<Nivel, kNiveles>;

// The five levels of a product from cost, margins and tax as a capture screen computes them.
Niveles CalcularNiveles(Formula formula, double costo, double impuesto,
                        const std::array<double, kNiveles>& utilidades);

}  // namespace ventarix::catalogs
