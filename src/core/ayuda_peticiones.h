#pragma once

#include <optional>

#include <QString>

#include "core/ayuda.h"
#include "core/session.h"

// Pieces shared by the files that describe the look-ups, one file per family of lists.
namespace ventarix::ayuda::detalle {

inline constexpr char kDinero[] = "#,##0.00";
inline constexpr char kPrecio[] = "#,##0.0000";
inline constexpr char kFecha[] = "dd/MM/yyyy";

// Columns are laid out in twips, as the list's designer measured them; the screen shows
// pixels at 15 twips each.
ColumnaAyuda Texto(const QString& titulo, int twips);
ColumnaAyuda Cifra(const QString& titulo, int twips, const QString& formato = {});
ColumnaAyuda Fecha(const QString& titulo);

// A request with its title, select part and ordering; the caller adds the rest.
PeticionAyuda Nueva(const QString& titulo, const QString& seleccion, const QString& cola);

// The three searches of a product list, on columns named with the given alias ("" or "r.").
std::vector<BusquedaAyuda> BusquedasDeProducto(const QString& alias);
// The first brand only, for catalogues too big to load whole.
mBrowse::Condicion PrimeraMarca(const Session& session, const QString& alias);

// Catalogues and products; documents, folio ranges and the small setting lists. Each answers
// nothing for a keyword of the other family.
std::optional<PeticionAyuda> PeticionCatalogo(const Session& session, const QString& palabra,
                                              const ParametrosAyuda& parametros);
std::optional<PeticionAyuda> PeticionProducto(const Session& session, const QString& palabra,
                                              const ParametrosAyuda& parametros);
std::optional<PeticionAyuda> PeticionDocumento(const Session& session, const QString& palabra,
                                               const ParametrosAyuda& parametros);

}  // namespace ventarix::ayuda::detalle
