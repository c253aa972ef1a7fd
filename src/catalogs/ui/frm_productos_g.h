#pragma once

#include <QDialog>

#include "core/session.h"

class QPushButton;

namespace ventarix {

class CampoCaptura;
class FormRegistry;

// Change of a product's code: the current one (from RegistroActual) and the new one. Once the
// checks pass and the change is noted in the company row, MDIInicioCambiar carries it through
// every table; when it finishes the new code goes back in RegistroActual.
class FrmProductosG : public QDialog {
  Q_OBJECT

 public:
  // `registry` opens MDIInicioCambiar when the screen is not inside the main window.
  FrmProductosG(Session& session, const FormRegistry* registry, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Guardar();
  void Cambiar();

  Session& session_;
  const FormRegistry* registry_;
  CampoCaptura* actual_;
  CampoCaptura* nuevo_;
  QPushButton* guardar_;
  QPushButton* salir_;
};

}  // namespace ventarix
