#pragma once

#include <QDialog>

#include "core/session.h"
#include "core/ui/accion_extra.h"

class QTableWidget;

namespace ventarix::compras_ui {

// The account of a supplier: each purchase with its payments and credit notes ("Abono $"),
// and the balance after each line.
class CuentaProveedor : public QDialog {
 public:
  CuentaProveedor(const Session& session, qint32 proveedor, QWidget* parent = nullptr);

 private:
  QTableWidget* fg1_;
};

// The purchase browser's extras: the account of the current row's supplier.
ExtrasNavegador NavegadorDeCompras();

}  // namespace ventarix::compras_ui
