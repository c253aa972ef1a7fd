#pragma once

#include <QDialog>

#include "core/session.h"

class QPushButton;

namespace ventarix {

// Deletes the user whose key is in RegistroActual, once confirmed with Borrar. The key stays
// in RegistroActual so that the browser drops the row.
class FrmUsuariosB : public QDialog {
  Q_OBJECT

 public:
  explicit FrmUsuariosB(Session& session, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void BorrarClicked();

  Session& session_;
  QString usuario_;
  QPushButton* borrar_;
  QPushButton* salir_;
};

}  // namespace ventarix
