#include "edocs/xml_errores.h"

#include <cstdarg>
#include <cstdio>

#include <QStringList>

#include "edocs/xml_ptr.h"

namespace ventarix::edocs {

namespace {

thread_local ErroresXml* captura_actual = nullptr;

void Recoger(void*, const char* formato, ...) {
  va_list args;
  va_start(args, formato);
  if (captura_actual == nullptr) {
    std::vfprintf(stderr, formato, args);
  } else {
    char texto[1024];
    std::vsnprintf(texto, sizeof texto, formato, args);
    captura_actual->Agregar(QByteArray(texto));
  }
  va_end(args);
}

bool EsAvisoDeVersion(const QString& linea) {
  return linea.contains(QLatin1String("xsl:version: only 1.1 features are supported"));
}

}  // namespace

ErroresXml::ErroresXml() : anterior_(captura_actual) {
  InicializarXml();
  // libxslt keeps one handler for the whole program; it forwards to this thread's capture.
  static const bool kXsltDesviado = [] {
    xsltSetGenericErrorFunc(nullptr, Recoger);
    return true;
  }();
  (void)kXsltDesviado;
  // libxml2 keeps its handler per thread.
  xmlSetGenericErrorFunc(nullptr, Recoger);
  captura_actual = this;
}

ErroresXml::~ErroresXml() {
  captura_actual = anterior_;
  if (anterior_ == nullptr) xmlSetGenericErrorFunc(nullptr, nullptr);
}

QString ErroresXml::Texto() const {
  const QStringList lineas = QString::fromUtf8(texto_).split(QLatin1Char('\n'));
  QStringList utiles;
  for (qsizetype i = 0; i < lineas.size(); ++i) {
    // libxslt tells where before it tells what: the "compilation error: file ... element
    // stylesheet" line belongs to the version notice after it.
    if (EsAvisoDeVersion(lineas[i])) continue;
    if (i + 1 < lineas.size() && EsAvisoDeVersion(lineas[i + 1])) continue;
    if (!lineas[i].trimmed().isEmpty()) utiles.append(lineas[i]);
  }
  return UnaLinea(utiles.join(QLatin1Char(' ')));
}

QString UnaLinea(const QString& texto) {
  QString linea = texto;
  linea.replace(QLatin1Char('\r'), QLatin1Char(' ')).replace(QLatin1Char('\n'), QLatin1Char(' '));
  return linea.simplified();
}

}  // namespace ventarix::edocs
