#pragma once

namespace ventarix {

class FormRegistry;

// The receivables screens: FrmCxCa, FrmCxCc, FrmCxCs, and the settle button of the browser
// FrmCxC.
void RegistrarCuentasPorCobrar(FormRegistry& registry);

}  // namespace ventarix
