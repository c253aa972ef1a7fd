#include "core/structure_catalog.h"

#include <QRegularExpression>

#include "core/ddl.h"

namespace ventarix::structure_catalog {

namespace {

std::vector<Column> ReadColumns(Connection& connection, const QString& table) {
  QSqlQuery q =
      connection.sql()
          ? connection.Exec(QStringLiteral("select column_name, data_type, is_nullable, "
                                           "column_default from information_schema.columns "
                                           "where table_schema = current_schema() and "
                                           "table_name = ? order by ordinal_position"),
                            {table})
          : connection.Exec(QStringLiteral("select name, type, \"notnull\", dflt_value "
                                           "from pragma_table_info(?) order by cid"),
                            {table});
  std::vector<Column> columns;
  while (q.next()) {
    Column c;
    c.name = q.value(0).toString();
    c.declared = q.value(1).toString();
    c.type = ddl::TypeOf(c.declared);
    c.not_null =
        connection.sql() ? q.value(2).toString() == QLatin1String("NO") : q.value(2).toInt() != 0;
    c.raw_default = q.value(3).toString();
    c.default_value = NormalDefault(c.raw_default);
    columns.push_back(std::move(c));
  }
  return columns;
}

QSet<QString> ReadChecks(Connection& connection, const QString& table) {
  QSet<QString> names;
  if (connection.sql()) {
    QSqlQuery q = connection.Exec(
        QStringLiteral("select c.conname from pg_constraint c "
                       "join pg_class t on t.oid = c.conrelid "
                       "join pg_namespace n on n.oid = t.relnamespace "
                       "where c.contype = 'c' and n.nspname = current_schema() and t.relname = ?"),
        {table});
    while (q.next()) names.insert(q.value(0).toString().toLower());
    return names;
  }
  // SQLite keeps no list of constraints: they are read from the table's create statement.
  const QString sql = connection
                          .Scalar(QStringLiteral("select sql from sqlite_master where "
                                                 "type = 'table' and name = ?"),
                                  {table})
                          .toString();
  static const QRegularExpression named(
      QStringLiteral(R"re(constraint\s+(?:"((?:[^"]|"")+)"|([A-Za-z_][\w$]*))\s+check\b)re"),
      QRegularExpression::CaseInsensitiveOption);
  for (auto it = named.globalMatch(sql); it.hasNext();) {
    const QRegularExpressionMatch m = it.next();
    QString name = m.captured(1).isEmpty() ? m.captured(2) : m.captured(1);
    names.insert(name.replace(QStringLiteral("\"\""), QStringLiteral("\"")).toLower());
  }
  return names;
}

}  // namespace

const Column* Table::Find(const QString& column) const {
  for (const Column& c : columns) {
    if (c.name.compare(column, Qt::CaseInsensitive) == 0) return &c;
  }
  return nullptr;
}

QStringList Tables(Connection& connection) {
  QSqlQuery q = connection.Exec(
      connection.sql()
          ? QStringLiteral("select table_name from information_schema.tables where "
                           "table_schema = current_schema() and table_type = 'BASE TABLE' "
                           "order by table_name")
          : QStringLiteral("select name from sqlite_master where type = 'table' and "
                           "name not like 'sqlite\\_%' escape '\\' order by name"));
  QStringList tables;
  while (q.next()) tables << q.value(0).toString();
  return tables;
}

std::optional<Table> ReadTable(Connection& connection, const QString& table) {
  Table t{table, ReadColumns(connection, table), ReadChecks(connection, table)};
  if (t.columns.empty()) return std::nullopt;
  return t;
}

QSet<QString> Indexes(Connection& connection) {
  QSqlQuery q = connection.Exec(
      connection.sql()
          ? QStringLiteral("select indexname from pg_indexes where schemaname = current_schema()")
          : QStringLiteral("select name from sqlite_master where type = 'index'"));
  QSet<QString> names;
  while (q.next()) names.insert(q.value(0).toString().toLower());
  return names;
}

QStringList SqliteIndexStatements(Connection& connection, const QString& table) {
  QSqlQuery q =
      connection.Exec(QStringLiteral("select sql from sqlite_master where "
                                     "type = 'index' and tbl_name = ? and sql is not null"),
                      {table});
  QStringList statements;
  while (q.next()) statements << q.value(0).toString();
  return statements;
}

QString NormalDefault(const QString& expression) {
  static const QRegularExpression cast(QStringLiteral(R"(::[a-z ]+(\[\])?$)"),
                                       QRegularExpression::CaseInsensitiveOption);
  QString text = expression.trimmed();
  for (;;) {
    const QString before = text;
    text.remove(cast);
    text = text.trimmed();
    if (text.startsWith(QLatin1Char('(')) && text.endsWith(QLatin1Char(')'))) {
      text = text.mid(1, text.size() - 2).trimmed();
    }
    if (text == before) break;
  }
  if (text.size() >= 2 && text.startsWith(QLatin1Char('\'')) && text.endsWith(QLatin1Char('\''))) {
    bool number = false;
    text.mid(1, text.size() - 2).toDouble(&number);
    if (number) text = text.mid(1, text.size() - 2);
  }
  return text;
}

}  // namespace ventarix::structure_catalog
