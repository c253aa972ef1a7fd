// Copy of a whole company database into a new one, across engines: every table and column of
// the origin, row for row.
#include <QFileInfo>

#include "core/company_database.h"
#include "core/company_tables.h"
#include "core/ddl.h"
#include "core/dialect.h"
#include "core/rol_consulta.h"
#include "core/schema.h"
#include "core/structure_catalog.h"

namespace ventarix {

namespace {

using ddl::Quote;

// Rows per insert statement. PostgreSQL: few round trips, within its limit on bound values.
// SQLite has no round trips: one prepared row, run again and again.
int RowsPerStatement(const Connection& to, int columns) {
  return to.engine() == Engine::kPostgres ? qBound(1, 8000 / qMax(1, columns), 500) : 1;
}

QString InsertSql(const QString& table, const QStringList& columns, int rows) {
  const QString row = QLatin1Char('(') +
                      QStringList(columns.size(), QStringLiteral("?")).join(QLatin1Char(',')) +
                      QLatin1Char(')');
  return QStringLiteral("insert into ") + Quote(table) + QStringLiteral(" (") +
         columns.join(QStringLiteral(", ")) + QStringLiteral(") values ") +
         QStringList(rows, row).join(QLatin1Char(','));
}

// Dates travel as text, so that no time zone of either side moves them. SQLite keeps
// "yyyy-MM-dd HH:mm:ss"; PostgreSQL reads that text and gives it back with its fraction.
bool CopyDate(QVariant& value, bool from_sql, bool to_sql) {
  if (value.isNull() || from_sql == to_sql) return true;
  const QString text = value.toString().trimmed();
  if (from_sql) {
    const QDateTime date = dialect::ReadDate(text.left(19));
    value = date.isValid() ? date.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) : text;
    return true;
  }
  if (text.isEmpty()) {
    value = QVariant(QMetaType(QMetaType::QString));
    return true;
  }
  const QDateTime date = dialect::ReadDate(text);
  if (!date.isValid()) return false;
  value = date.toString(date.time().msec() ? QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz")
                                           : QStringLiteral("yyyy-MM-dd HH:mm:ss"));
  return true;
}

// Gives the destination the origin's table and columns that the definition lacks.
Outcome MatchStructure(Connection& to, const structure_catalog::Table& origin) {
  std::optional<structure_catalog::Table> target = structure_catalog::ReadTable(to, origin.name);
  std::vector<ddl::ColumnDef> missing;
  for (const structure_catalog::Column& c : origin.columns) {
    if (target && target->Find(c.name)) continue;
    missing.push_back({c.name,
                       ddl::SqlType(c.type, to.engine()),
                       column_rules::For(origin.name, c.name, c.type).default_value,
                       false,
                       {}});
  }
  QStringList statements;
  if (!target) {
    statements << ddl::CreateTableSql(origin.name, missing);
  } else {
    for (const ddl::ColumnDef& c : missing) {
      statements << QStringLiteral("alter table ") + Quote(target->name) +
                        QStringLiteral(" add column ") + ddl::ColumnSql(c);
    }
  }
  for (const QString& statement : statements) {
    QString error;
    if (!to.Run(statement, {}, &error)) {
      return Outcome::Stop(QStringLiteral("No se pudo preparar la tabla ") + origin.name +
                           QStringLiteral(" en el destino: ") + error);
    }
  }
  return Outcome::Ok();
}

class TableCopy {
 public:
  TableCopy(Connection& from, Connection& to, const structure_catalog::Table& origin,
            const structure_catalog::Table& target)
      : from_(from), to_(to), origin_(origin), target_(target) {}
  Outcome Run(qint64* copied);

 private:
  bool Flush(int rows, QString* error);

