// Catalogues, settings and every other table of a company database that is not a document.
#include "core/schema.h"
#include "core/schema_columns.h"

namespace ventarix::schema {
namespace {

using enum Type;

std::vector<Column> Address() {
  return Cols(kText, {"calle", "noexterior", "nointerior", "colonia", "localidad", "referencia",
                      "municipio", "estado", "pais", "codigopostal"});
}

std::vector<Table> PartnerTables() {
  return {
      Make("clientes", {Cols(kInt32, {"numero"}), Cols(kText, {"nombre", "rfc"}), Address(),
                        Cols(kInt32, {"plazo"}),  // days
                        Cols(kDouble, {"credito", "saldo"}), Cols(kInt32, {"agente", "metodo"}),
                        Cols(kText, {"numctapago"}), Cols(kInt32, {"banco"}),
                        Cols(kText, {"contacto", "telefonos", "celular", "nextel", "email1",
                                     "email2", "email3", "tipo", "cuenta", "anotaciones"}),
                        Cols(kYesNo, {"juridico"}), Cols(kText, {"addenda", "status"})}),
      Make("agentes", {Cols(kInt32, {"numero"}),
                       Cols(kText, {"nombre", "direccion", "colonia", "ciudad", "cp", "rfc",
                                    "contacto", "telefonos", "email", "cuenta"}),
                       Cols(kDouble, {"comision"}), Cols(kText, {"anotaciones"}),
                       Cols(kInt16, {"tienda"}), Numbered(kInt32, "dias", 1, 8),
                       Numbered(kDouble, "comision", 1, 4), Cols(kText, {"status"})}),
      Make("proveedores",
           {Cols(kInt32, {"numero"}), Cols(kText, {"nombre", "rfc"}), Address(),
            Cols(kInt32, {"plazo"}), Cols(kDouble, {"credito", "saldo"}),
            Cols(kText, {"contacto", "telefonos", "celular", "nextel", "email1", "email2", "email3",
                         "tipo", "cuenta", "anotaciones", "clave", "status"})}),
      Make("bancos", {Cols(kInt32, {"numero"}), Cols(kText, {"nombre", "cuenta", "status"})}),
      Make("metodos", {Cols(kInt32, {"numero"}), Cols(kText, {"nombre"})}),  // of payment
      Make("tipos", {Cols(kText, {"nombre"})}),
  };
}

std::vector<Table> ProductTables() {
  return {
      Make("marcas", {Cols(kInt32, {"numero"}), Cols(kText, {"nombre"}),
                      Numbered(kDouble, "utilidad", 1, 5), Cols(kText, {"status"})}),
      Make("lineas", {Cols(kInt32, {"numero"}), Cols(kText, {"nombre", "status"})}),
      Make("productos",
           {Cols(kText,
                 {"codigo", "codigo1", "codigo2", "codigo3", "producto", "descripcion", "unidad"}),
            Cols(kInt32, {"marca", "linea"}), Cols(kText, {"ubicacion", "zona", "moneda"}),
            Cols(kYesNo, {"pt"}),
            Cols(kDouble, {"costo", "ultimo costo", "venta", "ultima venta", "precio"}),
            Numbered(kDouble, "precio", 1, 5), Numbered(kDouble, "utilidad", 1, 5),
            Cols(kDouble, {"impuesto", "comision", "descuento", "min", "max"}),
            // Stock on hand in each of the five stores.
            Numbered(kDouble, "almacen", 1, 5),
            Cols(kDateTime, {"fecha ultima compra", "fecha ultima venta"}),
            Cols(kInt32, {"proveedor1"}), Cols(kYesNo, {"imagen"}),  // a picture file exists
            Cols(kText, {"status"})}),
      // A client's own price of a product.
      Make("productos precios", {Cols(kText, {"codigo"}), Cols(kInt32, {"cliente"}),
                                 Cols(kDouble, {"precio"}), Cols(kInt32, {"item"})}),
      // Materials a product consumes when it is produced.
      Make("productos consumos", {Cols(kText, {"codigo", "equivale"}), Cols(kDouble, {"cantidad"}),
                                  Cols(kInt32, {"item"})}),
      // The price level and discount a client gets on a brand.
      Make("clientes utilidades", {Cols(kInt32, {"cliente", "marca"}), Cols(kInt16, {"utilidad"}),
                                   Cols(kDouble, {"dcto"})}),
      Make("obsoletos", {Cols(kText, {"categoria"}), Cols(kInt32, {"mes"})}),
      // Stock count rows.
      Make("inventario",
           {Cols(kInt32, {"documento"}), Cols(kInt16, {"almacen"}), Cols(kInt32, {"item"}),
            Cols(kDateTime, {"fecha"}), Cols(kText, {"codigo", "descripcion", "unidad"}),
            Cols(kDouble, {"cantidad", "costo"})}),
  };
}

Table Usuarios() {
  return Make(
      "usuarios",
      {Cols(kText, {"usuario", "contraseña"}), Cols(kInt16, {"tienda"}),
       Cols(kYesNo, {"administrador", "gerente"}),
       Cols(kText, {"permisos"}),  // menu mask, four blocks of 50 "1"/"0"
       // Rights texts: add, cancel, change, each "S" or "N".
       Cols(kText, {"ordenescompra", "compras",      "contrarecibos",  "cotizaciones", "pedidos",
                    "remisiones",    "facturas",     "produccion",     "traspasos",    "cxc",
                    "cxp",           "notascliente", "notasproveedor", "licitaciones", "ajustes",
                    "clientes",      "agentes",      "proveedores",    "marcas",       "lineas",
                    "productos",     "bancos",       "foliosfacturas", "foliosnotas"}),
       Cols(kYesNo,
            {"modificarcosto", "modificarplazo", "modificarcredito", "aplicarseriesenfacturas"}),
       Numbered(kText, "seriefacturacion", 1, 9)});
}

Table Tablas() {
  return Make("tablas", {Cols(kText, {"tabla", "usuario", "sentencia", "cadena", "busqueda",
                                      "ordenar", "permisos", "seguridad"}),
                         Cols(kInt32, {"extender", "renglon", "altura", "posicion"})});
}

Table Empresa() {
  return Make(
      "empresa",
      {Cols(kInt32, {"numero"}), Cols(kText, {"rfc", "empresa", "nombre"}), Address(),
       Cols(kText,
            {"expedidoencalle", "expedidoennoexterior", "expedidoennointerior", "expedidoencolonia",
             "expedidoenlocalidad", "expedidoenreferencia", "expedidoenmunicipio",
             "expedidoenestado", "expedidoenpais", "expedidoencodigopostal"}),
       Cols(kText, {"telefonos", "email", "paginaweb"}), Cols(kDouble, {"impuesto"}),
       Cols(kText, {"moneda", "obsoletos"}), Cols(kInt16, {"respaldar"}),
       Cols(kText, {"revision", "pagos", "realizarpago"}),
       Cols(kYesNo,
            {"aplicar_retenciones", "aplicar_utilidad_financiera", "aplicar_utilidad_aritmetica",
             "aplicar_utilidades_de_marcas_en_productos", "encompras_modificar_costos_y_precios",
             "encompras_modificar_al_ultimo_costo", "encompras_modificar_al_costo_mas_alto",
             "utilizar_consecutivo_en_codigo", "utilizar_mayusculas", "guardar_sin_existencias",
             "imprimirencabezados", "tallas"}),
       Cols(kText, {"servidorsmtp", "puertosmtp", "de", "password", "autenticacion", "pacusuario",
                    "pacpassword", "pacproduccion"}),
       Cols(kBinary, {"logotipo"}),
       Cols(kText, {"codigo actual", "codigo nuevo"})});  // a product code change under way
}

// The block of one printed form of the terminal settings: ticket, nota or cotizacion.
std::vector<Column> FormBlock(const std::string& p) {
  auto named = [&p](Type type, std::initializer_list<const char*> suffixes) {
    std::vector<Column> columns;
    for (const char* s : suffixes) columns.push_back({Interned(p + s), type});
    return columns;
  };
  std::vector<Column> columns;
  for (const auto& group :
       {named(kText, {"serie"}),
        named(kInt16,
              {"impresionesenoriginal", "impresionesencopia", "formatooriginal", "formatocopia"}),
        named(kYesNo, {"imprimirenzonas", "preguntarporimprimir"}), named(kInt16, {"rms", "rmi"}),
        named(kYesNo, {"abrircajon"}), named(kText, {"impresoraoriginal", "impresoracopia"}),
        Numbered(kText, p + "enc", 1, 9), Numbered(kText, p + "pie", 1, 9)}) {
    columns.insert(columns.end(), group.begin(), group.end());
  }
  return columns;
}

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
      // Which series each document family offers.
      Make("series", {Cols(kText, {"documento", "serie", "nombre"})}),
      // The filter screen's field list.
      Make("campos", {Cols(kText, {"campo", "tipo", "dato"}), Cols(kInt32, {"posicion"})}),
      // Terminal settings kept from before configurar.
      Make("ticket", {Cols(kInt32, {"numero", "cliente", "pantalla"}),
                      Cols(kText, {"imprimirticket", "abrircajon", "impresora"}),
                      Cols(kInt32, {"renglonesmargensuperior", "renglonesmargeninferior"}),
                      Numbered(kText, "enc", 1, 9), Numbered(kText, "pie", 1, 9)}),
  };
}

