#include "catalogs/demo_rows.h"

#include <cmath>

#include <QSqlError>

namespace ventarix::demo {

RowWriter::RowWriter(Connection& connection, const QString& table, const QStringList& columns)
    : query_(connection.db()), table_(table), columns_(static_cast<int>(columns.size())) {
  QStringList names;
  QStringList marks;
  for (const QString& column : columns) {
    names << QLatin1Char('"') + column + QLatin1Char('"');
    marks << QStringLiteral("?");
  }
  const QString statement =
      QStringLiteral("insert into \"%1\" (%2) values (%3)")
          .arg(table, names.join(QLatin1Char(',')), marks.join(QLatin1Char(',')));
  if (!query_.prepare(statement)) error_ = table + QStringLiteral(": ") + QueryError(query_);
}

bool RowWriter::Add(const QVariantList& values) {
  if (!error_.isEmpty()) return false;
  if (values.size() != columns_) {
    error_ = QStringLiteral("%1: %2 valores para %3 columnas")
                 .arg(table_)
                 .arg(values.size())
                 .arg(columns_);
    return false;
  }
  for (int i = 0; i < columns_; ++i) query_.bindValue(i, values[i]);
  if (!query_.exec()) {
    error_ = table_ + QStringLiteral(": ") + QueryError(query_);
    return false;
  }
  return true;
}

bool WriteRow(Connection& connection, const QString& table, const QList<Campo>& row,
              QString* error) {
  QStringList columns;
  QVariantList values;
  for (const Campo& campo : row) {
    columns << QString::fromUtf8(campo.columna);
    values << campo.valor;
  }
  RowWriter writer(connection, table, columns);
  if (writer.Add(values)) return true;
  *error = writer.error();
  return false;
}

QString Rfc(Dice& dice, const QString& letters, int year, int month, int day) {
  static const QString kCheck = QStringLiteral("ABCDEFGHJKLMNPQRSTUVWXYZ123456789");
  QString check;
  for (int i = 0; i < 3; ++i) check += kCheck[dice.Between(0, static_cast<int>(kCheck.size()) - 1)];
  return letters +
         QStringLiteral("%1%2%3")
             .arg(year % 100, 2, 10, QLatin1Char('0'))
             .arg(month, 2, 10, QLatin1Char('0'))
             .arg(day, 2, 10, QLatin1Char('0')) +
         check;
}

double Cents(qint64 hundredths) { return static_cast<double>(hundredths) / 100.0; }

double PriceAtMargin(double cost, int margin_percent) {
  const qint64 cost_cents = std::llround(cost * 100.0);
  // cost * (100 + u) is in hundredths of a cent; +50 then /100 rounds half away from zero.
  const qint64 scaled = cost_cents * (100 + margin_percent);
  return Cents((scaled + 50) / 100);
}

QString BarCode(int item) {
  QString digits = QStringLiteral("750%1").arg(123400000 + item, 9, 10, QLatin1Char('0'));
  int sum = 0;
  for (int i = 0; i < digits.size(); ++i) {
    const int d = digits[i].digitValue();
    sum += (i % 2 == 0) ? d : 3 * d;
  }
  return digits + QString::number((10 - sum % 10) % 10);
}

}  // namespace ventarix::demo