  Connection& from_;
  Connection& to_;
  const structure_catalog::Table& origin_;
  const structure_catalog::Table& target_;
  QStringList columns_;
  QVariantList pending_;
  std::optional<QSqlQuery> full_batch_;  // prepared at the first full batch
};

bool TableCopy::Flush(int rows, QString* error) {
  if (rows == 0) return true;
  std::optional<QSqlQuery> partial;
  std::optional<QSqlQuery>& insert =
      rows == RowsPerStatement(to_, columns_.size()) ? full_batch_ : partial;
  if (!insert) {
    insert.emplace(to_.db());
    insert->prepare(InsertSql(origin_.name, columns_, rows));
  }
  for (int i = 0; i < pending_.size(); ++i) insert->bindValue(i, pending_[i]);
  pending_.clear();
  if (insert->exec()) return true;
  *error = QueryError(*insert);
  return false;
}

Outcome TableCopy::Run(qint64* copied) {
  QStringList select;
  std::vector<bool> dates;
  for (const structure_catalog::Column& c : origin_.columns) {
    columns_ << Quote(c.name);
    // A date on either side: an older file may keep its dates in a text column.
    const structure_catalog::Column* target = target_.Find(c.name);
    const bool date =
        c.type == schema::Type::kDateTime || (target && target->type == schema::Type::kDateTime);
    dates.push_back(date);
    select << (date && from_.sql() ? QStringLiteral("cast(%1 as text)").arg(Quote(c.name))
                                   : Quote(c.name));
  }
  const int per_statement = RowsPerStatement(to_, columns_.size());
  QSqlQuery rows = from_.Exec(QStringLiteral("select ") + select.join(QStringLiteral(", ")) +
                              QStringLiteral(" from ") + Quote(origin_.name));
  if (!rows.isActive()) {
    return Outcome::Stop(QStringLiteral("No se pudo leer la tabla ") + origin_.name +
                         QStringLiteral(": ") + QueryError(rows));
  }
  qint64 count = 0;
  QString error;
  while (rows.next()) {
    for (int i = 0; i < columns_.size(); ++i) {
      QVariant value = rows.value(i);
      if (dates[i] && !CopyDate(value, from_.sql(), to_.sql())) {
        return Outcome::Stop(QStringLiteral("Fecha no válida en %1.%2: %3")
                                 .arg(origin_.name, origin_.columns[i].name, value.toString()));
      }
      pending_ << value;
    }
    if (++count % per_statement == 0 && !Flush(per_statement, &error)) break;
  }
  if (error.isEmpty()) Flush(count % per_statement, &error);
  if (!error.isEmpty()) {
    return Outcome::Stop(QStringLiteral("No se pudo copiar la tabla ") + origin_.name +
                         QStringLiteral(": ") + error);
  }
  *copied = count;
  return Outcome::Ok();
}

Outcome CopyTable(Connection& from, Connection& to, const QString& table,
                  const std::function<void(const QString&, qint64)>& rows) {
  const std::optional<structure_catalog::Table> origin = structure_catalog::ReadTable(from, table);
  if (!origin) return Outcome::Ok();
  Transaction transaction(to);
  if (!transaction.ok()) return Outcome::Stop(transaction.error());
  if (Outcome o = MatchStructure(to, *origin); !o) return o;
  const std::optional<structure_catalog::Table> target = structure_catalog::ReadTable(to, table);
  if (!target) return Outcome::Stop(QStringLiteral("No se pudo preparar la tabla ") + table);
  qint64 copied = 0;
  if (Outcome o = TableCopy(from, to, *origin, *target).Run(&copied); !o) return o;
  if (!transaction.Commit()) {
    return Outcome::Stop(QStringLiteral("No se pudo confirmar la copia de la tabla ") + table);
  }
  if (rows) rows(origin->name, copied);
  return Outcome::Ok();
}

// Bare tables take the rows; the rules and indexes come after, as far as the rows obey them,
// so that an older company is copied whole. A destination already made by CrearEmpresa holds
// no rows, so its tables of the definition are made again.
Outcome BareTables(Connection& to) {
  Transaction transaction(to);
  if (!transaction.ok()) return Outcome::Stop(transaction.error());
  for (const QString& table : structure_catalog::Tables(to)) {
    if (!schema::FindTable(table)) continue;
    QString error;
    if (!to.Run(QStringLiteral("drop table ") + Quote(table), {}, &error)) {
      return Outcome::Stop(QStringLiteral("No se pudo preparar la tabla ") + table +
                           QStringLiteral(" en el destino: ") + error);
    }
  }
  if (Outcome o = company_tables::CreateAll(to, false); !o) return o;
  if (!transaction.Commit()) {
    return Outcome::Stop(QStringLiteral("No se pudieron crear las tablas del destino."));
  }
  return Outcome::Ok();
}

}  // namespace

Outcome CopiarEmpresa(const QString& origen, const QString& destino,
                      const std::function<void(const QString& table, qint64 rows)>& rows) {
  if (QFileInfo(origen).absoluteFilePath() == QFileInfo(destino).absoluteFilePath()) {
    return Outcome::Stop(QStringLiteral("El origen y el destino son la misma base de datos."));
  }
  if (!QFileInfo::exists(origen)) {
    return Outcome::Stop(QStringLiteral("No existe la base de datos de origen: ") + origen);
  }
  Connection from(CadenaDeRuta(origen));
  if (!from.ok()) {
    return Outcome::Stop(QStringLiteral("No se pudo abrir la base de datos de origen: ") + origen +
                         QLatin1Char('\n') + from.error());
  }
  std::unique_ptr<Connection> to;
  if (Outcome o = company_tables::OpenEmpty(destino, to, true); !o) return o;
  // The whole copy is one transaction: a copy that fails halfway leaves the destination as it
  // found it, ready for another try.
  Outcome copiada = Outcome::Ok();
  {
    Transaction transaction(*to);
    if (!transaction.ok()) return Outcome::Stop(transaction.error());
    if (Outcome o = BareTables(*to); !o) return o;
    for (const QString& table : structure_catalog::Tables(from)) {
      if (Outcome o = CopyTable(from, *to, table, rows); !o) return o;
    }
    copiada = RepararEstructura(*to, {});
    if (!copiada) return copiada;
    if (!transaction.Commit()) {
      return Outcome::Stop(QStringLiteral("No se pudo confirmar la copia: ") + transaction.error());
    }
  }
  if (Outcome rol = rol_consulta::Preparar(*to); !rol)
    return {true, rol.message, MessageIcon::kInformation, {}};
  return copiada;
}

}  // namespace ventarix
