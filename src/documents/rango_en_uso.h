#pragma once

#include <QString>

#include "core/session.h"

// Invoices and client credit notes take their serie and scheme from a folio range instead of
// the table of series: the capture screen shows the range's number (Ingreso), its serie and
// its scheme, and the next folio of that serie.
namespace ventarix::captura {

struct RangoEnUso {
  qint32 numero = 0;
  QString serie;
  QString esquema;  // "CBB", "CFD", "CFDI" or "NOTA"
  qint32 folio_inicial = 0;
  qint32 folio_final = 0;
};

// The active range `numero` of the table ("folios facturas"); with `series_del_usuario`, only
// among the user's invoice series. No row leaves serie and scheme empty.
RangoEnUso LeerRangoEnUso(const Session& session, const QString& tabla, qint32 numero,
                          bool series_del_usuario);

}  // namespace ventarix::captura
