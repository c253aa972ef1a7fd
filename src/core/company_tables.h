#pragma once

#include <memory>

#include <QString>

#include "core/database.h"
#include "core/outcome.h"

// Pieces shared by the creation, repair and copy of a company database.
namespace ventarix::company_tables {

// A connection to the new database PATH names: a SQLite file (made when missing, in WAL mode)
// or a PostgreSQL catalog named by a connection file. It must hold no tables, or with
// `empty_tables` no rows.
Outcome OpenEmpty(const QString& path, std::unique_ptr<Connection>& connection,
                  bool empty_tables = false);

// Every table of the definition; with `with_rules` also their rules and every index. Runs
// inside the caller's transaction.
Outcome CreateAll(Connection& connection, bool with_rules);

// True when the company PATH is a connection file rather than a SQLite file.
bool IsConnectionFile(const QString& path);

}  // namespace ventarix::company_tables
