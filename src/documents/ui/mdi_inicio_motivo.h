#pragma once

#include <optional>

#include <QDialog>
#include <QString>

#include "core/session.h"

class QLineEdit;
class QPushButton;

namespace ventarix {

// The reason a document is cancelled with: one plain line, asked once for every row the
// cancellation takes.
class MDIInicioMotivo : public QDialog {
  Q_OBJECT

 public:
  explicit MDIInicioMotivo(const Session& session, QWidget* parent = nullptr);

  // The reason typed, or nothing when the user left without one.
  static std::optional<QString> Pedir(const Session& session, QWidget* parent);
  QString motivo() const;

 private:
  QLineEdit* motivo_;
  QPushButton* aceptar_;
};

}  // namespace ventarix
