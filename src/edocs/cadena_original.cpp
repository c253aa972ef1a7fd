#include "edocs/cadena_original.h"

#include <memory>
#include <utility>
#include <vector>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QMutex>
#include <QUrl>

#include "edocs/xml_errores.h"
#include "edocs/xml_ptr.h"

namespace ventarix::edocs {

namespace {

// What tells that a file of a compiled sheet changed since it was compiled.
struct Huella {
  QString path;
  QDateTime modificado;
  qint64 bytes = -1;

  static Huella De(const QString& path) {
    const QFileInfo info(path);
    return {path, info.lastModified(), info.exists() ? info.size() : -1};
  }
  bool Vigente() const {
    const Huella ahora = De(path);
    return ahora.modificado == modificado && ahora.bytes == bytes;
  }
};

// A compiled sheet with the stamps of its own file and of every file it includes or imports.
struct HojaCompilada {
  std::shared_ptr<xsltStylesheet> hoja;
  std::vector<Huella> archivos;

  bool Vigente() const {
    for (const Huella& huella : archivos)
      if (!huella.Vigente()) return false;
    return hoja != nullptr;
  }
};

// libxslt names an included file by the URI it built from the including sheet's path, with
// blanks and accents percent-escaped.
QString RutaLocal(const xmlChar* url) {
  if (url == nullptr) return {};
  const QByteArray texto(reinterpret_cast<const char*>(url));
  if (texto.startsWith("file:")) return QUrl::fromEncoded(texto).toLocalFile();
  const QString literal = QString::fromUtf8(texto);
  return QFileInfo::exists(literal) ? literal : QUrl::fromPercentEncoding(texto);
}

// The files a sheet read besides its own: includes, and imports with their includes.
void AnotarIncluidos(const xsltStylesheet* hoja, std::vector<Huella>& archivos) {
  for (const xsltDocument* doc = hoja->docList; doc != nullptr; doc = doc->next)
    if (doc->doc != nullptr) archivos.push_back(Huella::De(RutaLocal(doc->doc->URL)));
  for (const xsltStylesheet* importada = hoja->imports; importada != nullptr;
       importada = importada->next) {
    if (importada->doc != nullptr) archivos.push_back(Huella::De(RutaLocal(importada->doc->URL)));
    AnotarIncluidos(importada, archivos);
  }
}

// The parser's own reason for the last failure of a parse, or what the capture kept.
QString Motivo(xmlParserCtxt* contexto, const ErroresXml& errores) {
  const xmlError* error = contexto != nullptr ? xmlCtxtGetLastError(contexto) : nullptr;
  if (error != nullptr && error->message != nullptr)
    return UnaLinea(QString::fromUtf8(error->message));
  return errores.Texto();
}

HojaCompilada Compilar(const QString& path, QString* motivo) {
  ErroresXml errores;
  XmlParserCtxtPtr contexto(xmlNewParserCtxt());
  const int opciones =
      XSLT_PARSE_OPTIONS | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
  XmlDocPtr doc(
      xmlCtxtReadFile(contexto.get(), QFile::encodeName(path).constData(), nullptr, opciones));
  if (!doc) {
    *motivo = Motivo(contexto.get(), errores);
    return {};
  }
  XsltStylesheetPtr hoja(xsltParseStylesheetDoc(doc.get()));
  if (!hoja) {
    *motivo = errores.Texto();
    return {};
  }
  doc.release();  // the compiled sheet owns its document now
  if (hoja->errors != 0) {
    *motivo = errores.Texto();
    return {};
  }
  HojaCompilada compilada;
  compilada.archivos.push_back(Huella::De(path));
  AnotarIncluidos(hoja.get(), compilada.archivos);
  compilada.hoja.reset(hoja.release(), xsltFreeStylesheet);
  return compilada;
}

// The sealing runs the same sheet for every document: each is compiled once and kept until
// one of its files changes. A sheet in use stays alive while a newer one replaces it.
class HojasCompiladas {
 public:
  std::shared_ptr<xsltStylesheet> Obtener(const QString& path, QString* motivo) {
    const QString clave = QFileInfo(path).absoluteFilePath();
    HojaCompilada guardada;
    {
      QMutexLocker lock(&mutex_);
      guardada = hojas_.value(clave);
    }
    if (guardada.Vigente()) return guardada.hoja;
    HojaCompilada compilada = Compilar(path, motivo);
    if (!compilada.hoja) return nullptr;
    QMutexLocker lock(&mutex_);
    hojas_.insert(clave, compilada);
    return compilada.hoja;
  }

 private:
  QMutex mutex_;
  QHash<QString, HojaCompilada> hojas_;
};

HojasCompiladas& Hojas() {
  static HojasCompiladas hojas;
  return hojas;
}

XmlDocPtr LeerDocumento(const QByteArray& xml, QString* motivo) {
  ErroresXml errores;
  XmlParserCtxtPtr contexto(xmlNewParserCtxt());
  // No entity expansion nor DTD loading: the document is data, not a path to other files.
  const int opciones =
      XML_PARSE_NOCDATA | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
  XmlDocPtr doc(xmlCtxtReadMemory(contexto.get(), xml.constData(), static_cast<int>(xml.size()),
                                  nullptr, nullptr, opciones));
  if (!doc) *motivo = Motivo(contexto.get(), errores);
  return doc;
}

bool Transformar(xsltStylesheet* hoja, xmlDoc* doc, QString* cadena, QString* motivo) {
  ErroresXml errores;
  XsltTransformContextPtr contexto(xsltNewTransformContext(hoja, doc));
  if (!contexto) {
    *motivo = errores.Texto();
    return false;
  }
  XmlDocPtr resultado(
      xsltApplyStylesheetUser(hoja, doc, nullptr, nullptr, nullptr, contexto.get()));
  if (!resultado || contexto->state != XSLT_STATE_OK) {
    *motivo = errores.Texto();
    return false;
  }
  xmlChar* texto = nullptr;
  int largo = 0;
  if (xsltSaveResultToString(&texto, &largo, resultado.get(), hoja) != 0) {
    *motivo = errores.Texto();
    return false;
  }
  const XmlCharPtr salida(texto);
  *cadena = QString::fromUtf8(reinterpret_cast<const char*>(salida.get()), largo);
  return true;
}

}  // namespace

CadenaOriginal GenerarCadenaOriginal(const QString& xslt_path, const QByteArray& xml) {
  InicializarXml();
  CadenaOriginal resultado;
  const QString nombre_hoja = QFileInfo(xslt_path).fileName();
  QString motivo;
  const std::shared_ptr<xsltStylesheet> hoja = Hojas().Obtener(xslt_path, &motivo);
  if (!hoja) {
    resultado.error = nombre_hoja + QLatin1Char(' ') + motivo;
    return resultado;
  }
  const XmlDocPtr doc = LeerDocumento(xml, &motivo);
  if (!doc) {
    resultado.error = motivo + QStringLiteral(" Para el documento XML");
    return resultado;
  }
  if (!Transformar(hoja.get(), doc.get(), &resultado.cadena, &motivo)) {
    resultado.error = nombre_hoja + QLatin1Char(' ') + motivo;
    return resultado;
  }
  resultado.ok = true;
  return resultado;
}

}  // namespace ventarix::edocs
