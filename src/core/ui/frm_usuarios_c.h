#pragma once

#include <memory>

#include <QDialog>

#include "core/outcome.h"
#include "core/session.h"
#include "core/ui/llave_guardada.h"

class QPushButton;
class QToolButton;

namespace ventarix {

struct CamposDeUsuario;

// Changes the user whose key it is given: password, store 1 to 5 and, for an
// administrator, the manager flag. Someone who is no administrator opens only their own row.
// The stored password cannot be shown back: the field starts empty, and left empty it keeps
// the stored one. Mostrar ("+") shows what is typed while it is held down.
class FrmUsuariosC : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  FrmUsuariosC(Session& session, const QString& usuario, QWidget* parent = nullptr);
  ~FrmUsuariosC() override;

  QString Guardada() const override { return guardada_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void GuardarClicked();
  void Rechazar();

  Session& session_;
  std::unique_ptr<CamposDeUsuario> campos_;
  QToolButton* mostrar_;
  QPushButton* guardar_;
  QPushButton* salir_;
  // Why the screen cannot open on this row; shown once it is on screen.
  Outcome problema_;
  QString guardada_;
};

}  // namespace ventarix
