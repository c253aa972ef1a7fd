#include "catalogs/lineas.h"

#include "catalogs/guardado.h"
#include "core/database.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"

namespace ventarix::lineas {

using namespace Qt::StringLiterals;

namespace {

Outcome Revisar(const Session& session, const Linea& linea, const QString& letra) {
  if (Outcome permiso = mFunciones::TienePermiso(session, u"Lineas"_s, letra); !permiso) {
    return permiso;
  }
  if (linea.nombre.trimmed().isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de un nombre"_s, u"Nombre"_s);
  }
  return Outcome::Ok();
}

Outcome RevisarBaja(const Session& session, Connection& c, const Linea& linea, qint32 numero) {
  return catalogs::RevisarBaja(session, c, u"Lineas"_s, u"lineas"_s, u"numero"_s, numero,
                               linea.status);
}

QString Status(const Linea& linea) { return linea.status == u"BAJA"_s ? u"BAJA"_s : u"ALTA"_s; }

}  // namespace

Outcome LeerLinea(const Session& session, qint32 numero, Linea* linea) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  QSqlQuery q = c.Exec(u"select numero, nombre, status from lineas where numero = ?"_s, {numero});
  if (!q.next()) return Outcome::Stop(QueryError(q));
  linea->numero = q.value(0).toInt();
  linea->nombre = q.value(1).toString();
  linea->status = q.value(2).toString() == u"BAJA"_s ? u"BAJA"_s : u"ALTA"_s;
  return Outcome::Ok();
}

Outcome AltaLinea(const Session& session, const Linea& linea, qint32* numero) {
  if (Outcome revision = Revisar(session, linea, u"A"_s); !revision) return revision;
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  if (Outcome baja = RevisarBaja(session, c, linea, 0); !baja) return baja;
  qint32 nuevo = 0;
  QString error;
  const QVariantMap fila = {{u"nombre"_s, mFunciones::ValorTexto(linea.nombre)},
                            {u"status"_s, Status(linea)}};
  if (!mFunciones::InsertarConNumero(c, u"lineas"_s, u"numero"_s, fila, &nuevo, &error) ||
      !t.Commit()) {
    return catalogs::ErrorAlGuardar(c, error.isEmpty() ? t.error() : error);
  }
  *numero = nuevo;
  return Outcome::Ok();
}

Outcome CambioLinea(const Session& session, const Linea& linea) {
  if (Outcome revision = Revisar(session, linea, u"C"_s); !revision) return revision;
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  if (Outcome baja = RevisarBaja(session, c, linea, linea.numero); !baja) return baja;
  QString error;
  if (!c.Run(u"update lineas set nombre = ?, status = ? where numero = ?"_s,
             {mFunciones::ValorTexto(linea.nombre), Status(linea), linea.numero}, &error) ||
      !t.Commit()) {
    return catalogs::ErrorAlGuardar(c, error);
  }
  return Outcome::Ok();
}

}  // namespace ventarix::lineas
