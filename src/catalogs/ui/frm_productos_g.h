#pragma once

#include <QDialog>

#include "core/session.h"
#include "core/ui/llave_guardada.h"

class QPushButton;

namespace ventarix {

class CampoCaptura;
class FormRegistry;

// Change of a product's code: the current one (the code it is given) and the new one. Once the
// checks pass and the change is noted in the company row, MDIInicioCambiar carries it through
// every table; when it finishes the screen tells the new code as the one saved.
class FrmProductosG : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  // `registry` opens MDIInicioCambiar when the screen is not inside the main window.
  FrmProductosG(Session& session, const FormRegistry* registry, const QString& codigo,
                QWidget* parent = nullptr);

  QString Guardada() const override { return guardada_; }

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
  QString guardada_;
};

}  // namespace ventarix
