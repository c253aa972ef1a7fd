#include "purchasing/partidas_orden.h"

#include <QSqlQuery>

namespace ventarix::compras {

using namespace Qt::StringLiterals;

std::vector<QVariantMap> PartidasDeOrden(Connection& c, const QString& orden) {
  std::vector<QVariantMap> partidas;
  QSqlQuery q = c.Exec(
      u"select codigo, descripcion, unidad, precio, dcto, impuesto, surtir "
      u"from \"ordenes de compra detalles\" where orden = ? and surtir > 0 order by item"_s,
      {orden});
  while (q.next()) {
    partidas.push_back({{u"codigo"_s, q.value(0)},
                        {u"descripcion"_s, q.value(1)},
                        {u"unidad"_s, q.value(2)},
                        {u"precio"_s, q.value(3)},
                        {u"dcto"_s, q.value(4)},
                        {u"impuesto"_s, q.value(5)},
                        {u"cantidad"_s, q.value(6)},
                        {u"orden"_s, orden}});
  }
  return partidas;
}

}  // namespace ventarix::compras
