#include <QFile>
#include <QString>

#include "core/datos_instalacion.h"
#include "core/dialect.h"
#include "demo/demo_tables.h"
#include "edocs/certificado.h"

// The shop's electronic documents: one CFDi range for invoices and one for credit notes, both
// sealed with the SAT's test certificate of the company's RFC that the installation ships.
namespace ventarix::demo {

namespace {

constexpr char kPar[] = "EKU9003173C9_30001000000500003416";
constexpr char kContrasena[] = "12345678a";

struct Material {
  QByteArray cer, key;
  edocs::Certificado certificado;
};

bool LeerArchivo(const QString& path, QByteArray* bytes, QString* error) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    *error = QStringLiteral("No se encuentra el archivo de demostración ") + path;
    return false;
  }
  *bytes = file.readAll();
  return true;
}

bool LeerMaterial(Material* m, QString* error) {
  const QString base =
      instalacion::CarpetaSat(QStringLiteral("demo")) + QLatin1Char('/') + QLatin1String(kPar);
  if (!LeerArchivo(base + QStringLiteral(".cer"), &m->cer, error) ||
      !LeerArchivo(base + QStringLiteral(".key"), &m->key, error)) {
    return false;
  }
  m->certificado = edocs::LeerCertificado(m->cer);
  if (!m->certificado.ok) *error = m->certificado.error;
  return m->certificado.ok;
}

// The columns both ranges share; the invoices' one also has the promissory note.
Fila Rango(Connection& c, const Material& m, const char* serie, int final) {
  const QString archivo = QLatin1String(kPar);
  return {{"numero", 1},
          {"serie", Texto(serie)},
          {"esquema", Texto("CFDI")},
          {"version", Texto("3.2")},
          {"anoaprobacion", 0},
          {"noaprobacion", Vacio()},
          {"folioinicial", 1},
          {"foliofinal", final},
          {"cantidad", final},
          {"nocertificado", m.certificado.NoCertificado},
          {"validodesde", dialect::DateValue(m.certificado.valido_desde, c.sql())},
          {"validohasta", dialect::DateValue(m.certificado.valido_hasta, c.sql())},
          {"archivocertificado", archivo + QStringLiteral(".cer")},
          {"archivollave", archivo + QStringLiteral(".key")},
          {"password", Vacio()},
          {"algoritmosellodigital", Texto("sha-1")},
          {"regimenfiscal", Texto("RÉGIMEN GENERAL DE LEY PERSONAS MORALES")},
          {"predeterminar", Texto("+")},
          {"imprimirlogotipo", Texto("N")},
          {"alinearlogotipo", Texto("0")},
          {"ubicarlogotipo", Texto("0")},
          {"alinearempresa", Texto("0")},
          {"domicilio", Texto("<EmisorDireccion> <EmisorMunicipio>")},
          {"leyenda1", Texto("ESTE DOCUMENTO ES UNA REPRESENTACIÓN IMPRESA DE UN CFDI")},
          {"leyenda2", Vacio()},
          {"leyenda3", Vacio()},
          {"status", Texto("ALTA")}};
}

bool EscribirRango(Connection& c, const Material& m, const QString& tabla, Fila rango,
                   int documento, QString* error) {
  RowWriter folios(c, tabla);
  RowWriter certificados(c, QStringLiteral("certificados"));
  return Agregar(folios, rango, error) && Agregar(certificados,
                                                  {{"numero", 1},
                                                   {"documento", documento},
                                                   {"certificado", m.cer},
                                                   {"llave", m.key},
                                                   {"password", Texto(kContrasena)}},
                                                  error);
}

}  // namespace

bool EscribirFolios(Connection& c, QString* error) {
  Material m;
  if (!LeerMaterial(&m, error)) return false;
  Fila facturas = Rango(c, m, "A", 1000);
  facturas.append({"pagare", Texto("DEBO(EMOS) Y PAGARÉ(MOS) INCONDICIONALMENTE A LA ORDEN DE "
                                   "<EmisorNombre> LA CANTIDAD DE <FacturaTotal> "
                                   "(<FacturaLetra>) EL DÍA <FacturaVence>.")});
  return EscribirRango(c, m, QStringLiteral("folios facturas"), facturas, 0, error) &&
         EscribirRango(c, m, QStringLiteral("folios notas"), Rango(c, m, "NC", 1000), 1, error);
}

}  // namespace ventarix::demo
