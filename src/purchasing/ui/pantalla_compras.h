#pragma once

#include "documents/ui/pantalla_captura.h"

namespace ventarix::compras_ui {

// The purchase's capture screen: the engine's screen on the purchases' row.
const captura_ui::Pantalla& Compras();

}  // namespace ventarix::compras_ui
