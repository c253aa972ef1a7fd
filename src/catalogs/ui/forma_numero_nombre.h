#pragma once

#include <functional>

#include <QDialog>

#include "core/outcome.h"
#include "core/session.h"

class QFormLayout;
class QLabel;
class QPushButton;

namespace ventarix {

class CampoCaptura;
class EtiquetaStatus;

// The screen of a small numbered catalogue (lines, brands): its number, its name, whatever
// fields the catalogue adds, its status, and Guardar / Salir. On saving it leaves the saved
// number in RegistroActual and closes accepted.
class FormaNumeroNombre : public QDialog {
  Q_OBJECT

 protected:
  FormaNumeroNombre(Session& session, bool alta, QWidget* parent);
  // Lays the fields out: Número, Nombre, the catalogue's own rows, Status, then the buttons.
  void Armar(const std::function<void(QFormLayout*)>& filas_propias, int ancho);
  // A change screen's reading: false, after showing the message and closing, when it failed.
  bool Leido(const Outcome& lectura);
  // The end of a save: the message, or RegistroActual and closing.
  void Guardado(const Outcome& guardado, qint32 numero);
  virtual void Guardar() = 0;
  void keyPressEvent(QKeyEvent* event) override;

  Session& session_;
  const bool alta_;
  QLabel* numero_;
  EtiquetaStatus* status_;
  CampoCaptura* nombre_;

 private:
  QPushButton* guardar_;
  QPushButton* salir_;
};

}  // namespace ventarix
