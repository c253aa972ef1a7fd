#pragma once

#include <QDialog>

#include "core/session.h"

class QLabel;
class QTimer;

namespace ventarix {

// The splash screen. Loading it fills the session from the company database: company, folders,
// rights, terminal, series, folios and the rest; the logo, when there is one, drifts across.
class MDIInicioPresentacion : public QDialog {
  Q_OBJECT

 public:
  explicit MDIInicioPresentacion(Session& session, QWidget* parent = nullptr);

  // "Versión " and the program's major, minor and revision numbers.
  static QString Version();

 private:
  void Cargar();
  void Mover();

  Session& session_;
  QLabel* empresa_;
  QLabel* image1_;
  QLabel* image2_;
  QTimer* timer1_;
};

// Shows the splash (which loads the session), lets it paint and keeps it on screen for half a
// second.
void MostrarPresentacion(Session& session, QWidget* parent = nullptr);

}  // namespace ventarix
