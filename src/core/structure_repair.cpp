// Structure upkeep of a company database: what an older database lacks of the definition is
// added, and the column rules are applied as far as the stored rows obey them.
#include <QRegularExpression>
#include <QSet>

#include "core/column_rules.h"
#include "core/company_database.h"
#include "core/ddl.h"
#include "core/rol_consulta.h"
#include "core/schema.h"
#include "core/structure_catalog.h"

namespace ventarix {

namespace {

using ddl::Quote;

// What the rules change on one column.
struct ColumnPlan {
  const structure_catalog::Column* column;
  QString default_value;  // new default, or empty to keep the present one
  bool not_null = false;  // becomes required
  std::vector<column_rules::Check> new_checks;
  std::vector<column_rules::Check> kept_checks;
  QStringList lines;
  bool Changes() const { return !default_value.isEmpty() || not_null || !new_checks.empty(); }
};

class Repair {
 public:
  explicit Repair(Connection& connection) : c_(connection) {}

  void AddMissing();
  void ApplyRules(const QString& table);
  void AddIndexes();

  QStringList lines;    // one per change made
  QStringList skipped;  // rules and indexes the data doesn't allow

 private:
  // A statement whose fault leaves the rest of the repair standing (a failed statement would
  // otherwise spoil the whole PostgreSQL transaction).
  bool TryRun(const QString& statement, QString* error = nullptr);
  // The first row of a statement that counts, or -1s when it fails.
  std::vector<qint64> Counts(const QString& statement, int columns);
  qint64 Count(const QString& statement) { return Counts(statement, 1).front(); }
  std::vector<qint64> BrokenRows(const QString& table, const QStringList& conditions);
  ColumnPlan Plan(const QString& table, const structure_catalog::Column& column,
                  const column_rules::Rules& rules, const std::vector<column_rules::Check>& kept,
                  std::vector<qint64>::const_iterator& broken);
  void ApplyPostgres(const QString& table, const std::vector<ColumnPlan>& plans);
  void RebuildSqlite(const QString& table, const std::vector<ColumnPlan>& plans);

