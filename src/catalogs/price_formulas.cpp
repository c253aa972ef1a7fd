#include "catalogs/price_formulas.h"

#include <cmath>

#include "core/round_half_even.h"

namespace ventarix::catalogs {

Formula FormulaDeEmpresa(const RowValues& empresa) {
  if (empresa.Flag(QStringLiteral("Aplicar_Utilidad_Financiera"))) return Formula::kFinanciera;
  if (empresa.Flag(QStringLiteral("Aplicar_Utilidad_Aritmetica"))) return Formula::kAritmetica;
  return Formula::kNinguna;
}

std::optional<double> PrecioPorFormula(Formula formula, double costo, double utilidad) {
  switch (formula) {
    case Formula::kFinanciera:
      if (utilidad == 100) return std::nullopt;
      return costo / ((100 - utilidad) / 100);
    case Formula::kAritmetica:
      return costo * (1 + (utilidad / 100));
    case Formula::kNinguna:
      break;
  }
  return std::nullopt;
}

double ConImpuesto(double precio, double impuesto) { return precio * (1 + (impuesto / 100)); }

double PrecioNeto(double precio, double impuesto) {
  return RoundHalfEven(ConImpuesto(precio, RoundHalfEven(impuesto, 2)), 4);
}

double SinImpuesto(double precio_con_impuesto, double impuesto) {
  const double factor = 1 + (impuesto / 100);
  if (factor == 0) return precio_con_impuesto;
  return precio_con_impuesto / factor;
}

std::optional<double> UtilidadDePrecio(Formula formula, double costo, double precio) {
  switch (formula) {
    case Formula::kFinanciera:
      if (precio == 0) return std::nullopt;
      return (1 - costo / precio) * 100;
    case Formula::kAritmetica:
      if (costo == 0) return std::nullopt;
      return (precio / costo - 1) * 100;
    case Formula::kNinguna:
      break;
  }
  return std::nullopt;
}

Desglose DesgloseDePrecio(double precio, double impuesto, double costo) {
  const double p = RoundHalfEven(precio, 4);
  const double i = RoundHalfEven(impuesto, 2);
  const double c = RoundHalfEven(costo, 4);
  Desglose d;
  d.venta = RoundHalfEven(SinImpuesto(p, i), 4);
  d.margen = d.venta - c;
  d.impuesto = i * d.venta / 100;
  return d;
}

Niveles CalcularNiveles(Formula formula, double costo, double impuesto,
                        const std::array<double, kNiveles>& utilidades) {
  const double i = RoundHalfEven(impuesto, 2);
  const double c = RoundHalfEven(costo, 4);
  Niveles niveles;
  for (int k = 0; k < kNiveles; ++k) {
    Nivel& nivel = niveles[k];
    nivel.utilidad = utilidades[k];
    if (const auto precio = PrecioPorFormula(formula, c, utilidades[k])) {
      nivel.precio = RoundHalfEven(*precio, 4);
      nivel.precio_con_impuesto = PrecioNeto(*nivel.precio, i);
    }
  }
  return niveles;
}

Niveles NivelesDeProducto(Formula formula, const std::optional<NivelesGuardados>& guardado,
                          double costo, double impuesto,
                          const std::array<double, kNiveles>& utilidades) {
  Niveles niveles = CalcularNiveles(formula, costo, impuesto, utilidades);
  if (!guardado) return niveles;
  const bool mismo_costo = RoundHalfEven(costo, 4) == RoundHalfEven(guardado->costo, 4);
  for (int k = 0; k < kNiveles; ++k) {
    Nivel& nivel = niveles[k];
    const bool mismo_margen =
        RoundHalfEven(utilidades[k], 2) == RoundHalfEven(guardado->utilidades[k], 2);
    // Half a cent, and a hair for the binary fractions: the formula's price to the cent.
    const bool al_centavo =
        nivel.precio && std::abs(*nivel.precio - guardado->precios[k]) <= 0.005 + 1e-9;
    if (nivel.precio && !(mismo_costo && mismo_margen && al_centavo)) continue;
    nivel.precio = guardado->precios[k];
    nivel.precio_con_impuesto = PrecioNeto(guardado->precios[k], impuesto);
  }
  return niveles;
}

}  // namespace ventarix::catalogs
