#pragma once

#include <array>

#include <QString>

#include "catalogs/price_formulas.h"
#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// Brands: a name and the five default margins of their products. When the company applies
// brand margins to products, changing a brand pushes its margins into all its products and
// prices them again by the company's formula.
namespace ventarix::marcas {

struct Marca {
  qint32 numero = 0;
  QString nombre;
  std::array<double, catalogs::kNiveles> utilidades{};
  QString status = QStringLiteral("ALTA");
};

// The brand with that number; a failed read or a missing brand is a stop.
Outcome LeerMarca(const Session& session, qint32 numero, Marca* marca);

// A new brand numbered max + 1 (right "A" on Marcas); *numero receives its number.
Outcome AltaMarca(const Session& session, const Marca& marca, qint32* numero);

// The brand's row written again (right "C" on Marcas); with the company's
// Aplicar_Utilidades_De_Marcas_En_Productos its margins and prices reach its products, all in
// the same save.
Outcome CambioMarca(const Session& session, const Marca& marca);

// The level prices of the brand's products from their cost and margins, rounded to 2 by the
// database; nothing without formula. A level whose financial margin is 100 cannot be priced:
// that product keeps its stored price for the level, the rest are priced.
bool RecalcularPreciosDeMarca(Connection& c, catalogs::Formula formula, qint32 marca,
                              QString* error);

// The three statements of a brand change: the margins into every product of the brand, the
// level prices by the formula, and the sale and final prices from the first level.
bool AplicarUtilidadesEnProductos(Connection& c, catalogs::Formula formula, const Marca& marca,
                                  QString* error);

// The SQL expression of a level's price by the formula, rounded to 2: for level 1 under the
// financial formula
// "case when utilidad1 = 100 then precio1 else round(cast(costo / ((100 - utilidad1) / 100)
// as numeric), 2) end". Empty without formula.
QString ExpresionDeNivel(catalogs::Formula formula, int nivel);

}  // namespace ventarix::marcas
