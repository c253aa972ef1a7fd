#pragma once

#include <QDialog>

#include "core/session.h"
#include "core/ui/llave_guardada.h"

class QLineEdit;

namespace ventarix {

// Closing a production order: the date box Fecha holds its closing date, empty while it is
// open; Aceptar closes the order with the date given (its product comes in once) or reopens it
// when the date is cleared.
class FrmProduccionT : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  FrmProduccionT(Session& session, const QString& llave, QWidget* parent = nullptr);
  QString Guardada() const override { return guardada_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Aceptar();

  Session& session_;
  QString llave_;
  QString guardada_;
  QLineEdit* fecha_;
  QLineEdit* operador_;
};

}  // namespace ventarix
