#include "core/rol_consulta.h"

#include <QSqlQuery>

#include "core/dialect.h"
#include "core/schema.h"
#include "core/structure_catalog.h"

namespace ventarix::rol_consulta {

namespace {

using namespace Qt::StringLiterals;

// PostgreSQL cuts names at 63 bytes; the role's name is cut the same way before it is used.
QString Cortado(const QString& nombre) {
  QByteArray bytes = nombre.toUtf8();
  while (bytes.size() > 63) {
    bytes.chop(1);
    while (!bytes.isEmpty() && (static_cast<unsigned char>(bytes.back()) & 0xC0) == 0x80) {
      bytes.chop(1);
    }
    if (!bytes.isEmpty() && static_cast<unsigned char>(bytes.back()) >= 0xC0) bytes.chop(1);
  }
  return QString::fromUtf8(bytes);
}

bool TieneSecretos(const QString& tabla) {
  for (const schema::ColumnaSecreta& s : schema::ColumnasSecretas()) {
    if (tabla.compare(QString::fromUtf8(s.tabla), Qt::CaseInsensitive) == 0) return true;
  }
  return false;
}

// The grants of one table: the whole table, or its columns but the secret ones.
QStringList Permisos(Connection& c, const QString& tabla, const QString& rol) {
  const QString nombre = dialect::Name(tabla);
  if (!TieneSecretos(tabla)) return {};
  QStringList columnas;
  const std::optional<structure_catalog::Table> leida = structure_catalog::ReadTable(c, tabla);
  if (!leida) return {};
  for (const structure_catalog::Column& columna : leida->columns) {
    if (!schema::EsColumnaSecreta(tabla, columna.name)) columnas << dialect::Name(columna.name);
  }
  QStringList sentencias = {u"revoke select on "_s + nombre + u" from "_s + rol};
  if (!columnas.isEmpty()) {
    sentencias << u"grant select ("_s + columnas.join(u", ") + u") on "_s + nombre + u" to "_s +
                      rol;
  }
  return sentencias;
}

}  // namespace

QString Nombre(const QString& catalogo) { return Cortado(catalogo + QStringLiteral("_consulta")); }

bool Disponible(Connection& connection, const QString& catalogo) {
  return connection
             .Scalar(QStringLiteral("select count(*) from pg_roles r where r.rolname = ? "
                                    "and pg_has_role(current_user, r.oid, 'member')"),
                     {Nombre(catalogo)})
             .toInt() > 0;
}

void Asumir(Connection& connection, const QString& catalogo) {
  if (!Disponible(connection, catalogo)) return;
  QSqlQuery(connection.db()).exec(QStringLiteral("set role ") + dialect::Name(Nombre(catalogo)));
}

Outcome Preparar(Connection& connection) {
  if (!connection.sql()) return Outcome::Ok();
  const QString catalogo =
      connection.Scalar(QStringLiteral("select current_database()")).toString();
  const QString rol = dialect::Name(Nombre(catalogo));
  Transaction transaccion(connection);
  if (!transaccion.ok()) return Outcome::Stop(transaccion.error());
  QStringList sentencias;
  const bool existe = connection
                          .Scalar(QStringLiteral("select count(*) from pg_roles where rolname = ?"),
                                  {Nombre(catalogo)})
                          .toInt() > 0;
  if (!existe || !Disponible(connection, catalogo)) {
    // Asked first, so that a refusal does not spoil the transaction of a caller.
    const bool puede = connection
                           .Scalar(QStringLiteral("select rolsuper or rolcreaterole from pg_roles "
                                                  "where rolname = current_user"))
                           .toBool();
    if (!puede) {
      return Outcome::Stop(QStringLiteral("No se pudo preparar el rol de consulta ") +
                           Nombre(catalogo) +
                           QStringLiteral(": el usuario de la empresa necesita CREATEROLE"));
    }
    if (!existe) sentencias << u"create role "_s + rol + u" nologin"_s;
    sentencias << u"grant "_s + rol + u" to current_user"_s;
  }
  const QString esquema =
      dialect::Name(connection.Scalar(QStringLiteral("select current_schema()")).toString());
  sentencias << u"grant usage on schema "_s + esquema + u" to "_s + rol;
  sentencias << u"grant select on all tables in schema "_s + esquema + u" to "_s + rol;
  // Tables made later (a repair, a table of the shop's own) can be read as well.
  sentencias << u"alter default privileges in schema "_s + esquema +
                    u" grant select on tables to "_s + rol;
  for (const QString& tabla : structure_catalog::Tables(connection)) {
    sentencias << Permisos(connection, tabla, rol);
  }
  for (const QString& sentencia : sentencias) {
    QString error;
    if (!connection.Run(sentencia, {}, &error)) {
      return Outcome::Stop(QStringLiteral("No se pudo preparar el rol de consulta ") +
                           Nombre(catalogo) + QStringLiteral(": ") + error);
    }
  }
  if (!transaccion.Commit()) return Outcome::Stop(transaccion.error());
  return Outcome::Ok();
}

}  // namespace ventarix::rol_consulta
