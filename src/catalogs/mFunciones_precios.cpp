#include "catalogs/mFunciones_precios.h"

#include <algorithm>
#include <array>

#include <QSqlError>

#include "catalogs/price_formulas.h"
#include "core/registro_leido.h"

namespace ventarix::mFunciones {

using namespace Qt::StringLiterals;

namespace {

QString Nivel(const char* columna, int k) {
  return QString::fromLatin1(columna) + QString::number(k);
}

// The prices a purchase's cost leads to, or nothing when the company has no formula.
struct PreciosDeCompra {
  std::optional<double> venta;
  std::array<std::optional<double>, catalogs::kNiveles> precios;
};

bool AplicaCosto(const RowValues& empresa, double costo, double guardado) {
  if (!empresa.Flag(u"EnCompras_Modificar_Costos_y_Precios"_s) || costo <= 0) return false;
  if (empresa.Flag(u"EnCompras_Modificar_Al_Ultimo_Costo"_s)) return true;
  return empresa.Flag(u"EnCompras_Modificar_Al_Costo_Mas_Alto"_s) && costo > guardado;
}

// "costo = ?, venta = ?, precio = ?, precio1 = ?, ..." for the values that could be priced.
QString Asignaciones(const PreciosDeCompra& p, double costo, double impuesto,
                     QVariantList& valores) {
  QString texto = u"costo = ?"_s;
  valores << costo;
  if (p.venta) {
    texto += u", venta = ?, precio = ?"_s;
    valores << *p.venta << catalogs::ConImpuesto(*p.venta, impuesto);
  }
  for (int k = 0; k < catalogs::kNiveles; ++k) {
    if (!p.precios[k]) continue;
    texto += u", "_s + Nivel("precio", k + 1) + u" = ?"_s;
    valores << *p.precios[k];
  }
  return texto;
}

}  // namespace

std::optional<PrecioHallado> PrecioEspecial(Connection& c, qint32 ClienteActual,
                                            const QString& codigo) {
  QSqlQuery& q =
      c.ExecRepetida(u"select precio from \"productos precios\" where cliente = ? and codigo = ?"_s,
                     {ClienteActual, codigo});
  if (!q.next()) return std::nullopt;
  return PrecioHallado{q.value(0).isNull() ? 0.0 : q.value(0).toDouble(), 0};
}

PrecioHallado PrecioPorCliente(Connection& c, qint32 ClienteActual, const RowValues& producto) {
  const double venta = producto.Number(u"venta"_s);
  QSqlQuery& q = c.ExecRepetida(
      u"select utilidad, dcto from \"clientes utilidades\" where cliente = ? and marca = ?"_s,
      {ClienteActual, producto.Integer(u"marca"_s)});
  if (!q.next()) {
    if (venta > 0) return {venta, 0};
    const double neto =
        catalogs::SinImpuesto(producto.Number(u"precio"_s), producto.Number(u"impuesto"_s));
    return {std::max(neto, venta), 0};
  }
  const int nivel = q.value(0).toInt();
  if (nivel >= 1 && nivel <= catalogs::kNiveles) {
    return {producto.Number(Nivel("precio", nivel)), q.value(1).toDouble()};
  }
  return {venta, 0};
}

std::optional<PrecioHallado> BuscarPrecio(Connection& c, qint32 ClienteActual,
                                          const QString& codigo) {
  if (auto especial = PrecioEspecial(c, ClienteActual, codigo)) return especial;
  QSqlQuery q = c.Exec(u"select * from productos where codigo = ?"_s, {codigo});
  if (!q.next()) return std::nullopt;
  return PrecioPorCliente(c, ClienteActual, RegistroLeido(q));
}

Outcome ActualizarCostoDesdeCompra(Connection& c, const RowValues& empresa, const QString& codigo,
                                   double costo, bool* aplicado) {
  if (aplicado) *aplicado = false;
  const catalogs::Formula formula = catalogs::FormulaDeEmpresa(empresa);
  if (formula == catalogs::Formula::kNinguna) return Outcome::Ok();
  // A purchase runs this for every row: the statements are prepared once per connection.
  QSqlQuery& q = c.ExecRepetida(u"select * from productos where codigo = ?"_s, {codigo});
  if (q.lastError().isValid()) return Outcome::Stop(QueryError(q));
  if (!q.next()) return Outcome::Ok();
  const RowValues producto = RegistroLeido(q);
  q.finish();
  if (!AplicaCosto(empresa, costo, producto.Number(u"costo"_s))) return Outcome::Ok();

  PreciosDeCompra p;
  p.venta = catalogs::PrecioPorFormula(formula, costo, producto.Number(u"utilidad1"_s));
  for (int k = 0; k < catalogs::kNiveles; ++k) {
    p.precios[k] =
        catalogs::PrecioPorFormula(formula, costo, producto.Number(Nivel("utilidad", k + 1)));
  }
  QVariantList valores;
  const QString texto = Asignaciones(p, costo, producto.Number(u"impuesto"_s), valores);
  valores << codigo;
  Transaction transaction(c);
  if (!transaction.ok()) return Outcome::Stop(transaction.error());
  QSqlQuery& cambio =
      c.ExecRepetida(u"update productos set "_s + texto + u" where codigo = ?"_s, valores);
  if (cambio.lastError().isValid()) return Outcome::Stop(QueryError(cambio));
  if (!transaction.Commit()) return Outcome::Stop(transaction.error());
  if (aplicado) *aplicado = true;
  return Outcome::Ok();
}

double CostoNeto(Connection& c, const QString& codigo, double limite) {
  QSqlQuery q = c.Exec(u"select costo, impuesto from productos where codigo = ?"_s, {codigo});
  if (!q.next()) return 0;
  const double costo = q.value(0).toDouble();
  if (costo >= limite) return 0;
  return costo * (1 + q.value(1).toDouble() / 100);
}

}  // namespace ventarix::mFunciones
