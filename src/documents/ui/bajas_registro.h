#pragma once

namespace ventarix {

class FormRegistry;

// The cancel and delete screens, for the browsers of every kind of record.
void RegistrarBajas(FormRegistry& registry);

}  // namespace ventarix
