#pragma once

#include "documents/ui/pantalla_pagos.h"

namespace ventarix {

// The receivables screens (FrmCxCa, FrmCxCc, FrmCxCs): the payment screens of the client's
// side.
const PantallaPagos& PantallaCxC();

}  // namespace ventarix
