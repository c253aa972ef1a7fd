#pragma once

#include <QString>
#include <QVariantMap>

#include "core/outcome.h"
#include "core/session.h"
#include "documents/captura.h"

// A code typed on a row of a capture screen: what the row shows once it is found.
namespace ventarix::captura {

struct PartidaHallada {
  Outcome outcome;
  bool existe = false;  // some product has the code as its code or one of its alternates
  // codigo, descripcion, unidad, cantidad, precio, dcto, impuesto, costo, com and
  // "existencia", the stock of the session's store.
  QVariantMap partida;
};

// The row of `codigo` (trimmed, upper case, looked up through codigo to codigo3) for the
// document's party, filled by the family's own rules (the client's price first).
PartidaHallada BuscarPartida(const Session& session, const FamiliaCaptura& familia,
                             const Documento& documento, const QString& codigo, double cantidad);

}  // namespace ventarix::captura

namespace ventarix::captura {

// The stock of each row's product in the warehouse, as "existencia"; with `deshecha` plus
// the row's own quantity, which is what is available once the stored document is undone.
void PonerExistencias(const Session& session, int almacen, std::vector<QVariantMap>& partidas,
                      bool deshecha);

}  // namespace ventarix::captura
