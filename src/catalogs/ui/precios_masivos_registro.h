#pragma once

namespace ventarix {

class FormRegistry;

// The mass maintenance screens of costs and prices, the code change and the price levels.
void RegistrarPreciosMasivos(FormRegistry& registry);

}  // namespace ventarix
