#pragma once

#include <QDialog>

#include "core/session.h"

class QLabel;
class QPushButton;

namespace ventarix {

class CampoCaptura;

// Quick prices of the product in RegistroActual, opened from the browser in price mode: the
// final price, tax, cost and sale price only. The final price and the sale price follow each
// other through the tax as either is typed.
class FrmProductosP : public QDialog {
  Q_OBJECT

 public:
  explicit FrmProductosP(Session& session, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  CampoCaptura* Campo(const char* nombre, int decimales);
  void VentaDesdePrecio();
  void PrecioDesdeVenta();
  void Guardar();

  Session& session_;
  QString codigo_;
  CampoCaptura* precio_;
  CampoCaptura* impuesto_;
  CampoCaptura* costo_;
  CampoCaptura* venta_;
  QPushButton* guardar_;
  QPushButton* salir_;
};

}  // namespace ventarix
