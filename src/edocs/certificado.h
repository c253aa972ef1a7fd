#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace ventarix::edocs {

// What a sealing certificate (.cer, DER X.509) tells: the SAT serial, its validity and the
// Base64 text that travels in the document.
struct Certificado {
  bool ok = false;
  QString error;           // the library's words when the file is not a certificate
  QString NoCertificado;   // "20001000000100005867": every second character of the hex pairs
  QDateTime valido_desde;  // local time
  QDateTime valido_hasta;  // local time
  QString base64;          // the whole DER in Base64, one line
  QByteArray der;
};

Certificado LeerCertificado(const QByteArray& der);
Certificado LeerCertificadoDeArchivo(const QString& path);

// The serial number as the SAT writes it: from the hexadecimal pairs "3230303031", the
// characters 2, 4, 6 ... ("20001").
QString NumeroDeSerie(const QString& hex_pairs);

// "dd/mmm/yyyy hh:mm:ss am/pm" as the validity message shows a date: "27/jul/2016 05:02:04 pm".
QString FechaDeVigencia(const QDateTime& fecha);

}  // namespace ventarix::edocs
