#pragma once

#include "core/ui/accion_extra.h"

namespace ventarix::compras_ui {

// The purchase browser's extras: the account of the current row's supplier (button 11) and
// the labels of the current purchase's products (button 12, FrmComprasE).
ExtrasNavegador NavegadorDeCompras();

}  // namespace ventarix::compras_ui
