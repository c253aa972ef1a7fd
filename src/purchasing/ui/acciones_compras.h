#pragma once

namespace ventarix {
class FormaCaptura;
}

// The purchase screen's own buttons.
namespace ventarix::compras_ui {

// Ordenes: an order of the supplier, chosen in the look-up, brings the rows still to receive.
void AplicarOrden(FormaCaptura& forma);
// Facturas: the supplier's CFD or CFDi file fills the invoice number and the rows; a code not
// in productos is offered for adding, and declining it brings nothing in.
void ImportarFactura(FormaCaptura& forma);

}  // namespace ventarix::compras_ui
