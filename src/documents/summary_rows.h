#pragma once

#include <QDateTime>
#include <QString>

#include "core/database.h"
#include "core/outcome.h"
#include "documents/row_arithmetic.h"

namespace ventarix {

// The single-concept row an invoice or a client credit note can be printed and stamped as.
struct SummaryFamily {
  const char* table;  // "facturas resumen"
  const char* key;    // "factura"
  const char* codigo;
  const char* unidad;
  bool with_cost;
};

struct SummaryRow {
  QString descripcion;
  QDateTime fecha;      // only the day is kept
  double impuesto = 0;  // the company's tax rate
  int tienda = 1;
  double total = 0;  // the header total, retentions taken off
};

// Rewrites the document's summary row in place, or adds it when there is none, so there is
// never more than one per document. Price and amount are the sum of the rows' amounts.
Outcome WriteSummaryRow(Connection& connection, const SummaryFamily& family, const QString& key,
                        const SummaryRow& row, const DocumentSums& sums);

}  // namespace ventarix
