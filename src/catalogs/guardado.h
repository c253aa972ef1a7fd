#pragma once

#include <QSqlError>

#include "core/database.h"
#include "core/outcome.h"

namespace ventarix::catalogs {

// The stop a failed save shows: the statement's error, or else the connection's (a
// transaction that could not begin or commit, a connection that did not open).
inline Outcome ErrorAlGuardar(Connection& c, const QString& error) {
  if (!error.isEmpty()) return Outcome::Stop(error);
  if (!c.error().isEmpty()) return Outcome::Stop(c.error());
  return Outcome::Stop(c.db().lastError().text());
}

}  // namespace ventarix::catalogs
