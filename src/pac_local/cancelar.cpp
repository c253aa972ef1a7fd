// The stand-in's cancellation: the CSD sent must open and be the stamp's issuer's; each UUID
// gets the SAT's cancellation code in statusUUID.
#include "pac_local/firma.h"
#include "pac_local/servicio.h"

namespace ventarix::pac {

Resultado Servicio::Cancelar(const Solicitud& solicitud) {
  Resultado resultado{.tipo = QStringLiteral("CFDICancelacion"),
                      .tipo_resultado = QStringLiteral("CFDIResultadoCancelacion")};
  const QByteArray cer =
      QByteArray::fromBase64(solicitud.Valor(QStringLiteral("derCertCSD")).toLatin1());
  const QByteArray key =
      QByteArray::fromBase64(solicitud.Valor(QStringLiteral("derKeyCSD")).toLatin1());
  const edocs::LlavePrivada llave =
      edocs::LlavePrivada::Abrir(key, solicitud.Valor(QStringLiteral("contrasenaCSD")));
  const QStringList uuids = solicitud.Valores(QStringLiteral("uuids"));
  QString problema;
  if (!edocs::LeerCertificado(cer).ok) {
    problema = QStringLiteral("el certificado (derCertCSD) no es un certificado DER válido");
  } else if (llave.estado() == edocs::LlavePrivada::Estado::kSinReferencia) {
    problema = QStringLiteral("la llave privada (derKeyCSD) no es un archivo .key válido");
  } else if (!llave.ok()) {
    problema = QStringLiteral("la contraseña de la llave privada (contrasenaCSD) no es válida");
  } else if (!llave.CorrespondeA(cer)) {
    problema = QStringLiteral("la llave privada no corresponde al certificado");
  } else if (uuids.isEmpty()) {
    problema = QStringLiteral("no se indicó ningún UUID");
  }
  if (!problema.isEmpty()) {
    resultado.status = 500;
    resultado.mensaje = QStringLiteral("Error, proceso no completado: ") + problema;
    return resultado;
  }
  const QString rfc = RfcDelCertificado(cer);
  // Recent clients send "UUID|motivo|"; the UUID is what comes before the first bar.
  for (const QString& uuid : uuids)
    resultado.resultados.push_back(
        CancelarUuid(uuid.section(QLatin1Char('|'), 0, 0).trimmed().toUpper(), rfc));
  resultado.mensaje = QStringLiteral("Proceso de cancelación terminado");
  return resultado;
}

Campos Servicio::CancelarUuid(const QString& uuid, const QString& rfc) {
  const auto timbre = registro_->PorUuid(uuid);
  int codigo = 201;
  QString texto = QStringLiteral("UUID cancelado");
  if (!timbre) {
    codigo = 205;
    texto = QStringLiteral("UUID no existe");
  } else if (timbre->rfc_emisor != rfc) {
    codigo = 203;
    texto = QStringLiteral("UUID no corresponde al emisor: el certificado es de %1").arg(rfc);
  } else if (!registro_->MarcarCancelado(uuid)) {
    codigo = 202;
    texto = QStringLiteral("UUID previamente cancelado");
  }
  return {{QStringLiteral("mensaje"), texto},
          {QStringLiteral("status"), QStringLiteral("200")},
          {QStringLiteral("statusUUID"), QString::number(codigo)},
          {QStringLiteral("uuid"), uuid}};
}

}  // namespace ventarix::pac
