#include "catalogs/guardado.h"

#include <QSqlQuery>

#include "core/dialect.h"
#include "core/mFunciones_valores.h"

namespace ventarix::catalogs {

using namespace Qt::StringLiterals;

Outcome RevisarBaja(const Session& session, Connection& c, const QString& derechos,
                    const QString& tabla, const QString& llave, const QVariant& valor,
                    const QString& status) {
  const QString baja = u"BAJA"_s;
  if (status != baja) return Outcome::Ok();
  QSqlQuery q = c.Exec(u"select status from "_s + dialect::Name(tabla) + u" where "_s +
                           dialect::Name(llave) + u" = ?"_s,
                       {valor});
  if (!q.isActive()) return Outcome::Stop(QueryError(q));
  if (q.next() && q.value(0).toString() == baja) return Outcome::Ok();
  return mFunciones::TienePermiso(session, derechos, u"B"_s);
}

}  // namespace ventarix::catalogs
