#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "core/schema.h"

// The rules a company database keeps on its columns: defaults, required columns and
// validation. New tables carry them from the start; the structure repair brings an older
// database to them as far as its data allows.
namespace ventarix::column_rules {

// A validation rule, stored as a named CHECK constraint so that the repair can tell whether a
// column already has it.
struct Check {
  QString name;        // constraint name, e.g. "ck_folio_positivo"
  QString expression;  // SQL condition on the column, e.g. "\"folio\" > 0"
};

struct Rules {
  QString default_value;  // SQL literal; empty for none
  bool required = false;  // NOT NULL
  std::vector<Check> checks;
};

// What the column COLUMN of TABLE must carry. Names are compared in lower case.
Rules For(const QString& table, const QString& column, schema::Type type);

// The catalogues whose empty statuses the repair turns into 'ALTA'.
bool IsCatalogue(const QString& table);

// The key column of a document header table, or empty for any other table.
QString HeaderKey(const QString& table);

bool IsText(schema::Type type);
bool IsNumeric(schema::Type type);

}  // namespace ventarix::column_rules
