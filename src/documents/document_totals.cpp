#include "documents/document_totals.h"

#include <array>
#include <charconv>
#include <optional>

#include <QSqlQuery>
#include <QStringList>
#include <QVariantList>

#include "core/dialect.h"

namespace ventarix {

namespace {

struct StoredRow {
  QVariant id;
  RowInput input;
};

QString DetailTable(const TotalsFamily& family) {
  return dialect::Name(QString::fromUtf8(family.header) + QStringLiteral(" detalles"));
}

// Reads the rows in the order the engine gives them. A null in a figure stops the document:
// nothing sensible can be stored for it.
Outcome ReadRows(Connection& connection, const TotalsFamily& family, const QString& key,
                 std::vector<StoredRow>* rows) {
  QStringList columns = {QStringLiteral("cantidad"), QStringLiteral("precio"),
                         QStringLiteral("dcto"), QStringLiteral("impuesto")};
  if (family.with_cost) columns << QStringLiteral("costo") << QStringLiteral("com");
  const QString text = QStringLiteral("select %1 as fila, %2 from %3 where %4 = ?")
                           .arg(RowIdentity(connection.sql()), columns.join(QStringLiteral(", ")),
                                DetailTable(family), dialect::Name(QString::fromUtf8(family.key)));
  QSqlQuery query = connection.Exec(text, {key});
  if (!query.isActive()) return Outcome::Stop(QueryError(query));
  while (query.next()) {
    std::array<double, 6> figures{};
    for (int i = 0; i < columns.size(); ++i) {
      const QVariant value = query.value(i + 1);
      if (value.isNull()) {
        return Outcome::Stop(QStringLiteral("Uso no válido de Null: %1 en %2 %3")
                                 .arg(columns[i], DetailTable(family), key));
      }
      figures[i] = value.toDouble();
    }
    rows->push_back(
        {query.value(0), {figures[0], figures[1], figures[2], figures[3], figures[4], figures[5]}});
  }
  return Outcome::Ok();
}

// `update` is prepared at the first row and run again for the others: every row of a document
// takes the same statement.
Outcome WriteRow(Connection& connection, const TotalsFamily& family, const QVariant& id,
                 const RowAmounts& r, std::optional<QSqlQuery>& update) {
  QString text =
      QStringLiteral(
          "update %1 set cantidad = ?, precio = ?, importe = ?, dcto = ?, descuento = ?, "
          "subtotal = ?, impuesto = ?, iva = ?, total = ?")
          .arg(DetailTable(family));
  QVariantList values = {r.cantidad, r.precio,   r.importe, r.dcto, r.descuento,
                         r.subtotal, r.impuesto, r.iva,     r.total};
  if (family.with_cost) {
    text += QStringLiteral(", costo = ?, costototal = ?, com = ?, comision = ?, utilidad = ?");
    values << r.costo << r.costo_total << r.com << r.comision << r.utilidad;
  }
  text += QStringLiteral(" where ") + RowIdentityMatch(connection.sql());
  values << id;
  if (!update) {
    update.emplace(connection.db());
    if (!update->prepare(text)) return Outcome::Stop(QueryError(*update));
  }
  for (int i = 0; i < values.size(); ++i) update->bindValue(i, values[i]);
  if (!update->exec()) return Outcome::Stop(QueryError(*update));
  return Outcome::Ok();
}

Outcome WriteHeader(Connection& connection, const TotalsFamily& family, const QString& key,
                    const DocumentSums& sums, double total,
                    const std::vector<Deduction>& deductions) {
  QString text =
      QStringLiteral("update %1 set importe = ?, descuento = ?, subtotal = ?, iva = ?, total = ?")
          .arg(dialect::Name(QString::fromUtf8(family.header)));
  QVariantList values = {sums.importe, sums.descuento, sums.subtotal, sums.iva, total};
  if (family.with_cost) {
    text += QStringLiteral(", costo = ?, comision = ?, utilidad = ?");
    values << sums.costo << sums.comision << sums.utilidad;
  }
  for (const Deduction& d : deductions) {
    if (d.column == nullptr) continue;
    text += QStringLiteral(", %1 = ?").arg(dialect::Name(QString::fromUtf8(d.column)));
    values << d.amount;
  }
  text += QStringLiteral(" where %1 = ?").arg(dialect::Name(QString::fromUtf8(family.key)));
  values << key;
  QString error;
  if (!connection.Run(text, values, &error)) return Outcome::Stop(error);
  return Outcome::Ok();
}

}  // namespace

Outcome TotalizeDocument(Connection& connection, const TotalsFamily& family, const QString& key,
                         const std::vector<Deduction>& deductions, DocumentSums* sums,
                         double* total) {
  Transaction transaction(connection);
  if (!transaction.ok()) return Outcome::Stop(transaction.error());
  std::vector<StoredRow> rows;
  if (Outcome read = ReadRows(connection, family, key, &rows); !read) return read;
  DocumentSums running;
  std::optional<QSqlQuery> update;
  for (const StoredRow& row : rows) {
    const RowAmounts amounts = ComputeRow(row.input, family.with_cost);
    running.Add(amounts);
    if (Outcome written = WriteRow(connection, family, row.id, amounts, update); !written) {
      return written;
    }
  }
  double header_total = running.total;
  for (const Deduction& d : deductions) header_total -= d.amount;
  header_total = HeaderFigure(header_total);
  const DocumentSums stored = {HeaderFigure(running.importe),  HeaderFigure(running.descuento),
                               HeaderFigure(running.subtotal), HeaderFigure(running.iva),
                               HeaderFigure(running.total),    HeaderFigure(running.costo),
                               HeaderFigure(running.comision), HeaderFigure(running.utilidad)};
  if (Outcome written = WriteHeader(connection, family, key, stored, header_total, deductions);
      !written) {
    return written;
  }
  if (!transaction.Commit()) return Outcome::Stop(transaction.error());
  if (sums) *sums = stored;
  if (total) *total = header_total;
  return Outcome::Ok();
}

double HeaderFigure(double value) {
  std::array<char, 64> buffer;
  const auto [end, ec] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::general, 15);
  if (ec != std::errc()) return value;
  double result = value;
  std::from_chars(buffer.data(), end, result);
  return result == 0 ? 0.0 : result;
}

QString RowIdentity(bool sql) {
  return sql ? QStringLiteral("cast(ctid as text)") : QStringLiteral("rowid");
}

QString RowIdentityMatch(bool sql) {
  return sql ? QStringLiteral("ctid = cast(? as tid)") : QStringLiteral("rowid = ?");
}

}  // namespace ventarix
