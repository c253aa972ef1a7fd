#pragma once

#include <QSqlError>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

namespace ventarix::catalogs {

// The stop a failed save shows: the statement's error, or else the connection's (a
// transaction that could not begin or commit, a connection that did not open).
inline Outcome ErrorAlGuardar(Connection& c, const QString& error) {
  if (!error.isEmpty()) return Outcome::Stop(error);
  if (!c.error().isEmpty()) return Outcome::Stop(c.error());
  return Outcome::Stop(c.db().lastError().text());
}

// The status label of a change screen turns a record to "BAJA": that cancels it, and needs
// the catalogue's right "B" besides the right of the save. Read inside the save's transaction:
// the row of `tabla` whose `llave` is `valor`, when `status` is "BAJA" and the stored one is
// not (a new row counts as not cancelled). A failed read is a stop.
Outcome RevisarBaja(const Session& session, Connection& c, const QString& derechos,
                    const QString& tabla, const QString& llave, const QVariant& valor,
                    const QString& status);

}  // namespace ventarix::catalogs
