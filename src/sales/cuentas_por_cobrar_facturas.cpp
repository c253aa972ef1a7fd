// The invoices the receivables screens show: a client's open ones, a receipt's own, and those
// whose small balances the settle receipt closes.
#include <QSqlQuery>

#include "core/dialect.h"
#include "sales/cuentas_por_cobrar.h"

namespace ventarix::ventas {

namespace {

using namespace Qt::StringLiterals;

// factura, fecha, plazo, total, abonos, descuentos, abono, saldo: the columns both grids read.
std::vector<FacturaPorCobrar> Leer(const Session& session, const QString& sentencia,
                                   const QVariantList& valores, QString* error) {
  std::vector<FacturaPorCobrar> facturas;
  Connection c(session.Cadena);
  QSqlQuery q = c.Exec(sentencia, valores);
  if (!q.isActive()) {
    if (error) *error = c.ok() ? QueryError(q) : c.error();
    return facturas;
  }
  while (q.next()) {
    FacturaPorCobrar f{.factura = q.value(0).toString(),
                       .fecha = dialect::ReadDate(q.value(1)),
                       .plazo = q.value(2).toInt(),
                       .total = q.value(3).toDouble(),
                       .abonos = q.value(4).toDouble(),
                       .descuentos = q.value(5).toDouble(),
                       .abono = q.value(6).toDouble(),
                       .saldo = q.value(7).toDouble()};
    f.vence = f.fecha.addDays(f.plazo);
    facturas.push_back(f);
  }
  return facturas;
}

}  // namespace

std::vector<FacturaPorCobrar> FacturasPorCobrar(const Session& session, qint32 cliente,
                                                QString* error) {
  return Leer(session,
              u"select factura, fecha, plazo, total, abonos, descuentos, 0, saldo from facturas "
              u"where status = 'POR COBRAR' and cliente = ? order by fecha, factura"_s,
              {cliente}, error);
}

std::vector<FacturaPorCobrar> FacturasDelPago(const Session& session, const QString& pago,
                                              QString* error) {
  return Leer(session,
              u"select d.factura, d.fecha, f.plazo, f.total, f.abonos, f.descuentos, d.abono, "
              u"f.saldo from \"cxc detalles\" d, facturas f where d.factura = f.factura and "
              u"d.pago = ? order by d.item"_s,
              {pago}, error);
}

std::vector<FacturaPorSaldar> FacturasPorSaldar(const Session& session, const FiltroSaldar& filtro,
                                                QString* error) {
  std::vector<FacturaPorSaldar> facturas;
  const QDate desde(filtro.anio, filtro.mes, 1);
  if (!desde.isValid()) return facturas;
  // The month as a range of dates, the same on both engines.
  QVariantList valores = {dialect::DateValue(QDateTime(desde, {}), session.Sql),
                          dialect::DateValue(QDateTime(desde.addMonths(1), {}), session.Sql),
                          filtro.desde, filtro.hasta};
  QString sentencia =
      u"select f.cliente, l.nombre, f.factura, f.depto, f.fecha, f.total, f.saldo "
      u"from facturas f, clientes l where f.cliente = l.numero and f.status = 'POR COBRAR' "
      u"and f.fecha >= ? and f.fecha < ? and f.saldo between ? and ?"_s;
  if (filtro.cliente != 0) {
    sentencia += u" and f.cliente = ?"_s;
    valores << filtro.cliente;
  }
  Connection c(session.Cadena);
  QSqlQuery q = c.Exec(sentencia + u" order by f.cliente, f.fecha, f.factura"_s, valores);
  if (!q.isActive()) {
    if (error) *error = c.ok() ? QueryError(q) : c.error();
    return facturas;
  }
  while (q.next()) {
    facturas.push_back({.cliente = q.value(0).toInt(),
                        .nombre = q.value(1).toString(),
                        .factura = q.value(2).toString(),
                        .depto = q.value(3).toString(),
                        .fecha = dialect::ReadDate(q.value(4)),
                        .total = q.value(5).toDouble(),
                        .saldo = q.value(6).toDouble()});
  }
  return facturas;
}

double SaldoFinal(const std::vector<FacturaPorSaldar>& facturas) {
  double suma = 0;
  for (const FacturaPorSaldar& f : facturas) suma += f.saldo;
  return suma;
}

}  // namespace ventarix::ventas
