#pragma once

#include <QString>

namespace ventarix {
struct Session;
}

// The read-only files an installation ships (SAT schemas and style sheets, the demo's test
// certificate): share/ventarix next to the program's bin folder, or the source tree's data/
// folder when the program runs from its build folder.
namespace ventarix::instalacion {

// The data folder, or empty when neither place exists.
QString CarpetaDatos();

// <data>/sat/<nombre>: "EsquemasCFDi", "EsquemasCFD", "demo".
QString CarpetaSat(const QString& nombre);

// Copies into the session's EsquemasCFDi and EsquemasCFD folders every shipped file they lack;
// files already there are left as they are. Returns how many files were copied; a file that
// could not be copied is logged.
int CompletarEsquemas(const Session& session);

}  // namespace ventarix::instalacion
