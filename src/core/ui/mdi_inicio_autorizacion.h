#pragma once

#include <QDialog>
#include <QStringList>

#include "core/session.h"

class QLabel;
class QLineEdit;

namespace ventarix {

// The authorization prompt: a stronger user's password allows one act. It shows the title it
// is given and accepts any one of the stored passwords it is given.
class MDIInicioAutorizacion : public QDialog {
  Q_OBJECT

 public:
  MDIInicioAutorizacion(Session& session, const QString& titulo, const QStringList& claves,
                        QWidget* parent = nullptr);

  // Asks over `parent` until a right password is typed (true) or the user leaves (false).
  static bool Autorizar(Session& session, const QString& titulo, const QStringList& claves,
                        QWidget* parent);

  // Whether one of the passwords was typed; Esc leaves it false.
  bool autorizado() const { return autorizado_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Comprobar();

  Session& session_;
  const QStringList claves_;
  QLabel* titulo_;
  QLineEdit* autorizar_;
  bool autorizado_ = false;
};

}  // namespace ventarix
