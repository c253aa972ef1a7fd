// The transaction tables of a company database: every document family is a header table and
// a "<table> detalles" table, keyed by the document text serie-folio.
#include "core/schema.h"
#include "core/schema_columns.h"

namespace ventarix::schema {
namespace {

using enum Type;

// Every header also keeps when it was saved (hora) and the first tax rate of its rows.
std::vector<Column> Header(const char* key) {
  return {
      {key, kText},        {"serie", kText},    {"folio", kInt32},         {"fecha", kDateTime},
      {"hora", kDateTime}, {"periodo", kInt32}, {"status", kText},         {"obs", kText},
      {"usuario", kText},  {"equipo", kText},   {"motivo de baja", kText}, {"impuesto", kDouble}};
}

// The five sums every money document carries, and the three of the cost family.
std::vector<Column> MoneySums() {
  return Cols(kDouble, {"importe", "descuento", "subtotal", "iva", "total"});
}
std::vector<Column> CostSums() { return Cols(kDouble, {"costo", "comision", "utilidad"}); }

std::vector<Column> Detail(const char* key) {
  return {{key, kText},           {"item", kInt32},  {"fecha", kDateTime}, {"codigo", kText},
          {"descripcion", kText}, {"unidad", kText}, {"cantidad", kDouble}};
}
std::vector<Column> MoneyRow() {
  return Cols(kDouble,
              {"precio", "importe", "dcto", "descuento", "subtotal", "impuesto", "iva", "total"});
}
std::vector<Column> CostRow() {
  return Cols(kDouble, {"costo", "costototal", "com", "comision", "utilidad"});
}

// What an electronic document copies of its issuer and receiver when it is saved, so that it
// never changes with the catalogues.
std::vector<Column> Snapshots() {
  return Join({Cols(kText, "emisor", {"rfc", "nombre"}), Address("emisor"),
               Address("emisorexpedidoen"), Cols(kInt32, {"receptorcliente"}),
               Cols(kText, "receptor", {"rfc", "nombre"}), Address("receptor")});
}

// The tax document as sealed and stamped: invoices and client credit notes alike.
std::vector<Column> TaxDocument() {
  return Join({Cols(kText, {"version", "esquema"}), Cols(kInt32, {"anoaprobacion"}),
               Cols(kText, {"noaprobacion", "nocertificado", "certificado", "sello",
                            "algoritmosellodigital", "cadenaoriginal", "tipodecomprobante",
                            "formadepago", "condicionesdepago", "metododepago"}),
               Cols(kInt32, {"metodo"}), Cols(kText, {"numctapago", "moneda"}),
               Cols(kDouble, {"tipocambio"}),
               Cols(kText, {"lugarexpedicion", "regimenfiscal", "regimen", "motivodescuento"}),
               // Summary text: when set the document prints and stamps as one concept.
               Cols(kText, {"descripcion"}),
               // The stamp the PAC returns.
               Cols(kText, {"uuid", "fechatimbrado", "sellosat", "nocertificadosat",
                            "cadenaoriginalsat", "qrcode"}),
               Snapshots()});
}

Table Facturas() {
  return Make(
      "facturas",
      {Header("factura"), MoneySums(), CostSums(), Cols(kInt32, {"cliente", "agente"}),
       Cols(kText, {"depto", "tipo"}),  // depto: 'PRODUCTOS' from delivery notes, 'LIBRE' typed
       Cols(kInt32, {"plazo", "plazodias"}), Cols(kDateTime, {"vence"}), Cols(kInt16, {"tienda"}),
       Cols(kText, {"pedido", "referencia", "enviar a", "orden de compra", "solicitado por"}),
       // Totals before the discount note.
       Cols(kDouble, {"descuento1", "subtotal1", "iva1", "total1"}),
       Cols(kDouble, {"abonos", "descuentos", "saldo", "retencion isr $", "retencion iva $",
                      "retencion ced $"}),
       Cols(kInt32, {"ingreso"}),  // row of [folios facturas]
       TaxDocument()});
}

Table NotasCliente() {
  return Make("notas cliente",
              {Header("nota"), MoneySums(), Cols(kInt32, {"cliente"}), Cols(kText, {"tipo"}),
               Cols(kInt16, {"tienda"}), Cols(kText, {"referencia"}),
               Cols(kInt32, {"egreso"}),  // row of [folios notas]
               TaxDocument()});
}

std::vector<Table> PurchaseTables() {
  return {
      Make("ordenes de compra",
           {Header("orden"), MoneySums(), Cols(kInt32, {"proveedor"}), Cols(kText, {"tipo"}),
            Cols(kInt32, {"plazo"}), Cols(kDouble, {"impuesto"}), Cols(kText, {"referencia"}),
            Cols(kInt16, {"tienda"})}),
      Make("ordenes de compra detalles", {Detail("orden"), MoneyRow(), Cols(kInt32, {"proveedor"}),
                                          Cols(kDouble, {"surtir"}),  // still to receive
                                          Cols(kInt16, {"tienda"})}),
      Make("compras",
           {Header("compra"), MoneySums(), Cols(kInt32, {"proveedor"}),
            Cols(kText, {"factura", "remision"}),  // the supplier's own numbers
            Cols(kText, {"tipo"}), Cols(kInt32, {"plazo"}), Cols(kDouble, {"impuesto"}),
            Cols(kInt16, {"tienda"}),
            Cols(kText, {"movimiento"}),  // "ALMACEN1".."ALMACEN6", or "GASTOS": no stock
            Cols(kDouble, {"retencion", "abonos", "descuentos", "saldo"})}),
      Make("compras detalles", {Detail("compra"), MoneyRow(), Cols(kInt32, {"proveedor"}),
                                Cols(kText, {"orden"}), Cols(kInt16, {"almacen", "tienda"}),
                                Cols(kDateTime, {"caducidad"}), Cols(kInt32, {"posicion"})}),
      Make("contrarecibos", {Header("contrarecibo"), Cols(kInt32, {"proveedor"}),
                             Cols(kInt32, {"facturas"}),  // how many invoices it gathers
                             Cols(kDouble, {"total"})}),
      Make("contrarecibos detalles",
           {Cols(kText, {"contrarecibo"}), Cols(kDateTime, {"fecha"}), Cols(kInt32, {"proveedor"}),
            Cols(kText, {"compra", "factura", "remision"}), Cols(kDouble, {"total"}),
            Cols(kInt32, {"plazo"}), Cols(kDateTime, {"fechaapagar"})}),
      Make("cxp", {Header("pago"), Cols(kInt32, {"proveedor"}), Cols(kDouble, {"abono"}),
                   Cols(kInt32, {"banco"}),
                   Cols(kText, {"cheque", "transferencia", "beneficiario", "anotacion"})}),
      Make("cxp detalles",
           {Cols(kText, {"pago"}), Cols(kInt32, {"item"}), Cols(kDateTime, {"fecha"}),
            Cols(kInt32, {"proveedor"}), Cols(kText, {"compra"}), Cols(kDouble, {"abono"})}),
      Make("notas proveedor",
           {Header("nota"), MoneySums(), Cols(kInt32, {"proveedor"}),
            Cols(kText, {"nota proveedor"}),  // the supplier's own number
            Cols(kDouble, {"retencion"}), Cols(kText, {"tipo"}), Cols(kInt16, {"tienda"})}),
      Make("notas proveedor detalles", {Detail("nota"), MoneyRow(), Cols(kInt32, {"proveedor"}),
                                        Cols(kText, {"compra", "factura"}),
                                        Cols(kInt32, {"partida"}), Cols(kInt16, {"tienda"})}),
      Make("licitaciones", {Header("licitacion")}),
      Make("licitaciones detalles", {Detail("licitacion")}),
      Make("licitaciones precios",
           {Cols(kText, {"licitacion"}), Cols(kInt32, {"proveedor"}), Cols(kText, {"codigo"}),
            Cols(kDouble, {"precio"}), Cols(kText, {"promocion"})}),
      Make("licitaciones precios b", {Cols(kInt32, {"proveedor"}), Cols(kText, {"codigo"}),
                                      Cols(kDouble, {"cantidad", "precio", "total"})}),
  };
}

std::vector<Table> SalesTables() {
  return {
      Make("cotizaciones",
           {Header("cotizacion"), MoneySums(), CostSums(), Cols(kInt32, {"cliente", "agente"}),
            Cols(kText, {"tipo"}), Cols(kInt32, {"plazo"}), Cols(kDouble, {"impuesto"}),
            Cols(kText, {"referencia"}), Cols(kInt16, {"tienda"})}),
      Make("cotizaciones detalles",
           {Detail("cotizacion"), MoneyRow(), CostRow(), Cols(kInt16, {"tienda"})}),
      Make("pedidos", {Header("pedido"), MoneySums(), Cols(kInt32, {"cliente", "agente"}),
                       Cols(kText, {"tipo"}), Cols(kInt32, {"plazo"}), Cols(kDouble, {"impuesto"}),
                       Cols(kText, {"referencia"}), Cols(kInt16, {"tienda"})}),
      Make("pedidos detalles",
           {Detail("pedido"), MoneyRow(), Cols(kInt32, {"cliente"}),
            Cols(kDouble, {"costo", "com", "surtir"}), Cols(kInt16, {"tienda"})}),
      Make("remisiones",
           {Header("remision"), MoneySums(), CostSums(), Cols(kInt32, {"cliente", "agente"}),
            Cols(kText, {"tipo"}), Cols(kInt32, {"plazo"}), Cols(kText, {"referencia"}),
            Cols(kInt16, {"tienda"}),
            Cols(kDateTime, {"facturada"}),  // the hora of the invoice that holds it
            Cols(kText, {"pedido"}), Cols(kInt32, {"metodo"}),
            Cols(kText, {"metododepago", "numctapago", "condicionesdepago", "enviar a",
                         "orden de compra", "solicitado por"})}),
      Make("remisiones detalles",
           {Detail("remision"), MoneyRow(), CostRow(), Cols(kInt32, {"cliente"}),
            Cols(kText, {"pedido"}), Cols(kInt16, {"almacen"})}),
      Facturas(),
      Make("facturas detalles",
           {Detail("factura"), MoneyRow(), CostRow(), Cols(kText, {"remision"}),
            Cols(kInt16, {"tienda"}), Cols(kText, {"facturar"}),  // the invoice's depto
            // The size grid of companies that sell by size.
            Cols(kText, {"med", "ent"}), Cols(kDouble, {"ti", "tf"})}),
      // One summary concept that prints and stamps in place of the detail rows.
      Make("facturas resumen", {Detail("factura"), MoneyRow(),
                                Cols(kDouble, {"costo", "costototal", "comision", "utilidad"}),
                                Cols(kInt16, {"tienda"})}),
      Make("cxc", {Header("pago"), Cols(kInt32, {"cliente"}), Cols(kDouble, {"abono"}),
                   Cols(kInt32, {"banco", "metodo"}), Cols(kText, {"anotacion"})}),
      Make("cxc detalles",
           {Cols(kText, {"pago"}), Cols(kInt32, {"item"}), Cols(kDateTime, {"fecha"}),
            Cols(kInt32, {"cliente"}), Cols(kText, {"factura"}), Cols(kDouble, {"abono"})}),
      NotasCliente(),
      Make("notas cliente detalles",
           {Detail("nota"), MoneyRow(), Cols(kInt32, {"cliente"}), Cols(kText, {"factura"}),
            Cols(kInt32, {"partida"}), Cols(kInt16, {"tienda"})}),
      Make("notas cliente resumen", {Detail("nota"), MoneyRow(), Cols(kInt16, {"tienda"})}),
  };
}

std::vector<Table> InventoryTables() {
  return {
      Make("produccion", {Header("produccion"), Cols(kInt32, {"cliente"}),
                          Cols(kText, {"codigo"}),  // the product made
                          Cols(kDouble, {"cantidad", "costo"}),
                          Cols(kText, {"operadorinicia", "operadortermina"}),
                          Cols(kDateTime, {"termino"}), Cols(kText, {"tipo"})}),
      Make("produccion detalles", {Detail("produccion"), Cols(kDouble, {"costo", "total"}),
                                   Cols(kDouble, {"consumo"})}),  // material used
      Make("traspasos", {Header("traspaso"), MoneySums(), CostSums(),
                         Cols(kText, {"de", "a"}),  // sending and receiving warehouse or party
                         Cols(kText, {"tipo", "referencia"}), Cols(kDouble, {"impuesto"}),
                         Cols(kInt16, {"tienda"})}),
      Make("traspasos detalles", {Detail("traspaso"), MoneyRow(), CostRow(),
                                  Cols(kText, {"de", "a", "obs"}), Cols(kInt16, {"tienda"})}),
      Make("ajustes de inventario",
           {Header("ajuste"), Cols(kInt16, {"almacen"}), Cols(kText, {"tipo"}),
            Cols(kInt16, {"tienda"}), Cols(kDouble, {"total"})}),
      Make("ajustes de inventario detalles",
           {Detail("ajuste"), Cols(kInt16, {"almacen", "tienda"}),
            Cols(kDouble, {"costo", "existencias", "entradas", "salidas"}),
            Cols(kDouble, {"real"})}),  // existencias: on hand before; real: counted
  };
}

}  // namespace

std::vector<Table> DocumentTables() {
  std::vector<Table> tables = PurchaseTables();
  for (Table& t : SalesTables()) tables.push_back(std::move(t));
  for (Table& t : InventoryTables()) tables.push_back(std::move(t));
  return tables;
}

std::vector<Index> DocumentIndexes() {
  // Orders and purchase orders carry no unique key: their screens check duplicates.
  return {
      {"orden0", "ordenes de compra", {"orden"}},
      {"orden1", "ordenes de compra", {"proveedor"}},
      {"orden2", "ordenes de compra", {"fecha"}},
      {"orden3", "ordenes de compra", {"status"}},
      {"orden4", "ordenes de compra", {"periodo"}},
      // The next folio of a serie is the highest one, read from this index.
      {"orden5", "ordenes de compra", {"serie", "folio"}},
      {"orden0d", "ordenes de compra detalles", {"orden"}},
      {"orden1d", "ordenes de compra detalles", {"proveedor"}},
      {"orden2d", "ordenes de compra detalles", {"fecha"}},
      {"orden3d", "ordenes de compra detalles", {"codigo"}},

      {"compras0", "compras", {"compra"}, true},
      {"compras1", "compras", {"proveedor"}},
      {"compras2", "compras", {"fecha"}},
      {"compras3", "compras", {"status"}},
      {"compras4", "compras", {"usuario"}},
      {"compras5", "compras", {"periodo"}},
      {"compras6", "compras", {"serie", "folio"}},
      {"compras0d", "compras detalles", {"compra"}},
      {"compras1d", "compras detalles", {"proveedor"}},
      {"compras2d", "compras detalles", {"fecha"}},
      {"compras3d", "compras detalles", {"codigo"}},
      {"compras4d", "compras detalles", {"orden"}},

      {"contrarecibos0", "contrarecibos", {"contrarecibo"}, true},
      {"contrarecibos1", "contrarecibos", {"fecha"}},
      {"contrarecibos2", "contrarecibos", {"proveedor"}},
      {"contrarecibos3", "contrarecibos", {"status"}},
      {"contrarecibos4", "contrarecibos", {"periodo"}},
      {"contrarecibos5", "contrarecibos", {"serie", "folio"}},
      {"contrarecibos0d", "contrarecibos detalles", {"contrarecibo"}},
      {"contrarecibos1d", "contrarecibos detalles", {"fecha"}},
      {"contrarecibos2d", "contrarecibos detalles", {"proveedor"}},
      {"contrarecibos3d", "contrarecibos detalles", {"compra"}},
      {"contrarecibos4d", "contrarecibos detalles", {"factura"}},

      {"cotizaciones0", "cotizaciones", {"cotizacion"}, true},
      {"cotizaciones1", "cotizaciones", {"cliente"}},
      {"cotizaciones2", "cotizaciones", {"fecha"}},
      {"cotizaciones3", "cotizaciones", {"status"}},
      {"cotizaciones4", "cotizaciones", {"periodo"}},
      {"cotizaciones5", "cotizaciones", {"serie", "folio"}},
      {"cotizaciones0d", "cotizaciones detalles", {"cotizacion"}},
      {"cotizaciones1d", "cotizaciones detalles", {"fecha"}},
      {"cotizaciones2d", "cotizaciones detalles", {"codigo"}},

      {"pedido0", "pedidos", {"pedido"}},
      {"pedido1", "pedidos", {"cliente"}},
      {"pedido2", "pedidos", {"fecha"}},
      {"pedido3", "pedidos", {"status"}},
      {"pedido4", "pedidos", {"periodo"}},
      {"pedido5", "pedidos", {"serie", "folio"}},
      {"pedido0d", "pedidos detalles", {"pedido"}},
      {"pedido1d", "pedidos detalles", {"cliente"}},
      {"pedido2d", "pedidos detalles", {"fecha"}},
      {"pedido3d", "pedidos detalles", {"codigo"}},

      {"remisiones0", "remisiones", {"remision"}, true},
      {"remisiones1", "remisiones", {"tipo"}},
      {"remisiones2", "remisiones", {"cliente"}},
      {"remisiones3", "remisiones", {"fecha"}},
      {"remisiones4", "remisiones", {"status"}},
      {"remisiones5", "remisiones", {"periodo"}},
      {"remisiones6", "remisiones", {"serie", "folio"}},
      {"remisiones0d", "remisiones detalles", {"remision"}},
      {"remisiones1d", "remisiones detalles", {"fecha"}},
      {"remisiones2d", "remisiones detalles", {"codigo"}},
      // Delivered quantities of an order are looked up by the order behind each row.
      {"remisiones3d", "remisiones detalles", {"pedido"}},

      {"facturas0", "facturas", {"factura"}, true},
      {"facturas1", "facturas", {"cliente"}},
      {"facturas2", "facturas", {"agente"}},
      {"facturas3", "facturas", {"fecha"}},
      {"facturas4", "facturas", {"depto"}},
      {"facturas5", "facturas", {"status"}},
      {"facturas6", "facturas", {"periodo"}},
      {"facturas7", "facturas", {"serie", "folio"}},
      {"facturas0d", "facturas detalles", {"factura"}},
      {"facturas1d", "facturas detalles", {"fecha"}},
      {"facturas2d", "facturas detalles", {"codigo"}},
      // A delivery note's invoice is looked up by the note behind each row.
      {"facturas3d", "facturas detalles", {"remision"}},
      {"facturas0r", "facturas resumen", {"factura"}},
      {"facturas1r", "facturas resumen", {"fecha"}},
      {"facturas2r", "facturas resumen", {"codigo"}},

      {"produccion0", "produccion", {"produccion"}, true},
      {"produccion1", "produccion", {"cliente"}},
      {"produccion2", "produccion", {"fecha"}},
      {"produccion3", "produccion", {"codigo"}},
      {"produccion4", "produccion", {"status"}},
      {"produccion5", "produccion", {"periodo"}},
      {"produccion6", "produccion", {"serie", "folio"}},
      {"produccion0d", "produccion detalles", {"produccion"}},
      {"produccion1d", "produccion detalles", {"fecha"}},
      {"produccion2d", "produccion detalles", {"codigo"}},

      {"traspasos0", "traspasos", {"traspaso"}, true},
      {"traspasos1", "traspasos", {"fecha"}},
      {"traspasos2", "traspasos", {"de"}},
      {"traspasos3", "traspasos", {"a"}},
      {"traspasos4", "traspasos", {"status"}},
      {"traspasos5", "traspasos", {"periodo"}},
      {"traspasos6", "traspasos", {"serie", "folio"}},
      {"traspasos0d", "traspasos detalles", {"traspaso"}},
      {"traspasos1d", "traspasos detalles", {"fecha"}},
      {"traspasos2d", "traspasos detalles", {"de"}},
      {"traspasos3d", "traspasos detalles", {"a"}},
      {"traspasos4d", "traspasos detalles", {"codigo"}},

      {"cxc0", "cxc", {"pago"}, true},
      {"cxc1", "cxc", {"fecha"}},
      {"cxc2", "cxc", {"cliente"}},
      {"cxc3", "cxc", {"status"}},
      {"cxc4", "cxc", {"periodo"}},
      {"cxc5", "cxc", {"serie", "folio"}},
      {"cxc0d", "cxc detalles", {"pago"}},
      {"cxc1d", "cxc detalles", {"fecha"}},
      {"cxc2d", "cxc detalles", {"cliente"}},
      {"cxc3d", "cxc detalles", {"factura"}},

      {"cxp0", "cxp", {"pago"}, true},
      {"cxp1", "cxp", {"fecha"}},
      {"cxp2", "cxp", {"proveedor"}},
      {"cxp3", "cxp", {"status"}},
      {"cxp4", "cxp", {"periodo"}},
      {"cxp5", "cxp", {"serie", "folio"}},
      {"cxp0d", "cxp detalles", {"pago"}},
      {"cxp1d", "cxp detalles", {"fecha"}},
      {"cxp2d", "cxp detalles", {"proveedor"}},
      {"cxp3d", "cxp detalles", {"compra"}},

      {"nc0", "notas cliente", {"nota"}, true},
      {"nc1", "notas cliente", {"cliente"}},
      {"nc2", "notas cliente", {"fecha"}},
      {"nc3", "notas cliente", {"status"}},
      {"nc4", "notas cliente", {"periodo"}},
      {"nc5", "notas cliente", {"serie", "folio"}},
      {"nc0d", "notas cliente detalles", {"nota"}},
      {"nc1d", "notas cliente detalles", {"cliente"}},
      {"nc2d", "notas cliente detalles", {"fecha"}},
      {"nc3d", "notas cliente detalles", {"factura"}},
      {"nc4d", "notas cliente detalles", {"codigo"}},
      {"nc5d", "notas cliente detalles", {"partida"}},

      {"np0", "notas proveedor", {"nota"}, true},
      {"np1", "notas proveedor", {"proveedor"}},
      {"np2", "notas proveedor", {"fecha"}},
      {"np3", "notas proveedor", {"status"}},
      {"np4", "notas proveedor", {"periodo"}},
      {"np5", "notas proveedor", {"serie", "folio"}},
      {"np0d", "notas proveedor detalles", {"nota"}},
      {"np1d", "notas proveedor detalles", {"proveedor"}},
      {"np2d", "notas proveedor detalles", {"fecha"}},
      {"np3d", "notas proveedor detalles", {"compra"}},
      {"np4d", "notas proveedor detalles", {"codigo"}},
      {"np5d", "notas proveedor detalles", {"partida"}},

      {"licitacion0", "licitaciones", {"licitacion"}, true},
      {"licitacion1", "licitaciones", {"fecha"}},
      {"licitacion2", "licitaciones", {"status"}},
      {"licitacion3", "licitaciones", {"usuario"}},
      {"licitacion4", "licitaciones", {"periodo"}},
      {"licitacion5", "licitaciones", {"serie", "folio"}},
      {"licitacion0d", "licitaciones detalles", {"licitacion"}},
      {"licitacion1d", "licitaciones detalles", {"codigo"}},
      {"licitacion0p", "licitaciones precios", {"licitacion"}},
      {"licitacion1p", "licitaciones precios", {"proveedor"}},
      {"licitacion2p", "licitaciones precios", {"codigo"}},
      {"licitacion0b", "licitaciones precios b", {"proveedor"}},
      {"licitacion1b", "licitaciones precios b", {"codigo"}},

      // Adjustments carry two families of index names over the same columns; databases made
      // under either naming stay recognisable.
      {"ajustes0", "ajustes de inventario", {"ajuste"}, true},
      {"ajustes1", "ajustes de inventario", {"almacen"}},
      {"ajustes2", "ajustes de inventario", {"fecha"}},
      {"ajustes3", "ajustes de inventario", {"status"}},
      {"ajustes4", "ajustes de inventario", {"periodo"}},
      {"ajustes5", "ajustes de inventario", {"serie", "folio"}},
      {"ajuste0", "ajustes de inventario", {"ajuste"}, true},
      {"ajuste1", "ajustes de inventario", {"fecha"}},
      {"ajuste2", "ajustes de inventario", {"status"}},
      {"ajuste3", "ajustes de inventario", {"periodo"}},
      {"ajustes0d", "ajustes de inventario detalles", {"ajuste"}},
      {"ajustes1d", "ajustes de inventario detalles", {"fecha"}},
      {"ajustes2d", "ajustes de inventario detalles", {"almacen"}},
      {"ajustes3d", "ajustes de inventario detalles", {"codigo"}},
      {"ajuste0d", "ajustes de inventario detalles", {"ajuste"}},
      {"ajuste1d", "ajustes de inventario detalles", {"fecha"}},
      {"ajuste2d", "ajustes de inventario detalles", {"codigo"}},
  };
}

}  // namespace ventarix::schema
