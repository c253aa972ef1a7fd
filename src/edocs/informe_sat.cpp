#include "edocs/informe_sat.h"

#include <QFile>
#include <QLocale>
#include <QSaveFile>
#include <QSqlError>
#include <QSqlQuery>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/session.h"

namespace ventarix::edocs {

namespace {

// Both branches are taken over a half-open range of the month, which both engines compare as
// dates and which uses the date indexes. Only invoices carry a currency; a note is always in
// pesos.
constexpr char kListado[] =
    "select c.rfc as rfc, case f.serie when '0' then '' else f.serie end as serie, "
    "f.folio as folio, f.fecha as fecha, f.noaprobacion as noaprobacion, f.hora as hora, "
    "f.total as total, f.iva as iva, case f.status when 'BAJA' then 0 else 1 end as status, "
    "'I' as comprobante, f.moneda as moneda, f.tipocambio as tipocambio "
    "from facturas f, clientes c "
    "where f.cliente = c.numero and f.hora >= ? and f.hora < ? and f.esquema = ? "
    "union all "
    "select c.rfc, case n.serie when '0' then '' else n.serie end, n.folio, n.fecha, "
    "n.noaprobacion, n.hora, n.total, n.iva, case n.status when 'BAJA' then 0 else 1 end, "
    "'E', 'MXN', 1 "
    "from \"notas cliente\" n, clientes c "
    "where n.cliente = c.numero and n.fecha >= ? and n.fecha < ? and n.esquema = ? "
    "order by hora, folio";

QString MesAnoNombre(const QDate& mes) {
  static const char* const kMeses[] = {"enero",      "febrero", "marzo",     "abril",
                                       "mayo",       "junio",   "julio",     "agosto",
                                       "septiembre", "octubre", "noviembre", "diciembre"};
  return QString::fromLatin1(kMeses[(mes.month() + 11) % 12]) + QLatin1Char(' ') +
         QString::number(mes.year());
}

// The exchange rate as the grid lists it: shortest form, no thousands separator.
QString Numero(double value) { return QLocale::c().toString(value, 'g', 15); }

RenglonInforme LeerRenglon(const QSqlQuery& query) {
  RenglonInforme r;
  r.rfc = query.value(0).toString();
  r.serie = query.value(1).toString();
  r.folio = query.value(2).toLongLong();
  const QDateTime fecha = dialect::ReadDate(query.value(3));
  r.aprobacion = QStringLiteral("%1").arg(fecha.date().year(), 4, 10, QLatin1Char('0')) +
                 query.value(4).toString().trimmed();
  r.fecha = dialect::ReadDate(query.value(5));
  r.total = query.value(6).toDouble();
  r.iva = query.value(7).toDouble();
  r.status = query.value(8).toInt();
  r.comprobante = query.value(9).toString();
  r.moneda = query.value(10).toString();
  r.tipo_cambio = query.value(11).toDouble();
  return r;
}

}  // namespace

QStringList EsquemasInforme() { return {QStringLiteral("CFD"), QStringLiteral("CBB")}; }

ListadoInforme ListarInforme(Connection& connection, const QString& esquema, const QDate& mes) {
  ListadoInforme listado;
  const QDate inicio(mes.year(), mes.month(), 1);
  const QVariant desde = dialect::DateValue(inicio, connection.sql());
  const QVariant hasta = dialect::DateValue(inicio.addMonths(1), connection.sql());
  QSqlQuery query = connection.Exec(QString::fromLatin1(kListado),
                                    {desde, hasta, esquema, desde, hasta, esquema});
  if (!query.isActive()) {
    listado.ok = false;
    listado.error = query.lastError().text();
    return listado;
  }
  while (query.next()) listado.renglones.append(LeerRenglon(query));
  return listado;
}

Outcome RevisarListado(const ListadoInforme& listado, const QString& esquema, const QDate& mes) {
  if (!listado.ok || !listado.renglones.isEmpty()) return Outcome::Ok();
  return Outcome::Warning(QStringLiteral("No hay documentos ") + esquema +
                          QStringLiteral(" en el mes de ") + MesAnoNombre(mes));
}

QString ArchivoInforme(const Session& session, const QDate& mes) {
  return session.CarpetaBak + QStringLiteral("/1") + session.empresa.Text(QStringLiteral("rfc")) +
         QStringLiteral("%1%2")
             .arg(mes.month(), 2, 10, QLatin1Char('0'))
             .arg(mes.year(), 4, 10, QLatin1Char('0')) +
         QStringLiteral(".txt");
}

QString TituloInforme(const QDate& mes) {
  return QStringLiteral("INFORME MENSUAL SAT AL MES DE ") + MesAnoNombre(mes);
}

QString FechaInforme(const QDateTime& fecha) {
  return QLocale::c().toString(fecha, QStringLiteral("dd/MM/yyyy HH:mm:ss"));
}

QStringList ColumnasInforme() {
  return {QStringLiteral("Rfc"),
          QStringLiteral("Serie"),
          QStringLiteral("Folio"),
          QStringLiteral("No Aprobacion"),
          QStringLiteral("Fecha"),
          QStringLiteral("Monto Total $"),
          QStringLiteral("Iva $"),
          QStringLiteral("Status"),
          QStringLiteral("Comprobante"),
          QStringLiteral("Moneda"),
          QStringLiteral("Tipo de Cambio $")};
}

QString ValorArchivo(const RenglonInforme& r, int columna) {
  switch (columna) {
    case 1:
      return r.rfc;
    case 2:
      return r.serie;
    case 3:
      return QString::number(r.folio);
    case 4:
      return r.aprobacion;
    case 5:
      return FechaInforme(r.fecha);
    case 6:
      return QString::number(r.total, 'f', 2);
    case 7:
      return QString::number(r.iva, 'f', 2);
    case 8:
      return QString::number(r.status);
    case 9:
      return r.comprobante;
    case 10:
      return r.moneda;
    case 11:
      return Numero(r.tipo_cambio);
    default:
      return {};
  }
}

QString LineaInforme(const RenglonInforme& renglon) {
  QString linea = QStringLiteral("|");
  const int columnas = static_cast<int>(ColumnasInforme().size());
  for (int columna = kPrimeraColumnaArchivo; columna <= columnas; ++columna) {
    linea += ValorArchivo(renglon, columna) + QLatin1Char('|');
  }
  return linea + QStringLiteral("||||");
}

QByteArray TextoInforme(const QList<RenglonInforme>& renglones) {
  QStringList lineas;
  lineas.reserve(renglones.size());
  for (const RenglonInforme& renglon : renglones) lineas.append(LineaInforme(renglon));
  return lineas.join(QStringLiteral("\r\n")).toUtf8();
}

Outcome EscribirInforme(const QString& path, const QList<RenglonInforme>& renglones) {
  // Written aside and moved into place, so that a failure never leaves half a report.
  QSaveFile file(path);
  const QByteArray texto = TextoInforme(renglones);
  if (!file.open(QIODevice::WriteOnly) || file.write(texto) != texto.size() || !file.commit()) {
    return Outcome::Stop(file.errorString() + QStringLiteral(": ") + path);
  }
  return Outcome::Ok();
}

}  // namespace ventarix::edocs
