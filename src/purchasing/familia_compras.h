#pragma once

#include <QString>

#include "documents/captura.h"

// Purchases as a row of the capture engine: a supplier's document that brings goods into the
// warehouse its Movimiento names ("ALMACEN1".."ALMACEN5"), or records an expense ("GASTOS")
// that touches neither stock nor costs, and opens a debt with the supplier.
namespace ventarix::compras {

inline constexpr const char* kGastos = "GASTOS";

const captura::FamiliaCaptura& Compras();

// The family of a header table ("compras"), or nullptr.
const captura::FamiliaCaptura* FamiliaDeTabla(const QString& tabla);

// The warehouse number of a Movimiento: "ALMACEN2" is 2; "GASTOS" (or anything else) is 0.
int AlmacenDeMovimiento(const QString& movimiento);

}  // namespace ventarix::compras
