// The serie of a new document: the session's default for most families, the folio range's for
// invoices and credit notes.
#include <QSqlQuery>

#include "core/dialect.h"
#include "core/mFunciones.h"
#include "documents/captura.h"
#include "documents/captura_filas.h"

namespace ventarix::captura {

using namespace Qt::StringLiterals;

// The range named by the document, or the one in force; a user limited to some series finds
// no other range.
SerieDelDocumento SerieDe(const Session& session, Connection& c, const FamiliaCaptura& f,
                          const Documento& d) {
  if (!f.rango.tabla) {
    const QString serie = (session.*f.serie).trimmed().toUpper();
    return {.serie = serie.isEmpty() ? u"A"_s : serie};
  }
  qint32 rango = static_cast<qint32>(Numero(d.encabezado, f.rango.columna));
  if (rango <= 0) rango = session.*f.rango.predeterminado;
  QVariantList valores{rango};
  const QString limite =
      f.rango.series_del_usuario ? mFunciones::SerieEnLista(session, valores) : QString();
  QSqlQuery q =
      c.Exec(u"select serie, esquema from "_s + dialect::Name(QString::fromUtf8(f.rango.tabla)) +
                 u" where status = 'ALTA' and numero = ?"_s + limite,
             valores);
  if (!q.next()) return {.rango = rango};
  return {.serie = q.value(0).toString().trimmed().toUpper(),
          .esquema = q.value(1).toString().trimmed().toUpper(),
          .rango = rango};
}

}  // namespace ventarix::captura
