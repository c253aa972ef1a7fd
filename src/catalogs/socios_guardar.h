#pragma once

#include <vector>

#include "catalogs/socios.h"
#include "catalogs/socios_precios.h"
#include "core/outcome.h"
#include "core/session.h"

// Guardar of the partner screens: the checks in the order the user meets them, then the row
// (and a client's price grids) written in one transaction.
namespace ventarix::socios {

struct Resultado {
  // Messages that come before the outcome without stopping the save by themselves: the RFC
  // is already another partner's; the RFC check's own word on a month or day out of range.
  std::vector<Outcome> avisos;
  // The check that stopped the save, or the engine's words; ok when saved.
  Outcome outcome;
  // The number saved.
  qint32 numero = 0;
};

// Clients and suppliers: the duplicate RFC warning; a credit term of 0 stored as 1; the rights
// (add on the add screen, change on the change screen); the RFC; the fiscal address; for
// clients the credit limit, agent and payment method. Agents and banks: the rights and a
// name. A new row takes the next number when saved. `precios`, when given, rewrites a
// client's price grids in the same transaction.
Resultado GuardarSocio(const Session& session, Socio socio, bool cambio, const Registro& registro,
                       const PreciosCliente* precios = nullptr);

}  // namespace ventarix::socios
