#pragma once

#include <QString>

#include "edocs/captura.h"
#include "edocs/comprobante.h"

namespace ventarix {
class Connection;
struct Session;
}  // namespace ventarix

namespace ventarix::edocs {

// What a sealing or preparation driver leaves to its capture screen. Msg1 holds the message of
// the first step that failed (the screen shows it with a warning icon, blinks the label and
// saves nothing); empty when all went well. On success comprobante holds the block to store in
// the document row and, for CFD/CFDi, archivo is the XML file written in CarpetaXml.
struct ResultadoSellado {
  QString Msg1;
  Comprobante comprobante;
  QString archivo;
  // A fault inside the sealing itself (the seal or the file could not be made) leaves Msg1
  // empty, as it always has, and is logged; it is also told here, so that the screen shows it
  // and saves no document without its sealed file.
  QString error_interno;
  bool ok() const { return Msg1.isEmpty(); }
};

// Sealing of income (invoices) and egreso (client credit notes) documents, CFDi 3.2 and CFD 2.2:
// status, payment form, concepts, schema files, folio range and key material, client, then the
// XML built, its cadena original from the SAT style sheet, the seal and the file. descripcion
// is the free description Datos(6): when not empty the document is one summary concept.
ResultadoSellado SellarIngresoCFDi(const Session& session, DocumentoCaptura& forma,
                                   const QString& descripcion);
ResultadoSellado SellarIngresoCFD(const Session& session, DocumentoCaptura& forma,
                                  const QString& descripcion);
ResultadoSellado SellarEgresoCFDi(const Session& session, DocumentoCaptura& forma,
                                  const QString& descripcion);
ResultadoSellado SellarEgresoCFD(const Session& session, DocumentoCaptura& forma,
                                 const QString& descripcion);

// The schemes without XML: the same checks in a shorter chain, no file, no seal; the income
// side and PrepararRemision end with the client's credit test.
ResultadoSellado PrepararIngresoCBB(const Session& session, DocumentoCaptura& forma);
ResultadoSellado PrepararIngresoNOTA(const Session& session, DocumentoCaptura& forma);
ResultadoSellado PrepararEgresoCBB(const Session& session, DocumentoCaptura& forma);
ResultadoSellado PrepararEgresoNOTA(const Session& session, DocumentoCaptura& forma);
ResultadoSellado PrepararRemision(const Session& session, DocumentoCaptura& forma);

// The driver of the scheme `esquema` ("CFDI", "CFD", "CBB", "NOTA"), income or egreso, run on
// the connection of the save that calls it: its reads see what that save's transaction holds
// (a document saved in the same batch, a company being made), and it opens no connection of
// its own. The description goes to the sealing schemes only.
ResultadoSellado SellarEnGuardado(const Session& session, Connection& connection,
                                  DocumentoCaptura& forma, bool egreso, const QString& esquema,
                                  const QString& descripcion);

}  // namespace ventarix::edocs
