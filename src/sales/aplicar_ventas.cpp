// The sales screens' pricing buttons and the rows brought in from orders and quotations.
#include "sales/aplicar_ventas.h"

#include <QSqlQuery>
#include <QSqlRecord>

#include "catalogs/mFunciones_precios.h"
#include "catalogs/price_formulas.h"
#include "core/dialect.h"
#include "core/mFunciones_valores.h"

namespace ventarix::ventas {

using namespace Qt::StringLiterals;

namespace {

double Numero(const QVariantMap& m, const QString& c) {
  return mFunciones::ValorNumerico(m.value(c));
}
bool TieneCodigo(const QVariantMap& p) {
  return !mFunciones::ValorTexto(p.value(u"codigo"_s)).trimmed().isEmpty();
}

QVariantMap Fila(const QSqlQuery& q) {
  QVariantMap fila;
  const QSqlRecord r = q.record();
  for (int i = 0; i < r.count(); ++i) fila.insert(r.fieldName(i).toLower(), q.value(i));
  return fila;
}

}  // namespace

void AplicarDescuento(Partidas& partidas, double dcto) {
  for (QVariantMap& p : partidas) {
    if (TieneCodigo(p)) p.insert(u"dcto"_s, dcto);
  }
}

Outcome AplicarDescuentoEnPrecio(Connection& c, Partidas& partidas) {
  for (QVariantMap& p : partidas) {
    if (!TieneCodigo(p)) continue;
    QSqlQuery q = c.Exec(u"select venta from productos where codigo = ?"_s,
                         {p.value(u"codigo"_s).toString().trimmed()});
    if (!q.next()) continue;
    const double venta = q.value(0).toDouble();
    p.insert(u"precio"_s, venta - (venta * Numero(p, u"dcto"_s) / 100));
    p.insert(u"dcto"_s, 0.0);
  }
  return Outcome::Ok();
}

Outcome AplicarUtilidadxPartida(const RowValues& empresa, QVariantMap& partida, double utilidad) {
  if (!TieneCodigo(partida)) return Outcome::Ok();
  // Ten is fixed, whatever the user.
  if (utilidad < kUtilidadMinima) {
    return Outcome::Warning(u"La utilidad mínima es del 10%"_s, u"Fg1"_s);
  }
  const std::optional<double> precio = catalogs::PrecioPorFormula(
      catalogs::FormulaDeEmpresa(empresa), Numero(partida, u"costo"_s), utilidad);
  if (precio) partida.insert(u"precio"_s, *precio);
  return Outcome::Ok();
}

Partidas PartidasDePedido(Connection& c, int tienda, const QString& pedido) {
  Partidas partidas;
  QSqlQuery q = c.Exec(
      u"select p.almacen%1 as existen, d.* from productos p, "_s.arg(qBound(1, tienda, 5)) +
          dialect::Name(u"pedidos detalles"_s) +
          u" d where p.codigo = d.codigo and d.surtir > 0 and d.pedido = ? order by d.item"_s,
      {pedido});
  while (q.next()) {
    const QVariantMap d = Fila(q);
    QVariantMap p;
    for (const QString& columna : {u"codigo"_s, u"descripcion"_s, u"unidad"_s, u"precio"_s,
                                   u"dcto"_s, u"impuesto"_s, u"costo"_s, u"com"_s, u"pedido"_s}) {
      p.insert(columna, d.value(columna));
    }
    p.insert(u"cantidad"_s, d.value(u"surtir"_s));
    p.insert(u"existencia"_s, d.value(u"existen"_s));
    partidas.push_back(p);
  }
  return partidas;
}

Partidas PartidasDeCotizacion(Connection& c, const QString& cotizacion) {
  Partidas partidas;
  QSqlQuery q = c.Exec(u"select * from "_s + dialect::Name(u"cotizaciones detalles"_s) +
                           u" where cotizacion = ? order by item"_s,
                       {cotizacion});
  while (q.next()) {
    QVariantMap p = Fila(q);
    p.remove(u"cotizacion"_s);
    p.insert(u"surtir"_s, p.value(u"cantidad"_s));
    partidas.push_back(p);
  }
  return partidas;
}

std::vector<PrecioDeLista> ListaDePrecios(Connection& c, qint32 cliente, const QString& codigo) {
  std::vector<PrecioDeLista> lista;
  if (const std::optional<mFunciones::PrecioHallado> especial =
          mFunciones::PrecioEspecial(c, cliente, codigo)) {
    lista.push_back({u"PRECIO DEL CLIENTE"_s, especial->PrecioEncontrado});
  }
  QSqlQuery q = c.Exec(
      u"select venta, precio1, precio2, precio3, precio4, precio5 from productos where codigo = ?"_s,
      {codigo});
  if (!q.next()) return lista;
  lista.push_back({u"VENTA"_s, q.value(0).toDouble()});
  for (int nivel = 1; nivel <= 5; ++nivel) {
    lista.push_back({u"PRECIO %1"_s.arg(nivel), q.value(nivel).toDouble()});
  }
  return lista;
}

}  // namespace ventarix::ventas
