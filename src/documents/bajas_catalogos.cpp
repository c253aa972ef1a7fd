// The catalogues: cancelled by their status alone, with no reason; deleted only while no
// document uses them and, numbered ones, while no higher number exists.
#include "core/dialect.h"
#include "documents/bajas_clases.h"

namespace ventarix::bajas {

namespace {

using namespace Qt::StringLiterals;

// A document of `tabla` whose `columna` names the record blocks its deletion; the message is
// followed by the document's `llave`.
Bloqueo Usado(const QString& tabla, const QString& llave, const QString& columna,
              const QString& mensaje) {
  return {u"select "_s + llave + u" from "_s + dialect::Name(tabla) + u" where "_s + columna +
              u" = ?"_s,
          mensaje};
}

// Every document whose rows name the product, by its rows' table and key.
std::vector<Bloqueo> UsosDelCodigo() {
  struct Uso {
    QString tabla, llave, donde;
  };
  const Uso usos[] = {{u"compras"_s, u"compra"_s, u"la compra "_s},
                      {u"ordenes de compra"_s, u"orden"_s, u"la orden de compra "_s},
                      {u"traspasos"_s, u"traspaso"_s, u"el traspaso "_s},
                      {u"remisiones"_s, u"remision"_s, u"la remisión "_s},
                      {u"cotizaciones"_s, u"cotizacion"_s, u"la cotización "_s},
                      {u"facturas"_s, u"factura"_s, u"la factura "_s},
                      {u"notas cliente"_s, u"nota"_s, u"notas de crédito cliente "_s},
                      {u"notas proveedor"_s, u"nota"_s, u"notas de crédito proveedor "_s},
                      {u"ajustes de inventario"_s, u"ajuste"_s, u"el ajuste de inventario "_s}};
  std::vector<Bloqueo> bloqueos;
  for (const Uso& uso : usos) {
    bloqueos.push_back(Usado(uso.tabla + u" detalles"_s, uso.llave, u"codigo"_s,
                             u"Existen registros de este código en "_s + uso.donde));
  }
  return bloqueos;
}

}  // namespace

std::vector<Clase> Catalogos() {
  return {
      {.clase = "CLIENTES",
       .tabla = u"clientes"_s,
       .llave = u"numero"_s,
       .derechos = u"Clientes"_s,
       .catalogo = true,
       .numerica = true,
       .bloqueos_borrado =
           {Usado(u"remisiones"_s, u"remision"_s, u"cliente"_s,
                  u"Existe un número de cliente en la remisión "_s),
            Usado(u"cotizaciones"_s, u"cotizacion"_s, u"cliente"_s,
                  u"Existe un número de cliente en la cotización "_s),
            Usado(u"facturas"_s, u"factura"_s, u"cliente"_s,
                  u"Existe un número de cliente en la factura "_s),
            Usado(u"cxc"_s, u"pago"_s, u"cliente"_s,
                  u"Existe un número de cliente en cuentas por cobrar con el pago "_s),
            Usado(u"notas cliente"_s, u"nota"_s, u"cliente"_s,
                  u"Existe un número de cliente en notas de crédito con la nota "_s)},
       .mayor = u"Existe un número de cliente mayor a este número"_s},
      {.clase = "AGENTES",
       .tabla = u"agentes"_s,
       .llave = u"numero"_s,
       .derechos = u"Agentes"_s,
       .catalogo = true,
       .numerica = true,
       .bloqueos_borrado = {Usado(u"remisiones"_s, u"remision"_s, u"agente"_s,
                                  u"Existe un número de agente en la remisión "_s),
                            Usado(u"cotizaciones"_s, u"cotizacion"_s, u"agente"_s,
                                  u"Existe un número de agente en la cotización "_s),
                            Usado(u"facturas"_s, u"factura"_s, u"agente"_s,
                                  u"Existe un número de agente en la factura "_s)},
       .mayor = u"Existe un número de agente mayor a este número"_s},
      {.clase = "PROVEEDORES",
       .tabla = u"proveedores"_s,
       .llave = u"numero"_s,
       .derechos = u"Proveedores"_s,
       .catalogo = true,
       .numerica = true,
       .bloqueos_borrado =
           {Usado(u"compras"_s, u"compra"_s, u"proveedor"_s,
                  u"Existe un número de proveedor con la compra "_s),
            Usado(u"ordenes de compra"_s, u"orden"_s, u"proveedor"_s,
                  u"Existe un número de proveedor con la orden de compra "_s),
            Usado(u"contrarecibos"_s, u"contrarecibo"_s, u"proveedor"_s,
                  u"Existe un número de contrarecibo con el contrarecibo "_s),
            Usado(u"notas proveedor"_s, u"nota"_s, u"proveedor"_s,
                  u"Existe un número de proveedor en notas de crédito con la nota "_s)},
       .mayor = u"Existe un número de proveedor mayor a este número"_s},
      {.clase = "MARCAS",
       .tabla = u"marcas"_s,
       .llave = u"numero"_s,
       .derechos = u"Marcas"_s,
       .catalogo = true,
       .numerica = true,
       .bloqueos_borrado = {Usado(u"productos"_s, u"codigo"_s, u"marca"_s,
                                  u"Existe un número de marca en productos con el código "_s)},
       .mayor = u"Existe un número de marca mayor a este número"_s},
      {.clase = "LINEAS",
       .tabla = u"lineas"_s,
       .llave = u"numero"_s,
       .derechos = u"Lineas"_s,
       .catalogo = true,
       .numerica = true,
       .bloqueos_borrado = {Usado(u"productos"_s, u"codigo"_s, u"linea"_s,
                                  u"Existe un número de línea en productos con el código "_s)},
       .mayor = u"Existe un número de línea mayor a este número"_s},
      {.clase = "PRODUCTOS",
       .tabla = u"productos"_s,
       .llave = u"codigo"_s,
       .derechos = u"Productos"_s,
       .catalogo = true,
       .bloqueos_borrado = UsosDelCodigo()},
      {.clase = "BANCOS",
       .tabla = u"bancos"_s,
       .llave = u"numero"_s,
       .derechos = u"Bancos"_s,
       .catalogo = true,
       .numerica = true,
       .bloqueos_borrado =
           {Usado(u"cxc"_s, u"pago"_s, u"banco"_s,
                  u"Existen registros de bancos en cuentas por cobrar con el pago "_s),
            Usado(u"cxp"_s, u"pago"_s, u"banco"_s,
                  u"Existen registros de bancos en cuentas por pagar con el pago "_s)}},
      // A range's sealing material goes with it; the other family's range of the same number
      // keeps its own.
      {.clase = "FOLIOSFACTURAS",
       .tabla = u"folios facturas"_s,
       .llave = u"numero"_s,
       .derechos = u"FoliosFacturas"_s,
       .catalogo = true,
       .numerica = true,
       .bloqueos_borrado = {Usado(u"facturas"_s, u"factura"_s, u"ingreso"_s,
                                  u"Existen folios ingreso en la factura "_s)},
       .mayor = u"Existe un número de folio factura mayor a este número"_s,
       .borrar_antes = {u"cbb"_s, u"certificados"_s},
       .documento = 0},
      {.clase = "FOLIOSNOTAS",
       .tabla = u"folios notas"_s,
       .llave = u"numero"_s,
       .derechos = u"FoliosNotas"_s,
       .catalogo = true,
       .numerica = true,
       .bloqueos_borrado = {Usado(u"notas cliente"_s, u"nota"_s, u"egreso"_s,
                                  u"Existen folios egreso en la nota de crédito "_s)},
       .mayor = u"Existe un número de folio nota mayor a este número"_s,
       .borrar_antes = {u"cbb"_s, u"certificados"_s},
       .documento = 1},
  };
}

}  // namespace ventarix::bajas
