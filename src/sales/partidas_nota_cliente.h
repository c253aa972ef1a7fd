#pragma once

#include <optional>
#include <vector>

#include <QString>
#include <QVariantMap>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"
#include "documents/captura.h"

// The rows of a client credit note as the clerk enters them on an invoice key: the screen shows
// what the save will store, so the clerk can lower or remove rows first.
namespace ventarix::ventas {

// Whether the credit-note range `numero` has its first and last folio set.
bool RangoDeNotasConFolios(Connection& c, qint32 numero);

// The invoice's Depto; nothing when no invoice has that key (the row is then free).
std::optional<QString> DeptoDeFactura(Connection& c, const QString& factura);

// What a row on an invoice becomes through the credit-note family's own completion: with
// `descuento`, the prompt-payment discount of the invoice's balance; otherwise the return of
// the invoice's goods, all its rows, or the one of `codigo` when given.
Outcome PartidasDeFactura(const Session& session, Connection& c, const captura::Documento& nota,
                          const QString& factura, bool descuento, const QString& codigo,
                          std::vector<QVariantMap>* partidas);

}  // namespace ventarix::ventas
