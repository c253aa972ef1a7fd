#include "pac_local/soap.h"

#include <cstring>

#include <QXmlStreamWriter>

#include "edocs/xml_errores.h"
#include "edocs/xml_ptr.h"

namespace ventarix::pac {

namespace {

constexpr char kSobre[] = "http://schemas.xmlsoap.org/soap/envelope/";
constexpr char kXsi[] = "http://www.w3.org/2001/XMLSchema-instance";

QString Texto(const xmlChar* texto) {
  return QString::fromUtf8(reinterpret_cast<const char*>(texto));
}

bool Es(const xmlNode* nodo, const char* ns, const char* nombre) {
  return nodo != nullptr && nodo->type == XML_ELEMENT_NODE && nodo->ns != nullptr &&
         std::strcmp(reinterpret_cast<const char*>(nodo->ns->href), ns) == 0 &&
         std::strcmp(reinterpret_cast<const char*>(nodo->name), nombre) == 0;
}

const xmlNode* PrimerElemento(const xmlNode* padre, const char* ns = nullptr,
                              const char* nombre = nullptr) {
  for (const xmlNode* n = padre->children; n != nullptr; n = n->next) {
    if (n->type != XML_ELEMENT_NODE) continue;
    if (nombre == nullptr || Es(n, ns, nombre)) return n;
  }
  return nullptr;
}

// The envelope's start, with the prefixes Axis2 uses. Names are written with their prefixes
// and each namespace declared where Axis2 declares it.
void Abrir(QXmlStreamWriter& w) {
  w.writeStartDocument();
  w.writeStartElement(QStringLiteral("soapenv:Envelope"));
  w.writeAttribute(QStringLiteral("xmlns:soapenv"), QString::fromLatin1(kSobre));
  w.writeStartElement(QStringLiteral("soapenv:Body"));
}

void Campo(QXmlStreamWriter& w, const QString& nombre, const QString& valor) {
  if (valor.isNull()) {
    w.writeEmptyElement(QStringLiteral("ax21:") + nombre);
    w.writeAttribute(QStringLiteral("xsi:nil"), QStringLiteral("true"));
  } else {
    w.writeTextElement(QStringLiteral("ax21:") + nombre, valor);
  }
}

}  // namespace

QString Solicitud::Valor(const QString& nombre) const {
  for (const auto& [clave, valor] : parametros)
    if (clave == nombre) return valor;
  return {};
}

QStringList Solicitud::Valores(const QString& nombre) const {
  QStringList valores;
  for (const auto& [clave, valor] : parametros)
    if (clave == nombre) valores << valor;
  return valores;
}

Solicitud LeerSolicitud(const QByteArray& cuerpo) {
  edocs::InicializarXml();
  edocs::ErroresXml errores;
  Solicitud solicitud;
  const edocs::XmlDocPtr doc(xmlReadMemory(cuerpo.constData(), static_cast<int>(cuerpo.size()),
                                           nullptr, nullptr, XML_PARSE_NONET | XML_PARSE_NOBLANKS));
  if (!doc) {
    solicitud.error = QStringLiteral("El mensaje no es XML: ") + errores.Texto();
    return solicitud;
  }
  const xmlNode* sobre = xmlDocGetRootElement(doc.get());
  const xmlNode* body =
      Es(sobre, kSobre, "Envelope") ? PrimerElemento(sobre, kSobre, "Body") : nullptr;
  const xmlNode* operacion = body != nullptr ? PrimerElemento(body) : nullptr;
  if (operacion == nullptr || operacion->ns == nullptr ||
      std::strcmp(reinterpret_cast<const char*>(operacion->ns->href), kNsServicio) != 0) {
    solicitud.error = QStringLiteral("El mensaje no es una solicitud SOAP 1.1 del servicio");
    return solicitud;
  }
  solicitud.operacion = Texto(operacion->name);
  for (const xmlNode* n = operacion->children; n != nullptr; n = n->next) {
    if (n->type != XML_ELEMENT_NODE) continue;
    const edocs::XmlCharPtr valor(xmlNodeGetContent(n));
    solicitud.parametros.emplace_back(Texto(n->name),
                                      valor ? Texto(valor.get()).trimmed() : QString());
  }
  return solicitud;
}

QByteArray RespuestaSoap(const QString& operacion, const Resultado& resultado) {
  QByteArray salida;
  QXmlStreamWriter w(&salida);
  Abrir(w);
  w.writeStartElement(QStringLiteral("ns:") + operacion + QStringLiteral("Response"));
  w.writeAttribute(QStringLiteral("xmlns:ns"), QString::fromLatin1(kNsServicio));
  w.writeStartElement(QStringLiteral("ns:return"));
  w.writeAttribute(QStringLiteral("xmlns:ax21"), QString::fromLatin1(kNsTipos));
  w.writeAttribute(QStringLiteral("xmlns:xsi"), QString::fromLatin1(kXsi));
  w.writeAttribute(QStringLiteral("xsi:type"), QStringLiteral("ax21:") + resultado.tipo);
  Campo(w, QStringLiteral("mensaje"), resultado.mensaje);
  for (const Campos& campos : resultado.resultados) {
    w.writeStartElement(QStringLiteral("ax21:resultados"));
    w.writeAttribute(QStringLiteral("xsi:type"),
                     QStringLiteral("ax21:") + resultado.tipo_resultado);
    for (const auto& [nombre, valor] : campos) Campo(w, nombre, valor);
    w.writeEndElement();
  }
  Campo(w, QStringLiteral("status"), QString::number(resultado.status));
  w.writeEndDocument();
  return salida;
}

QByteArray FallaSoap(const QString& codigo, const QString& texto) {
  QByteArray salida;
  QXmlStreamWriter w(&salida);
  Abrir(w);
  w.writeStartElement(QStringLiteral("soapenv:Fault"));
  w.writeTextElement(QStringLiteral("faultcode"), QStringLiteral("soapenv:") + codigo);
  w.writeTextElement(QStringLiteral("faultstring"), texto);
  w.writeEndDocument();
  return salida;
}

}  // namespace ventarix::pac
