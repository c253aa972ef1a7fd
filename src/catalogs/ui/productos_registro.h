#pragma once

namespace ventarix {

class FormRegistry;

// The add, change, quick-price and code-change screens of products, and the add and change
// screens of brands and lines.
void RegistrarProductos(FormRegistry& registry);

}  // namespace ventarix