  Connection& c_;
};

bool Repair::TryRun(const QString& statement, QString* error) {
  c_.Run(QStringLiteral("savepoint vtx_paso"));
  const bool ok = c_.Run(statement, {}, error);
  if (!ok) c_.Run(QStringLiteral("rollback to savepoint vtx_paso"));
  c_.Run(QStringLiteral("release savepoint vtx_paso"));
  return ok;
}

std::vector<qint64> Repair::Counts(const QString& statement, int columns) {
  std::vector<qint64> result(columns, -1);
  c_.Run(QStringLiteral("savepoint vtx_paso"));
  bool ok = false;
  {
    QSqlQuery q = c_.Exec(statement);
    if (q.next()) {
      ok = true;
      for (int i = 0; i < columns; ++i) result[i] = q.value(i).toLongLong();
    }
  }
  if (!ok) c_.Run(QStringLiteral("rollback to savepoint vtx_paso"));
  c_.Run(QStringLiteral("release savepoint vtx_paso"));
  return result;
}

// How many rows break each condition, as a CHECK constraint sees it (a null result passes),
// in one pass over the table. A condition the engine can't test counts as broken.
std::vector<qint64> Repair::BrokenRows(const QString& table, const QStringList& conditions) {
  if (conditions.isEmpty()) return {};
  QStringList sums;
  for (const QString& condition : conditions) {
    sums << QStringLiteral("coalesce(sum(case when not (%1) then 1 else 0 end), 0)").arg(condition);
  }
  std::vector<qint64> rows = Counts(QStringLiteral("select ") + sums.join(QStringLiteral(", ")) +
                                        QStringLiteral(" from ") + Quote(table),
                                    int(sums.size()));
  if (rows.front() >= 0) return rows;
  for (int i = 0; i < conditions.size(); ++i) {
    rows[i] = Count(QStringLiteral("select ") + sums[i] + QStringLiteral(" from ") + Quote(table));
  }
  return rows;
}

void Repair::AddMissing() {
  QSet<QString> present;
  for (const QString& t : structure_catalog::Tables(c_)) present.insert(t.toLower());
  for (const schema::Table& def : schema::Tables()) {
    const QString name = QString::fromUtf8(def.name);
    QString error;
    if (!present.contains(name)) {
      if (TryRun(ddl::CreateTableSql(def, c_.engine(), true), &error)) {
        lines << QStringLiteral("Tabla nueva: ") + name;
      } else {
        skipped << QStringLiteral("Tabla %1 no creada: %2").arg(name, error);
      }
      continue;
    }
    const std::optional<structure_catalog::Table> table = structure_catalog::ReadTable(c_, name);
    if (!table) continue;
    for (const schema::Column& column : def.columns) {
      const QString column_name = QString::fromUtf8(column.name);
      if (table->Find(column_name)) continue;
      ddl::ColumnDef d = ddl::Definition(def, column, c_.engine(), false);
      QString sql = QStringLiteral("alter table ") + Quote(table->name) +
                    QStringLiteral(" add column ") + ddl::ColumnSql(d);
      if (TryRun(sql, &error)) {
        lines << QStringLiteral("Columna nueva: %1.%2").arg(name, column_name);
      } else {
        skipped << QStringLiteral("Columna %1.%2 no agregada: %3").arg(name, column_name, error);
      }
    }
  }
}

// The changes the rules make on COLUMN; BROKEN walks the counts of broken rows of its
// conditions, in the order ApplyRules asked for them.
ColumnPlan Repair::Plan(const QString& table, const structure_catalog::Column& column,
                        const column_rules::Rules& rules,
                        const std::vector<column_rules::Check>& kept,
                        std::vector<qint64>::const_iterator& broken) {
  const QString where = table + QLatin1Char('.') + column.name;
  ColumnPlan plan{&column, {}, false, {}, kept, {}};
  if (!rules.default_value.isEmpty() &&
      structure_catalog::NormalDefault(rules.default_value) != column.default_value) {
    plan.default_value = rules.default_value;
    plan.lines << QStringLiteral("%1: valor por omisión %2").arg(where, rules.default_value);
  }
  if (rules.required && !column.not_null) {
    const qint64 rows = *broken++;
    if (rows == 0) {
      plan.not_null = true;
      plan.lines << where + QStringLiteral(": requerido");
    } else {
      skipped << QStringLiteral("%1: queda sin requerir, %2 filas sin valor").arg(where).arg(rows);
    }
  }
  for (const column_rules::Check& check : rules.checks) {
    if (std::find_if(kept.begin(), kept.end(), [&](const column_rules::Check& k) {
          return k.name == check.name;
        }) != kept.end()) {
      continue;
    }
    const qint64 rows = *broken++;
    if (rows == 0) {
      plan.new_checks.push_back(check);
      plan.lines << QStringLiteral("%1: regla %2").arg(where, check.expression);
    } else {
      skipped << QStringLiteral("%1: regla %2 no aplicada, %3 filas no la cumplen")
                     .arg(where, check.expression)
                     .arg(rows);
    }
  }
  return plan;
}

void Repair::ApplyRules(const QString& table_name) {
  if (column_rules::IsCatalogue(table_name)) {
    std::optional<structure_catalog::Table> t = structure_catalog::ReadTable(c_, table_name);
    if (t && t->Find(QStringLiteral("status"))) {
      const QString where = QStringLiteral(" where status is null or status = ''");
      const qint64 rows =
          Count(QStringLiteral("select count(*) from ") + Quote(table_name) + where);
      if (rows > 0 && TryRun(QStringLiteral("update ") + Quote(table_name) +
                             QStringLiteral(" set status = 'ALTA'") + where)) {
        lines << QStringLiteral("%1: %2 filas sin status pasan a ALTA").arg(table_name).arg(rows);
      }
    }
  }
  const std::optional<structure_catalog::Table> table =
      structure_catalog::ReadTable(c_, table_name);
  if (!table) return;
  // The rules of every column first, so that the rows are tested in one pass.
  std::vector<column_rules::Rules> rules;
  std::vector<std::vector<column_rules::Check>> kept(table->columns.size());
  QStringList conditions;
  for (size_t i = 0; i < table->columns.size(); ++i) {
    const structure_catalog::Column& column = table->columns[i];
    rules.push_back(column_rules::For(table->name, column.name, column.type));
    if (rules.back().required && !column.not_null) {
      conditions << Quote(column.name) + QStringLiteral(" is not null");
    }
    for (const column_rules::Check& check : rules.back().checks) {
      if (table->checks.contains(check.name.toLower())) {
        kept[i].push_back(check);
      } else {
        conditions << check.expression;
      }
    }
  }
  const std::vector<qint64> broken = BrokenRows(table->name, conditions);
  auto next = broken.cbegin();
  std::vector<ColumnPlan> plans;
  bool changes = false;
  for (size_t i = 0; i < table->columns.size(); ++i) {
    plans.push_back(Plan(table->name, table->columns[i], rules[i], kept[i], next));
    changes = changes || plans.back().Changes();
  }
  if (!changes) return;
  if (c_.sql()) {
    ApplyPostgres(table->name, plans);
  } else {
    RebuildSqlite(table->name, plans);
  }
}

void Repair::ApplyPostgres(const QString& table, const std::vector<ColumnPlan>& plans) {
  // The actions follow the lines one for one.
  QStringList actions, changes;
  for (const ColumnPlan& plan : plans) {
    const QString column = QStringLiteral("alter column ") + Quote(plan.column->name);
    if (!plan.default_value.isEmpty()) {
      actions << column + QStringLiteral(" set default ") + plan.default_value;
    }
    if (plan.not_null) actions << column + QStringLiteral(" set not null");
    for (const column_rules::Check& check : plan.new_checks) {
      actions << QStringLiteral("add constraint ") + Quote(check.name) +
                     QStringLiteral(" check (") + check.expression + QLatin1Char(')');
    }
    changes << plan.lines;
  }
  const QString alter = QStringLiteral("alter table ") + Quote(table) + QLatin1Char(' ');
  if (TryRun(alter + actions.join(QStringLiteral(", ")))) {
    lines << changes;
    return;
  }
  for (int i = 0; i < actions.size(); ++i) {
    QString error;
    if (TryRun(alter + actions[i], &error)) {
      lines << changes[i];
    } else {
      skipped << changes[i] + QStringLiteral(" no aplicado: ") + error;
    }
  }
}

// A default kept through a rebuild: literals as they stand, expressions in parentheses.
QString KeptDefault(const QString& raw) {
  static const QRegularExpression literal(QStringLiteral(R"(^('([^']|'')*'|[-+]?[0-9.]+|null)$)"),
                                          QRegularExpression::CaseInsensitiveOption);
  if (raw.isEmpty() || literal.match(raw).hasMatch()) return raw;
  return QLatin1Char('(') + raw + QLatin1Char(')');
}

// SQLite cannot change a column: the table is made again with the wanted columns, its rows
// copied over, and its indexes issued again.
void Repair::RebuildSqlite(const QString& table, const std::vector<ColumnPlan>& plans) {
  const QString temp = QStringLiteral("vtx_reparacion");
  std::vector<ddl::ColumnDef> columns;
  QStringList names;
  QStringList changes;
  for (const ColumnPlan& plan : plans) {
    const structure_catalog::Column& c = *plan.column;
    ddl::ColumnDef d{c.name, c.declared,
                     plan.default_value.isEmpty() ? KeptDefault(c.raw_default) : plan.default_value,
                     c.not_null || plan.not_null, plan.kept_checks};
    d.checks.insert(d.checks.end(), plan.new_checks.begin(), plan.new_checks.end());
    columns.push_back(std::move(d));
    names << Quote(c.name);
    changes << plan.lines;
  }
  const QString list = names.join(QStringLiteral(", "));
  QStringList statements = {
      QStringLiteral("drop table if exists ") + Quote(temp), ddl::CreateTableSql(temp, columns),
      QStringLiteral("insert into %1 (%3) select %3 from %2").arg(Quote(temp), Quote(table), list),
      QStringLiteral("drop table ") + Quote(table),
      QStringLiteral("alter table %1 rename to %2").arg(Quote(temp), Quote(table))};
  statements << structure_catalog::SqliteIndexStatements(c_, table);

  c_.Run(QStringLiteral("savepoint vtx_tabla"));
  for (const QString& statement : statements) {
    QString error;
    if (!c_.Run(statement, {}, &error)) {
      c_.Run(QStringLiteral("rollback to savepoint vtx_tabla"));
      c_.Run(QStringLiteral("release savepoint vtx_tabla"));
      for (const QString& line : changes)
        skipped << line + QStringLiteral(" no aplicado: ") + error;
      return;
    }
  }
  c_.Run(QStringLiteral("release savepoint vtx_tabla"));
  lines << changes;
}

void Repair::AddIndexes() {
  QSet<QString> present = structure_catalog::Indexes(c_);
  for (const schema::Index& index : schema::Indexes()) {
    const QString name = QString::fromUtf8(index.name).toLower();
    if (present.contains(name)) continue;
    present.insert(name);
    const QString table = QString::fromUtf8(index.table);
    if (index.unique) {
      QStringList columns, filled;
      for (const char* column : index.columns) {
        columns << Quote(QString::fromUtf8(column));
        filled << columns.last() + QStringLiteral(" is not null");
      }
      const qint64 repeated =
          Count(QStringLiteral("select count(*) from (select 1 as uno from %1 where %2 group by %3 "
                               "having count(*) > 1) repetidas")
                    .arg(Quote(table), filled.join(QStringLiteral(" and ")),
                         columns.join(QStringLiteral(", "))));
      if (repeated != 0) {
        skipped << QStringLiteral("Índice único %1 no creado: %2 claves repetidas en %3")
                       .arg(name)
                       .arg(repeated)
                       .arg(table);
        continue;
      }
    }
    QString error;
    if (TryRun(ddl::CreateIndexSql(index), &error)) {
      lines << QStringLiteral("Índice nuevo: ") + name;
    } else {
      skipped << QStringLiteral("Índice %1 no creado: %2").arg(name, error);
    }
  }
}

}  // namespace

Outcome RepararEstructura(Connection& connection,
                          const std::function<void(const QString&)>& report) {
  Repair repair(connection);
  {
    Transaction transaction(connection);
    if (!transaction.ok()) {
      return Outcome::Stop(QStringLiteral("No se pudo iniciar la transacción: ") +
                           transaction.error());
    }
    repair.AddMissing();
    for (const QString& table : structure_catalog::Tables(connection)) repair.ApplyRules(table);
    repair.AddIndexes();
    if (!transaction.Commit()) {
      return Outcome::Stop(QStringLiteral("No se pudo confirmar la reparación de la estructura."));
    }
  }
  if (report) {
    for (const QString& line : repair.lines) report(line);
  }
  // Tables added above are granted to the company's query role too; a role that cannot be
  // made is reported with the rules left out.
  if (connection.acceso() == Connection::Acceso::kEscritura) {
    if (Outcome rol = rol_consulta::Preparar(connection); !rol) repair.skipped << rol.message;
  }
  if (repair.skipped.isEmpty()) return Outcome::Ok();
  return {true,
          QStringLiteral("Reglas que los datos no cumplen y quedaron sin aplicar:\n") +
              repair.skipped.join(QLatin1Char('\n')),
          MessageIcon::kInformation,
          {}};
}

}  // namespace ventarix
