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
// The net price a person sees beside a price without tax, the same wherever it is shown: tax
// percent at 2 decimals, the result at 4, ties to the even neighbour.
double PrecioNeto(double precio, double impuesto);
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

// What a stored product holds of its levels.
struct NivelesGuardados {
  double costo = 0;
  std::array<double, kNiveles> utilidades{};
  std::array<double, kNiveles> precios{};  // without tax
};

// The levels of a product as its screens show them and a save writes them. A level keeps its
// stored price while its cost and margin are those the product holds and that price is the
// formula's to the cent: a brand's recalculation leaves prices at 2 decimals, and pricing them
// again at 4 on every save would set the level apart from the sale price it was copied to.
// Any other level, and every level of a new product (`guardado` empty), is priced by the
// formula at 4; without one, or where it cannot price, the stored price stays. The net price
// of each is PrecioNeto.
Niveles NivelesDeProducto(Formula formula, const std::optional<NivelesGuardados>& guardado,
                          double costo, double impuesto,
                          const std::array<double, kNiveles>& utilidades);

}  // namespace ventarix::catalogs
