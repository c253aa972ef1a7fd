#pragma once

#include <QDate>
#include <QDialog>

#include "core/session.h"

class QPagedPaintDevice;
class QTableWidget;

namespace ventarix {

// Labels of a purchase's products: the grid Fg1 lists each row's code, product and quantity
// ("0.00", the clerk may change it: how many labels); Imprimir prints them on the printer the
// clerk chooses, one label per unit.
class FrmComprasE : public QDialog {
 public:
  FrmComprasE(Session& session, const QString& compra, QWidget* parent = nullptr);

  // Every label of the grid on `dispositivo`, as many across a page as fit.
  void Imprimir(QPagedPaintDevice& dispositivo) const;

 private:
  void ElegirImpresora();

  QTableWidget* fg1_;
  QDate fecha_;
};

}  // namespace ventarix