// A folio range of invoices or of credit notes.
Table Folios(const char* name, bool pagare) {
  Table table =
      Make(name,
           {Cols(kInt32, {"numero"}), Cols(kText, {"serie", "esquema", "version"}),
            Cols(kInt32, {"anoaprobacion"}), Cols(kText, {"noaprobacion"}),
            Cols(kInt32, {"folioinicial", "foliofinal", "cantidad"}),
            Cols(kText, {"nocertificado"}), Cols(kDateTime, {"validodesde", "validohasta"}),
            Cols(kText, {"archivocertificado", "archivollave", "password", "algoritmosellodigital",
                         "regimenfiscal"}),
            Cols(kText, {"predeterminar"}),  // "+" on the default range
            Cols(kText, {"imprimirlogotipo"}),
            // List positions of the logo and name placement choices.
            Cols(kInt16, {"alinearlogotipo", "ubicarlogotipo", "alinearempresa"}),
            Cols(kText, {"domicilio"}), Numbered(kText, "leyenda", 1, 3), Cols(kText, {"status"})});
  if (pagare) table.columns.push_back({"pagare", kText});
  return table;
}

std::vector<Table> ElectronicTables() {
  return {
      Folios("folios facturas", true),
      Folios("folios notas", false),
      // documento: 0 invoice ranges, 1 credit note ranges.
      Make("certificados", {Cols(kInt32, {"numero", "documento"}),
                            Cols(kBinary, {"certificado", "llave"}), Cols(kText, {"password"})}),
      Make("cbb", {Cols(kInt32, {"numero", "documento"}), Cols(kBinary, {"cbb"})}),
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
      Make("addenda inbursa",
           {Cols(kText, {"factura", "siniestro_emisor", "siniestro_numero"}),
            Cols(kDouble, {"deducible_importe"}),
            Cols(kText, {"siniestro_afectado"})}),  // "A" insured, "T" third party
      Make("addenda qualitas", {Cols(kText, {"factura"}), Cols(kDateTime, {"fecha"}),
                                Cols(kText, {"version",
                                             "id6",
                                             "id",
                                             "codigo",
                                             "poliza_tipo",
                                             "poliza_numero",
                                             "poliza_inc",
                                             "poliza_tpocliente",
                                             "poliza_nroreporte",
                                             "poliza_nrosiniestro",
                                             "vehiculo_marca",
                                             "vehiculo_modelo",
                                             "vehiculo_ano",
                                             "vehiculo_color",
                                             "vehiculo_nroserie",
                                             "vehiculo_placa",
                                             "vehiculo_tipo",
                                             "contacto_nombre",
                                             "contacto_email",
                                             "contacto_telefono",
                                             "contacto_tipo",
                                             "personalizados_oficinaentregafactura"})}),
      Make("addenda axxa",
           {Cols(kText, {"factura", "emisorri", "receptorri", "activo"}),
            Cols(kDouble, {"deducible"}), Cols(kText, {"procesoid"}),
            Cols(kDateTime, {"fechaprefactura"}),
            Cols(kText,
                 {"tipofacturacion", "siniestro", "lesionado", "modeloautomovil", "placasautomovil",
                  "marca", "anoautomovil", "numpoliza", "numautorizacion", "tipocomprobante"})}),
      // Workshop data of an order, read by the AXXA and QUALITAS addendas.
      Make("ordenes de trabajo",
           {Cols(kText, {"orden", "marca", "modelo", "año", "color", "placas", "vin"})}),
  };
}

