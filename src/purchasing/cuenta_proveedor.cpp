#include "purchasing/cuenta_proveedor.h"

#include <QSqlQuery>

#include "core/dialect.h"

namespace ventarix::compras {

using namespace Qt::StringLiterals;

std::vector<MovimientoDeCuenta> CuentaDeProveedor(Connection& c, qint32 proveedor) {
  // Each purchase sorts first among its own lines (orden 0), its payments and notes by date.
  QSqlQuery q = c.Exec(
      u"select compra, fecha as dia, 0 as orden, 'COMPRA' as movimiento, "
      u"case when factura <> '' then factura else remision end as documento, fecha, "
      u"total as cargo, 0 as abono from compras "
      u"where proveedor = ? and status <> 'BAJA' "
      u"union all select d.compra, o.fecha, 1, 'CxP', p.pago, p.fecha, 0, d.abono "
      u"from cxp p, \"cxp detalles\" d, compras o where p.pago = d.pago and d.compra = o.compra "
      u"and o.proveedor = ? and o.status <> 'BAJA' and p.status <> 'BAJA' "
      u"union all select d.compra, o.fecha, 1, 'NC PROVEEDOR', n.nota, n.fecha, 0, sum(d.total) "
      u"from \"notas proveedor\" n, \"notas proveedor detalles\" d, compras o "
      u"where n.nota = d.nota and d.compra = o.compra and o.proveedor = ? "
      u"and o.status <> 'BAJA' and n.status <> 'BAJA' group by d.compra, o.fecha, n.nota, n.fecha "
      u"order by 2, 1, 3, 6"_s,
      {proveedor, proveedor, proveedor});
  std::vector<MovimientoDeCuenta> cuenta;
  double saldo = 0;
  while (q.next()) {
    MovimientoDeCuenta m{.compra = q.value(0).toString(),
                         .movimiento = q.value(3).toString(),
                         .documento = q.value(4).toString(),
                         .fecha = dialect::ReadDate(q.value(5)),
                         .cargo = q.value(6).toDouble(),
                         .abono = q.value(7).toDouble()};
    saldo += m.cargo - m.abono;
    m.saldo = saldo;
    cuenta.push_back(m);
  }
  return cuenta;
}

}  // namespace ventarix::compras
