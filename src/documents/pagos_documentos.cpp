// The documents the payment screens show: a party's open ones, a payment's own, and those
// whose small balances the settle payment closes.
#include <QSqlQuery>

#include "core/dialect.h"
#include "documents/pagos.h"

namespace ventarix::pagos {

namespace {

using namespace Qt::StringLiterals;

QString S(const char* texto) { return QString::fromUtf8(texto); }

// The expression of the side's reference over `f`, or an empty text.
QString Referencia(const char* expresion) { return expresion ? S(expresion) : u"''"_s; }

// documento, referencia, fecha, plazo, total, abonos, descuentos, abono, saldo: the columns
// both grids read.
std::vector<DocumentoAbierto> Leer(const Session& session, const QString& sentencia,
                                   const QVariantList& valores, QString* error) {
  std::vector<DocumentoAbierto> documentos;
  Connection c(session.Cadena);
  QSqlQuery q = c.Exec(sentencia, valores);
  if (!q.isActive()) {
    if (error) *error = c.ok() ? QueryError(q) : c.error();
    return documentos;
  }
  while (q.next()) {
    DocumentoAbierto d{.documento = q.value(0).toString(),
                       .referencia = q.value(1).toString(),
                       .fecha = dialect::ReadDate(q.value(2)),
                       .plazo = q.value(3).toInt(),
                       .total = q.value(4).toDouble(),
                       .abonos = q.value(5).toDouble(),
                       .descuentos = q.value(6).toDouble(),
                       .abono = q.value(7).toDouble(),
                       .saldo = q.value(8).toDouble()};
    d.vence = d.fecha.addDays(d.plazo);
    documentos.push_back(d);
  }
  return documentos;
}

}  // namespace

std::vector<DocumentoAbierto> Abiertos(const Session& session, const Lado& l, qint32 socio,
                                       QString* error) {
  return Leer(session,
              u"select f.%1, %2, f.fecha, f.plazo, f.total, f.abonos, f.descuentos, 0, f.saldo "
              u"from %3 f where f.status = ? and f.%4 = ? order by f.fecha, f.%1"_s.arg(
                  S(l.documento), Referencia(l.referencia), S(l.documentos), S(l.socio)),
              {S(l.abierto), socio}, error);
}

std::vector<DocumentoAbierto> DelPago(const Session& session, const Lado& l, const QString& pago,
                                      QString* error) {
  return Leer(session,
              u"select d.%1, %2, d.fecha, f.plazo, f.total, f.abonos, f.descuentos, d.abono, "
              u"f.saldo from \"%3 detalles\" d, %4 f where d.%1 = f.%1 and d.pago = ? "
              u"order by d.item"_s.arg(S(l.documento), Referencia(l.referencia), S(l.tabla),
                                       S(l.documentos)),
              {pago}, error);
}

std::vector<PorSaldar> Saldables(const Session& session, const Lado& l, const FiltroSaldar& filtro,
                                 QString* error) {
  std::vector<PorSaldar> documentos;
  const QDate desde(filtro.anio, filtro.mes, 1);
  if (!desde.isValid()) return documentos;
  // The month as a range of dates, the same on both engines.
  QVariantList valores = {S(l.abierto), dialect::DateValue(QDateTime(desde, {}), session.Sql),
                          dialect::DateValue(QDateTime(desde.addMonths(1), {}), session.Sql),
                          filtro.desde, filtro.hasta};
  QString sentencia =
      u"select f.%1, l.nombre, f.%2, %3, f.fecha, f.total, f.saldo from %4 f, %5 l "
      u"where f.%1 = l.numero and f.status = ? and f.fecha >= ? and f.fecha < ? "
      u"and f.saldo between ? and ?"_s.arg(S(l.socio), S(l.documento),
                                           Referencia(l.referencia_saldar), S(l.documentos),
                                           S(l.socios));
  if (filtro.socio != 0) {
    sentencia += u" and f.%1 = ?"_s.arg(S(l.socio));
    valores << filtro.socio;
  }
  Connection c(session.Cadena);
  QSqlQuery q = c.Exec(
      sentencia + u" order by f.%1, f.fecha, f.%2"_s.arg(S(l.socio), S(l.documento)), valores);
  if (!q.isActive()) {
    if (error) *error = c.ok() ? QueryError(q) : c.error();
    return documentos;
  }
  while (q.next()) {
    documentos.push_back({.socio = q.value(0).toInt(),
                          .nombre = q.value(1).toString(),
                          .documento = q.value(2).toString(),
                          .referencia = q.value(3).toString(),
                          .fecha = dialect::ReadDate(q.value(4)),
                          .total = q.value(5).toDouble(),
                          .saldo = q.value(6).toDouble()});
  }
  return documentos;
}

double SaldoFinal(const std::vector<PorSaldar>& documentos) {
  double suma = 0;
  for (const PorSaldar& d : documentos) suma += d.saldo;
  return suma;
}

}  // namespace ventarix::pagos
