#pragma once

namespace ventarix {

class FormRegistry;

// The add and change screens of the invoice and credit-note folio ranges.
void RegistrarFolios(FormRegistry& registry);

}  // namespace ventarix
