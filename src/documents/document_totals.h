#pragma once

#include <vector>

#include <QString>

#include "core/database.h"
#include "core/outcome.h"
#include "documents/row_arithmetic.h"

namespace ventarix {

// What sets one document family's totals apart from another's: its tables and whether its
// rows carry cost, commission and profit.
struct TotalsFamily {
  const char* header;  // header table; the rows live in "<header> detalles"
  const char* key;     // key column, in the header and in the rows
  bool with_cost;
};

// An amount the capture screen takes off the header total (a retention), stored in its own
// header column when `column` is given.
struct Deduction {
  const char* column;
  double amount;
};

// Rewrites every row of the document with the rounded figures, then writes the sums to the
// header in one statement, `total` less the deductions. A document without rows gets zeros.
// `sums` receives the sums of the rounded rows as written and `total` the header total.
Outcome TotalizeDocument(Connection& connection, const TotalsFamily& family, const QString& key,
                         const std::vector<Deduction>& deductions, DocumentSums* sums = nullptr,
                         double* total = nullptr);

// A header figure as the system has always stored it: at most fifteen significant digits, so
// the noise of adding binary fractions never reaches the header.
double HeaderFigure(double value);

// The engine's own row identity (rowid, ctid) and the condition that finds a row by it.
QString RowIdentity(bool sql);
QString RowIdentityMatch(bool sql);

}  // namespace ventarix
