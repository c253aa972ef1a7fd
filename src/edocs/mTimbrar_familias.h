#pragma once

// The stamping engine behind mTimbrarFactura and mTimbrarNota: one chain of steps fed by a
// table of what differs between invoices and client credit notes. Internal to the electronic
// documents; the screens and the command line call mTimbrar.h.
#include <memory>
#include <optional>

#include <QString>

#include "core/outcome.h"
#include "edocs/cfdi_xml.h"
#include "edocs/folios.h"
#include "edocs/llave_privada.h"
#include "edocs/mTimbrar.h"
#include "edocs/pac_cliente.h"

namespace ventarix {
class Connection;
struct Session;
}  // namespace ventarix

namespace ventarix::edocs::timbrado {

struct FamiliaTimbrado {
  QString tabla;          // the document's header; its concepts are [<tabla> resumen] first,
                          // else [<tabla> detalles] (LeerComprobante)
  QString llave;          // its key column
  QString columna_rango;  // the range the document was sealed under
  FamiliaFolios folios;   // that range's table and the certificados' documento
  QString derechos;       // the user's rights column for a change
  // The messages of the steps before the range, in the family's words.
  QString no_localizado, sin_esquema, baja, sin_datos;
  // The range checks: no range, and the certificate and key files ("Folios Facturas" /
  // "Folios Notas").
  QString sin_rango, carpeta_folios;
  // A credit note keeps the seal of its capture; only the stamp's columns are written back.
  bool escribe_sello;
  Impuestos impuestos;
};

const FamiliaTimbrado& Facturas();
const FamiliaTimbrado& Notas();

// The range and key material in force on the document's Hora (step 5): the certificate read,
// the key open. Its messages go to a plain message box.
struct Material {
  QString no_certificado, certificado;  // for the document's root
  std::shared_ptr<const LlavePrivada> llave;
};
Outcome CargarMaterial(const Session& session, Connection& connection,
                       const FamiliaTimbrado& familia, int rango, const QDateTime& hora,
                       Material* material);

// The stamp as the reply carries it; empty fields where a tag is missing.
struct TimbreRecibido {
  Timbre timbre;
  QString cadena_original, qr_code;
  bool completo() const;
};
TimbreRecibido LeerTimbre(const QString& respuesta);

// Steps 1 to 15 with the account given, so that a caller may bound the exchange otherwise than
// the company's row says.
ResultadoTimbrado Timbrar(const Session& session, const FamiliaTimbrado& familia,
                          const QString& documento, const CuentaPac& cuenta);

}  // namespace ventarix::edocs::timbrado
