#pragma once

namespace ventarix {

class FormRegistry;

// The company screen (MDIInicioEmpresa) and the terminal settings (MDIInicioConfigurar).
void RegistrarConfiguracion(FormRegistry& registry);

}  // namespace ventarix
