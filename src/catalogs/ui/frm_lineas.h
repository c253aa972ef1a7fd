#pragma once

#include <QDialog>

#include "core/session.h"

class QLabel;
class QPushButton;

namespace ventarix {

class CampoCaptura;

// A product line's screen: its name. On saving it leaves the line's number in RegistroActual
// and closes accepted.
class FormaLinea : public QDialog {
  Q_OBJECT

 protected:
  FormaLinea(Session& session, bool alta, QWidget* parent);
  void keyPressEvent(QKeyEvent* event) override;

  Session& session_;
  QLabel* numero_;
  QLabel* status_;
  CampoCaptura* nombre_;

 private:
  void Guardar();

  const bool alta_;
  QPushButton* guardar_;
  QPushButton* salir_;
};

class FrmLineasA : public FormaLinea {
  Q_OBJECT

 public:
  explicit FrmLineasA(Session& session, QWidget* parent = nullptr);
};

// The line in RegistroActual.
class FrmLineasC : public FormaLinea {
  Q_OBJECT

 public:
  explicit FrmLineasC(Session& session, QWidget* parent = nullptr);
};

}  // namespace ventarix
