#include "demo/demo_rows.h"

#include <cmath>
#include <cstring>

#include <QStringList>

namespace ventarix::demo {

RowWriter::RowWriter(Connection& connection, const QString& table)
    : connection_(connection), table_(table), query_(connection.db()) {}

bool RowWriter::Prepare(const Fila& row) {
  QStringList names;
  QStringList marks;
  for (const Campo& campo : row) {
    columns_ << campo.columna;
    names << QLatin1Char('"') + QString::fromUtf8(campo.columna) + QLatin1Char('"');
    marks << QStringLiteral("?");
  }
  const QString statement =
      QStringLiteral("insert into \"%1\" (%2) values (%3)")
          .arg(table_, names.join(QLatin1Char(',')), marks.join(QLatin1Char(',')));
  if (query_.prepare(statement)) return true;
  error_ = table_ + QStringLiteral(": ") + QueryError(query_);
  return false;
}

bool RowWriter::Add(const Fila& row) {
  if (!error_.isEmpty()) return false;
  if (columns_.isEmpty() && !Prepare(row)) return false;
  for (int i = 0; i < row.size(); ++i) {
    if (i >= columns_.size() || std::strcmp(columns_[i], row[i].columna) != 0) {
      error_ = table_ + QStringLiteral(": columna inesperada ") + QString::fromUtf8(row[i].columna);
      return false;
    }
    query_.bindValue(i, row[i].valor);
  }
  if (row.size() != columns_.size()) {
    error_ = table_ + QStringLiteral(": faltan columnas");
    return false;
  }
  if (query_.exec()) return true;
  error_ = table_ + QStringLiteral(": ") + QueryError(query_);
  return false;
}

bool Agregar(RowWriter& writer, const Fila& row, QString* error) {
  if (writer.Add(row)) return true;
  *error = writer.error();
  return false;
}

QString Rfc(Dice& dice, const QString& letters, const QDate& date) {
  static const QString kCheck = QStringLiteral("ABCDEFGHJKLMNPQRSTUVWXYZ123456789");
  QString check;
  for (int i = 0; i < 3; ++i) {
    check += kCheck[dice.Between(0, static_cast<int>(kCheck.size()) - 1)];
  }
  return letters + date.toString(QStringLiteral("yyMMdd")) + check;
}

double Cents(qint64 hundredths) { return static_cast<double>(hundredths) / 100.0; }

double PriceAtMargin(double cost, int margin_percent) {
  const qint64 cost_cents = std::llround(cost * 100.0);
  // cost * (100 + u) is in hundredths of a cent; +50 then /100 rounds half away from zero.
  const qint64 scaled = cost_cents * (100 + margin_percent);
  return Cents((scaled + 50) / 100);
}

QString BarCode(int item) {
  const QString digits = QStringLiteral("750%1").arg(123400000 + item, 9, 10, QLatin1Char('0'));
  int sum = 0;
  for (int i = 0; i < digits.size(); ++i) {
    const int d = digits[i].digitValue();
    sum += (i % 2 == 0) ? d : 3 * d;
  }
  return digits + QString::number((10 - sum % 10) % 10);
}

}  // namespace ventarix::demo
