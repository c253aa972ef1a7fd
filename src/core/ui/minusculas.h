#pragma once

class QLineEdit;

namespace ventarix {

// The box's text becomes its lower case, keeping the cursor where it was: e-mail addresses,
// which the upper case of the other fields would spoil.
void Minusculas(QLineEdit* box);
// Makes every change of the box pass through Minusculas.
void MantenerMinusculas(QLineEdit* box);

}  // namespace ventarix
