// A stored invoice's XML file written again from its row, with the seal (and for CFDi the
// stamp) it was given: the mail screens and the reprint of a file need it on disk.
#include <QSaveFile>
#include <QSqlQuery>

#include "core/database.h"
#include "core/session.h"
#include "edocs/cfdi_xml.h"

namespace ventarix::edocs {
namespace {

// What sets the CFDi and CFD rebuilds apart.
struct Reconstruccion {
  QString esquema;  // the row's Esquema, upper case
  FormatoXml formato;
  QString sin_fila;  // the message for a key without a row
};

const Reconstruccion kCfdi{QStringLiteral("CFDI"), FormatoXml::kCfdi32,
                           QStringLiteral("No se localizó este número de factura")};
// The CFD rebuild has no message of its own for a missing row: it is a row without data.
const Reconstruccion kCfd{QStringLiteral("CFD"), FormatoXml::kCfd22,
                          QStringLiteral("No se obtuvieron datos de esta factura")};

bool GuardarArchivo(const QString& ruta, const QByteArray& contenido) {
  // Written beside and moved into place, so that a failed write leaves the old file whole.
  QSaveFile archivo(ruta);
  return archivo.open(QIODevice::WriteOnly) && archivo.write(contenido) == contenido.size() &&
         archivo.commit();
}

Outcome Reconstruir(const Session& session, const QString& factura, const Reconstruccion& r) {
  Connection connection(session.Cadena);
  if (!connection.ok()) return Outcome::Stop(connection.error());
  QSqlQuery fila = connection.Exec(
      QStringLiteral("select esquema, status from facturas where factura = ?"), {factura});
  if (!fila.next()) return Outcome::Refuse(r.sin_fila);
  if (fila.value(0).toString().trimmed().toUpper() != r.esquema) {
    return Outcome::Warning(
        QStringLiteral("Para el timbrado de esta factura se requiere un esquema CFDi"));
  }
  if (fila.value(1).toString().trimmed().toUpper() == QLatin1String("BAJA")) {
    return Outcome::Refuse(QStringLiteral("Esta factura esta dada de baja"));
  }
  Comprobante comprobante;
  if (!LeerComprobante(connection, QStringLiteral("facturas"), QStringLiteral("factura"), factura,
                       &comprobante)) {
    return Outcome::Refuse(QStringLiteral("No se obtuvieron datos de esta factura"));
  }
  const QByteArray xml = ConstruirXml(comprobante, r.formato);
  if (xml.isEmpty() || session.CarpetaXml.isEmpty() ||
      !GuardarArchivo(session.CarpetaXml + QLatin1Char('/') + factura + QStringLiteral(".xml"),
                      xml)) {
    return Outcome::Stop(
        QStringLiteral("No se pudo crear el archivo XML para su respectivo timbrado"));
  }
  return Outcome::Ok();
}

}  // namespace

Outcome CrearXmlDesdeFactura(const Session& session, const QString& factura) {
  return Reconstruir(session, factura, kCfdi);
}

Outcome CrearXmlDesdeFacturaCFD(const Session& session, const QString& factura) {
  return Reconstruir(session, factura, kCfd);
}

}  // namespace ventarix::edocs
