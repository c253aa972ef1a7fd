#pragma once

#include <QString>

namespace ventarix {

// The desktop program: regional check, database selection (the given company PATH, else the
// stored choice MDB0..MDB3, else the open-file dialog), login, session load and main window.
// Returns the process exit code.
int RunDesktop(int& argc, char** argv, const QString& empresa);

}  // namespace ventarix
