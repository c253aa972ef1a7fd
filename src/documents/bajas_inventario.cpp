// The stock documents: production orders, transfers and adjustments. Their effect is stock
// alone, rebuilt for their products once their rows stand at zero.
#include "documents/bajas_clases.h"
#include "documents/mSaldos.h"

namespace ventarix::bajas {

namespace {

using namespace Qt::StringLiterals;

// Production moves warehouse 1 only: the materials it consumed and the product it made.
Outcome ExistenciasDeProduccion(const Session&, Connection& c, const Antes& a) {
  QStringList codigos = a.codigos;
  const QString producto = a.encabezado.Text(u"codigo"_s);
  if (!producto.isEmpty() && !codigos.contains(producto)) codigos << producto;
  return Existencias(c, 1, codigos);
}

Outcome TotalesTraspaso(const Session&, Connection& c, const Antes& a) {
  return mSaldos::TotalizarTraspaso(c, a.llave);
}

Outcome ExistenciasDelDocumento(const Session&, Connection& c, const Antes& a) {
  return Existencias(c, 0, a.codigos);
}

}  // namespace

std::vector<Clase> Inventario() {
  return {
      {.clase = "PRODUCCION",
       .tabla = u"produccion"_s,
       .llave = u"produccion"_s,
       .derechos = u"Produccion"_s,
       .codigos = true,
       .recalcular = ExistenciasDeProduccion,
       .partidas_baja = u"consumo = 0"_s,
       .encabezado_baja = u"cantidad = 0, costo = 0"_s,
       .mayor = u"Existe un folio mayor a esta produccion"_s},
      {.clase = "TRASPASOS",
       .tabla = u"traspasos"_s,
       .llave = u"traspaso"_s,
       .derechos = u"Traspasos"_s,
       .codigos = true,
       .recalcular = ExistenciasDelDocumento,
       .partidas_baja = u"cantidad = 0"_s,
       .totalizar = TotalesTraspaso,
       .mayor = u"Existe un folio mayor a este traspaso"_s},
      {.clase = "AJUSTES",
       .tabla = u"ajustes de inventario"_s,
       .llave = u"ajuste"_s,
       .derechos = u"Ajustes"_s,
       .codigos = true,
       .recalcular = ExistenciasDelDocumento,
       .partidas_baja = u"entradas = 0, salidas = 0, \"real\" = 0"_s,
       .encabezado_baja = u"total = 0"_s,
       .mayor = u"Existe un folio mayor a este ajuste"_s},
  };
}

}  // namespace ventarix::bajas
