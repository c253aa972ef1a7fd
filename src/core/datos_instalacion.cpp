#include "core/datos_instalacion.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "core/mFunciones.h"
#include "core/session.h"

namespace ventarix::instalacion {

namespace {

bool TieneSat(const QString& carpeta) {
  return !carpeta.isEmpty() && QFileInfo(carpeta + QStringLiteral("/sat")).isDir();
}

int Completar(const Session& session, const QString& origen, const QString& destino) {
  if (origen.isEmpty() || destino.isEmpty()) return 0;
  int copiados = 0;
  const QDir fuente(origen);
  for (const QString& nombre : fuente.entryList(QDir::Files, QDir::Name)) {
    const QString copia = destino + QLatin1Char('/') + nombre;
    if (QFileInfo::exists(copia)) continue;
    if (!QFile::copy(fuente.filePath(nombre), copia)) {
      mFunciones::RegistrarError(session, QStringLiteral("No se pudo copiar ") +
                                              fuente.filePath(nombre) + QStringLiteral(" a ") +
                                              copia);
      continue;
    }
    // The shipped copies are read-only; the installation's own ones may be replaced.
    QFile(copia).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup |
                                QFile::ReadOther);
    ++copiados;
  }
  return copiados;
}

}  // namespace

QString CarpetaDatos() {
  if (QCoreApplication::instance() != nullptr) {
    const QString instalada = QDir::cleanPath(QCoreApplication::applicationDirPath() +
                                              QStringLiteral("/../share/ventarix"));
    if (TieneSat(instalada)) return instalada;
  }
  const QString fuente = QStringLiteral(VENTARIX_DATA_DIR);
  return TieneSat(fuente) ? fuente : QString();
}

QString CarpetaSat(const QString& nombre) {
  const QString datos = CarpetaDatos();
  if (datos.isEmpty()) return {};
  return datos + QStringLiteral("/sat/") + nombre;
}

int CompletarEsquemas(const Session& session) {
  return Completar(session, CarpetaSat(QStringLiteral("EsquemasCFDi")),
                   session.CarpetaEsquemasCFDi) +
         Completar(session, CarpetaSat(QStringLiteral("EsquemasCFD")), session.CarpetaEsquemasCFD);
}

}  // namespace ventarix::instalacion
