#include "documents/rango_en_uso.h"

#include <QSqlQuery>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones.h"

namespace ventarix::captura {

using namespace Qt::StringLiterals;

RangoEnUso LeerRangoEnUso(const Session& session, const QString& tabla, qint32 numero,
                          bool series_del_usuario) {
  RangoEnUso rango;
  rango.numero = numero;
  Connection c(session.Cadena, Connection::Acceso::kLectura);
  if (!c.ok()) return rango;
  QVariantList valores{numero};
  QString sentencia = u"select serie, esquema, folioinicial, foliofinal from "_s +
                      dialect::Name(tabla) + u" where status = 'ALTA' and numero = ?"_s;
  if (series_del_usuario) sentencia += mFunciones::SerieEnLista(session, valores);
  QSqlQuery q = c.Exec(sentencia, valores);
  if (!q.next()) return rango;
  rango.serie = q.value(0).toString().trimmed().toUpper();
  rango.esquema = q.value(1).toString().trimmed().toUpper();
  rango.folio_inicial = q.value(2).toInt();
  rango.folio_final = q.value(3).toInt();
  return rango;
}

}  // namespace ventarix::captura
