#pragma once

#include "core/database.h"
#include "core/session.h"
#include "documents/captura.h"
#include "documents/pagos.h"

// Accounts payable: a payment (`cxp`, rows in "cxp detalles") records one payment to a
// supplier spread over the supplier's open purchases, by transfer or cheque from one of the
// company's banks; the settle payment closes many small balances at once. Both are the
// payments engine's, on the supplier's side.
namespace ventarix::compras {

// The payable side of the payments engine: purchases 'POR PAGAR' of suppliers.
const pagos::Lado& LadoCxP();

// A payment to one supplier (FrmCxPa, FrmCxPc). Header: proveedor, banco, transferencia,
// cheque, beneficiario, anotacion, fecha; rows: compra, abono. A change rewrites the header
// only.
const captura::FamiliaCaptura& CxP();
// The settle payment (FrmCxPs): rows of any supplier, each paying its purchase's whole
// balance. Header as the payment's, with the period searched as "anio" and "mes".
const captura::FamiliaCaptura& CxPSaldar();

// What the transfer and cheque fields offer once the bank is chosen: each runs in one
// sequence per bank, apart from the payment's folio. 1 for a bank with no earlier payment.
struct MediosSiguientes {
  qint64 transferencia = 1;
  qint64 cheque = 1;
};
MediosSiguientes SiguientesDelBanco(Connection& c, qint32 banco);
MediosSiguientes SiguientesDelBanco(const Session& session, qint32 banco);

}  // namespace ventarix::compras
