#pragma once

#include <memory>

#include <QDialog>

#include "core/session.h"
#include "core/ui/llave_guardada.h"

class QPushButton;

namespace ventarix {

struct CamposDeUsuario;

// Adds a user: name, password, store 1 to 3 and the two role flags. On saving it closes
// accepted and tells the new user's key.
class FrmUsuariosA : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  explicit FrmUsuariosA(Session& session, QWidget* parent = nullptr);
  ~FrmUsuariosA() override;

  QString Guardada() const override { return guardada_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void GuardarClicked();

  Session& session_;
  std::unique_ptr<CamposDeUsuario> campos_;
  QPushButton* guardar_;
  QPushButton* salir_;
  QString guardada_;
};

}  // namespace ventarix
