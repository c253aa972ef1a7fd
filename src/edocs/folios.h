#pragma once

#include <QByteArray>
#include <QString>

#include "core/outcome.h"

namespace ventarix {
class Connection;
struct Session;
}  // namespace ventarix

namespace ventarix::edocs {

// The two families of folio ranges: invoices ([folios facturas], documento 0) and client
// credit notes ([folios notas], documento 1).
enum class FamiliaFolios { kFacturas, kNotas };

QString TablaFolios(FamiliaFolios familia);  // "folios facturas" / "folios notas"
int DocumentoFolios(FamiliaFolios familia);  // 0 / 1

// The sealing material stored with a range (certificados row): the .cer and .key bytes and
// the password as typed.
struct MaterialSellado {
  bool existe = false;
  QByteArray certificado, llave;
  QString password;
};

MaterialSellado LeerMaterial(Connection& connection, FamiliaFolios familia, int numero);

// A certificate or key file name as a range stores it: a plain name of a file in CarpetaCer,
// with no folder, no "..", nothing absolute. The warning on its field otherwise.
bool EsNombreDeArchivo(const QString& nombre);
Outcome RevisarNombresDeArchivo(const QString& archivo_cer, const QString& archivo_key);

// Writes <carpeta>/<archivo_cer> and <carpeta>/<archivo_key> from the stored bytes when either
// file is missing and bytes are stored, readable by the owner alone (the folder is, too). A
// name that is no plain file name is refused and nothing is written; a file that could not be
// written is a stop naming it. An empty name writes nothing.
Outcome RestaurarArchivos(const MaterialSellado& material, const QString& carpeta,
                          const QString& archivo_cer, const QString& archivo_key);

}  // namespace ventarix::edocs
