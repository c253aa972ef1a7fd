#pragma once

#include "core/ui/accion_extra.h"

namespace ventarix::ventas_ui {

// FrmFacturas beyond the common browser: the panel Fg2 of the selected invoice's receipts and
// credit notes, the export of its XML file, and the buttons of printing, stamping, e-mail
// and addenda.
ExtrasNavegador NavegadorDeFacturas();

}  // namespace ventarix::ventas_ui
