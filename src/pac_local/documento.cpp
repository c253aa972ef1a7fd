#include "pac_local/documento.h"

#include <cstring>

#include <QDir>
#include <QUrl>

#include "edocs/xml_errores.h"

namespace ventarix::pac {

namespace {

constexpr char kNsCfdi[] = "http://www.sat.gob.mx/cfd/3";
constexpr char kNsXsi[] = "http://www.w3.org/2001/XMLSchema-instance";
constexpr char kUbicacionTfd[] =
    "http://www.sat.gob.mx/TimbreFiscalDigital "
    "http://www.sat.gob.mx/TimbreFiscalDigital/TimbreFiscalDigital.xsd";

const xmlChar* X(const char* texto) { return reinterpret_cast<const xmlChar*>(texto); }

bool Es(const xmlNode* nodo, const char* ns, const char* nombre) {
  return nodo != nullptr && nodo->type == XML_ELEMENT_NODE && nodo->ns != nullptr &&
         std::strcmp(reinterpret_cast<const char*>(nodo->ns->href), ns) == 0 &&
         std::strcmp(reinterpret_cast<const char*>(nodo->name), nombre) == 0;
}

xmlNode* Hijo(const xmlNode* padre, const char* ns, const char* nombre) {
  for (xmlNode* n = padre != nullptr ? padre->children : nullptr; n != nullptr; n = n->next)
    if (Es(n, ns, nombre)) return n;
  return nullptr;
}

QString Atributo(const xmlNode* nodo, const char* nombre) {
  if (nodo == nullptr) return {};
  const edocs::XmlCharPtr valor(xmlGetNoNsProp(nodo, X(nombre)));
  return valor ? QString::fromUtf8(reinterpret_cast<const char*>(valor.get())) : QString();
}

QString Esquema(const QString& carpeta, const char* archivo) {
  return QString::fromLatin1(
      QUrl::fromLocalFile(QDir(carpeta).filePath(QLatin1String(archivo))).toEncoded());
}

// The timbre's attributes in the order the system's own documents write them.
void PonerAtributos(xmlNode* tfd, xmlNs* xsi, const Tfd& t) {
  xmlSetNsProp(tfd, xsi, X("schemaLocation"), X(kUbicacionTfd));
  const std::pair<const char*, QString> valores[] = {{"selloCFD", t.sello_cfd},
                                                     {"FechaTimbrado", t.fecha_timbrado},
                                                     {"UUID", t.uuid},
                                                     {"noCertificadoSAT", t.no_certificado_sat},
                                                     {"version", QStringLiteral("1.0")},
                                                     {"selloSAT", t.sello_sat}};
  for (const auto& [nombre, valor] : valores) {
    if (valor.isEmpty()) continue;  // the cadena is taken before selloSAT exists
    xmlSetProp(tfd, X(nombre), X(valor.toUtf8().constData()));
  }
}

}  // namespace

Esquemas::Esquemas(const QString& carpeta) {
  edocs::InicializarXml();
  edocs::ErroresXml errores;
  // One schema importing both namespaces: the timbre is then checked inside Complemento.
  const QByteArray xsd =
      QStringLiteral(
          "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">"
          "<xs:import namespace=\"%1\" schemaLocation=\"%2\"/>"
          "<xs:import namespace=\"%3\" schemaLocation=\"%4\"/></xs:schema>")
          .arg(QLatin1String(kNsCfdi), Esquema(carpeta, "cfdv32.xsd"), QLatin1String(kNsTimbre),
               Esquema(carpeta, "TimbreFiscalDigital.xsd"))
          .toUtf8();
  const edocs::XmlSchemaParserCtxtPtr contexto(
      xmlSchemaNewMemParserCtxt(xsd.constData(), static_cast<int>(xsd.size())));
  if (contexto) esquema_.reset(xmlSchemaParse(contexto.get()));
  if (!esquema_) {
    error_ =
        QStringLiteral("No se pudieron leer los esquemas de %1: %2").arg(carpeta, errores.Texto());
  }
}

QString Esquemas::Validar(xmlDoc* doc) const {
  edocs::ErroresXml errores;
  const edocs::XmlSchemaValidCtxtPtr contexto(xmlSchemaNewValidCtxt(esquema_.get()));
  if (!contexto) return QStringLiteral("sin memoria para validar");
  const int resultado = xmlSchemaValidateDoc(contexto.get(), doc);
  if (resultado == 0) return {};
  const QString texto = errores.Texto();
  return texto.isEmpty() ? QStringLiteral("no corresponde al esquema") : texto;
}

DatosCfdi LeerDatos(xmlDoc* doc) {
  const xmlNode* raiz = xmlDocGetRootElement(doc);
  DatosCfdi datos;
  datos.sello = Atributo(raiz, "sello");
  datos.certificado = Atributo(raiz, "certificado");
  datos.total = Atributo(raiz, "total");
  datos.fecha = QDateTime::fromString(Atributo(raiz, "fecha"), Qt::ISODate);
  datos.rfc_emisor = Atributo(Hijo(raiz, kNsCfdi, "Emisor"), "rfc");
  datos.rfc_receptor = Atributo(Hijo(raiz, kNsCfdi, "Receptor"), "rfc");
  datos.timbrado = Hijo(Hijo(raiz, kNsCfdi, "Complemento"), kNsTimbre, "TimbreFiscalDigital");
  return datos;
}

QByteArray DocumentoTfd(const Tfd& tfd) {
  const edocs::XmlDocPtr doc(xmlNewDoc(X("1.0")));
  xmlNode* raiz = xmlNewDocNode(doc.get(), nullptr, X("TimbreFiscalDigital"), nullptr);
  xmlDocSetRootElement(doc.get(), raiz);  // the document owns the node now
  xmlSetNs(raiz, xmlNewNs(raiz, X(kNsTimbre), X("tfd")));
  PonerAtributos(raiz, xmlNewNs(raiz, X(kNsXsi), X("xsi")), tfd);
  xmlChar* texto = nullptr;
  int tamano = 0;
  xmlDocDumpMemoryEnc(doc.get(), &texto, &tamano, "UTF-8");
  const edocs::XmlCharPtr dueno(texto);
  return QByteArray(reinterpret_cast<const char*>(texto), tamano);
}

QByteArray AgregarTimbre(xmlDoc* doc, const Tfd& tfd) {
  xmlNode* raiz = xmlDocGetRootElement(doc);
  xmlNode* complemento = Hijo(raiz, kNsCfdi, "Complemento");
  if (complemento == nullptr) {
    complemento = xmlNewDocNode(doc, raiz->ns, X("Complemento"), nullptr);
    xmlNode* addenda = Hijo(raiz, kNsCfdi, "Addenda");
    if (addenda != nullptr) {
      xmlAddPrevSibling(addenda, complemento);
    } else {
      xmlAddChild(raiz, complemento);
    }
  }
  xmlNode* nodo = xmlNewChild(complemento, nullptr, X("TimbreFiscalDigital"), nullptr);
  xmlSetNs(nodo, xmlNewNs(nodo, X(kNsTimbre), X("tfd")));
  xmlNs* xsi = xmlSearchNsByHref(doc, nodo, X(kNsXsi));
  PonerAtributos(nodo, xsi != nullptr ? xsi : xmlNewNs(nodo, X(kNsXsi), X("xsi")), tfd);
  xmlChar* texto = nullptr;
  int tamano = 0;
  xmlDocDumpMemoryEnc(doc, &texto, &tamano, "UTF-8");
  const edocs::XmlCharPtr dueno(texto);
  return QByteArray(reinterpret_cast<const char*>(texto), tamano);
}

}  // namespace ventarix::pac
