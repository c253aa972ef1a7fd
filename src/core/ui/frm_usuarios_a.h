#pragma once

#include <memory>

#include <QDialog>

#include "core/session.h"

class QPushButton;

namespace ventarix {

struct CamposDeUsuario;

// Adds a user: name, password, store 1 to 3 and the two role flags. On saving it leaves the
// new user's key in RegistroActual and closes accepted.
class FrmUsuariosA : public QDialog {
  Q_OBJECT

 public:
  explicit FrmUsuariosA(Session& session, QWidget* parent = nullptr);
  ~FrmUsuariosA() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void GuardarClicked();

  Session& session_;
  std::unique_ptr<CamposDeUsuario> campos_;
  QPushButton* guardar_;
  QPushButton* salir_;
};

}  // namespace ventarix
