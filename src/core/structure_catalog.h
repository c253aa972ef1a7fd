#pragma once

#include <optional>
#include <vector>

#include <QSet>
#include <QString>
#include <QStringList>

#include "core/database.h"
#include "core/schema.h"

// What a company database holds of its own structure, read from the engine's catalogue.
namespace ventarix::structure_catalog {

struct Column {
  QString name;           // as the database spells it
  QString declared;       // SQLite declared type or PostgreSQL data_type
  schema::Type type;      // the kind that declared type belongs to
  QString default_value;  // as NormalDefault gives it; empty for none
  QString raw_default;    // as the catalogue shows it
  bool not_null = false;
};

struct Table {
  QString name;
  std::vector<Column> columns;
  QSet<QString> checks;  // names of the table's CHECK constraints, lower case
  const Column* Find(const QString& column) const;
};

// The user tables, as spelled in the database.
QStringList Tables(Connection& connection);
std::optional<Table> ReadTable(Connection& connection, const QString& table);
// Index names, lower case.
QSet<QString> Indexes(Connection& connection);
// SQLite: the statements that make the indexes of TABLE, to issue again after a rebuild.
QStringList SqliteIndexStatements(Connection& connection, const QString& table);

// A default expression in a form both engines' catalogues agree on: casts and parentheses
// removed, quoted numbers unquoted.
QString NormalDefault(const QString& expression);

}  // namespace ventarix::structure_catalog
