#pragma once

#include <vector>

#include <QString>
#include <QStringList>
#include <QVariantList>

#include "core/database.h"
#include "core/outcome.h"

namespace ventarix {

// One set-wise statement of a recomputation and its bound values.
struct SetStatement {
  QString text;
  QVariantList values;
};

// Runs the statements in order; the first that fails stops the rest and its words come back.
// Takes the recomputation turn first (TurnoDeRecalculo).
Outcome RunSetStatements(Connection& connection, const std::vector<SetStatement>& statements);

// Recomputations read sums of other rows. On PostgreSQL each statement sees what was committed
// when it began, so two saves recomputing at once would each miss the other's document and
// the last to write would win. Every recomputation therefore waits for its turn, held until
// its transaction ends: the second save's statements begin after the first committed and see
// its rows. SQLite needs nothing: its writers already take turns at BEGIN IMMEDIATE.
bool TurnoDeRecalculo(Connection& connection, QString* error);

// A recomputation lets the screen repaint once before its statements; what the user types
// waits, so no other operation starts in the middle of this one.
void YieldToScreen();

// "<prefix><column> in (?, ?)" for a scope of document keys, the keys appended to `values`;
// empty text for an empty scope, which means every document. The list of nothing {""} gives
// "in (?)" bound to the empty text, which matches no key.
inline QString InClause(const QString& prefix, const QString& column, const QStringList& keys,
                        QVariantList* values) {
  if (keys.isEmpty()) return {};
  QStringList marks;
  for (const QString& key : keys) {
    marks << QStringLiteral("?");
    values->append(key);
  }
  return prefix + column + QStringLiteral(" in (") + marks.join(QStringLiteral(", ")) +
         QLatin1Char(')');
}

}  // namespace ventarix
