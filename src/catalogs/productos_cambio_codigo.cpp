#include "catalogs/productos_cambio_codigo.h"

#include <QSqlError>

#include "catalogs/guardado.h"
#include "catalogs/productos_codigos.h"
#include "core/database.h"
#include "core/mFunciones_valores.h"

namespace ventarix::productos {

using namespace Qt::StringLiterals;

Outcome AnotarCambioDeCodigo(const Session& session, const QString& actual, const QString& nuevo) {
  if (Outcome permiso = mFunciones::TienePermiso(session, u"Productos"_s, u"C"_s); !permiso) {
    return permiso;
  }
  const QString viejo = mFunciones::ValorTexto(actual);
  const QString otro = mFunciones::ValorTexto(nuevo);
  if (viejo.isEmpty()) {
    return Outcome::Warning(u"Se requiere la entrada de un código"_s, u"Actual"_s);
  }
  if (otro.isEmpty()) return Outcome::Warning(u"Se requiere la entrada de un código"_s, u"Nuevo"_s);
  if (Outcome reservado = RevisarCodigoReservado(otro, u"Nuevo"_s); !reservado) return reservado;
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  if (ExisteCodigo(c, otro)) {
    return Outcome::Warning(u"Este código a cambiar ya existe en el catálogo de productos"_s,
                            u"Nuevo"_s);
  }
  if (!ExisteCodigo(c, viejo)) {
    return Outcome::Warning(u"Este código a cambiar no existe en el catálogo de productos"_s,
                            u"Actual"_s);
  }
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  QSqlQuery q =
      c.Exec(u"update empresa set \"codigo nuevo\" = ?, \"codigo actual\" = ?"_s, {otro, viejo});
  if (q.lastError().isValid()) return catalogs::ErrorAlGuardar(c, QueryError(q));
  // A company whose settings were never saved has no row yet: the change still needs a
  // place to wait in.
  QString error;
  if (q.numRowsAffected() == 0 &&
      !c.Run(
          u"insert into empresa (numero, \"codigo nuevo\", \"codigo actual\") values (1, ?, ?)"_s,
          {otro, viejo}, &error)) {
    return catalogs::ErrorAlGuardar(c, error);
  }
  if (!t.Commit()) return catalogs::ErrorAlGuardar(c, {});
  return Outcome::Ok();
}

}  // namespace ventarix::productos
