#pragma once

#include <QDialog>

#include "core/session.h"
#include "core/ui/llave_guardada.h"

class QPushButton;

namespace ventarix {

// Deletes the user whose key it is given, once confirmed with Borrar. The deleted key is told
// as the one saved, so that the browser drops the row.
class FrmUsuariosB : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  FrmUsuariosB(Session& session, const QString& usuario, QWidget* parent = nullptr);

  QString Guardada() const override { return guardada_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BorrarClicked();

  Session& session_;
  QString usuario_;
  QPushButton* borrar_;
  QPushButton* salir_;
  QString guardada_;
};

}  // namespace ventarix
