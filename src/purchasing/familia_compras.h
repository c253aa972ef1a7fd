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

// What the screen fills on a row of a known code of any supplier's document: the
// catalogue's description, unit and tax, and its cost as the price when none is typed.
Outcome CompletarPartidaDeCompra(const Session& session, Connection& c, const captura::Documento& d,
                                 QVariantMap* partida);

// The warehouse number of a Movimiento: "ALMACEN2" is 2; "GASTOS" (or anything else) is 0.
int AlmacenDeMovimiento(const QString& movimiento);

}  // namespace ventarix::compras
