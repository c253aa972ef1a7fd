#pragma once

#include <QString>
#include <QWidget>

namespace ventarix {

// Stands in for a screen that is not built yet: a window named after the form that says so,
// so that every menu entry already leads somewhere. Esc and Ctrl+F4 close it.
class PantallaPendiente : public QWidget {
  Q_OBJECT

 public:
  explicit PantallaPendiente(const QString& forma, QWidget* parent = nullptr);

  QString forma() const { return forma_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString forma_;
};

}  // namespace ventarix
