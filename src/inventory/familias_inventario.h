#pragma once

#include <optional>

#include <QDate>
#include <QString>

#include "documents/captura.h"

// The stock documents as rows of the capture engine: adjustments (a count or a correction in
// one warehouse), transfers (from one warehouse to another) and production orders (components
// out of warehouse 1 at the start, the finished product in when the order is closed).
namespace ventarix::inventario {

const captura::FamiliaCaptura& Ajustes();
const captura::FamiliaCaptura& Traspasos();
const captura::FamiliaCaptura& Produccion();

// The family of a header table ("traspasos"), or nullptr.
const captura::FamiliaCaptura* FamiliaDeTabla(const QString& tabla);

// The components a finished product consumes, as the order's grid loads them when the product
// is chosen: code, description, unit, cost, the quantity per unit, and for `cantidad` units
// the consumption and its total. Empty for a product without materials.
std::vector<QVariantMap> Componentes(Connection& c, const QString& producto, double cantidad);

// The closing date a production order holds (FrmProduccionT shows it); null when open.
std::optional<QDate> TerminoDe(const Session& session, const QString& produccion);

// Closing an order with a date brings its finished product into warehouse 1, once: only
// when it was not closed yet; it becomes "CERRADA". Without a date a closed order takes the
// product out again and returns to "EN PROCESO". One transaction.
Outcome CerrarProduccion(const Session& session, const QString& produccion,
                         const std::optional<QDate>& termino, const QString& operador = {});
Outcome CerrarProduccion(const Session& session, Connection& c, const QString& produccion,
                         const std::optional<QDate>& termino, const QString& operador = {});

}  // namespace ventarix::inventario
