#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include "edocs/xml_ptr.h"

namespace ventarix::pac {

inline constexpr char kNsTimbre[] = "http://www.sat.gob.mx/TimbreFiscalDigital";

// The CFDi 3.2 schema with the TimbreFiscalDigital one, compiled once at start-up from the
// SAT's files in `carpeta` and shared by every request.
class Esquemas {
 public:
  explicit Esquemas(const QString& carpeta);
  const QString& error() const { return error_; }
  // Empty when the document is valid, else the validator's words.
  QString Validar(xmlDoc* doc) const;

 private:
  edocs::XmlSchemaPtr esquema_;
  QString error_;
};

// What the checks read from a document's root and its Emisor and Receptor.
struct DatosCfdi {
  QString sello, certificado, total, rfc_emisor, rfc_receptor;
  QDateTime fecha;        // local time, as written
  bool timbrado = false;  // already carries a tfd:TimbreFiscalDigital
};
DatosCfdi LeerDatos(xmlDoc* doc);

// The TimbreFiscalDigital 1.0 a stamp adds.
struct Tfd {
  QString uuid, fecha_timbrado, sello_cfd, no_certificado_sat, sello_sat;
};
// The timbre alone as a document whose root is the tfd element, what the SAT's TFD sheet reads.
QByteArray DocumentoTfd(const Tfd& tfd);
// The document with cfdi:Complemento/tfd:TimbreFiscalDigital added (before an Addenda), as
// UTF-8 text.
QByteArray AgregarTimbre(xmlDoc* doc, const Tfd& tfd);

}  // namespace ventarix::pac
