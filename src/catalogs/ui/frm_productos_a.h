#pragma once

#include "catalogs/ui/forma_producto.h"

namespace ventarix {

// A new product: the company's tax and currency to start with; with consecutive codes the
// brand fills the code. Opened from a document's row on a code not found, it starts on that
// code.
class FrmProductosA : public FormaProducto {
  Q_OBJECT

 public:
  explicit FrmProductosA(Session& session, const QString& codigo = {}, QWidget* parent = nullptr);
};

}  // namespace ventarix
