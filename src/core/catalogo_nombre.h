#pragma once

#include <optional>

#include <QString>

#include "core/session.h"

namespace ventarix {

// The catalogues whose number a capture field may hold, with their name beside it.
enum class Catalogo { kClientes, kAgentes, kProveedores, kMarcas, kLineas, kMetodos, kBancos };

// The catalogue's table: "clientes", "agentes", ...
QString TablaDeCatalogo(Catalogo catalogo);

// The whole row of the catalogue with that number, or nothing when there is none (or the
// company can't be reached: the field then just shows no name).
std::optional<RowValues> LeerCatalogo(const Session& session, Catalogo catalogo, qint32 numero);

}  // namespace ventarix
