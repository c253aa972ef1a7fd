#pragma once

#include <QString>

#include "core/outcome.h"
#include "core/session.h"

// The four price fields of one product, changed from the browser in price mode without
// opening the whole product.
namespace ventarix::productos {

struct PreciosRapidos {
  double precio = 0;  // final price with tax
  double impuesto = 0;
  double costo = 0;
  double venta = 0;  // price without tax
};

Outcome LeerPreciosRapidos(const Session& session, const QString& codigo, PreciosRapidos* precios);

// Writes the four fields (right "C" on Productos). A user who may not change costs keeps the
// stored cost whatever came in.
Outcome GuardarPreciosRapidos(const Session& session, const QString& codigo,
                              const PreciosRapidos& precios);

// The price with tax from the price without it, and back, rounded to 4 as the screens show
// them.
double PrecioDeVenta(double venta, double impuesto);
double VentaDePrecio(double precio, double impuesto);

}  // namespace ventarix::productos
