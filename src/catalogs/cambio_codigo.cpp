#include "catalogs/cambio_codigo.h"

#include <QSqlError>
#include <QSqlQuery>

#include "core/dialect.h"

namespace ventarix::cambio_codigo {

using namespace Qt::StringLiterals;

namespace {

// Runs an update and counts the rows it changed; nothing when it failed.
std::optional<int> Actualizar(Connection& c, const QString& sentencia, const QVariantList& valores,
                              QString* error) {
  QSqlQuery query = c.Exec(sentencia, valores);
  if (query.lastError().isValid()) {
    *error = QueryError(query);
    return std::nullopt;
  }
  return query.numRowsAffected();
}

// The catalogue row is renamed only while the new code is free: after an interruption it may
// already carry it.
std::optional<int> CambiarProducto(Connection& c, const Cambio& cambio, QString* error) {
  QSqlQuery existe = c.Exec(u"select count(*) from productos where codigo = ?"_s, {cambio.nuevo});
  if (existe.lastError().isValid() || !existe.next()) {
    *error = QueryError(existe);
    return std::nullopt;
  }
  if (existe.value(0).toLongLong() > 0) return 0;
  return Actualizar(c, u"update productos set codigo = ? where codigo = ?"_s,
                    {cambio.nuevo, cambio.actual}, error);
}

// One table in one save, so that a table done stays done whatever happens to the next one.
std::optional<int> CambiarTabla(const Session& session, const QString& tabla, const Cambio& cambio,
                                QString* error) {
  Connection c(session.Cadena);
  if (!c.ok()) {
    *error = c.error();
    return std::nullopt;
  }
  Transaction transaccion(c);
  if (!transaccion.ok()) {
    *error = c.db().lastError().text();
    return std::nullopt;
  }
  std::optional<int> filas;
  if (tabla == u"productos") {
    filas = CambiarProducto(c, cambio, error);
  } else {
    const QString nombre = dialect::Name(tabla);
    filas = Actualizar(c, u"update "_s + nombre + u" set codigo = ? where codigo = ?"_s,
                       {cambio.nuevo, cambio.actual}, error);
    // A material is named by its code in equivale.
    if (filas && tabla == u"productos consumos") {
      const std::optional<int> materiales =
          Actualizar(c, u"update "_s + nombre + u" set equivale = ? where equivale = ?"_s,
                     {cambio.nuevo, cambio.actual}, error);
      filas = materiales ? std::optional<int>(*filas + *materiales) : std::nullopt;
    }
  }
  if (!filas) return std::nullopt;
  if (!transaccion.Commit()) {
    *error = c.db().lastError().text();
    return std::nullopt;
  }
  return filas;
}

bool Vaciar(const Session& session, QString* error) {
  Connection c(session.Cadena);
  if (!c.ok()) {
    *error = c.error();
    return false;
  }
  Transaction transaccion(c);
  if (!transaccion.ok()) {
    *error = c.db().lastError().text();
    return false;
  }
  if (c.Run(u"update empresa set \"codigo actual\" = '', \"codigo nuevo\" = '' "
            "where numero = 1"_s,
            {}, error) &&
      transaccion.Commit()) {
    return true;
  }
  if (error->isEmpty()) *error = c.db().lastError().text();
  return false;
}

}  // namespace

const QStringList& Tablas() {
  static const QStringList kTablas = {u"ordenes de compra detalles"_s,
                                      u"compras detalles"_s,
                                      u"cotizaciones detalles"_s,
                                      u"pedidos detalles"_s,
                                      u"remisiones detalles"_s,
                                      u"facturas detalles"_s,
                                      u"produccion detalles"_s,
                                      u"traspasos detalles"_s,
                                      u"notas cliente detalles"_s,
                                      u"notas proveedor detalles"_s,
                                      u"ajustes de inventario detalles"_s,
                                      u"productos consumos"_s,
                                      u"productos"_s};
  return kTablas;
}

std::optional<Cambio> Pendiente(Connection& c, QString* error) {
  QSqlQuery query = c.Exec(
      u"select coalesce(\"codigo actual\", ''), coalesce(\"codigo nuevo\", '') from empresa "
      "where numero = 1"_s);
  if (query.lastError().isValid()) {
    *error = QueryError(query);
    return std::nullopt;
  }
  if (!query.next()) return std::nullopt;
  Cambio cambio{query.value(0).toString(), query.value(1).toString()};
  if (cambio.actual.isEmpty() || cambio.nuevo.isEmpty()) return std::nullopt;
  return cambio;
}

Outcome Cambiar(Session& session, const Avance& avance) {
  QString error;
  std::optional<Cambio> cambio;
  {
    Connection c(session.Cadena);
    if (!c.ok()) return Outcome::Stop(c.error());
    cambio = Pendiente(c, &error);
  }
  if (!error.isEmpty()) return Outcome::Stop(error);
  session.CambioDeCodigoPendiente = cambio.has_value();
  if (!cambio) return Outcome::Ok();
  if (avance.cambio) avance.cambio(*cambio);

  const QStringList& tablas = Tablas();
  for (int i = 0; i < tablas.size(); ++i) {
    const QString& tabla = tablas.at(i);
    if (avance.tabla) avance.tabla(tabla, i + 1, static_cast<int>(tablas.size()));
    const std::optional<int> filas = CambiarTabla(session, tabla, *cambio, &error);
    if (!filas) return Outcome::Stop(error);
    if (avance.hecho) avance.hecho(tabla, *filas);
    if (avance.detener && avance.detener()) return Outcome::Ok();
  }
  if (!Vaciar(session, &error)) return Outcome::Stop(error);
  session.CambioDeCodigoPendiente = false;
  session.empresa.Set(u"codigo actual"_s, QString());
  session.empresa.Set(u"codigo nuevo"_s, QString());
  return Outcome::Ok();
}

}  // namespace ventarix::cambio_codigo
