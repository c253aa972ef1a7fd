#include "documents/row_arithmetic.h"

#include "core/round_half_even.h"

namespace ventarix {

RowAmounts ComputeRow(const RowInput& input, bool with_cost) {
  RowAmounts r;
  r.cantidad = RoundHalfEven(input.cantidad, 8);
  r.precio = RoundHalfEven(input.precio, 4);
  r.importe = RoundHalfEven(r.cantidad * r.precio, 4);
  r.dcto = RoundHalfEven(input.dcto, 2);
  r.descuento = RoundHalfEven(r.importe * r.dcto / 100, 4);
  r.subtotal = RoundHalfEven(r.importe - r.descuento, 4);
  r.impuesto = RoundHalfEven(input.impuesto, 2);
  r.iva = RoundHalfEven(r.subtotal * r.impuesto / 100, 4);
  r.total = RoundHalfEven(r.subtotal + r.iva, 4);
  if (!with_cost) return r;
  r.costo = RoundHalfEven(input.costo, 2);
  r.costo_total = RoundHalfEven(r.cantidad * r.costo, 2);
  r.com = RoundHalfEven(input.com, 2);
  r.comision = RoundHalfEven(r.subtotal * r.com / 100, 2);
  r.utilidad = RoundHalfEven(r.subtotal - r.costo_total - r.comision, 2);
  return r;
}

void DocumentSums::Add(const RowAmounts& row) {
  importe += row.importe;
  descuento += row.descuento;
  subtotal += row.subtotal;
  iva += row.iva;
  total += row.total;
  costo += row.costo_total;
  comision += row.comision;
  utilidad += row.utilidad;
}

}  // namespace ventarix
