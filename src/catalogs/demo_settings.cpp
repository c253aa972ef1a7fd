#include <QString>
#include <QStringList>

#include "catalogs/demo_tables.h"

// The company row and the small lists every screen reads: payment methods, client types,
// default series, banks.
namespace ventarix::demo {

namespace {

const char kSi[] = "S";
const char kNo[] = "N";

// The shop's fiscal address, shared by the issuing branch. The RFC is that of the SAT's test
// certificate valid today, so that documents can be sealed with it.
QList<Campo> DomicilioFiscal() {
  return {{"rfc", Texto("EKU9003173C9")},
          {"empresa", Texto("FERRETERÍA KEMPER")},
          {"nombre", Texto("ESCUELA KEMPER URGATE SA DE CV")},
          {"calle", Texto("AV. REVOLUCIÓN")},
          {"noexterior", Texto("1425")},
          {"nointerior", Texto("LOCAL 3")},
          {"colonia", Texto("CAMPESTRE")},
          {"localidad", Texto("CIUDAD DE MÉXICO")},
          {"referencia", Texto("ENTRE BARRANCA DEL MUERTO Y RÍO MIXCOAC")},
          {"municipio", Texto("ÁLVARO OBREGÓN")},
          {"estado", Texto("CIUDAD DE MÉXICO")},
          {"pais", Texto("MÉXICO")},
          {"codigopostal", Texto("01040")},
          {"expedidoencalle", Texto("AV. REVOLUCIÓN")},
          {"expedidoennoexterior", Texto("1425")},
          {"expedidoennointerior", Texto("LOCAL 3")},
          {"expedidoencolonia", Texto("CAMPESTRE")},
          {"expedidoenlocalidad", Texto("CIUDAD DE MÉXICO")},
          {"expedidoenreferencia", Texto("ENTRE BARRANCA DEL MUERTO Y RÍO MIXCOAC")},
          {"expedidoenmunicipio", Texto("ÁLVARO OBREGÓN")},
          {"expedidoenestado", Texto("CIUDAD DE MÉXICO")},
          {"expedidoenpais", Texto("MÉXICO")},
          {"expedidoencodigopostal", Texto("01040")},
          {"telefonos", Texto("55 5661 2040, 55 5661 2041")},
          {"email", Texto("ventas@ferreteriakemper.example")},
          {"paginaweb", Texto("www.ferreteriakemper.example")}};
}

// Prices follow costs arithmetically and brands push their margins into their products;
// purchases raise costs only upwards; codes are brand-consecutive.
QList<Campo> Reglas() {
  return {{"impuesto", 16.0},
          {"moneda", Texto("MXN")},
          {"obsoletos", Texto("Obsoletos")},
          {"respaldar", 1},
          {"revision", Texto("LUNES Y MIÉRCOLES DE 10:00 A 14:00 HRS.")},
          {"pagos", Texto("VIERNES DE 10:00 A 14:00 HRS.")},
          {"realizarpago", Texto("CAJA DE LA TIENDA, AV. REVOLUCIÓN 1425")},
          {"aplicar_retenciones", Texto(kNo)},
          {"aplicar_utilidad_financiera", Texto(kNo)},
          {"aplicar_utilidad_aritmetica", Texto(kSi)},
          {"aplicar_utilidades_de_marcas_en_productos", Texto(kSi)},
          {"encompras_modificar_costos_y_precios", Texto(kSi)},
          {"encompras_modificar_al_ultimo_costo", Texto(kNo)},
          {"encompras_modificar_al_costo_mas_alto", Texto(kSi)},
          {"utilizar_consecutivo_en_codigo", Texto(kSi)},
          {"utilizar_mayusculas", Texto(kSi)},
          {"guardar_sin_existencias", Texto(kSi)},
          {"imprimirencabezados", Texto(kSi)},
          {"tallas", Texto(kNo)},
          {"servidorsmtp", Vacio()},
          {"puertosmtp", Texto("587")},
          {"de", Texto("ventas@ferreteriakemper.example")},
          {"password", Vacio()},
          {"autenticacion", Texto(kSi)},
          {"pacusuario", Vacio()},
          {"pacpassword", Vacio()},
          {"pacproduccion", Texto(kNo)},
          {"codigo actual", Vacio()},
          {"codigo nuevo", Vacio()}};
}

bool EscribirNombres(Connection& c, const QString& table, const QStringList& names, bool numbered,
                     QString* error) {
  RowWriter writer(c, table,
                   numbered ? QStringList{QStringLiteral("numero"), QStringLiteral("nombre")}
                            : QStringList{QStringLiteral("nombre")});
  for (int i = 0; i < names.size(); ++i) {
    const bool added = numbered ? writer.Add({i + 1, names[i]}) : writer.Add({names[i]});
    if (!added) {
      *error = writer.error();
      return false;
    }
  }
  return true;
}

}  // namespace

bool EscribirEmpresa(Connection& c, QString* error) {
  QList<Campo> row{{"numero", 1}};
  row += DomicilioFiscal();
  row += Reglas();
  return WriteRow(c, QStringLiteral("empresa"), row, error);
}

bool EscribirMetodos(Connection& c, QString* error) {
  const QStringList names{Texto("EFECTIVO"),
                          Texto("CHEQUE NOMINATIVO"),
                          Texto("TRANSFERENCIA ELECTRÓNICA DE FONDOS"),
                          Texto("TARJETA DE CRÉDITO"),
                          Texto("TARJETA DE DÉBITO"),
                          Texto("NO IDENTIFICADO")};
  static_assert(kMetodos == 6);
  return EscribirNombres(c, QStringLiteral("metodos"), names, true, error);
}

bool EscribirTipos(Connection& c, QString* error) {
  return EscribirNombres(
      c, QStringLiteral("tipos"),
      {Texto("MOSTRADOR"), Texto("MAYOREO"), Texto("CONTRATISTA"), Texto("GOBIERNO")}, false,
      error);
}

bool EscribirSeries(Connection& c, QString* error) {
  struct Serie {
    const char* documento;
    const char* serie;
    const char* nombre;
  };
  static const Serie kSeries[] = {{"ordenescompra", "OC", "ÓRDENES DE COMPRA"},
                                  {"compras", "A", "COMPRAS"},
                                  {"licitaciones", "LI", "LICITACIONES"},
                                  {"contrarecibos", "CR", "CONTRARRECIBOS"},
                                  {"cotizaciones", "C", "COTIZACIONES"},
                                  {"pedidos", "P", "PEDIDOS"},
                                  {"remisiones", "R", "REMISIONES"},
                                  {"produccion", "PR", "PRODUCCIÓN"},
                                  {"traspasos", "TR", "TRASPASOS"},
                                  {"cxc", "CC", "COBRANZA"},
                                  {"cxp", "CP", "PAGOS A PROVEEDORES"},
                                  {"ncp", "NP", "NOTAS DE PROVEEDOR"},
                                  {"ajustes", "AJ", "AJUSTES DE INVENTARIO"}};
  RowWriter writer(
      c, QStringLiteral("series"),
      {QStringLiteral("documento"), QStringLiteral("serie"), QStringLiteral("nombre")});
  for (const Serie& s : kSeries) {
    if (!writer.Add({Texto(s.documento), Texto(s.serie), Texto(s.nombre)})) {
      *error = writer.error();
      return false;
    }
  }
  return true;
}

bool EscribirBancos(Connection& c, QString* error) {
  const QStringList names{Texto("BBVA BANCOMER"), Texto("BANAMEX"), Texto("BANORTE"),
                          Texto("SANTANDER")};
  static_assert(kBancos == 4);
  RowWriter writer(c, QStringLiteral("bancos"),
                   {QStringLiteral("numero"), QStringLiteral("nombre"), QStringLiteral("cuenta"),
                    QStringLiteral("status")});
  for (int i = 0; i < names.size(); ++i) {
    const QString cuenta = QStringLiteral("100-002-%1").arg(i + 1, 6, 10, QLatin1Char('0'));
    if (!writer.Add({i + 1, names[i], cuenta, Texto("ALTA")})) {
      *error = writer.error();
      return false;
    }
  }
  return true;
}

}  // namespace ventarix::demo
