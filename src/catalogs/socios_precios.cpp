#include "catalogs/socios_precios.h"

#include <QSqlError>
#include <QSqlQuery>

#include "core/mFunciones.h"
#include "core/round_half_even.h"

namespace ventarix::socios {

using namespace Qt::StringLiterals;

namespace {

Outcome LeerMarcas(Connection& c, qint32 cliente, std::vector<UtilidadMarca>* marcas) {
  QSqlQuery query = c.Exec(
      u"select m.numero, m.nombre, m.utilidad1, m.utilidad2, m.utilidad3, m.utilidad4, "
      "m.utilidad5, (select u.utilidad from \"clientes utilidades\" u "
      "where u.cliente = ? and u.marca = m.numero limit 1), "
      "(select u.dcto from \"clientes utilidades\" u "
      "where u.cliente = ? and u.marca = m.numero limit 1) "
      "from marcas m order by m.numero"_s,
      {cliente, cliente});
  if (query.lastError().isValid()) return Outcome::Stop(QueryError(query));
  while (query.next()) {
    UtilidadMarca marca;
    marca.marca = query.value(0).toInt();
    marca.nombre = query.value(1).toString();
    for (int i = 0; i < 5; ++i) marca.utilidades[i] = query.value(2 + i).toDouble();
    marca.nivel = query.value(7).toInt();
    marca.dcto = query.value(8).toDouble();
    marcas->push_back(marca);
  }
  return Outcome::Ok();
}

Outcome LeerProductos(Connection& c, qint32 cliente, std::vector<PrecioProducto>* productos) {
  QSqlQuery query = c.Exec(
      u"select p.codigo, o.producto, p.precio from \"productos precios\" p, productos o "
      "where p.codigo = o.codigo and p.cliente = ? order by o.marca, o.codigo"_s,
      {cliente});
  if (query.lastError().isValid()) return Outcome::Stop(QueryError(query));
  while (query.next()) {
    productos->push_back(
        {query.value(0).toString(), query.value(1).toString(), query.value(2).toDouble()});
  }
  return Outcome::Ok();
}

// Refusals come before any statement, so that a wrong grid leaves both tables as they were.
Outcome RevisarPrecios(Connection& c, const PreciosCliente& precios) {
  for (const UtilidadMarca& marca : precios.marcas) {
    if (marca.nivel < 0 || marca.nivel > 5) {
      return Outcome::Warning(
          u"Se requiere un nivel de precio de 1 a 5 para la marca "_s + marca.nombre, u"Marcas"_s);
    }
  }
  for (const PrecioProducto& producto : precios.productos) {
    if (producto.codigo.isEmpty()) continue;
    const QVariant existe =
        c.Scalar(u"select count(*) from productos where codigo = ?"_s, {producto.codigo});
    if (existe.toInt() == 0) {
      return Outcome::Warning(u"Este código no existe en productos: "_s + producto.codigo,
                              u"Productos"_s);
    }
  }
  return Outcome::Ok();
}

}  // namespace

Outcome LeerPreciosCliente(const Session& session, qint32 cliente, PreciosCliente* precios) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  precios->marcas.clear();
  precios->productos.clear();
  const Outcome marcas = LeerMarcas(c, cliente, &precios->marcas);
  if (!marcas) return marcas;
  return LeerProductos(c, cliente, &precios->productos);
}

bool BuscarProducto(const Session& session, const QString& codigo, PrecioProducto* producto) {
  Connection c(session.Cadena);
  if (!c.ok() || codigo.isEmpty()) return false;
  const mFunciones::SqlText sql = mFunciones::SqlProducto(codigo);
  QSqlQuery query = c.Exec(sql.text, sql.values);
  if (!query.next()) return false;
  producto->codigo = query.value(u"codigo"_s).toString();
  producto->producto = query.value(u"producto"_s).toString();
  return true;
}

Outcome EscribirPreciosCliente(Connection& c, qint32 cliente, const PreciosCliente& precios) {
  const Outcome revision = RevisarPrecios(c, precios);
  if (!revision) return revision;
  QString error;
  if (!c.Run(u"delete from \"clientes utilidades\" where cliente = ?"_s, {cliente}, &error)) {
    return Outcome::Stop(error);
  }
  for (const UtilidadMarca& marca : precios.marcas) {
    if (marca.nivel < 1) continue;
    if (!c.Run(u"insert into \"clientes utilidades\" (cliente, marca, utilidad, dcto) "
               "values (?, ?, ?, ?)"_s,
               {cliente, marca.marca, marca.nivel, RoundHalfEven(marca.dcto, 2)}, &error)) {
      return Outcome::Stop(error);
    }
  }
  if (!c.Run(u"delete from \"productos precios\" where cliente = ?"_s, {cliente}, &error)) {
    return Outcome::Stop(error);
  }
  int item = 0;
  for (const PrecioProducto& producto : precios.productos) {
    if (producto.codigo.isEmpty()) continue;
    if (!c.Run(u"insert into \"productos precios\" (cliente, codigo, precio, item) "
               "values (?, ?, ?, ?)"_s,
               {cliente, producto.codigo, RoundHalfEven(producto.precio, 4), ++item}, &error)) {
      return Outcome::Stop(error);
    }
  }
  return Outcome::Ok();
}

}  // namespace ventarix::socios
