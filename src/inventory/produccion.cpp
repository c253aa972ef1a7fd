// Production orders: a quantity of a finished product made in warehouse 1 out of the
// components its bill of materials names. The start takes the components out.
#include <QSqlQuery>

#include "core/round_half_even.h"
#include "inventory/familias_inventario.h"
#include "inventory/partidas_inventario.h"

namespace ventarix::inventario {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;

bool TienePartidas(const Documento& d) {
  for (const QVariantMap& p : d.partidas) {
    if (!Texto(p, "codigo").isEmpty()) return true;
  }
  return false;
}

// Choosing the finished product loads its components; a document that brings its own rows
// keeps them.
Outcome ProductoTerminado(const Session&, Connection& c, Documento* d) {
  // The database wants a client on every order: one for the store's own stock goes to the
  // first client, the counter's.
  if (Numero(d->encabezado, "cliente") <= 0) d->encabezado.insert(u"cliente"_s, 1);
  if (Texto(d->encabezado, "codigo").isEmpty()) return Outcome::Ok();
  RowValues producto;
  if (Outcome o = LeerProducto(c, Texto(d->encabezado, "codigo"), &producto); !o) {
    o.field = u"Datos1"_s;
    return o;
  }
  d->encabezado.insert(u"codigo"_s, producto.Text(u"codigo"_s));
  PonerSiFalta(&d->encabezado, "cantidad", 1);
  if (!TienePartidas(*d)) {
    d->partidas = Componentes(c, producto.Text(u"codigo"_s), Numero(d->encabezado, "cantidad"));
  }
  return Outcome::Ok();
}

// A row's consumption is also its quantity; its total the consumption at the component's cost.
Outcome CompletarConsumo(const Session&, Connection& c, const Documento&, QVariantMap* p) {
  RowValues producto;
  if (Outcome o = CompletarDescripcion(c, p, &producto); !o) return o;
  PonerSiFalta(p, "costo", producto.Number(u"costo"_s));
  if (Falta(*p, "consumo")) p->insert(u"consumo"_s, Numero(*p, "cantidad"));
  const double consumo = RoundHalfEven(Numero(*p, "consumo"), 8);
  p->insert(u"consumo"_s, consumo);
  p->insert(u"cantidad"_s, consumo);
  p->insert(u"total"_s, RoundHalfEven(consumo * Numero(*p, "costo"), 4));
  return Outcome::Ok();
}

Outcome CamposProduccion(const Session&, Connection&, const Documento& d, bool) {
  return ObservacionRequerida(d.encabezado, u"Obs"_s);
}

// The order's cost is what its components cost.
Outcome CostoDeLaOrden(const Session&, Connection& c, const Documento&, const QString& llave) {
  QString error;
  if (!c.Run(u"update produccion set costo = coalesce((select sum(d.total)"
             u" from \"produccion detalles\" d where d.produccion = ?), 0) where produccion = ?"_s,
             {llave, llave}, &error)) {
    return Outcome::Stop(error);
  }
  return Outcome::Ok();
}

// Production always works on warehouse 1: saving takes the components out.
Outcome MoverConsumos(const Session&, Connection& c, const QString& llave, int signo) {
  return MoverAlmacen(c, u"produccion"_s, u"produccion"_s, llave, 1, -signo);
}

}  // namespace

std::vector<QVariantMap> Componentes(Connection& c, const QString& producto, double cantidad) {
  std::vector<QVariantMap> filas;
  QSqlQuery q = c.Exec(
      u"select c.equivale, p.producto, p.unidad, p.costo, c.cantidad from productos p,"
      u" \"productos consumos\" c where p.codigo = c.equivale and c.codigo = ? order by c.item"_s,
      {producto});
  while (q.next()) {
    const double consumo = RoundHalfEven(q.value(4).toDouble() * cantidad, 8);
    filas.push_back({{u"codigo"_s, q.value(0).toString()},
                     {u"descripcion"_s, q.value(1).toString()},
                     {u"unidad"_s, q.value(2).toString()},
                     {u"costo"_s, q.value(3).toDouble()},
                     {u"por_unidad"_s, q.value(4).toDouble()},
                     {u"consumo"_s, consumo},
                     {u"total"_s, RoundHalfEven(consumo * q.value(3).toDouble(), 4)}});
  }
  return filas;
}

const captura::FamiliaCaptura& Produccion() {
  static const captura::FamiliaCaptura f{
      .tabla = "produccion",
      .llave = "produccion",
      .derechos = "Produccion",
      .actual = &Session::ProduccionActual,
      .serie = &Session::SerieProduccion,
      .status_inicial = "EN PROCESO",
      .socio = nullptr,
      .columnas = {u"cliente"_s, u"codigo"_s, u"cantidad"_s, u"operadorinicia"_s, u"obs"_s,
                   u"tipo"_s},
      .columnas_partida = {u"consumo"_s, u"costo"_s, u"total"_s},
      .mover = MoverConsumos,
      .revisar_campos = CamposProduccion,
      .completar_encabezado = ProductoTerminado,
      .completar = CompletarConsumo,
      .totalizar = CostoDeLaOrden,
  };
  return f;
}

}  // namespace ventarix::inventario
