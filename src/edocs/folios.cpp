#include "edocs/folios.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>

#include "core/database.h"

namespace ventarix::edocs {

QString TablaFolios(FamiliaFolios familia) {
  return familia == FamiliaFolios::kFacturas ? QStringLiteral("folios facturas")
                                             : QStringLiteral("folios notas");
}

int DocumentoFolios(FamiliaFolios familia) { return familia == FamiliaFolios::kFacturas ? 0 : 1; }

MaterialSellado LeerMaterial(Connection& connection, FamiliaFolios familia, int numero) {
  MaterialSellado material;
  QSqlQuery query =
      connection.Exec(QStringLiteral("select certificado, llave, password from certificados "
                                     "where documento = ? and numero = ?"),
                      {DocumentoFolios(familia), numero});
  if (!query.next()) return material;
  material.existe = true;
  material.certificado = query.value(0).toByteArray();
  material.llave = query.value(1).toByteArray();
  material.password = query.value(2).toString();
  return material;
}

namespace {

constexpr QFile::Permissions kSoloDueno = QFile::ReadOwner | QFile::WriteOwner;

Outcome EscribirSiFalta(const QString& path, const QByteArray& bytes) {
  if (QFile::exists(path) || bytes.isEmpty()) return Outcome::Ok();
  QFile file(path);
  // Made private from the start: a key never lies readable, not even for a moment.
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, kSoloDueno) ||
      file.write(bytes) != bytes.size() || !file.setPermissions(kSoloDueno)) {
    const QString error = file.errorString();
    file.remove();
    return Outcome::Stop(QStringLiteral("No se pudo escribir el archivo ") + path +
                         QStringLiteral(": ") + error);
  }
  return Outcome::Ok();
}

}  // namespace

bool EsNombreDeArchivo(const QString& nombre) {
  if (nombre.isEmpty() || nombre == QLatin1String(".") || nombre == QLatin1String("..")) {
    return false;
  }
  for (const QChar c : nombre) {
    // A drive letter (C:) or a separator of any system would lead out of the folder.
    if (c == QLatin1Char('/') || c == QLatin1Char('\\') || c == QLatin1Char(':') ||
        c.category() == QChar::Other_Control) {
      return false;
    }
  }
  return true;
}

Outcome RevisarNombresDeArchivo(const QString& archivo_cer, const QString& archivo_key) {
  const auto revisar = [](const QString& nombre, const char* que, const char* campo) {
    if (nombre.isEmpty() || EsNombreDeArchivo(nombre)) return Outcome::Ok();
    return Outcome::Warning(QStringLiteral("El nombre del archivo %1 no es válido: %2\n"
                                           "Escriba solo el nombre del archivo, sin carpetas.")
                                .arg(QLatin1String(que), nombre),
                            QLatin1String(campo));
  };
  if (Outcome cer = revisar(archivo_cer, "certificado", "ArchivoCertificado"); !cer) return cer;
  return revisar(archivo_key, "llave", "ArchivoLlave");
}

Outcome RestaurarArchivos(const MaterialSellado& material, const QString& carpeta,
                          const QString& archivo_cer, const QString& archivo_key) {
  if (Outcome nombres = RevisarNombresDeArchivo(archivo_cer, archivo_key); !nombres) {
    return nombres;
  }
  if (carpeta.isEmpty() || !QDir(carpeta).exists()) {
    return Outcome::Stop(QStringLiteral("No existe la carpeta ") + carpeta);
  }
  const QDir dir(carpeta);
  if (!archivo_cer.isEmpty()) {
    if (Outcome cer = EscribirSiFalta(dir.filePath(archivo_cer), material.certificado); !cer) {
      return cer;
    }
  }
  if (archivo_key.isEmpty()) return Outcome::Ok();
  return EscribirSiFalta(dir.filePath(archivo_key), material.llave);
}

}  // namespace ventarix::edocs
