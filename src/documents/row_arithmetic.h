#pragma once

namespace ventarix {

// What a clerk types on a detail row: quantity, unit price, discount and tax percentages, and
// in the cost family the unit cost and the agent's commission percentage.
struct RowInput {
  double cantidad = 0;
  double precio = 0;
  double dcto = 0;
  double impuesto = 0;
  double costo = 0;
  double com = 0;
};

// A detail row as stored after the recomputation: every value rounded to its fixed places
// (quantity 8; price and amounts 4; percentages, cost, commission and profit 2).
struct RowAmounts {
  double cantidad = 0;
  double precio = 0;
  double importe = 0;
  double dcto = 0;
  double descuento = 0;
  double subtotal = 0;
  double impuesto = 0;
  double iva = 0;
  double total = 0;
  double costo = 0;
  double costo_total = 0;
  double com = 0;
  double comision = 0;
  double utilidad = 0;
};

// Each step uses the rounded results of the steps before it, so a row stored with longer
// fractions gives the same figures as the printed one. The commission is a share of the
// amount after discount and before tax; the profit is net of it. Without cost the cost
// fields stay 0.
RowAmounts ComputeRow(const RowInput& input, bool with_cost);

// Running sums of the rounded rows, as written to a document header (not rounded again).
struct DocumentSums {
  double importe = 0;
  double descuento = 0;
  double subtotal = 0;
  double iva = 0;
  double total = 0;
  double costo = 0;  // sum of the rows' CostoTotal
  double comision = 0;
  double utilidad = 0;

  void Add(const RowAmounts& row);
};

}  // namespace ventarix
