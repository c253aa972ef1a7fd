#pragma once

#include <optional>

#include <QString>

class QWidget;

namespace ventarix {

// The long-text dialog of a row's description: several lines, written back in upper case and
// cut to `longitud` characters. Empty when the user leaves with Cancelar or Esc.
std::optional<QString> EditarTextoLargo(QWidget* parent, const QString& texto, int longitud);

}  // namespace ventarix
