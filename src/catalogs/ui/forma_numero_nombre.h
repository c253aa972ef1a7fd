#pragma once

#include <functional>

#include <QDialog>

#include "core/outcome.h"
#include "core/session.h"
#include "core/ui/llave_guardada.h"

class QFormLayout;
class QLabel;
class QPushButton;

namespace ventarix {

class CampoCaptura;
class EtiquetaStatus;

// The screen of a small numbered catalogue (lines, brands): its number, its name, whatever
// fields the catalogue adds, its status, and Guardar / Salir. On saving it closes accepted and
// tells the number it saved.
class FormaNumeroNombre : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  QString Guardada() const override { return guardada_; }

 protected:
  FormaNumeroNombre(Session& session, bool alta, QWidget* parent);
  // Lays the fields out: Número, Nombre, the catalogue's own rows, Status, then the buttons.
  void Armar(const std::function<void(QFormLayout*)>& filas_propias, int ancho);
  // A change screen's reading: false, after showing the message and closing, when it failed.
  bool Leido(const Outcome& lectura);
  // The end of a save: the message, or the number kept and closing.
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
  QString guardada_;
};

}  // namespace ventarix
