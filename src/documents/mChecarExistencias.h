#pragma once

#include <QList>
#include <QString>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// The check that refuses a document which would leave a warehouse with negative stock, unless
// the company saves without stock (Guardar_Sin_Existencias).
namespace ventarix::mChecarExistencias {

// One row of a capture grid: the product code (column 1) and the quantity (column 4). Rows
// with an empty code are not counted.
struct Partida {
  QString codigo;
  double cantidad = 0;
};

// For a document that takes stock out (a delivery note): only what the save changes is
// tested. With `guardado` the stored rows of the document are given back first; the rows of
// `malla`, when given, are taken out. Each product of the document must keep
// existencia + change >= 0 in `columna` ("ALMACEN" followed by the warehouse number).
// `tabla` is the family's stem ("remisiones"), `columna_clave` its key column. Refusals carry
// the exact message with a stop icon.
Outcome ChecarExistenciasSalida(const Session& session, Connection& connection,
                                const QString& tabla, const QString& columna_clave,
                                const QString& clave, const QString& columna, bool guardado,
                                const QList<Partida>* malla);

// The same for a document that brings stock in (a purchase): the stored rows are taken away,
// the grid's rows added, so lowering a purchase below what was already sold is refused.
Outcome ChecarExistenciasEntrada(const Session& session, Connection& connection,
                                 const QString& tabla, const QString& columna_clave,
                                 const QString& clave, const QString& columna, bool guardado,
                                 const QList<Partida>* malla);

}  // namespace ventarix::mChecarExistencias
