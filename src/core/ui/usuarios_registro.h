#pragma once

namespace ventarix {

class FormRegistry;

// The add, delete, change and rights screens of the users catalogue.
void RegistrarUsuarios(FormRegistry& registry);

}  // namespace ventarix
