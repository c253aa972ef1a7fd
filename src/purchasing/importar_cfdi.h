#pragma once

#include <vector>

#include <QString>
#include <QVariantMap>

#include "core/outcome.h"
#include "core/session.h"
#include "documents/captura.h"

// A supplier's invoice brought in as a purchase: the CFD or CFDi file (versions 2.x and 3.2
// with their lower-case attributes, 3.3 and 4.0 with capitalised ones) gives the supplier's
// invoice number and one row per concept: the supplier's code, quantity and unit price.
namespace ventarix::compras {

struct FacturaDeProveedor {
  Outcome outcome;
  QString version;
  QString serie;
  QString folio;
  std::vector<QVariantMap> partidas;  // codigo, cantidad, precio
  // "A125": serie and folio as the purchase keeps the supplier's invoice number.
  QString Factura() const { return serie + folio; }
};

// Reads the file without validating it and without fetching anything it names. A file that is
// not a CFD or CFDi, or has no concepts, comes back with the message and no rows.
FacturaDeProveedor LeerFacturaDeProveedor(const QString& archivo);

// The purchase the file makes for the supplier into `movimiento` ("ALMACEN1", "GASTOS"),
// saved whole or not at all; a code that is not in productos stops it before anything is
// written. `tipo` and `obs` fill the purchase's type and observation.
captura::Guardado ImportarCompra(Session& session, const QString& archivo, qint32 proveedor,
                                 const QString& movimiento, const QString& tipo,
                                 const QString& obs);
// The same inside a transaction the caller holds on `c`, on a header the caller gives
// (supplier, movimiento, tipo, obs, fecha); the file adds the invoice number and the rows.
captura::Guardado ImportarCompra(const Session& session, Connection& c, const QString& archivo,
                                 captura::Documento documento);

}  // namespace ventarix::compras
