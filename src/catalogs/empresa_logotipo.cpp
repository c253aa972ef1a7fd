#include "catalogs/empresa_logotipo.h"

#include <QFile>
#include <QFileInfo>

namespace ventarix::empresa {

using namespace Qt::StringLiterals;

namespace {

// The pictures the documents and the splash can draw, told by their first bytes.
bool EsImagen(const QByteArray& datos) {
  return datos.startsWith("\xFF\xD8\xFF") || datos.startsWith("BM") ||
         datos.startsWith("\x89PNG\r\n\x1A\n");
}

}  // namespace

Outcome LeerLogotipo(const QString& archivo, QByteArray* imagen) {
  QFile file(archivo);
  if (!file.open(QIODevice::ReadOnly)) {
    return Outcome::Warning(u"No se puede leer el archivo "_s + archivo + u": "_s +
                            file.errorString());
  }
  if (file.size() > kLogotipoMaximo) {
    return Outcome::Warning(u"El logotipo no debe pasar de %1 Kb"_s.arg(kLogotipoMaximo / 1024));
  }
  const QByteArray datos = file.readAll();
  if (datos.isEmpty() || !EsImagen(datos)) {
    return Outcome::Warning(u"El archivo "_s + QFileInfo(archivo).fileName() +
                            u" no es una imagen JPG o BMP"_s);
  }
  *imagen = datos;
  return Outcome::Ok();
}

QString TamanoLogotipo(qint64 bytes) {
  if (bytes <= 0) return {};
  return QString::number((bytes + 1023) / 1024) + u" Kb"_s;
}

}  // namespace ventarix::empresa
