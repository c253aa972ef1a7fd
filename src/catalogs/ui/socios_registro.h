#pragma once

namespace ventarix {

class FormRegistry;

// The add and change screens of clients, suppliers, agents and banks.
void RegistrarSocios(FormRegistry& registry);

}  // namespace ventarix
