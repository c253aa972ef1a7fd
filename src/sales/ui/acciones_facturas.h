#pragma once

// The invoice and credit-note screens' own buttons and row entry, as their rows name them.
namespace ventarix {
class FormaCaptura;
}

namespace ventarix::ventas_ui {

// A new invoice or credit note: the place of issue and the rest its family fills.
void DatosFiscales(FormaCaptura& forma);
// The same for a credit note, whose range must have its folios set.
void DatosDeNota(FormaCaptura& forma);
// Remisiones: the ticked delivery notes of MDIInicioFacturar fill the invoice.
void FacturarRemisiones(FormaCaptura& forma);
// Addenda of a saved invoice: a CFDI invoice must be stamped first.
void Addenda(FormaCaptura& forma);
// An invoice key written in a credit note's row: a free row ("NO EXISTE"), the return of the
// invoice's goods, or its prompt-payment discount.
void FacturaEscrita(FormaCaptura& forma, int fila);
// F1 on a credit note's row: the client's invoices on the key, the invoice's products on the
// code of a row on an existing invoice.
bool AyudaDeNota(FormaCaptura& forma, int fila, int columna);

}  // namespace ventarix::ventas_ui