std::vector<Table> ReportTables() {
  return {
      // One stored design per document kind and series, keyed "Facturas-A".
      Make("reporte",
           {Cols(kText, {"reporte"}), Cols(kInt16, {"reportnumber", "orientation"}),
            Cols(kInt32, {"topmargin", "bottommargin", "leftmargin", "rightmargin",
                          "reportwidth"}),  // twips
            Cols(kText, {"sentencia", "documento", "serie"}), Cols(kInt32, {"renglones"})}),
      Make("reporte secciones",
           {Cols(kText, {"reporte"}), Cols(kInt16, {"seccion"}), Cols(kInt32, {"height"}),
            Cols(kInt16, {"forcepagebreak", "keeptogether", "visible"})}),
      Make("reporte controles", {Cols(kText, {"reporte"}),
                                 Cols(kInt16, {"seccion"}),
                                 Cols(kInt32, {"numero"}),
                                 Cols(kText, {"control"}),
                                 Cols(kInt16, {"alignment"}),
                                 Cols(kInt32, {"height", "left", "top", "width"}),
                                 Cols(kInt16, {"cangrow"}),
                                 Cols(kInt32, {"backcolor"}),
                                 Cols(kInt16, {"backstyle"}),
                                 Cols(kInt32, {"bordercolor"}),
                                 Cols(kInt16, {"borderstyle"}),
                                 Cols(kText, {"caption"}),
                                 Cols(kInt32, {"forecolor"}),
                                 Cols(kInt16, {"visible"}),
                                 Cols(kText, {"fontname"}),
                                 Cols(kInt16, {"fontbold", "fontitalic"}),
                                 Cols(kDouble, {"fontsize"}),
                                 Cols(kText, {"datafield", "dataformat"}),
                                 Cols(kInt16, {"functiontype", "picturealignment", "sizemode"}),
                                 Cols(kText, {"picture"}),
                                 Cols(kInt16, {"shape", "lineslant"})}),
      // The printer of a design on each workstation; the views hold "Si" or "No".
      Make("impresoras", {Cols(kText, {"reporte", "equipo", "impresora"}),
                          Cols(kYesNo, {"vistaimpresoras", "vistapreliminar"})}),
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
