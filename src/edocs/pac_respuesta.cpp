#include "edocs/pac_respuesta.h"

#include <cstring>

#include "edocs/xml_ptr.h"

namespace ventarix::edocs {

namespace {

constexpr char kSoap11[] = "http://schemas.xmlsoap.org/soap/envelope/";
constexpr char kSoap12[] = "http://www.w3.org/2003/05/soap-envelope";
constexpr char kXsi[] = "http://www.w3.org/2001/XMLSchema-instance";

bool Es(const xmlNode* nodo, const char* nombre) {
  return nodo != nullptr && nodo->type == XML_ELEMENT_NODE &&
         std::strcmp(reinterpret_cast<const char*>(nodo->name), nombre) == 0;
}

bool EnSobre(const xmlNode* nodo, const char* nombre) {
  if (!Es(nodo, nombre) || nodo->ns == nullptr) return false;
  const auto* ns = reinterpret_cast<const char*>(nodo->ns->href);
  return std::strcmp(ns, kSoap11) == 0 || std::strcmp(ns, kSoap12) == 0;
}

const xmlNode* Hijo(const xmlNode* padre, const char* nombre) {
  for (const xmlNode* n = padre->children; n != nullptr; n = n->next)
    if (Es(n, nombre)) return n;
  return nullptr;
}

const xmlNode* PrimerElemento(const xmlNode* padre) {
  for (const xmlNode* n = padre->children; n != nullptr; n = n->next)
    if (n->type == XML_ELEMENT_NODE) return n;
  return nullptr;
}

bool EsNulo(const xmlNode* nodo) {
  XmlCharPtr nil(xmlGetNsProp(nodo, reinterpret_cast<const xmlChar*>("nil"),
                              reinterpret_cast<const xmlChar*>(kXsi)));
  return nil && std::strcmp(reinterpret_cast<const char*>(nil.get()), "true") == 0;
}

// The content of an element: its text and its child elements by their local names.
void Escribir(const xmlNode* padre, QString& texto) {
  for (const xmlNode* n = padre->children; n != nullptr; n = n->next) {
    if (n->type == XML_TEXT_NODE || n->type == XML_CDATA_SECTION_NODE) {
      texto += QString::fromUtf8(reinterpret_cast<const char*>(n->content));
    } else if (n->type == XML_ELEMENT_NODE) {
      const QString nombre = QString::fromUtf8(reinterpret_cast<const char*>(n->name));
      texto += QLatin1Char('<') + nombre + QLatin1Char('>');
      if (!EsNulo(n)) Escribir(n, texto);
      texto += QStringLiteral("</") + nombre + QLatin1Char('>');
    }
  }
}

}  // namespace

QString TextoRespuestaSoap(const QByteArray& cuerpo, const QString& operacion) {
  InicializarXml();
  const QString tal_cual = QString::fromUtf8(cuerpo);
  const XmlDocPtr doc(xmlReadMemory(
      cuerpo.constData(), static_cast<int>(cuerpo.size()), nullptr, nullptr,
      XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_NOBLANKS));
  const xmlNode* sobre = doc ? xmlDocGetRootElement(doc.get()) : nullptr;
  if (!EnSobre(sobre, "Envelope")) return tal_cual;
  const xmlNode* body = Hijo(sobre, "Body");
  if (!EnSobre(body, "Body")) return tal_cual;
  const xmlNode* contenido = PrimerElemento(body);
  if (contenido == nullptr) return tal_cual;
  QString texto;
  if (EnSobre(contenido, "Fault")) {
    Escribir(contenido, texto);
    return texto;
  }
  const QByteArray respuesta = (operacion + QStringLiteral("Response")).toUtf8();
  const xmlNode* resultado =
      Es(contenido, respuesta.constData()) ? Hijo(contenido, "return") : nullptr;
  if (resultado == nullptr) return tal_cual;
  Escribir(resultado, texto);
  return texto;
}

}  // namespace ventarix::edocs
