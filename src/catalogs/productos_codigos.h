#pragma once

#include <array>
#include <optional>

#include <QString>

#include "catalogs/price_formulas.h"
#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// The codes of a product: the reserved one, a code already taken, the consecutive code of a
// brand, the alternate codes that must not belong to another product, and the zone text.
namespace ventarix::productos {

// "Este código se utiliza para notas de crédito" on the field, for "DPPP".
Outcome RevisarCodigoReservado(const QString& codigo, const QString& campo);

// Whether a product with exactly that code exists.
bool ExisteCodigo(Connection& c, const QString& codigo);

// The check on leaving the code of a new product: "Este código ya existe en el catálogo de
// productos" when it is taken.
Outcome RevisarCodigoNuevo(const Session& session, const QString& codigo);

// The next code of a brand: "12-00045" when brand 12 has 44 products. Empty for a brand
// below 1. A deleted product makes the next code collide, which the code check then catches.
QString CodigoConsecutivo(const Session& session, qint32 marca);

// An alternate code that another product already carries as one of its alternates:
// "Este código alterno ya existe en el código: " with that product's code and name on the
// next lines, on the field (Codigo1, Codigo2 or Codigo3), which the screen then clears.
// An empty code is fine; `codigo` is the product being captured.
Outcome RevisarCodigoAlterno(Connection& c, const QString& codigo, const QString& alterno,
                             const QString& campo);
Outcome RevisarCodigoAlterno(const Session& session, const QString& codigo, const QString& alterno,
                             const QString& campo);

// The name of the product with that code, or empty.
QString NombreDeProducto(const Session& session, const QString& codigo);

// The zone as stored: "ZONA" and the number typed with two digits ("3" -> "ZONA03"); empty
// for an empty field.
QString FormatoZona(const QString& tecleado);

// The brand's margins, for a product captured under it; nothing for an unknown brand.
std::optional<std::array<double, catalogs::kNiveles>> UtilidadesDeMarca(const Session& session,
                                                                        qint32 marca);

}  // namespace ventarix::productos
