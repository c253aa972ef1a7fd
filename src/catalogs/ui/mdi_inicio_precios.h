#pragma once

#include <QDialog>

#include "catalogs/precios_producto.h"
#include "core/session.h"

class QLabel;
class QTableWidget;

namespace ventarix {

// A product's five price levels in a small window, each with its margin and its price with
// tax. Enter or a double click takes the level's price and the window closes accepted; Esc
// leaves nothing.
class MDIInicioPrecios : public QDialog {
  Q_OBJECT

 public:
  MDIInicioPrecios(Session& session, const QString& codigo, QWidget* parent = nullptr);

  // The price chosen, with tax; 0 while none is.
  double precio() const { return precio_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Leer();
  void Elegir(int fila);

  Session& session_;
  QString codigo_;
  precios_producto::Niveles niveles_;
  QLabel* producto_;
  QTableWidget* fg1_;
  double precio_ = 0;
  Outcome lectura_;  // the read's failure, shown once the window is up
};

}  // namespace ventarix
