#pragma once

#include <functional>
#include <tuple>
#include <utility>

#include <QList>

class QDialog;
class QHBoxLayout;
class QKeyEvent;
class QPushButton;
class QWidget;

namespace ventarix {

// The keys of a capture screen: Enter presses the button that
// has the focus or moves to the next field, Down and Up move forward and back, Esc leaves.
// Returns whether the key was taken.
bool TeclaDeCaptura(QDialog* forma, QKeyEvent* event);

// The order Enter (and Tab) walks the fields in: the screen's reading order.
void EncadenarFoco(const QList<QWidget*>& orden);

// A button that Enter presses only when it has the focus: the screens move through their
// fields with Enter, so no button is the dialog's default.
QPushButton* BotonDeCaptura(const char* texto, const char* nombre, QDialog* forma);

// A capture screen's Guardar and Salir, made in that order (the order Enter reaches them):
// Guardar runs `guardar`, Salir leaves the screen as Esc does.
std::pair<QPushButton*, QPushButton*> BotonesGuardarSalir(QDialog* forma,
                                                          std::function<void()> guardar);

// A row for the bottom of a screen with the buttons at its right end.
QHBoxLayout* FilaDeBotones(QPushButton* guardar, QPushButton* salir);

}  // namespace ventarix
