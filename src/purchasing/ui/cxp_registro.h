#pragma once

namespace ventarix {

class FormRegistry;

// The payables screens: FrmCxPa, FrmCxPc, FrmCxPs, and the settle and print buttons of the
// browser FrmCxP.
void RegistrarCuentasPorPagar(FormRegistry& registry);

}  // namespace ventarix
