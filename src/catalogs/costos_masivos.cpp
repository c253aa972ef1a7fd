#include "catalogs/costos_masivos.h"

#include <optional>

#include "catalogs/costos_masivos_recorrido.h"
#include "catalogs/price_formulas.h"
#include "core/mFunciones_valores.h"
#include "core/usuarios.h"

namespace ventarix::costos_masivos {

using namespace Qt::StringLiterals;
using detalle::FilaLeida;
using detalle::Paso;

namespace {

const QString& MensajeAgregados() {
  static const QString kTexto = u"Los productos se han agregado hasta la fila "_s;
  return kTexto;
}

Outcome SinPrecio(const QString& codigo, int nivel) {
  return Outcome::Warning(
      u"El código %1 tiene una utilidad %2 de 100: con la utilidad financiera su precio no se "
      "puede calcular"_s.arg(codigo)
          .arg(nivel));
}

// The new cost and the five levels it gives, unrounded; Venta from the first level and
// Precio with the product's tax when asked.
Paso ActualizarCosto(Connection& c, const FilaLeida& fila, catalogs::Formula formula,
                     bool venta_y_precio) {
  if (fila.costo <= 0 || formula == catalogs::Formula::kNinguna) return Paso::Nada();
  QString error;
  const std::optional<detalle::Guardado> guardado = detalle::LeerProducto(c, fila.codigo, &error);
  if (!error.isEmpty()) return Paso::Refusado(Outcome::Stop(error));
  if (!guardado) return Paso::Nada();

  QStringList asignaciones = {u"costo = ?"_s};
  QVariantList valores = {fila.costo};
  for (int k = 0; k < catalogs::kNiveles; ++k) {
    const std::optional<double> precio =
        catalogs::PrecioPorFormula(formula, fila.costo, guardado->utilidades[k]);
    if (!precio) return Paso::Refusado(SinPrecio(fila.codigo, k + 1), kCosto);
    asignaciones << u"precio%1 = ?"_s.arg(k + 1);
    valores << *precio;
    if (k == 0 && venta_y_precio) {
      asignaciones << u"venta = ?"_s << u"precio = ?"_s;
      valores << *precio << catalogs::ConImpuesto(*precio, guardado->impuesto);
    }
  }
  valores << fila.codigo;
  if (!c.Run(u"update productos set "_s + asignaciones.join(u", "_s) + u" where codigo = ?"_s,
             valores, &error)) {
    return Paso::Refusado(Outcome::Stop(error));
  }
  return Paso::Escrito();
}

// The final price as typed, and Venta without the product's own tax.
Paso ActualizarNeto(Connection& c, const FilaLeida& fila) {
  // An empty price cell would wipe the product's price.
  if (fila.precio <= 0) return Paso::Nada();
  QString error;
  const std::optional<detalle::Guardado> guardado = detalle::LeerProducto(c, fila.codigo, &error);
  if (!error.isEmpty()) return Paso::Refusado(Outcome::Stop(error));
  if (!guardado) return Paso::Nada();
  const double venta = catalogs::SinImpuesto(fila.precio, guardado->impuesto);
  if (!c.Run(u"update productos set precio = ?, venta = ? where codigo = ?"_s,
             {fila.precio, venta, fila.codigo}, &error)) {
    return Paso::Refusado(Outcome::Stop(error));
  }
  return Paso::Escrito();
}

// The run adds or changes products: the right on Productos its mode needs and, for new costs
// of existing products, the cost lock of the product screens.
std::optional<Resultado> Negado(const Session& session, Modo modo, bool costos) {
  Resultado negado;
  negado.outcome =
      mFunciones::TienePermiso(session, u"Productos"_s, modo == Modo::kAgregar ? u"A"_s : u"C"_s);
  if (negado.outcome && costos && modo == Modo::kActualizar &&
      !usuarios::PuedeModificar(session, u"ModificarCosto"_s)) {
    negado.outcome = Outcome::Warning(u"Este usuario no tiene permisos para modificar costos"_s);
  }
  if (negado.outcome) return std::nullopt;
  return negado;
}

}  // namespace

Resultado GuardarCostos(const Session& session, const QList<Fila>& filas, Modo modo,
                        bool venta_y_precio) {
  if (std::optional<Resultado> negado = Negado(session, modo, true)) return *negado;
  if (modo == Modo::kAgregar) {
    return detalle::Recorrer(
        session, filas,
        [](Connection& c, const FilaLeida& fila) { return detalle::Agregar(c, fila, false); },
        MensajeAgregados());
  }
  const catalogs::Formula formula = catalogs::FormulaDeEmpresa(session.empresa);
  return detalle::Recorrer(
      session, filas,
      [formula, venta_y_precio](Connection& c, const FilaLeida& fila) {
        return ActualizarCosto(c, fila, formula, venta_y_precio);
      },
      u"Los costos se han actualizado hasta la fila "_s);
}

Resultado GuardarNetos(const Session& session, const QList<Fila>& filas, Modo modo) {
  if (std::optional<Resultado> negado = Negado(session, modo, false)) return *negado;
  if (modo == Modo::kAgregar) {
    return detalle::Recorrer(
        session, filas,
        [](Connection& c, const FilaLeida& fila) { return detalle::Agregar(c, fila, true); },
        MensajeAgregados());
  }
  return detalle::Recorrer(session, filas, ActualizarNeto,
                           u"Los precios se han actualizado hasta la fila "_s);
}

}  // namespace ventarix::costos_masivos
