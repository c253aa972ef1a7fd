#pragma once

#include <functional>

#include <QDialog>
#include <QString>

class QWidget;

namespace ventarix {

// The program's own viewer of a text file: its text, read only, in a window of its own that
// lives until it is closed (Esc, Enter or Cerrar).
class VisorTexto : public QDialog {
  Q_OBJECT

 public:
  VisorTexto(const QString& path, const QString& texto, QWidget* parent = nullptr);
};

// How the platform opens a file with its own viewer; false when it can't.
using VisorDePlataforma = std::function<bool(const QString& path)>;
VisorDePlataforma VisorDelSistema();

// Shows a text file with the platform's viewer and, on a machine without one, in a
// VisorTexto; a file that can't be read gets a stop message.
void MostrarArchivoDeTexto(QWidget* parent, const QString& path,
                           const VisorDePlataforma& plataforma);

}  // namespace ventarix
