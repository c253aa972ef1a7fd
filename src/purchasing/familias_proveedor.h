#pragma once

#include <QString>

#include "documents/captura.h"

// The supplier's documents besides purchases as rows of the capture engine: payments,
// purchase orders and supplier credit notes.
namespace ventarix::compras {

// The family of a header table ("cxp", "ordenes de compra", "notas proveedor"), or nullptr.
const captura::FamiliaCaptura* FamiliaDeProveedor(const QString& tabla);

}  // namespace ventarix::compras
