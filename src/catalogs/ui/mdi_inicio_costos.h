#pragma once

#include "catalogs/ui/ventana_costos.h"

namespace ventarix {

// Costs of many products from a sheet: new products, or new costs that move the price levels
// by the company's formula.
class MDIInicioCostos : public VentanaDeCostos {
  Q_OBJECT

 public:
  explicit MDIInicioCostos(Session& session, QWidget* parent = nullptr);
};

// Final prices of many products from a sheet: new products, or the price with tax and the
// sale price without it.
class MDIInicioNetos : public VentanaDeCostos {
  Q_OBJECT

 public:
  explicit MDIInicioNetos(Session& session, QWidget* parent = nullptr);
};

}  // namespace ventarix
