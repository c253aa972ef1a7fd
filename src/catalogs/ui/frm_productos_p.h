#pragma once

#include <QDialog>

#include "core/session.h"
#include "core/ui/llave_guardada.h"

class QLabel;
class QPushButton;

namespace ventarix {

class CampoCaptura;

// Quick prices of the product whose code it is given, opened from the browser in price mode: the
// final price, tax, cost and sale price only. The final price and the sale price follow each
// other through the tax as either is typed.
class FrmProductosP : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  FrmProductosP(Session& session, const QString& codigo, QWidget* parent = nullptr);

  QString Guardada() const override { return guardada_; }

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
  QString guardada_;
};

}  // namespace ventarix
