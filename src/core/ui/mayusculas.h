#pragma once

class QLineEdit;

namespace ventarix {

// With upper case in use, the box's text becomes its upper case, keeping the cursor where it
// was. Called on every change of a capture field.
void Mayusculas(QLineEdit* box, bool utilizar_mayusculas);
// Makes every change of the box pass through Mayusculas.
void MantenerMayusculas(QLineEdit* box, const bool& utilizar_mayusculas);

}  // namespace ventarix
