#pragma once

#include <QString>

#include "core/outcome.h"
#include "core/session.h"

// The first half of changing a product's code: the checks, and the change written into the
// company row ([codigo actual], [codigo nuevo]) where the carrying through every table finds
// it, and where it waits for the next start if that is cut short.
namespace ventarix::productos {

// Checks in order: the right "C" on Productos, the reserved code as the new one, a new code that
// exists, an old code that does not; then the pending change written. Failures name "Nuevo" or
// "Actual".
Outcome AnotarCambioDeCodigo(const Session& session, const QString& actual, const QString& nuevo);

}  // namespace ventarix::productos
