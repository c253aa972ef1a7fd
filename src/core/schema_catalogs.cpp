// Catalogues, settings and every other table of a company database that is not a document.
#include "core/schema.h"
#include "core/schema_columns.h"

namespace ventarix::schema {
namespace {

using enum Type;

// Contact columns shared by clients and suppliers.
std::vector<Column> Contact() {
  return Cols(kText, {"contacto", "telefonos", "celular", "nextel", "email1", "email2", "email3"});
}

std::vector<Table> PartnerTables() {
  return {
      // plazo: days of credit; saldo: derived from the documents.
      Make("clientes",
           {Cols(kInt32, {"numero"}), Cols(kText, {"nombre", "rfc"}), Address(),
            Cols(kInt32, {"plazo"}), Cols(kDouble, {"credito", "saldo"}),
            Cols(kInt32, {"agente", "metodo"}), Cols(kText, {"numctapago"}),
            Cols(kInt32, {"banco"}), Contact(), Cols(kText, {"tipo", "cuenta", "anotaciones"}),
            Cols(kYesNo, {"juridico"}), Cols(kText, {"addenda", "status"})}),
      Make("agentes",
           {Cols(kInt32, {"numero"}),
            Cols(kText, {"nombre", "direccion", "colonia", "ciudad", "cp", "rfc", "contacto",
                         "telefonos", "email", "cuenta"}),
            Cols(kDouble, {"comision"}), Cols(kText, {"anotaciones"}), Cols(kInt16, {"tienda"}),
            // Four commission ranges: days from, days to, percent.
            Numbered(kInt32, "dias", 1, 8), Numbered(kDouble, "comision", 1, 4),
            Cols(kText, {"status"})}),
      Make("proveedores", {Cols(kInt32, {"numero"}), Cols(kText, {"nombre", "rfc"}), Address(),
                           Cols(kInt32, {"plazo"}), Cols(kDouble, {"credito", "saldo"}), Contact(),
                           Cols(kText, {"tipo", "cuenta", "anotaciones", "clave", "status"})}),
      Make("bancos", {Cols(kInt32, {"numero"}), Cols(kText, {"nombre", "cuenta", "status"})}),
      // Payment methods.
      Make("metodos", {Cols(kInt32, {"numero"}), Cols(kText, {"nombre"})}),
      Make("tipos", {Cols(kText, {"nombre"})}),
  };
}

std::vector<Table> ProductTables() {
  return {
      // marca and linea repeat the name under the column the obsolete-stock export reads.
      Make("marcas", {Cols(kInt32, {"numero"}), Cols(kText, {"nombre"}),
                      Numbered(kDouble, "utilidad", 1, 5), Cols(kText, {"status", "marca"})}),
      Make("lineas", {Cols(kInt32, {"numero"}), Cols(kText, {"nombre", "status", "linea"})}),
      // almacen1..5: stock of each store; proveedor1, proveedor2: last and previous supplier;
      // imagen: "S" when the product's picture file exists.
      Make("productos",
           {Cols(kText,
                 {"codigo", "codigo1", "codigo2", "codigo3", "producto", "descripcion", "unidad"}),
            Cols(kInt32, {"marca", "linea"}), Cols(kText, {"ubicacion", "zona", "moneda"}),
            Cols(kYesNo, {"pt"}),
            Cols(kDouble, {"costo", "ultimo costo", "venta", "ultima venta", "precio"}),
            Numbered(kDouble, "precio", 1, 5), Numbered(kDouble, "utilidad", 1, 5),
            Cols(kDouble, {"impuesto", "comision", "descuento", "min", "max"}),
            Numbered(kDouble, "almacen", 1, 5),
            Cols(kDateTime, {"fecha ultima compra", "fecha ultima venta"}),
            Cols(kInt32, {"proveedor1", "proveedor2"}), Cols(kYesNo, {"imagen"}),
            Cols(kText, {"status"})}),
      // A client's own price of a product.
      Make("productos precios", {Cols(kText, {"codigo"}), Cols(kInt32, {"cliente"}),
                                 Cols(kDouble, {"precio"}), Cols(kInt32, {"item"})}),
      // The materials (equivale) a product consumes when it is produced.
      Make("productos consumos", {Cols(kText, {"codigo", "equivale"}), Cols(kDouble, {"cantidad"}),
                                  Cols(kInt32, {"item"})}),
      // The price level (utilidad, 1 to 5) and discount a client gets on a brand.
      Make("clientes utilidades", {Cols(kInt32, {"cliente", "marca"}), Cols(kInt16, {"utilidad"}),
                                   Cols(kDouble, {"dcto"})}),
      // Ageing categories of obsolete stock, in months.
      Make("obsoletos", {Cols(kText, {"categoria"}), Cols(kInt32, {"mes"})}),
      // Stock count rows.
      Make("inventario",
           {Cols(kInt32, {"documento"}), Cols(kInt16, {"almacen"}), Cols(kInt32, {"item"}),
            Cols(kDateTime, {"fecha"}), Cols(kText, {"codigo", "descripcion", "unidad"}),
            Cols(kDouble, {"cantidad", "costo"})}),
  };
}

// permisos: the menu mask, four blocks of 50 "1"/"0". The family columns hold three letters
// "S"/"N": may add, cancel, change.
Table Usuarios() {
  return Make(
      "usuarios",
      {Cols(kText, {"usuario", "contraseña"}), Cols(kInt16, {"tienda"}),
       Cols(kYesNo, {"administrador", "gerente"}), Cols(kText, {"permisos"}),
       Cols(kText, {"ordenescompra", "compras",      "contrarecibos",  "cotizaciones", "pedidos",
                    "remisiones",    "facturas",     "produccion",     "traspasos",    "cxc",
                    "cxp",           "notascliente", "notasproveedor", "licitaciones", "ajustes",
                    "clientes",      "agentes",      "proveedores",    "marcas",       "lineas",
                    "productos",     "bancos",       "foliosfacturas", "foliosnotas"}),
       Cols(kYesNo,
            {"modificarcosto", "modificarplazo", "modificarcredito", "aplicarseriesenfacturas"}),
       Numbered(kText, "seriefacturacion", 1, 9)});
}

// One saved grid view per form caption and user.
Table Tablas() {
  return Make("tablas", {Cols(kText, {"tabla", "usuario", "sentencia", "cadena", "busqueda",
                                      "ordenar", "permisos", "seguridad"}),
                         Cols(kInt32, {"extender", "renglon", "altura", "posicion"})});
}

// The single row numero = 1. expedidoen*: the issuing branch; codigo actual / codigo nuevo: a
// product code change under way.
Table Empresa() {
  return Make(
      "empresa",
      {Cols(kInt32, {"numero"}), Cols(kText, {"rfc", "empresa", "nombre"}), Address(),
       Address("expedidoen"), Cols(kText, {"telefonos", "email", "paginaweb"}),
       Cols(kDouble, {"impuesto"}), Cols(kText, {"moneda", "obsoletos"}),
       Cols(kInt16, {"respaldar"}), Cols(kText, {"revision", "pagos", "realizarpago"}),
       Cols(kYesNo,
            {"aplicar_retenciones", "aplicar_utilidad_financiera", "aplicar_utilidad_aritmetica",
             "aplicar_utilidades_de_marcas_en_productos", "encompras_modificar_costos_y_precios",
             "encompras_modificar_al_ultimo_costo", "encompras_modificar_al_costo_mas_alto",
             "utilizar_consecutivo_en_codigo", "utilizar_mayusculas", "guardar_sin_existencias",
             "imprimirencabezados", "tallas"}),
       Cols(kText, {"servidorsmtp", "puertosmtp", "de", "password", "autenticacion", "pacusuario",
                    "pacpassword", "pacproduccion", "pacurlpruebas", "pacurlproduccion"}),
       Cols(kBinary, {"logotipo"}), Cols(kText, {"codigo actual", "codigo nuevo"})});
}

// The block of one printed form of the terminal settings (ticket, nota, cotizacion): rms and
// rmi are blank lines at top and bottom, enc and pie the header and footer lines.
std::vector<Column> FormBlock(const std::string& p) {
  return Join(
      {Cols(kText, p, {"serie"}),
       Cols(kInt16, p,
            {"impresionesenoriginal", "impresionesencopia", "formatooriginal", "formatocopia"}),
       Cols(kYesNo, p, {"imprimirenzonas", "preguntarporimprimir"}),
       Cols(kInt16, p, {"rms", "rmi"}), Cols(kYesNo, p, {"abrircajon"}),
       Cols(kText, p, {"impresoraoriginal", "impresoracopia"}), Numbered(kText, p + "enc", 0, 9),
       Numbered(kText, p + "pie", 0, 9)});
}

// Terminal settings, one row per user.
Table Configurar() {
  return Make("configurar",
              {Cols(kText, {"usuario"}),
               Cols(kInt16, {"pantallapordefaultentpv", "pantalladecobroentpv",
                             "clientepordefaultentpv", "agenteautilizarparaesteusuario"}),
               Cols(kYesNo, {"mostrarventasdeldiaentpv", "permitircortedecaja",
                             "permitirmodificarprecioentpv", "permitirmodificardescuentoentpv",
                             "guardarpreciomodificadoenproductos", "entrardirectamenteatpv"}),
               FormBlock("ticket"), FormBlock("nota"), FormBlock("cotizacion")});
}

std::vector<Table> SettingsTables() {
  return {
      Usuarios(),
      Tablas(),
      Empresa(),
      Configurar(),
      // The default series of each document family.
      Make("series", {Cols(kText, {"documento", "serie", "nombre"})}),
      // The filter screen's field list.
      Make("campos", {Cols(kText, {"campo", "tipo", "dato"}), Cols(kInt32, {"posicion"})}),
      // Per-store ticket settings kept from before configurar.
      Make("ticket", {Cols(kInt32, {"numero", "cliente", "pantalla"}),
                      Cols(kText, {"imprimirticket", "abrircajon", "impresora"}),
                      Cols(kInt32, {"renglonesmargensuperior", "renglonesmargeninferior"}),
                      Numbered(kText, "enc", 1, 9), Numbered(kText, "pie", 1, 9)}),
  };
}

// A folio range of invoices or of credit notes. predeterminar: "+" on the default range;
// alinearlogotipo, ubicarlogotipo, alinearempresa: list positions of the placement choices.
Table Folios(const char* name, bool pagare) {
  Table table = Make(
      name, {Cols(kInt32, {"numero"}), Cols(kText, {"serie", "esquema", "version"}),
             Cols(kInt32, {"anoaprobacion"}), Cols(kText, {"noaprobacion"}),
             Cols(kInt32, {"folioinicial", "foliofinal", "cantidad"}),
             Cols(kText, {"nocertificado"}), Cols(kDateTime, {"validodesde", "validohasta"}),
             Cols(kText, {"archivocertificado", "archivollave", "password", "algoritmosellodigital",
                          "regimenfiscal", "predeterminar", "imprimirlogotipo", "alinearlogotipo",
                          "ubicarlogotipo", "alinearempresa", "domicilio"}),
             Numbered(kText, "leyenda", 1, 3), Cols(kText, {"status"})});
  if (pagare) table.columns.push_back({"pagare", kText});
  return table;
}

std::vector<Table> AddendaTables() {
  return {
      Make("addenda coppel",
           {Cols(kText, {"factura", "pedido", "referenciapedido", "proveedor", "tipoproveedor",
                         "nombrebodega", "direccion", "ciudad", "codigopostal", "numerobodega"}),
            Cols(kInt32, {"cantidadlotes"}),
            Cols(kDouble, {"importe", "descuento", "subtotal", "iva", "total"}),
            Cols(kDateTime, {"fechafactura", "fechapedido"})}),
      Make("addenda coppel detalles",
           {Cols(kText, {"factura"}), Cols(kInt32, {"item"}),
            Cols(kText, {"estilocoppel", "talla", "estiloempresa"}),
            Cols(kDouble, {"paresporpunto", "precioporpunto", "preciocondescuento",
                           "cantidadprepack", "porcentajedescuento", "montodeldescuento",
                           "totalitem", "totalcondescuentoitem"}),
            Cols(kText, {"codigo"})}),
      // siniestro_afectado: "A" insured, "T" third party.
      Make("addenda inbursa",
           {Cols(kText, {"factura", "siniestro_emisor", "siniestro_numero"}),
            Cols(kDouble, {"deducible_importe"}), Cols(kText, {"siniestro_afectado"})}),
      Make("addenda qualitas",
           {Cols(kText, {"factura"}), Cols(kDateTime, {"fecha"}),
            Cols(kText, {"version", "id6", "id", "codigo"}),
            Cols(kText, "poliza_",
                 {"tipo", "numero", "inc", "tpocliente", "nroreporte", "nrosiniestro"}),
            Cols(kText, "vehiculo_",
                 {"marca", "modelo", "ano", "color", "nroserie", "placa", "tipo"}),
            Cols(kText, "contacto_", {"nombre", "email", "telefono", "tipo"}),
            Cols(kText, {"personalizados_oficinaentregafactura"})}),
      Make("addenda axxa",
           {Cols(kText, {"factura", "emisorri", "receptorri"}), Cols(kYesNo, {"activo"}),
            Cols(kDouble, {"deducible"}), Cols(kText, {"procesoid"}),
            Cols(kDateTime, {"fechaprefactura"}),
            Cols(kText,
                 {"tipofacturacion", "siniestro", "lesionado", "modeloautomovil", "placasautomovil",
                  "marca", "anoautomovil", "numpoliza", "numautorizacion", "tipocomprobante"})}),
      // Workshop data of an order, read by the addendas of insurers.
      Make("ordenes de trabajo",
           {Cols(kText, {"orden", "marca", "modelo", "año", "color", "placas", "vin"})}),
  };
}

std::vector<Table> ElectronicTables() {
  std::vector<Table> tables = {
      Folios("folios facturas", true),
      Folios("folios notas", false),
      // The sealing material of a range; documento 0 invoice ranges, 1 credit note ranges.
      Make("certificados", {Cols(kInt32, {"numero", "documento"}),
                            Cols(kBinary, {"certificado", "llave"}), Cols(kText, {"password"})}),
      Make("cbb", {Cols(kInt32, {"numero", "documento"}), Cols(kBinary, {"cbb"})}),
  };
  for (Table& t : AddendaTables()) tables.push_back(std::move(t));
  return tables;
}

// Stored designs of printed documents. Positions and sizes are in twips; flags hold 1 for
// "Si"; the list properties hold the number of the chosen entry.
std::vector<Table> ReportTables() {
  return {
      Make("reporte",
           {Cols(kText, {"reporte"}), Cols(kInt16, {"reportnumber", "orientation"}),
            Cols(kInt32, {"topmargin", "bottommargin", "leftmargin", "rightmargin", "reportwidth"}),
            Cols(kText, {"sentencia", "documento", "serie"}), Cols(kInt32, {"renglones"})}),
      Make("reporte secciones",
           {Cols(kText, {"reporte"}), Cols(kInt16, {"seccion"}), Cols(kInt32, {"height"}),
            Cols(kInt16, {"forcepagebreak", "keeptogether", "visible"})}),
      Make(
          "reporte controles",
          {Cols(kText, {"reporte"}), Cols(kInt16, {"seccion"}), Cols(kInt32, {"numero"}),
           Cols(kText, {"control"}), Cols(kInt16, {"alignment"}),
           Cols(kInt32, {"height", "left", "top", "width"}),
           Cols(kInt16, {"cangrow", "backstyle", "borderstyle", "visible", "fontbold", "fontitalic",
                         "functiontype", "picturealignment", "sizemode", "shape", "lineslant"}),
           Cols(kInt32, {"backcolor", "bordercolor", "forecolor"}),
           Cols(kText, {"caption", "fontname", "datafield", "dataformat", "picture"}),
           Cols(kDouble, {"fontsize"})}),
      // The printer of a design on each workstation; the two views hold "Si" or "No".
      Make("impresoras", {Cols(kText, {"reporte", "equipo", "impresora"}),
                          Cols(kYesNo, {"vistapreliminar", "vistaimpresoras"})}),
  };
}

}  // namespace

std::vector<Table> CatalogTables() {
  std::vector<Table> tables = PartnerTables();
  for (auto part : {ProductTables(), SettingsTables(), ElectronicTables(), ReportTables()}) {
    for (Table& t : part) tables.push_back(std::move(t));
  }
  return tables;
}

std::vector<Index> CatalogIndexes() {
  return {
      {"agentes1", "agentes", {"numero"}, true},
      {"bancos0", "bancos", {"numero"}, true},
      {"clientes0", "clientes", {"numero"}, true},
      {"clientes1", "clientes", {"nombre"}},
      {"clientes2", "clientes", {"rfc"}},
      {"proveedores0", "proveedores", {"numero"}, true},
      {"proveedores1", "proveedores", {"nombre"}},
      {"proveedores2", "proveedores", {"rfc"}},
      {"marcas0", "marcas", {"numero"}, true},
      {"lineas0", "lineas", {"numero"}, true},
      {"productos0", "productos", {"codigo"}, true},
      {"productos1", "productos", {"producto"}},
      {"productos2", "productos", {"marca"}},
      {"productos3", "productos", {"linea"}},
      // Every price look-up of a sale asks for one client's price of one product.
      {"productosprecios0", "productos precios", {"cliente", "codigo"}},
      {"productosconsumos0", "productos consumos", {"codigo"}},
      {"clientesutilidades0", "clientes utilidades", {"cliente", "marca"}},
      {"metodos0", "metodos", {"numero"}, true},
      {"series0", "series", {"documento", "serie"}},
      {"tablas0", "tablas", {"tabla", "usuario"}, true},
      {"usuarios0", "usuarios", {"usuario"}, true},
      {"empresa0", "empresa", {"numero"}, true},
      {"ff0", "folios facturas", {"numero"}, true},
      {"fn0", "folios notas", {"numero"}, true},
      {"cbb0", "cbb", {"numero", "documento"}, true},
      {"certificados0", "certificados", {"numero", "documento"}, true},
      {"ticket0", "ticket", {"numero"}, true},
      {"impresoras0", "impresoras", {"reporte"}},
      {"reporte0", "reporte", {"reporte"}, true},
      {"reporte1", "reporte", {"documento"}},
      {"reporte2", "reporte", {"serie"}},
      {"reporte0c", "reporte controles", {"reporte"}},
      {"reporte1c", "reporte controles", {"seccion"}},
      {"reporte2c", "reporte controles", {"numero"}},
      {"reporte0s", "reporte secciones", {"reporte"}},
      {"reporte1s", "reporte secciones", {"seccion"}},
  };
}

}  // namespace ventarix::schema
