#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "core/column_rules.h"
#include "core/database.h"
#include "core/schema.h"

// Statements that make the structure of a company database. One text for both engines: every
// name double-quoted, the same column types except for binaries.
namespace ventarix::ddl {

// A table, column, index or constraint name as the database spells it, double-quoted.
QString Quote(const QString& name);

// T text, I integer, i smallint, N double precision, D timestamp (SQLite keeps the text
// "yyyy-MM-dd HH:mm:ss" in it), SN text, B blob / bytea.
QString SqlType(schema::Type type, Engine engine);

// The kind of a column as the database declares it: a SQLite declared type or a PostgreSQL
// data_type. Unknown types count as text.
schema::Type TypeOf(const QString& declared);

// One column of a create table: name, type, then the rules.
struct ColumnDef {
  QString name;
  QString sql_type;
  QString default_value;  // SQL literal; empty for none
  bool not_null = false;
  std::vector<column_rules::Check> checks;
};
QString ColumnSql(const ColumnDef& column);
QString CreateTableSql(const QString& table, const std::vector<ColumnDef>& columns);

// A column of the definition with its defaults and, when `with_rules`, all its rules.
ColumnDef Definition(const schema::Table& table, const schema::Column& column, Engine engine,
                     bool with_rules);
QString CreateTableSql(const schema::Table& table, Engine engine, bool with_rules);

QString CreateIndexSql(const schema::Index& index);

}  // namespace ventarix::ddl
