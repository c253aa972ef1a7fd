#pragma once

#include <array>

#include <QDialog>

#include "core/session.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace ventarix {

// The login form: the computer's name, the company database in use, user and password.
// Accepted once the user entered; rejected by Salir or by forgetting the database choice
// (double click on the path).
class MDIInicioEntrada : public QDialog {
  Q_OBJECT

 public:
  explicit MDIInicioEntrada(Session& session, QWidget* parent = nullptr);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Habilitar();
  void AceptarClicked();
  void OlvidarBaseDatos();
  bool TeclaDeCampo(QKeyEvent* key);

  Session& session_;
  QLabel* nombre_;
  QLabel* path_;
  std::array<QLineEdit*, 2> datos_{};
  QPushButton* aceptar_;
  QPushButton* salir_;
};

}  // namespace ventarix
