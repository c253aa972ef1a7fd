#include "core/session.h"

namespace ventarix {

QString RowValues::Text(const QString& column) const {
  const QVariant v = Value(column);
  return v.isNull() ? QString() : v.toString();
}

double RowValues::Number(const QString& column) const {
  const QVariant v = Value(column);
  if (v.isNull()) return 0;
  bool ok = false;
  const double d = v.toDouble(&ok);
  return ok ? d : 0;
}

}  // namespace ventarix
