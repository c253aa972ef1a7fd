#include "documents/mSaldos.h"

#include <QSqlQuery>

#include "core/dialect.h"
#include "documents/document_totals.h"
#include "documents/summary_rows.h"

namespace ventarix::mSaldos {

namespace {

constexpr TotalsFamily kFacturas{"facturas", "factura", true};
constexpr TotalsFamily kRemisiones{"remisiones", "remision", true};
constexpr TotalsFamily kCotizaciones{"cotizaciones", "cotizacion", true};
constexpr TotalsFamily kTraspasos{"traspasos", "traspaso", true};
constexpr TotalsFamily kPedidos{"pedidos", "pedido", false};
constexpr TotalsFamily kOrdenesCompra{"ordenes de compra", "orden", false};
constexpr TotalsFamily kNotasCliente{"notas cliente", "nota", false};
constexpr TotalsFamily kCompras{"compras", "compra", false};
constexpr TotalsFamily kNotasProveedor{"notas proveedor", "nota", false};

constexpr SummaryFamily kResumenFactura{"facturas resumen", "factura", "CORTE", "CORTE", true};
constexpr SummaryFamily kResumenNota{"notas cliente resumen", "nota", "NOTA", "NA", false};

// Totals of a document that may carry a summary row: the row follows the header it sums.
Outcome TotalizeWithSummary(Connection& connection, const Session& session,
                            const TotalsFamily& family, const SummaryFamily& summary,
                            const QString& key, const std::vector<Deduction>& deductions,
                            const QString& resumen, const QDateTime& fecha) {
  Transaction transaction(connection);
  if (!transaction.ok()) return Outcome::Stop(transaction.error());
  DocumentSums sums;
  double total = 0;
  if (Outcome done = TotalizeDocument(connection, family, key, deductions, &sums, &total); !done) {
    return done;
  }
  SummaryRow row;
  row.descripcion = resumen;
  row.fecha = fecha;
  row.impuesto = session.empresa.Number(QStringLiteral("impuesto"));
  row.tienda = session.Tienda;
  row.total = total;
  if (!resumen.isEmpty()) {
    if (Outcome written = WriteSummaryRow(connection, summary, key, row, sums); !written) {
      return written;
    }
  }
  if (!transaction.Commit()) return Outcome::Stop(transaction.error());
  return Outcome::Ok();
}

}  // namespace

Outcome TotalizarFactura(Connection& connection, const Session& session, const QString& factura,
                         const Retenciones& retenciones, const QString& resumen,
                         const QDateTime& fecha) {
  const std::vector<Deduction> deductions = {{"retencion isr $", retenciones.isr},
                                             {"retencion iva $", retenciones.iva},
                                             {"retencion ced $", retenciones.ced}};
  return TotalizeWithSummary(connection, session, kFacturas, kResumenFactura, factura, deductions,
                             resumen, fecha);
}

Outcome TotalizarRemision(Connection& connection, const QString& remision) {
  return TotalizeDocument(connection, kRemisiones, remision, {});
}

Outcome TotalizarCotizacion(Connection& connection, const QString& cotizacion) {
  return TotalizeDocument(connection, kCotizaciones, cotizacion, {});
}

Outcome TotalizarTraspaso(Connection& connection, const QString& traspaso) {
  return TotalizeDocument(connection, kTraspasos, traspaso, {});
}

Outcome TotalizarPedido(Connection& connection, const QString& pedido) {
  return TotalizeDocument(connection, kPedidos, pedido, {});
}

Outcome TotalizarOrdenCompra(Connection& connection, const QString& orden) {
  return TotalizeDocument(connection, kOrdenesCompra, orden, {});
}

Outcome TotalizarNotaCliente(Connection& connection, const Session& session, const QString& nota,
                             const QDateTime& fecha, const QString& resumen) {
  return TotalizeWithSummary(connection, session, kNotasCliente, kResumenNota, nota, {}, resumen,
                             fecha);
}

Outcome TotalizarCompra(Connection& connection, const QString& compra, double retencion) {
  return TotalizeDocument(connection, kCompras, compra, {{"retencion", retencion}});
}

Outcome TotalizarNotaProveedor(Connection& connection, const QString& nota, double deducir) {
  return TotalizeDocument(connection, kNotasProveedor, nota, {{nullptr, deducir}});
}

Outcome TotalizarAjuste(Connection& connection, const QString& ajuste) {
  QSqlQuery rows = connection.Exec(
      QStringLiteral("select entradas, salidas, costo from \"ajustes de inventario detalles\" "
                     "where ajuste = ?"),
      {ajuste});
  if (!rows.isActive()) return Outcome::Stop(QueryError(rows));
  double total = 0;
  while (rows.next()) {
    if (rows.value(0).isNull() || rows.value(1).isNull()) {
      return Outcome::Stop(
          QStringLiteral("Uso no válido de Null: entradas o salidas del ajuste %1").arg(ajuste));
    }
    // A cost never captured counts as nothing rather than stopping the count.
    total += (rows.value(0).toDouble() - rows.value(1).toDouble()) * rows.value(2).toDouble();
  }
  QString error;
  Transaction transaction(connection);
  if (!transaction.ok() ||
      !connection.Run(
          QStringLiteral("update \"ajustes de inventario\" set total = ? where ajuste = ?"),
          {HeaderFigure(total), ajuste}, &error) ||
      !transaction.Commit()) {
    return Outcome::Stop(error.isEmpty() ? transaction.error() : error);
  }
  return Outcome::Ok();
}

QStringList ListaDocumentosRelacionados(Connection& connection, const QString& tabla,
                                        const QString& columna_clave, const QString& clave,
                                        const QString& columna, QString* error) {
  const QString column = dialect::Name(columna);
  QSqlQuery query =
      connection.Exec(QStringLiteral("select %1 as documento from %2 where %3 = ? group by %1")
                          .arg(column, dialect::Name(tabla + QStringLiteral(" detalles")),
                               dialect::Name(columna_clave)),
                      {clave});
  if (!query.isActive() && error) *error = QueryError(query);
  QStringList keys;
  while (query.next()) {
    const QString value = query.value(0).toString();
    if (!keys.contains(value)) keys << value;
  }
  if (keys.isEmpty()) keys << QString();
  return keys;
}

}  // namespace ventarix::mSaldos
