#pragma once

#include <QDate>
#include <QList>
#include <QRandomGenerator>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include "core/database.h"

// Pieces the demo company is written with.
namespace ventarix::demo {

inline QString Texto(const char* utf8) { return QString::fromUtf8(utf8); }
// An empty text, stored as '' rather than NULL, as the screens leave an empty field.
inline QString Vacio() { return QString(QLatin1String("")); }

// One column of a row and its value.
struct Campo {
  const char* columna;  // lower case, UTF-8
  QVariant valor;
};
using Fila = QList<Campo>;

// Rows of one table written through one insert statement, prepared at the first row and run
// again for every other one, so that a few hundred products cost one round trip each on
// PostgreSQL. Every row names the same columns in the same order.
class RowWriter {
 public:
  RowWriter(Connection& connection, const QString& table);
  // False, with error(), when the row is refused.
  bool Add(const Fila& row);
  const QString& error() const { return error_; }

 private:
  bool Prepare(const Fila& row);

  Connection& connection_;
  QString table_;
  QSqlQuery query_;
  QList<const char*> columns_;
  QString error_;
};

// Adds the row; on refusal copies the writer's error to *error.
bool Agregar(RowWriter& writer, const Fila& row, QString* error);

// Fixed-seed choices, so that every demo company is the same.
class Dice {
 public:
  explicit Dice(quint32 seed) : generator_(seed) {}
  int Between(int low, int high) {
    return low + static_cast<int>(generator_.bounded(static_cast<quint32>(high - low + 1)));
  }
  template <typename T, size_t N>
  const T& Pick(const T (&list)[N]) {
    return list[Between(0, static_cast<int>(N) - 1)];
  }

 private:
  QRandomGenerator generator_;
};

// An RFC that passes the format and date checks: three letters for a company, four for a
// person, the date yymmdd and a three-character check code.
QString Rfc(Dice& dice, const QString& letters, const QDate& date);

// Money to two decimals, half away from zero, on whole hundredths to stay exact: what the
// brand recalculation statements store.
double Cents(qint64 hundredths);
double PriceAtMargin(double cost, int margin_percent);

// A 13-digit bar code with Mexico's prefix and a valid check digit.
QString BarCode(int item);

}  // namespace ventarix::demo
