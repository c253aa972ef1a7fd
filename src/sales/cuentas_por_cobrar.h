#pragma once

#include "documents/captura.h"
#include "documents/pagos.h"

// Accounts receivable: a receipt (`cxc`, rows in "cxc detalles") records one payment by a
// client spread over the client's open invoices, and the settle receipt closes many small
// balances of several clients at once. Both are the payments engine's, on the client's side.
namespace ventarix::ventas {

// The receivable side of the payments engine: invoices 'POR COBRAR' of clients.
const pagos::Lado& LadoCxC();

// A receipt of one client (FrmCxCa, FrmCxCc). Header: cliente, metodo, banco, anotacion,
// fecha; rows: factura, abono. A change rewrites the header only.
const captura::FamiliaCaptura& CxC();
// The settle receipt (FrmCxCs): rows of any client, each paying its invoice's whole balance,
// which may be negative. Header: metodo, banco, anotacion and the period searched, as
// "anio" and "mes"; cliente when the search was for one.
const captura::FamiliaCaptura& CxCSaldar();

}  // namespace ventarix::ventas
