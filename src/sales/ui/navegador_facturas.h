#pragma once

#include "core/ui/accion_extra.h"

namespace ventarix::ventas_ui {

// FrmFacturas beyond the common browser: the panel Fg2 of the selected invoice's receipts and
// credit notes, the export of its XML file, and the buttons of printing, stamping (button 6),
// e-mail and addenda.
ExtrasNavegador NavegadorDeFacturas();
// FrmNotasCliente: the button of stamping and its menu of cancelling.
ExtrasNavegador NavegadorDeNotasCliente();

}  // namespace ventarix::ventas_ui
