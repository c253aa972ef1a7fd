#include <QSqlError>

#include "catalogs/productos.h"
#include "catalogs/productos_listas.h"
#include "core/database.h"
#include "core/dialect.h"
#include "core/registro_leido.h"

namespace ventarix::productos {

using namespace Qt::StringLiterals;

namespace {

QString Columna(const char* nombre, int k) {
  return QString::fromLatin1(nombre) + QString::number(k);
}

Producto DeRegistro(const RowValues& r) {
  Producto p;
  p.codigo = r.Text(u"codigo"_s);
  p.producto = r.Text(u"producto"_s);
  p.unidad = r.Text(u"unidad"_s);
  p.marca = r.Integer(u"marca"_s);
  p.linea = r.Integer(u"linea"_s);
  p.ubicacion = r.Text(u"ubicacion"_s);
  p.precio = r.Number(u"precio"_s);
  p.impuesto = r.Number(u"impuesto"_s);
  p.costo = r.Number(u"costo"_s);
  p.venta = r.Number(u"venta"_s);
  p.comision = r.Number(u"comision"_s);
  p.descuento = r.Number(u"descuento"_s);
  p.min = r.Number(u"min"_s);
  p.max = r.Number(u"max"_s);
  p.zona = r.Text(u"zona"_s);
  p.descripcion = r.Text(u"descripcion"_s);
  p.codigo1 = r.Text(u"codigo1"_s);
  p.codigo2 = r.Text(u"codigo2"_s);
  p.codigo3 = r.Text(u"codigo3"_s);
  for (int k = 0; k < catalogs::kNiveles; ++k) {
    p.utilidades[k] = r.Number(Columna("utilidad", k + 1));
    p.precios[k] = r.Number(Columna("precio", k + 1));
  }
  p.moneda = r.Text(u"moneda"_s).isEmpty() ? u"MXN"_s : r.Text(u"moneda"_s);
  p.pt = r.Flag(u"pt"_s);
  p.status = r.Text(u"status"_s) == u"BAJA"_s ? u"BAJA"_s : u"ALTA"_s;
  return p;
}

Historial HistorialDe(const RowValues& r) {
  Historial h;
  h.ultimo_costo = r.Number(u"ultimo costo"_s);
  h.ultima_venta = r.Number(u"ultima venta"_s);
  h.fecha_ultima_compra = dialect::ReadDate(r.Value(u"fecha ultima compra"_s));
  h.fecha_ultima_venta = dialect::ReadDate(r.Value(u"fecha ultima venta"_s));
  for (int k = 0; k < kAlmacenes; ++k) h.almacenes[k] = r.Number(Columna("almacen", k + 1));
  return h;
}

}  // namespace

Outcome LeerProducto(const Session& session, const QString& codigo, Leido* leido) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  QSqlQuery q = c.Exec(u"select * from productos where codigo = ?"_s, {codigo});
  if (!q.next()) {
    return Outcome::Stop(q.lastError().isValid()
                             ? QueryError(q)
                             : u"Este código no existe en el catálogo de productos"_s);
  }
  const RowValues registro = RegistroLeido(q);
  leido->producto = DeRegistro(registro);
  leido->historial = HistorialDe(registro);
  LeerPreciosClientes(c, codigo, &leido->producto.precios_clientes, &leido->nombres_clientes);
  LeerConsumos(c, codigo, &leido->producto.consumos, &leido->nombres_consumos);
  return Outcome::Ok();
}

}  // namespace ventarix::productos
