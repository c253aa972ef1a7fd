#pragma once

#include <QString>

#include "core/outcome.h"
#include "core/session.h"

// Product lines: a number, a name and a status; nothing else depends on them here.
namespace ventarix::lineas {

struct Linea {
  qint32 numero = 0;
  QString nombre;
  QString status = QStringLiteral("ALTA");
};

// The line with that number; a failed read or a missing line is a stop.
Outcome LeerLinea(const Session& session, qint32 numero, Linea* linea);
// A new line numbered max + 1 (right "A" on Lineas); *numero receives its number.
Outcome AltaLinea(const Session& session, const Linea& linea, qint32* numero);
// The line's name and status written again (right "C" on Lineas).
Outcome CambioLinea(const Session& session, const Linea& linea);

}  // namespace ventarix::lineas
