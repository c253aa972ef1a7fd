#pragma once

#include "documents/ui/pantalla_pagos.h"

namespace ventarix {

// The payables screens (FrmCxPa, FrmCxPc, FrmCxPs): the payment screens of the supplier's
// side. Choosing the bank offers its next transfer and its next cheque.
const PantallaPagos& PantallaCxP();

}  // namespace ventarix
