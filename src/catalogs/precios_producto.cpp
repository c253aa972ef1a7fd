#include "catalogs/precios_producto.h"

#include <QSqlError>
#include <QSqlQuery>

#include "catalogs/price_formulas.h"
#include "core/database.h"

namespace ventarix::precios_producto {

using namespace Qt::StringLiterals;

Niveles Calcular(const Figuras& figuras) {
  Niveles niveles;
  const bool sin_niveles = figuras.costo == 0 || figuras.utilidades[0] == 0;
  const double final = figuras.precio != 0 ? figuras.precio : figuras.venta;
  for (int k = 0; k < 5; ++k) {
    Nivel& nivel = niveles[k];
    nivel.nombre = u"Precio %1"_s.arg(k + 1);
    nivel.utilidad = figuras.utilidades[k];
    nivel.precio = sin_niveles ? final : catalogs::PrecioNeto(figuras.precios[k], figuras.impuesto);
  }
  return niveles;
}

Outcome Leer(const Session& session, const QString& codigo, Niveles& niveles) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  QSqlQuery query = c.Exec(
      u"select costo, venta, precio, impuesto, utilidad1, utilidad2, utilidad3, utilidad4, "
      "utilidad5, precio1, precio2, precio3, precio4, precio5 from productos where codigo = ?"_s,
      {codigo});
  if (query.lastError().isValid()) return Outcome::Stop(QueryError(query));
  Figuras figuras;
  if (query.next()) {
    figuras.costo = query.value(0).toDouble();
    figuras.venta = query.value(1).toDouble();
    figuras.precio = query.value(2).toDouble();
    figuras.impuesto = query.value(3).toDouble();
    for (int k = 0; k < 5; ++k) {
      figuras.utilidades[k] = query.value(4 + k).toDouble();
      figuras.precios[k] = query.value(9 + k).toDouble();
    }
  }
  niveles = Calcular(figuras);
  return Outcome::Ok();
}

}  // namespace ventarix::precios_producto
