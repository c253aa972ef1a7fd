#pragma once

#include <QSqlQuery>
#include <QSqlRecord>

#include "core/session.h"

namespace ventarix {

// The current row of a query by column name, as the price look-ups and the screens read it.
inline RowValues RegistroLeido(const QSqlQuery& query) {
  RowValues row;
  const QSqlRecord record = query.record();
  for (int i = 0; i < record.count(); ++i) row.Set(record.fieldName(i), query.value(i));
  return row;
}

}  // namespace ventarix
