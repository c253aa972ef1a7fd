#pragma once

#include <QDialog>

#include "core/session.h"

class QLabel;
class QLineEdit;

namespace ventarix {

// The authorization prompt: a stronger user's password allows one act. The caller fills
// AutorizacionTitulo and AutorizacionClave and reads Autorizado afterwards.
class MDIInicioAutorizacion : public QDialog {
  Q_OBJECT

 public:
  explicit MDIInicioAutorizacion(Session& session, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Comprobar();

  Session& session_;
  QLabel* titulo_;
  QLineEdit* autorizar_;
};

}  // namespace ventarix
