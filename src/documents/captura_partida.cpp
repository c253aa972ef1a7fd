// A typed code turned into a row, as the capture screens show it before anything is saved.
#include "documents/captura_partida.h"

#include <QSqlQuery>

#include "core/mFunciones.h"
#include "documents/captura_filas.h"

namespace ventarix::captura {

using namespace Qt::StringLiterals;

PartidaHallada BuscarPartida(const Session& session, const FamiliaCaptura& familia,
                             const Documento& documento, const QString& codigo, double cantidad) {
  PartidaHallada hallada;
  Connection c(session.Cadena);
  if (!c.ok()) {
    hallada.outcome = Outcome::Stop(c.error());
    return hallada;
  }
  const mFunciones::SqlText sql = mFunciones::SqlProducto(codigo.trimmed().toUpper());
  QSqlQuery q = c.Exec(sql.text, sql.values);
  if (!q.next()) return hallada;
  hallada.existe = true;
  // The catalogue's own code, whichever of the four was typed.
  QVariantMap& p = hallada.partida;
  p.insert(u"codigo"_s, q.value(u"codigo"_s).toString());
  p.insert(u"cantidad"_s, cantidad);
  q.finish();
  if (familia.completar) hallada.outcome = familia.completar(session, c, documento, &p);
  const int almacen = qBound(1, session.Tienda, 5);
  p.insert(u"existencia"_s,
           c.Scalar(u"select almacen%1 from productos where codigo = ?"_s.arg(almacen),
                    {Texto(p, "codigo")})
               .toDouble());
  return hallada;
}

void PonerExistencias(const Session& session, int almacen, std::vector<QVariantMap>& partidas,
                      bool deshecha) {
  Connection c(session.Cadena);
  if (!c.ok()) return;
  const QString sentencia =
      u"select almacen%1 from productos where codigo = ?"_s.arg(qBound(1, almacen, 5));
  for (QVariantMap& p : partidas) {
    if (!TieneCodigo(p)) continue;
    const double existencia = c.Scalar(sentencia, {Texto(p, "codigo")}).toDouble();
    p.insert(u"existencia"_s, existencia + (deshecha ? Numero(p, "cantidad") : 0));
  }
}

}  // namespace ventarix::captura
