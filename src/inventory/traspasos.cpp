// Transfers: stock moved from one warehouse of the company to another, as a priced document.
#include <cmath>

#include <QHash>
#include <QSqlQuery>

#include "core/session.h"
#include "documents/mSaldos.h"
#include "inventory/familias_inventario.h"
#include "inventory/partidas_inventario.h"

namespace ventarix::inventario {

namespace {

using namespace Qt::StringLiterals;
using captura::Documento;

int De(const Documento& d) { return Almacen(d.encabezado.value(u"de"_s)); }
int A(const Documento& d) { return Almacen(d.encabezado.value(u"a"_s)); }

// The lists hold "ALMACEN1" to "ALMACEN5"; the document keeps the numbers, as the stock
// rebuild reads them.
Outcome Almacenes(const Session&, Connection&, Documento* d) {
  for (const QString& columna : {u"de"_s, u"a"_s}) {
    const int numero = Almacen(d->encabezado.value(columna));
    if (numero > 0) d->encabezado.insert(columna, QString::number(numero));
  }
  return Outcome::Ok();
}

// A row takes the product's description, unit, price, tax, cost and commission, and the
// document's two warehouses.
Outcome CompletarTraspaso(const Session&, Connection& c, const Documento& d, QVariantMap* p) {
  RowValues producto;
  if (Outcome o = CompletarDescripcion(c, p, &producto); !o) return o;
  PonerSiFalta(p, "cantidad", 1);
  PonerSiFalta(p, "precio", producto.Number(u"venta"_s));
  PonerSiFalta(p, "dcto", 0);
  PonerSiFalta(p, "impuesto", producto.Number(u"impuesto"_s));
  PonerSiFalta(p, "costo", producto.Number(u"costo"_s));
  PonerSiFalta(p, "com", producto.Number(u"comision"_s));
  // What the grid shows beside the row: the stock of every warehouse.
  for (int n = 1; n <= 5; ++n)
    p->insert(u"almacen%1"_s.arg(n), producto.Number(u"almacen%1"_s.arg(n)));
  p->insert(u"de"_s, d.encabezado.value(u"de"_s));
  p->insert(u"a"_s, d.encabezado.value(u"a"_s));
  return Outcome::Ok();
}

Outcome CamposTraspaso(const Session&, Connection&, const Documento& d, bool alta) {
  if (De(d) == 0)
    return Outcome::Warning(u"Almacén no válido: "_s + Texto(d.encabezado, "de"), u"Combo0"_s);
  if (A(d) == 0)
    return Outcome::Warning(u"Almacén no válido: "_s + Texto(d.encabezado, "a"), u"Combo1"_s);
  if (De(d) == A(d)) {
    return Outcome::Warning(u"El traspaso debe ser de diferente tipo"_s, u"Combo1"_s);
  }
  if (alta) return ObservacionRequerida(d.encabezado, u"Obs"_s);
  // The change screen has always spelt it so.
  if (Texto(d.encabezado, "obs").isEmpty()) {
    return Outcome::Warning(u"Se requiera la entrada de una observación"_s, u"Obs"_s);
  }
  return Outcome::Ok();
}

// What the stored transfer already took out of the source warehouse, by product: a change
// gives it back before its new rows are checked.
QHash<QString, double> YaTomado(Connection& c, const Documento& d) {
  QHash<QString, double> tomado;
  if (d.llave.isEmpty()) return tomado;
  QSqlQuery q = c.Exec(
      u"select codigo, sum(cantidad) from \"traspasos detalles\" where traspaso = ? and de = ?"
      u" group by codigo"_s,
      {d.llave, QString::number(De(d))});
  while (q.next()) tomado.insert(q.value(0).toString(), q.value(1).toDouble());
  return tomado;
}

// Each row against the stock of the source warehouse, the rows of one product together, as
// the screen tells it at the row that runs short.
Outcome HayExistencias(const Session& session, Connection& c, const Documento& d, bool) {
  if (session.empresa.Flag(u"guardar_sin_existencias"_s)) return Outcome::Ok();
  const int de = De(d);
  const QHash<QString, double> tomado = YaTomado(c, d);
  QHash<QString, double> pedido;
  for (size_t i = 0; i < d.partidas.size(); ++i) {
    const QString codigo = Texto(d.partidas[i], "codigo");
    if (codigo.isEmpty()) continue;
    pedido[codigo] += Numero(d.partidas[i], "cantidad");
    QSqlQuery& stock =
        c.ExecRepetida(u"select almacen%1 from productos where codigo = ?"_s.arg(de), {codigo});
    const double hay = (stock.next() ? stock.value(0).toDouble() : 0) + tomado.value(codigo);
    if (std::round((hay - pedido[codigo]) * 1e8) < 0) {
      return Outcome::Refuse(
          u"Existencias Insuficientes en almacén %1 !!!\n\nFila: %2\nCódigo: %3"_s.arg(de)
              .arg(i + 1)
              .arg(codigo),
          u"Fg1"_s);
    }
  }
  return Outcome::Ok();
}

Outcome TotalizarTraspaso(const Session&, Connection& c, const Documento&, const QString& llave) {
  return mSaldos::TotalizarTraspaso(c, llave);
}

// Both warehouses are read from the stored rows: a change has already rewritten the header
// when it undoes the old rows.
Outcome MoverTraspaso(const Session&, Connection& c, const QString& llave, int signo) {
  QSqlQuery q = c.Exec(
      u"select de, a from \"traspasos detalles\" where traspaso = ? and item = 1"_s, {llave});
  if (!q.next()) return Outcome::Ok();
  const int de = Almacen(q.value(0));
  const int a = Almacen(q.value(1));
  if (Outcome o = MoverAlmacen(c, u"traspasos"_s, u"traspaso"_s, llave, de, -signo); !o) return o;
  return MoverAlmacen(c, u"traspasos"_s, u"traspaso"_s, llave, a, signo);
}

}  // namespace

const captura::FamiliaCaptura& Traspasos() {
  static const captura::FamiliaCaptura f{
      .tabla = "traspasos",
      .llave = "traspaso",
      .derechos = "Traspasos",
      .actual = &Session::TraspasoActual,
      .serie = &Session::SerieTraspasos,
      .status_inicial = "APLICADO",
      .socio = nullptr,
      .columnas = {u"referencia"_s, u"obs"_s, u"de"_s, u"a"_s, u"tipo"_s},
      .columnas_partida = {u"precio"_s, u"dcto"_s, u"impuesto"_s, u"costo"_s, u"com"_s, u"de"_s,
                           u"a"_s},
      .almacen_partida = "tienda",
      .mover = MoverTraspaso,
      .revisar_campos = CamposTraspaso,
      .revisar_existencias = HayExistencias,
      .completar_encabezado = Almacenes,
      .completar = CompletarTraspaso,
      .totalizar = TotalizarTraspaso,
  };
  return f;
}

}  // namespace ventarix::inventario
