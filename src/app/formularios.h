#pragma once

namespace ventarix {

class FormRegistry;

// The screens, browsers and browser extras of every subsystem built so far: the one place
// where the subsystems' forms meet.
void RegistrarFormularios(FormRegistry& registry);

}  // namespace ventarix
