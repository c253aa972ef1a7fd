#include "pac_local/servicio.h"

namespace ventarix::pac {

namespace {

Resultado Certificacion() {
  return {.tipo = QStringLiteral("CFDICertificacion"),
          .tipo_resultado = QStringLiteral("CFDIResultadoCertificacion")};
}

Resultado Cancelacion() {
  return {.tipo = QStringLiteral("CFDICancelacion"),
          .tipo_resultado = QStringLiteral("CFDIResultadoCancelacion")};
}

}  // namespace

Servicio::Servicio(const Configuracion& configuracion) : configuracion_(configuracion) {
  certificado_ = edocs::LeerCertificadoDeArchivo(configuracion.certificado);
  llave_ = std::make_unique<edocs::LlavePrivada>(
      edocs::LlavePrivada::AbrirArchivo(configuracion.llave, configuracion.contrasena));
  esquemas_ = std::make_unique<Esquemas>(configuracion.esquemas);
  registro_ = std::make_unique<Registro>(configuracion.datos);
  if (!certificado_.ok) {
    error_ = QStringLiteral("No se pudo leer el certificado %1: %2")
                 .arg(configuracion.certificado, certificado_.error);
  } else if (!llave_->ok()) {
    error_ =
        QStringLiteral("No se pudo abrir la llave %1 con su contraseña").arg(configuracion.llave);
  } else if (!llave_->CorrespondeA(certificado_.der)) {
    error_ = QStringLiteral("La llave %1 no corresponde al certificado").arg(configuracion.llave);
  } else if (!esquemas_->error().isEmpty()) {
    error_ = esquemas_->error();
  } else if (!registro_->ok()) {
    error_ = registro_->error();
  }
}

bool Servicio::Autorizado(const Solicitud& solicitud) const {
  const QString usuario = solicitud.Valor(QStringLiteral("usuario"));
  const QString password = solicitud.Valor(QStringLiteral("password"));
  if (usuario == QLatin1String(kUsuarioPruebas) && password == QLatin1String(kPasswordPruebas))
    return true;
  for (const auto& [u, p] : configuracion_.cuentas)
    if (u == usuario && p == password) return true;
  return false;
}

std::pair<int, QByteArray> Servicio::Atender(const QByteArray& cuerpo) {
  const Solicitud solicitud = LeerSolicitud(cuerpo);
  if (!solicitud.error.isEmpty())
    return {500, FallaSoap(QStringLiteral("Client"), solicitud.error)};
  const QString& operacion = solicitud.operacion;
  const bool timbrar =
      operacion == QLatin1String("timbrar") || operacion == QLatin1String("timbrarBase64");
  if (!timbrar && operacion != QLatin1String("cancelar")) {
    return {500,
            FallaSoap(QStringLiteral("Client"),
                      QStringLiteral("La operación %1 no existe en el servicio").arg(operacion))};
  }
  Resultado resultado = timbrar ? Certificacion() : Cancelacion();
  if (!Autorizado(solicitud)) {
    resultado.status = 601;
    resultado.mensaje =
        QStringLiteral("Error de autenticación: el usuario o la contraseña no son válidos");
  } else if (!timbrar) {
    resultado = Cancelar(solicitud);
  } else if (solicitud.Valor(QStringLiteral("zip")) == QLatin1String("true")) {
    resultado.status = 500;
    resultado.mensaje = QStringLiteral("Error, proceso no completado: este servicio no recibe zip");
  } else {
    const QString parametro = operacion == QLatin1String("timbrar") ? QStringLiteral("cfdi")
                                                                    : QStringLiteral("cfdiBase64");
    resultado.mensaje = QStringLiteral("Proceso de timbrado terminado");
    resultado.resultados.push_back(
        TimbrarDocumento(QByteArray::fromBase64(solicitud.Valor(parametro).toLatin1())));
  }
  return {200, RespuestaSoap(operacion, resultado)};
}

}  // namespace ventarix::pac
