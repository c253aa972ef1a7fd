#include "catalogs/ui/mdi_inicio_costos.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {

QStringList ColumnasDeCostos() {
  return {u"Código"_s, u"Costo"_s, u"Producto"_s,  u"Unidad"_s,
          u"Marca"_s,  u"Línea"_s, u"Impuesto %"_s};
}

}  // namespace

MDIInicioCostos::MDIInicioCostos(Session& session, QWidget* parent)
    : VentanaDeCostos(session,
                      {u"MDIInicioCostos"_s, u"Actualización de costos"_s, ColumnasDeCostos(),
                       u"Ac&tualizar costos"_s, u"Actualizar también &venta y precio neto"_s,
                       costos_masivos::GuardarCostos},
                      parent) {}

MDIInicioNetos::MDIInicioNetos(Session& session, QWidget* parent)
    : VentanaDeCostos(
          session,
          {u"MDIInicioNetos"_s, u"Actualización de precios netos"_s,
           ColumnasDeCostos() << u"Precio neto"_s << u"Venta"_s, u"Ac&tualizar precios"_s,
           QString(),
           [](const Session& s, const QList<costos_masivos::Fila>& filas, costos_masivos::Modo modo,
              bool) { return costos_masivos::GuardarNetos(s, filas, modo); }},
          parent) {}

}  // namespace ventarix
