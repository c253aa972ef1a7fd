#include "documents/summary_rows.h"

#include <QSqlQuery>
#include <QStringList>
#include <QVariantMap>

#include "core/dialect.h"
#include "core/mFunciones.h"

namespace ventarix {

namespace {

QVariantMap SummaryValues(const SummaryFamily& family, const QString& key, const SummaryRow& row,
                          const DocumentSums& sums, bool sql) {
  QVariantMap v;
  v[QString::fromUtf8(family.key)] = key;
  v[QStringLiteral("fecha")] = dialect::DateValue(row.fecha.date(), sql);
  v[QStringLiteral("codigo")] = QString::fromUtf8(family.codigo);
  v[QStringLiteral("descripcion")] = row.descripcion;
  v[QStringLiteral("unidad")] = QString::fromUtf8(family.unidad);
  v[QStringLiteral("cantidad")] = 1.0;
  v[QStringLiteral("precio")] = sums.importe;
  v[QStringLiteral("importe")] = sums.importe;
  v[QStringLiteral("descuento")] = sums.descuento;
  v[QStringLiteral("subtotal")] = sums.subtotal;
  v[QStringLiteral("impuesto")] = row.impuesto;
  v[QStringLiteral("iva")] = sums.iva;
  v[QStringLiteral("total")] = row.total;
  v[QStringLiteral("tienda")] = row.tienda;
  v[QStringLiteral("item")] = 1;
  if (family.with_cost) {
    v[QStringLiteral("costo")] = sums.costo;
    v[QStringLiteral("costototal")] = sums.costo;
    v[QStringLiteral("comision")] = sums.comision;
    v[QStringLiteral("utilidad")] = sums.utilidad;
  }
  return v;
}

}  // namespace

Outcome WriteSummaryRow(Connection& connection, const SummaryFamily& family, const QString& key,
                        const SummaryRow& row, const DocumentSums& sums) {
  const QString table = dialect::Name(QString::fromUtf8(family.table));
  const QString key_column = dialect::Name(QString::fromUtf8(family.key));
  const QVariantMap values = SummaryValues(family, key, row, sums, connection.sql());
  QSqlQuery existing = connection.Exec(
      QStringLiteral("select count(*) from %1 where %2 = ?").arg(table, key_column), {key});
  if (!existing.next()) return Outcome::Stop(QueryError(existing));
  QString error;
  QStringList assignments;
  QVariantList bound;
  if (existing.value(0).toInt() > 0) {
    for (auto it = values.begin(); it != values.end(); ++it) {
      assignments << dialect::Name(it.key()) + QStringLiteral(" = ?");
      bound << it.value();
    }
    bound << key;
    const QString text = QStringLiteral("update %1 set %2 where %3 = ?")
                             .arg(table, assignments.join(QStringLiteral(", ")), key_column);
    if (!connection.Run(text, bound, &error)) return Outcome::Stop(error);
    return Outcome::Ok();
  }
  // A new row starts from the type defaults of every column of the table.
  QVariantMap fresh;
  const QVariantMap defaults = mFunciones::InicializarRegistro(QString::fromUtf8(family.table));
  for (auto it = defaults.begin(); it != defaults.end(); ++it) fresh[it.key().toLower()] = *it;
  fresh.insert(values);
  QStringList marks;
  for (auto it = fresh.begin(); it != fresh.end(); ++it) {
    assignments << dialect::Name(it.key());
    marks << QStringLiteral("?");
    bound << it.value();
  }
  const QString text =
      QStringLiteral("insert into %1 (%2) values (%3)")
          .arg(table, assignments.join(QStringLiteral(", ")), marks.join(QStringLiteral(", ")));
  if (!connection.Run(text, bound, &error)) return Outcome::Stop(error);
  return Outcome::Ok();
}

}  // namespace ventarix
