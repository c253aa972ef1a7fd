#pragma once

#include <QByteArray>
#include <QString>

namespace ventarix {
struct Session;
}

namespace ventarix::edocs {

// The provider's published SOAP 1.1 addresses of its stamping service.
inline constexpr char kPacUrlPruebas[] =
    "https://testing.solucionfactible.com/ws/services/Timbrado.TimbradoHttpsSoap11Endpoint/";
inline constexpr char kPacUrlProduccion[] =
    "https://solucionfactible.com/ws/services/Timbrado.TimbradoHttpsSoap11Endpoint/";

// Where and as whom a company reaches its PAC: the account and the flag of the company row
// (pacusuario, pacpassword, pacproduccion) and its two addresses (pacurlpruebas,
// pacurlproduccion), the provider's published ones when empty. The time-outs bound every
// exchange, so that a PAC down or silent ends with a message and never freezes a screen.
struct CuentaPac {
  QString usuario;
  QString password;
  bool produccion = false;
  QString url_pruebas = QString::fromLatin1(kPacUrlPruebas);
  QString url_produccion = QString::fromLatin1(kPacUrlProduccion);
  int segundos_conexion = 10;
  int segundos_respuesta = 60;
};
CuentaPac CuentaPacDeEmpresa(const Session& session);

// What came back from one exchange with the PAC. falla holds, in the user's words, why no reply
// arrived (the PAC could not be reached, the time ran out, the connection dropped); texto is
// the service's reply as the user sees it and as the stamp's tags are read from it: the SOAP
// body's result element, its elements written without their namespace prefixes. An answer that
// is not SOAP comes back in texto as it arrived; an empty body leaves both empty.
struct RespuestaPac {
  QString falla;
  QString texto;
  bool entregada() const { return falla.isEmpty(); }
};

// `timbrar` with the document's bytes, to the test or the production address by the account's
// flag.
RespuestaPac PacTimbrar(const CuentaPac& cuenta, const QByteArray& xml);
// `cancelar` of one UUID with the .cer and .key files' bytes as they are and the key's
// password; always to the production address.
RespuestaPac PacCancelar(const CuentaPac& cuenta, const QString& uuid,
                         const QByteArray& certificado, const QByteArray& llave,
                         const QString& password);

// The text between the opening tag and the closing one, first occurrence; empty when any of the
// opening text, its ">" or the closing text is missing. Plain text search, no XML parsing.
QString ExtraerEtiqueta(const QString& respuesta, const QString& apertura, const QString& cierre);

}  // namespace ventarix::edocs
