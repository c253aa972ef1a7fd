#pragma once

#include <memory>
#include <utility>
#include <vector>

#include <QByteArray>
#include <QString>

#include "edocs/certificado.h"
#include "edocs/llave_privada.h"
#include "pac_local/documento.h"
#include "pac_local/registro.h"
#include "pac_local/soap.h"

namespace ventarix::pac {

// The provider's public test account, always accepted.
inline constexpr char kUsuarioPruebas[] = "testing@solucionfactible.com";
inline constexpr char kPasswordPruebas[] = "timbrado.SF.16672";

struct Configuracion {
  QString datos;                           // the SQLite file of the records
  QString certificado, llave, contrasena;  // what the stand-in signs its stamps with
  QString esquemas;  // cfdv32.xsd, TimbreFiscalDigital.xsd and the two cadena sheets
  std::vector<std::pair<QString, QString>> cuentas;  // accepted besides the test account
};

// The stamping service of the stand-in PAC: what a PAC checks of a CFDi 3.2, its stamp, and
// the cancellation of what it stamped. Safe to call from several threads at once.
class Servicio {
 public:
  explicit Servicio(const Configuracion& configuracion);
  // Empty when ready; else why the service cannot start.
  QString error() const { return error_; }

  // The reply to one posted body: HTTP status and SOAP envelope.
  std::pair<int, QByteArray> Atender(const QByteArray& cuerpo);

 private:
  bool Autorizado(const Solicitud& solicitud) const;
  Campos TimbrarDocumento(const QByteArray& xml);
  Campos Nuevo(xmlDoc* doc, const DatosCfdi& datos);
  Resultado Cancelar(const Solicitud& solicitud);
  Campos CancelarUuid(const QString& uuid, const QString& rfc);

  Configuracion configuracion_;
  edocs::Certificado certificado_;
  std::unique_ptr<edocs::LlavePrivada> llave_;
  std::unique_ptr<Esquemas> esquemas_;
  std::unique_ptr<Registro> registro_;
  QString error_;
};

}  // namespace ventarix::pac
