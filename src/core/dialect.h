#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVariant>

namespace ventarix::dialect {

// Most statements are one text that SQLite and PostgreSQL both accept: double-quoted names for
// tables and columns with blanks ("facturas detalles"), coalesce, case when, substr, upper,
// ||, limit, update ... from. These helpers cover the rest. `sql` is the session's flag: true
// on a PostgreSQL company, false on a SQLite one.

// Date-times are stored on SQLite as text "yyyy-MM-dd HH:mm:ss" so that they compare and sort
// as dates; on PostgreSQL as timestamps, which take the same text. Every date bound into a
// statement passes through here.
QVariant DateValue(const QDateTime& value, bool sql);
QVariant DateValue(const QDate& value, bool sql);
// A date-time read back from either engine.
QDateTime ReadDate(const QVariant& value);

// Year of a date expression, as an integer.
QString Year(const QString& expr, bool sql);
// Month of a date expression, as an integer.
QString Month(const QString& expr, bool sql);
// Whole days from a date expression to today.
QString DaysSince(const QString& expr, bool sql);
// The server's current date and time.
QString Now(bool sql);
// A date-time expression as text "dd/MM/yyyy HH:mm:ss".
QString DateTimeText(const QString& expr, bool sql);
// A case-insensitive LIKE.
QString ILike(bool sql);
// Length of a text expression.
QString Length(const QString& expr, bool sql);
// Quotes a table or column name.
QString Name(const QString& name);

}  // namespace ventarix::dialect
