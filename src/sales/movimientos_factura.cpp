#include "sales/movimientos_factura.h"

#include <QDir>
#include <QSqlQuery>

#include "core/dialect.h"

namespace ventarix::ventas {

using namespace Qt::StringLiterals;

std::vector<MovimientoDeFactura> MovimientosDeFactura(Connection& c, const QString& factura) {
  QSqlQuery q = c.Exec(
      u"select 'CxC' as movimiento, c.pago, c.fecha, d.abono, c.status from cxc c, "
      "\"cxc detalles\" d where c.pago = d.pago and d.factura = ? union all "
      "select 'NC CLIENTE' as movimiento, n.nota as pago, n.fecha, n.total as abono, n.status "
      "from \"notas cliente\" n where n.nota in "
      "(select nota from \"notas cliente detalles\" where factura = ?) order by 3"_s,
      {factura, factura});
  std::vector<MovimientoDeFactura> movimientos;
  while (q.next()) {
    movimientos.push_back({.movimiento = q.value(0).toString(),
                           .pago = q.value(1).toString(),
                           .fecha = dialect::ReadDate(q.value(2)),
                           .abono = q.value(3).toDouble(),
                           .status = q.value(4).toString()});
  }
  return movimientos;
}

QString ArchivoXml(const Session& session, const QString& llave) {
  return QDir(session.CarpetaXml).filePath(llave + u".xml"_s);
}

}  // namespace ventarix::ventas
