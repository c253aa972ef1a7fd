// Closing a production order (FrmProduccionT): the finished product comes into warehouse 1.
#include <QSqlQuery>

#include "core/dialect.h"
#include "core/mFunciones_valores.h"
#include "documents/mInventario.h"
#include "inventory/familias_inventario.h"

namespace ventarix::inventario {

using namespace Qt::StringLiterals;

std::optional<QDate> TerminoDe(const Session& session, const QString& produccion) {
  Connection c(session.Cadena, Connection::Acceso::kLectura);
  const QDateTime termino = dialect::ReadDate(
      c.Scalar(u"select termino from produccion where produccion = ?"_s, {produccion}));
  if (!termino.isValid()) return std::nullopt;
  return termino.date();
}

Outcome CerrarProduccion(const Session& session, Connection& c, const QString& produccion,
                         const std::optional<QDate>& termino, const QString& operador) {
  if (Outcome o = mFunciones::TienePermiso(session, u"Produccion"_s, u"C"_s); !o) return o;
  QSqlQuery q = c.Exec(u"select termino from produccion where produccion = ?"_s, {produccion});
  if (!q.next()) return Outcome::Stop(u"No existe el documento "_s + produccion);
  // The stored date, not the status, tells whether the product is already in.
  const bool cerrada = !q.value(0).isNull();
  QString error;
  if (termino) {
    if (!cerrada && !mInventario::ActualizarExistenciasProduccion(c, produccion, +1, &error)) {
      return Outcome::Stop(error);
    }
    if (!c.Run(u"update produccion set status = 'CERRADA', termino = ?, operadortermina = ?,"
               u" \"motivo de baja\" = '' where produccion = ?"_s,
               {dialect::DateValue(*termino, c.sql()), operador, produccion}, &error)) {
      return Outcome::Stop(error);
    }
    return Outcome::Ok();
  }
  if (cerrada && !mInventario::ActualizarExistenciasProduccion(c, produccion, -1, &error)) {
    return Outcome::Stop(error);
  }
  if (!c.Run(u"update produccion set status = 'EN PROCESO', termino = null where produccion = ?"_s,
             {produccion}, &error)) {
    return Outcome::Stop(error);
  }
  return Outcome::Ok();
}

Outcome CerrarProduccion(const Session& session, const QString& produccion,
                         const std::optional<QDate>& termino, const QString& operador) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  if (Outcome o = CerrarProduccion(session, c, produccion, termino, operador); !o) return o;
  if (!t.Commit()) return Outcome::Stop(t.error());
  return Outcome::Ok();
}

}  // namespace ventarix::inventario
