#pragma once

class QLineEdit;

namespace ventarix {

// The box shows its value as an amount, "#,##0.00", or "0" for zero.
void FormatoMoneda(QLineEdit* box);

}  // namespace ventarix
