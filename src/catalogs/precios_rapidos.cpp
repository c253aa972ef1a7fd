#include "catalogs/precios_rapidos.h"

#include "catalogs/guardado.h"
#include "catalogs/price_formulas.h"
#include "core/database.h"
#include "core/mFunciones_valores.h"
#include "core/round_half_even.h"
#include "core/usuarios.h"

namespace ventarix::productos {

using namespace Qt::StringLiterals;

double PrecioDeVenta(double venta, double impuesto) {
  return RoundHalfEven(catalogs::ConImpuesto(RoundHalfEven(venta, 4), RoundHalfEven(impuesto, 2)),
                       4);
}

double VentaDePrecio(double precio, double impuesto) {
  return catalogs::DesgloseDePrecio(precio, impuesto, 0).venta;
}

Outcome LeerPreciosRapidos(const Session& session, const QString& codigo, PreciosRapidos* precios) {
  Connection c(session.Cadena);
  if (!c.ok()) return Outcome::Stop(c.error());
  QSqlQuery q =
      c.Exec(u"select precio, impuesto, costo, venta from productos where codigo = ?"_s, {codigo});
  if (!q.next()) {
    return Outcome::Refuse(u"Este código no existe en el catálogo de productos"_s);
  }
  *precios = {q.value(0).toDouble(), q.value(1).toDouble(), q.value(2).toDouble(),
              q.value(3).toDouble()};
  return Outcome::Ok();
}

Outcome GuardarPreciosRapidos(const Session& session, const QString& codigo,
                              const PreciosRapidos& precios) {
  if (Outcome permiso = mFunciones::TienePermiso(session, u"Productos"_s, u"C"_s); !permiso) {
    return permiso;
  }
  const bool con_costo = usuarios::PuedeModificar(session, u"ModificarCosto"_s);
  QVariantList valores{precios.precio, precios.impuesto, precios.venta};
  if (con_costo) valores << precios.costo;
  valores << codigo;
  Connection c(session.Cadena);
  Transaction t(c);
  if (!t.ok()) return Outcome::Stop(t.error());
  QString error;
  QSqlQuery q = c.Exec(u"update productos set precio = ?, impuesto = ?, venta = ?"_s +
                           (con_costo ? u", costo = ?"_s : QString()) + u" where codigo = ?"_s,
                       valores);
  if (q.lastError().isValid()) return catalogs::ErrorAlGuardar(c, QueryError(q));
  if (q.numRowsAffected() == 0) {
    return Outcome::Refuse(u"Este código no existe en el catálogo de productos"_s);
  }
  if (!t.Commit()) return catalogs::ErrorAlGuardar(c, error);
  return Outcome::Ok();
}

}  // namespace ventarix::productos
