#include "catalogs/productos_listas.h"

#include "core/mFunciones_valores.h"

namespace ventarix::productos {

using namespace Qt::StringLiterals;

bool EscribirPreciosClientes(Connection& c, const QString& codigo,
                             const std::vector<PrecioCliente>& filas, QString* error) {
  if (!c.Run(u"delete from \"productos precios\" where codigo = ?"_s, {codigo}, error)) {
    return false;
  }
  int item = 0;
  for (const PrecioCliente& fila : filas) {
    if (fila.cliente <= 0) continue;
    if (!c.Run(u"insert into \"productos precios\" (codigo, cliente, precio, item) "
               u"values (?, ?, ?, ?)"_s,
               {codigo, fila.cliente, fila.precio, ++item}, error)) {
      return false;
    }
  }
  return true;
}

bool EscribirConsumos(Connection& c, const QString& codigo, const std::vector<Consumo>& filas,
                      QString* error) {
  if (!c.Run(u"delete from \"productos consumos\" where codigo = ?"_s, {codigo}, error)) {
    return false;
  }
  int item = 0;
  for (const Consumo& fila : filas) {
    const QString equivale = mFunciones::ValorTexto(fila.equivale);
    if (equivale.isEmpty()) continue;
    if (!c.Run(u"insert into \"productos consumos\" (codigo, equivale, cantidad, item) "
               u"values (?, ?, ?, ?)"_s,
               {codigo, equivale, fila.cantidad, ++item}, error)) {
      return false;
    }
  }
  return true;
}

void LeerPreciosClientes(Connection& c, const QString& codigo, std::vector<PrecioCliente>* filas,
                         std::vector<QString>* nombres) {
  QSqlQuery q = c.Exec(
      u"select e.cliente, e.precio, l.nombre from \"productos precios\" e "
      u"left join clientes l on l.numero = e.cliente where e.codigo = ? order by e.item"_s,
      {codigo});
  while (q.next()) {
    filas->push_back({q.value(0).toInt(), q.value(1).toDouble()});
    nombres->push_back(q.value(2).toString());
  }
}

void LeerConsumos(Connection& c, const QString& codigo, std::vector<Consumo>* filas,
                  std::vector<QString>* nombres) {
  QSqlQuery q = c.Exec(
      u"select e.equivale, e.cantidad, p.producto from \"productos consumos\" e "
      u"left join productos p on p.codigo = e.equivale where e.codigo = ? order by e.item"_s,
      {codigo});
  while (q.next()) {
    filas->push_back({q.value(0).toString(), q.value(1).toDouble()});
    nombres->push_back(q.value(2).toString());
  }
}

}  // namespace ventarix::productos
