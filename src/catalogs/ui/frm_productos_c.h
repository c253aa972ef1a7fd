#pragma once

#include "catalogs/ui/forma_producto.h"

namespace ventarix {

// A product changed: the one whose code it is given. Its code stays as it is (the
// code change has a screen of its own); its cost can be typed only by a user allowed to change
// costs. Beside the fields, what the product never writes here: last cost and sale, their
// dates, and the stock of the first three stores.
class FrmProductosC : public FormaProducto {
  Q_OBJECT

 public:
  FrmProductosC(Session& session, const QString& llave, QWidget* parent = nullptr);
};

}  // namespace ventarix
