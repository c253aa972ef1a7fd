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

bool EscribirSiFalta(const QString& path, const QByteArray& bytes) {
  if (QFile::exists(path)) return true;
  if (bytes.isEmpty()) return false;
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

}  // namespace

bool RestaurarArchivos(const MaterialSellado& material, const QString& carpeta,
                       const QString& archivo_cer, const QString& archivo_key) {
  if (carpeta.isEmpty() || !QDir(carpeta).exists()) return false;
  const bool cer = archivo_cer.isEmpty() ||
                   EscribirSiFalta(carpeta + QLatin1Char('/') + archivo_cer, material.certificado);
  const bool key = archivo_key.isEmpty() ||
                   EscribirSiFalta(carpeta + QLatin1Char('/') + archivo_key, material.llave);
  return cer && key;
}

}  // namespace ventarix::edocs
