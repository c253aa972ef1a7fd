#pragma once

#include <QString>
#include <QVariantMap>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"
#include "documents/captura.h"

// The last check of an invoice or a credit note: the driver of its range's scheme (CFDi and CFD
// seal and write the XML; CBB and NOTA check), run inside the save under the folio just taken.
namespace ventarix::ventas {

// The capture engine's sealing step for invoices (ingreso) and client credit notes (egreso).
Outcome SellarFactura(const Session& session, Connection& c, const captura::Documento& d,
                      const QString& serie, qint32* folio, QVariantMap* columnas);
Outcome SellarNotaCliente(const Session& session, Connection& c, const captura::Documento& d,
                          const QString& serie, qint32* folio, QVariantMap* columnas);

}  // namespace ventarix::ventas
