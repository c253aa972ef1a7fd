#pragma once

#include <QDialog>

#include "core/session.h"
#include "core/ui/llave_guardada.h"

class QLabel;
class QProgressBar;

namespace ventarix {

// Carries the product code change noted in the company row through every table, as soon as
// it shows: from the products screen, or at start when a change was cut short. The bar
// counts the tables; the window can't be closed half-way. It closes accepted when the change
// is complete, telling the new code as the one saved; a failure is shown and the change
// waits for the next start.
class MDIInicioCambiar : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  explicit MDIInicioCambiar(Session& session, QWidget* parent = nullptr);

  QString Guardada() const override { return guardada_; }

  bool corriendo() const { return corriendo_; }

 public slots:
  void reject() override;

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Correr();
  void Tabla(const QString& tabla, int numero, int tablas);

  Session& session_;
  QLabel* codigos_;
  QLabel* paso_;
  QProgressBar* barra_;
  QString nuevo_;
  QString guardada_;
  bool iniciado_ = false;
  bool corriendo_ = false;
};

}  // namespace ventarix
