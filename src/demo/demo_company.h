#pragma once

#include <QString>

#include "core/outcome.h"

namespace ventarix {

// `ventarix demo PATH`: a new company (SQLite file or PostgreSQL .txt connection file, as for
// CrearEmpresa) filled, in one transaction, with a small hardware shop: the company row with
// its fiscal address, payment methods, series, banks, agents, clients, suppliers, brands,
// lines and a few hundred products with prices and stock. It has no users, so it opens
// straight in as ADMINISTRADOR. The same data every time.
Outcome CrearEmpresaDemo(const QString& path);

}  // namespace ventarix
