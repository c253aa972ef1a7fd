#pragma once

#include <utility>
#include <vector>

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace ventarix::pac {

// The service's namespaces: its operations and parameters, and its result types.
inline constexpr char kNsServicio[] = "http://timbrado.ws.cfdi.solucionfactible.com";
inline constexpr char kNsTipos[] = "http://timbrado.ws.cfdi.solucionfactible.com/xsd";

// One request as posted: the operation's local name and its parameters in order (a parameter
// may repeat, as uuids does).
struct Solicitud {
  QString operacion;
  std::vector<std::pair<QString, QString>> parametros;
  QString error;  // why the body is not a SOAP request of this service

  QString Valor(const QString& nombre) const;
  QStringList Valores(const QString& nombre) const;
};
Solicitud LeerSolicitud(const QByteArray& cuerpo);

// A result's fields in the order they are written (the service's types list them
// alphabetically); a null value is written xsi:nil.
using Campos = std::vector<std::pair<QString, QString>>;

// What one operation returns: the request's status and message, and one result per document.
struct Resultado {
  QString tipo;            // CFDICertificacion, CFDICancelacion
  QString tipo_resultado;  // CFDIResultadoCertificacion, CFDIResultadoCancelacion
  int status = 200;
  QString mensaje;
  std::vector<Campos> resultados;
};

// The envelope <operacion>Response/return with the result in the types' namespace.
QByteArray RespuestaSoap(const QString& operacion, const Resultado& resultado);
// A SOAP 1.1 fault, for bodies that are not a request of this service.
QByteArray FallaSoap(const QString& codigo, const QString& texto);

}  // namespace ventarix::pac
