#include "core/ddl.h"

namespace ventarix::ddl {

using schema::Type;

QString Quote(const QString& name) {
  QString escaped = name;
  escaped.replace(QLatin1Char('"'), QStringLiteral("\"\""));
  return QLatin1Char('"') + escaped + QLatin1Char('"');
}

QString SqlType(Type type, Engine engine) {
  switch (type) {
    case Type::kText:
    case Type::kYesNo:
      return QStringLiteral("text");
    case Type::kInt32:
      return QStringLiteral("integer");
    case Type::kInt16:
      return QStringLiteral("smallint");
    case Type::kDouble:
      return QStringLiteral("double precision");
    case Type::kDateTime:
      return QStringLiteral("timestamp");
    case Type::kBinary:
      return engine == Engine::kPostgres ? QStringLiteral("bytea") : QStringLiteral("blob");
  }
  return QStringLiteral("text");
}

Type TypeOf(const QString& declared) {
  const QString t = declared.trimmed().toLower();
  if (t.startsWith(QLatin1String("timestamp")) || t.contains(QLatin1String("date"))) {
    return Type::kDateTime;
  }
  if (t == QLatin1String("bytea") || t.contains(QLatin1String("blob")) ||
      t.contains(QLatin1String("binary")) || t == QLatin1String("image")) {
    return Type::kBinary;
  }
  if (t == QLatin1String("interval") || t.contains(QLatin1String("point"))) return Type::kText;
  if (t.contains(QLatin1String("smallint")) || t.contains(QLatin1String("int2")) ||
      t.contains(QLatin1String("tinyint")) || t.startsWith(QLatin1String("bool")) ||
      t == QLatin1String("bit")) {
    return Type::kInt16;
  }
  if (t.contains(QLatin1String("int"))) return Type::kInt32;
  for (const char* word : {"double", "float", "real", "numeric", "decimal", "money", "currency"}) {
    if (t.contains(QLatin1String(word))) return Type::kDouble;
  }
  return Type::kText;
}

QString ColumnSql(const ColumnDef& column) {
  QString sql = Quote(column.name) + QLatin1Char(' ') + column.sql_type;
  if (column.not_null) sql += QStringLiteral(" not null");
  if (!column.default_value.isEmpty()) sql += QStringLiteral(" default ") + column.default_value;
  for (const column_rules::Check& check : column.checks) {
    sql += QStringLiteral(" constraint ") + Quote(check.name) + QStringLiteral(" check (") +
           check.expression + QLatin1Char(')');
  }
  return sql;
}

QString CreateTableSql(const QString& table, const std::vector<ColumnDef>& columns) {
  QStringList parts;
  for (const ColumnDef& c : columns) parts << ColumnSql(c);
  return QStringLiteral("create table ") + Quote(table) + QStringLiteral(" (") +
         parts.join(QStringLiteral(", ")) + QLatin1Char(')');
}

ColumnDef Definition(const schema::Table& table, const schema::Column& column, Engine engine,
                     bool with_rules) {
  const QString table_name = QString::fromUtf8(table.name);
  const QString name = QString::fromUtf8(column.name);
  column_rules::Rules rules = column_rules::For(table_name, name, column.type);
  ColumnDef def{name, SqlType(column.type, engine), rules.default_value, false, {}};
  if (with_rules) {
    def.not_null = rules.required;
    def.checks = std::move(rules.checks);
  }
  return def;
}

QString CreateTableSql(const schema::Table& table, Engine engine, bool with_rules) {
  std::vector<ColumnDef> columns;
  for (const schema::Column& c : table.columns) {
    columns.push_back(Definition(table, c, engine, with_rules));
  }
  return CreateTableSql(QString::fromUtf8(table.name), columns);
}

QString CreateIndexSql(const schema::Index& index) {
  QStringList columns;
  for (const char* c : index.columns) columns << Quote(QString::fromUtf8(c));
  return QStringLiteral("create ") + (index.unique ? QStringLiteral("unique ") : QString()) +
         QStringLiteral("index ") + Quote(QString::fromUtf8(index.name)) + QStringLiteral(" on ") +
         Quote(QString::fromUtf8(index.table)) + QStringLiteral(" (") +
         columns.join(QStringLiteral(", ")) + QLatin1Char(')');
}

}  // namespace ventarix::ddl
