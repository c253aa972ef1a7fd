#pragma once

#include <QString>

#include "documents/captura.h"

// The supplier's documents besides purchases as rows of the capture engine: payments,
// purchase orders and supplier credit notes.
namespace ventarix::compras {

// Purchase orders ('POR SURTIR'): the goods asked of a supplier; the purchases that name the
// order on their rows bring its pending quantities down.
const captura::FamiliaCaptura& OrdenesCompra();
// Supplier credit notes ('ALTA'): each row names a purchase of the supplier, whose balance the
// note lowers; goods sent back leave the warehouse the purchase brought them to.
const captura::FamiliaCaptura& NotasProveedor();

// The family of a header table ("cxp", "ordenes de compra", "notas proveedor"), or nullptr.
const captura::FamiliaCaptura* FamiliaDeProveedor(const QString& tabla);

}  // namespace ventarix::compras
