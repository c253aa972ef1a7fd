#include <iterator>

#include <QString>
#include <QStringList>

#include "catalogs/empresa_cuentas.h"
#include "core/session_load.h"
#include "demo/demo_tables.h"

// The company row and the small lists every screen reads: payment methods, client types,
// default series, banks.
namespace ventarix::demo {

namespace {

// The stand-in PAC tools/demo.sh starts beside the program: the demo never reaches the provider.
// Both addresses point at it, since cancelling always goes to the production one.
constexpr char kPacLocal[] =
    "http://127.0.0.1:8642/ws/services/Timbrado.TimbradoHttpsSoap11Endpoint/";

// The shop's fiscal address, shared by the issuing branch. The RFC is that of the SAT's test
// certificate valid today, so that documents can be sealed with it.
Fila DomicilioFiscal() {
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
Fila Reglas() {
  const QString si = Texto("S");
  const QString no = Texto("N");
  return {{"impuesto", 16.0},
          {"moneda", Texto("MXN")},
          {"obsoletos", Texto("Obsoletos")},
          {"respaldar", 1},
          {"revision", Texto("LUNES Y MIÉRCOLES DE 10:00 A 14:00 HRS.")},
          {"pagos", Texto("VIERNES DE 10:00 A 14:00 HRS.")},
          {"realizarpago", Texto("CAJA DE LA TIENDA, AV. REVOLUCIÓN 1425")},
          {"aplicar_retenciones", no},
          {"aplicar_utilidad_financiera", no},
          {"aplicar_utilidad_aritmetica", si},
          {"aplicar_utilidades_de_marcas_en_productos", si},
          {"encompras_modificar_costos_y_precios", si},
          {"encompras_modificar_al_ultimo_costo", no},
          {"encompras_modificar_al_costo_mas_alto", si},
          {"utilizar_consecutivo_en_codigo", si},
          {"utilizar_mayusculas", si},
          {"guardar_sin_existencias", si},
          {"imprimirencabezados", si},
          {"tallas", no},
          {"servidorsmtp", Vacio()},
          {"puertosmtp", Texto("587")},
          {"de", Texto("ventas@ferreteriakemper.example")},
          {"password", Vacio()},
          {"autenticacion", si},
          {"pacusuario", Texto(empresa::kPacUsuarioDePrueba)},
          {"pacpassword", Texto(empresa::kPacPasswordDePrueba)},
          {"pacproduccion", no},
          {"pacurlpruebas", Texto(kPacLocal)},
          {"pacurlproduccion", Texto(kPacLocal)},
          {"codigo actual", Vacio()},
          {"codigo nuevo", Vacio()}};
}

}  // namespace

bool EscribirEmpresa(Connection& c, QString* error) {
  RowWriter writer(c, QStringLiteral("empresa"));
  return Agregar(writer, Fila{{"numero", 1}} + DomicilioFiscal() + Reglas(), error);
}

bool EscribirMetodos(Connection& c, QString* error) {
  static const char* const kNombres[] = {
      "EFECTIVO",           "CHEQUE NOMINATIVO", "TRANSFERENCIA ELECTRÓNICA DE FONDOS",
      "TARJETA DE CRÉDITO", "TARJETA DE DÉBITO", "NO IDENTIFICADO"};
  static_assert(std::size(kNombres) == kMetodos);
  RowWriter writer(c, QStringLiteral("metodos"));
  int numero = 0;
  for (const char* nombre : kNombres) {
    if (!Agregar(writer, {{"numero", ++numero}, {"nombre", Texto(nombre)}}, error)) return false;
  }
  return true;
}

bool EscribirTipos(Connection& c, QString* error) {
  RowWriter writer(c, QStringLiteral("tipos"));
  for (const char* nombre : {"MOSTRADOR", "MAYOREO", "CONTRATISTA", "GOBIERNO"}) {
    if (!Agregar(writer, {{"nombre", Texto(nombre)}}, error)) return false;
  }
  return true;
}

// The default serie of each document family, as the session load reads them.
namespace {

struct Serie {
  const char *documento, *serie, *nombre;
};
constexpr Serie kSeries[] = {{"ordenescompra", "OC", "ÓRDENES DE COMPRA"},
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

}  // namespace

Session SesionDeDemo(Connection& c) {
  Session s;
  s.Sql = c.sql();
  s.Usuario = QStringLiteral("ADMINISTRADOR");
  s.Equipo = QStringLiteral("DEMO");
  s.Tienda = 1;
  PermisosCompletos(s.usuario, s.Usuario);
  return s;
}

QString SerieDe(const char* documento) {
  for (const Serie& s : kSeries) {
    if (qstrcmp(s.documento, documento) == 0) return Texto(s.serie);
  }
  return {};
}

bool EscribirSeries(Connection& c, QString* error) {
  RowWriter writer(c, QStringLiteral("series"));
  for (const Serie& s : kSeries) {
    const Fila row{
        {"documento", Texto(s.documento)}, {"serie", Texto(s.serie)}, {"nombre", Texto(s.nombre)}};
    if (!Agregar(writer, row, error)) return false;
  }
  return true;
}

bool EscribirBancos(Connection& c, QString* error) {
  static const char* const kNombres[] = {"BBVA BANCOMER", "BANAMEX", "BANORTE", "SANTANDER"};
  static_assert(std::size(kNombres) == kBancos);
  RowWriter writer(c, QStringLiteral("bancos"));
  int numero = 0;
  for (const char* nombre : kNombres) {
    ++numero;
    // The ledger account the bank screen proposes.
    const Fila row{{"numero", numero},
                   {"nombre", Texto(nombre)},
                   {"cuenta", QStringLiteral("100-002-%1").arg(numero, 6, 10, QLatin1Char('0'))},
                   {"status", Texto("ALTA")}};
    if (!Agregar(writer, row, error)) return false;
  }
  return true;
}

}  // namespace ventarix::demo
