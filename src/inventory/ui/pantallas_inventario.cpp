#include "inventory/ui/pantallas_inventario.h"

#include "core/ui/message_box.h"
#include "inventory/familias_inventario.h"
#include "inventory/partidas_inventario.h"
#include "inventory/ui/forma_inventario.h"
#include "inventory/ui/rejilla_inventario.h"

namespace ventarix::inventario_ui {

namespace {

using namespace Qt::StringLiterals;

// Another warehouse on a new adjustment: every row shows that warehouse's stock.
void AlmacenElegido(FormaInventario& forma, const QString& columna) {
  if (columna != u"almacen"_s || forma.cambio()) return;
  std::vector<QVariantMap> partidas;
  for (const QVariantMap& p : forma.rejilla()->Partidas()) {
    partidas.push_back({{u"codigo"_s, p.value(u"codigo"_s)},
                        {u"entradas"_s, p.value(u"entradas"_s)},
                        {u"salidas"_s, p.value(u"salidas"_s)}});
  }
  Connection c(forma.session().Cadena, Connection::Acceso::kLectura);
  captura::Documento d = forma.Capturado();
  d.encabezado.insert(u"almacen"_s, forma.Dato(u"almacen"_s));
  for (QVariantMap& p : partidas) inventario::Ajustes().completar(forma.session(), c, d, &p);
  forma.PonerPartidas(partidas);
}

// The finished product, or its quantity, written: the grid loads the product's components
// for that quantity.
void ProductoElegido(FormaInventario& forma, const QString& columna) {
  if (columna != u"codigo"_s && columna != u"cantidad"_s) return;
  const QString codigo = forma.Dato(u"codigo"_s).toString();
  if (codigo.isEmpty()) return;
  Connection c(forma.session().Cadena, Connection::Acceso::kLectura);
  RowValues producto;
  if (Outcome o = inventario::LeerProducto(c, codigo, &producto); !o) {
    o.field = u"Datos1"_s;
    return ui::ShowOutcome(&forma, forma.session(), o);
  }
  const double cantidad = forma.Dato(u"cantidad"_s).toDouble();
  forma.PonerPartidas(
      inventario::Componentes(c, producto.Text(u"codigo"_s), cantidad > 0 ? cantidad : 1));
}

}  // namespace

const Pantalla& Ajustes() {
  static const Pantalla p{
      .familia = inventario::Ajustes(),
      .alta = "FrmAjustesA",
      .cambio = "FrmAjustesC",
      .titulo = "AJUSTES DE INVENTARIO",
      .datos = {{.columna = "almacen",
                 .nombre = "Almacen",
                 .titulo = "Almacén",
                 .campo = Campo::kAlmacen},
                {.columna = "obs", .nombre = "Obs", .titulo = "Observaciones"}},
      .columnas = {{.columna = "existencias", .titulo = "Existencias"},
                   {.columna = "entradas", .titulo = "Entradas", .editable = true},
                   {.columna = "salidas", .titulo = "Salidas", .editable = true},
                   {.columna = "real", .titulo = "Real"},
                   {.columna = "costo", .titulo = "Costo"}},
      .dato_escrito = AlmacenElegido,
  };
  return p;
}

const Pantalla& Traspasos() {
  static const Pantalla p{
      .familia = inventario::Traspasos(),
      .alta = "FrmTraspasosA",
      .cambio = "FrmTraspasosC",
      .titulo = "TRASPASOS",
      .datos = {{.columna = "de", .nombre = "Combo0", .titulo = "De", .campo = Campo::kAlmacen},
                {.columna = "a", .nombre = "Combo1", .titulo = "A", .campo = Campo::kAlmacen},
                {.columna = "referencia", .nombre = "Referencia", .titulo = "Referencia"},
                {.columna = "obs", .nombre = "Obs", .titulo = "Observaciones"}},
      .columnas = {{.columna = "cantidad", .titulo = "Cantidad", .editable = true},
                   {.columna = "precio", .titulo = "Precio", .editable = true},
                   {.columna = "dcto", .titulo = "Dcto %", .editable = true},
                   {.columna = "impuesto", .titulo = "Impuesto %"},
                   {.columna = "costo", .titulo = "Costo"},
                   {.columna = "com", .titulo = "Comisión %"},
                   {.columna = "almacen1", .titulo = "Almacen1"},
                   {.columna = "almacen2", .titulo = "almacen2"},
                   {.columna = "almacen3", .titulo = "Almacen3"},
                   {.columna = "almacen4", .titulo = "Almacen4"},
                   {.columna = "almacen5", .titulo = "Almacen5"}},
      .con_descuento = true,
  };
  return p;
}

const Pantalla& Produccion() {
  static const Pantalla p{
      .familia = inventario::Produccion(),
      .alta = "FrmProduccionA",
      .cambio = "FrmProduccionC",
      .titulo = "PRODUCCION",
      .datos = {{.columna = "codigo", .nombre = "Datos1", .titulo = "Producto terminado"},
                {.columna = "cantidad",
                 .nombre = "Datos2",
                 .titulo = "Cantidad",
                 .campo = Campo::kNumero},
                {.columna = "cliente", .nombre = "Datos3", .titulo = "Cliente"},
                {.columna = "operadorinicia", .nombre = "Datos4", .titulo = "Operador"},
                {.columna = "obs", .nombre = "Obs", .titulo = "Observaciones"}},
      .columnas = {{.columna = "consumo", .titulo = "Consumo", .editable = true},
                   {.columna = "costo", .titulo = "Costo"},
                   {.columna = "total", .titulo = "Total"}},
      .dato_escrito = ProductoElegido,
  };
  return p;
}

}  // namespace ventarix::inventario_ui
