#pragma once

#include "core/session.h"

class QWidget;

namespace ventarix {

// The last check before a capture screen writes: the security line of its browser's view for
// adding (1) or changing (3) may ask the user's or the manager's password. `alta` names the
// browser's add screen ("FrmRemisionesA"); a screen no browser opens needs nothing. A view
// that can't be read is shown over `forma` and refuses.
bool AutorizarCaptura(Session& session, const char* alta, bool cambio, QWidget* forma);

}  // namespace ventarix
