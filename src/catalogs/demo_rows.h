#pragma once

#include <QRandomGenerator>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>

#include "core/database.h"

// Pieces the demo company is written with.
namespace ventarix::demo {

// One insert statement prepared once and run for every row, so that a few hundred products
// cost one round trip each on PostgreSQL.
class RowWriter {
 public:
  RowWriter(Connection& connection, const QString& table, const QStringList& columns);
  // Values in the order of the columns. False, with error(), when the row is refused.
  bool Add(const QVariantList& values);
  const QString& error() const { return error_; }

 private:
  QSqlQuery query_;
  QString table_;
  int columns_ = 0;
  QString error_;
};

inline QString Texto(const char* utf8) { return QString::fromUtf8(utf8); }
// An empty text, stored as '' rather than NULL, as the screens leave an empty field.
inline QString Vacio() { return QString(QLatin1String("")); }

// One row given as column and value pairs, for tables of a single row or a few.
struct Campo {
  const char* columna;
  QVariant valor;
};
bool WriteRow(Connection& connection, const QString& table, const QList<Campo>& row,
              QString* error);

// Fixed-seed choices, so that every demo company is the same.
class Dice {
 public:
  explicit Dice(quint32 seed) : generator_(seed) {}
  int Between(int low, int high) {
    return low + static_cast<int>(generator_.bounded(high - low + 1));
  }
  template <typename List>
  const auto& Pick(const List& list) {
    return list[static_cast<qsizetype>(generator_.bounded(static_cast<quint32>(list.size())))];
  }

 private:
  QRandomGenerator generator_;
};

// An RFC that passes the format and date checks: three letters for a company, four for a
// person, the date yymmdd and a three-character check code.
QString Rfc(Dice& dice, const QString& letters, int year, int month, int day);

// Money to two decimals, half away from zero, on whole hundredths to stay exact: what the
// brand recalculation statements store.
double Cents(qint64 hundredths);
double PriceAtMargin(double cost, int margin_percent);

// A 13-digit bar code with Mexico's prefix and a valid check digit.
QString BarCode(int item);

}  // namespace ventarix::demo
