#include "core/dialect.h"

namespace ventarix::dialect {

namespace {
const QString kSqliteDateFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");
}

QVariant DateValue(const QDateTime& value, bool sql) {
  // Sent as text on both engines: a QDateTime bound on PostgreSQL travels as UTC and would
  // shift by the workstation's time zone in a timestamp column.
  if (!value.isValid()) return QVariant(QMetaType(QMetaType::QString));
  Q_UNUSED(sql);
  return value.toString(kSqliteDateFormat);
}

QVariant DateValue(const QDate& value, bool sql) {
  return DateValue(value.isValid() ? QDateTime(value, QTime(0, 0)) : QDateTime(), sql);
}

QDateTime ReadDate(const QVariant& value) {
  if (value.isNull()) return {};
  if (value.metaType().id() == QMetaType::QDateTime) return value.toDateTime();
  if (value.metaType().id() == QMetaType::QDate) return QDateTime(value.toDate(), QTime(0, 0));
  const QString text = value.toString().trimmed();
  QDateTime result = QDateTime::fromString(text, kSqliteDateFormat);
  if (!result.isValid()) result = QDateTime::fromString(text, Qt::ISODateWithMs);
  if (!result.isValid()) result = QDateTime::fromString(text, Qt::ISODate);
  if (!result.isValid()) {
    const QDate date = QDate::fromString(text.left(10), Qt::ISODate);
    if (date.isValid()) result = QDateTime(date, QTime(0, 0));
  }
  return result;
}

QString Year(const QString& expr, bool sql) {
  return sql ? QStringLiteral("cast(extract(year from %1) as integer)").arg(expr)
             : QStringLiteral("cast(strftime('%Y', %1) as integer)").arg(expr);
}

QString Month(const QString& expr, bool sql) {
  return sql ? QStringLiteral("cast(extract(month from %1) as integer)").arg(expr)
             : QStringLiteral("cast(strftime('%m', %1) as integer)").arg(expr);
}

QString DaysSince(const QString& expr, bool sql) {
  return sql ? QStringLiteral("(current_date - cast(%1 as date))").arg(expr)
             : QStringLiteral(
                   "cast(julianday(date('now','localtime')) - julianday(date(%1)) as integer)")
                   .arg(expr);
}

QString Now(bool sql) {
  return sql ? QStringLiteral("localtimestamp(0)") : QStringLiteral("datetime('now','localtime')");
}

QString DateTimeText(const QString& expr, bool sql) {
  return sql ? QStringLiteral("to_char(%1, 'DD/MM/YYYY HH24:MI:SS')").arg(expr)
             : QStringLiteral("strftime('%d/%m/%Y %H:%M:%S', %1)").arg(expr);
}

QString ILike(bool sql) { return sql ? QStringLiteral("ilike") : QStringLiteral("like"); }

QString Length(const QString& expr, bool sql) {
  return sql ? QStringLiteral("char_length(%1)").arg(expr) : QStringLiteral("length(%1)").arg(expr);
}

QString Name(const QString& name) {
  QString escaped = name;
  escaped.replace(QLatin1Char('"'), QStringLiteral("\"\""));
  return QLatin1Char('"') + escaped.toLower() + QLatin1Char('"');
}

}  // namespace ventarix::dialect
