#pragma once

class QDialog;
class QKeyEvent;
class QPushButton;

namespace ventarix {

// The keys of the users screens, as at every capture screen: Enter presses the button that
// has the focus or moves to the next field, Down and Up move forward and back, Esc leaves.
// Returns whether the key was taken.
bool TeclaDeUsuarios(QDialog* forma, QKeyEvent* event);

// A button that Enter presses only when it has the focus: the screens move through their
// fields with Enter, so no button is the dialog's default.
QPushButton* BotonDeUsuarios(const char* texto, const char* nombre, QDialog* forma);

}  // namespace ventarix
