#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantMap>

#include "core/outcome.h"
#include "edocs/comprobante.h"

namespace ventarix {
class Connection;
struct Session;
}  // namespace ventarix

namespace ventarix::edocs {

// How a document's cfdi:Impuestos is written. A credit note sealed at capture carries only its
// Traslados; the same note rebuilt for stamping carries totalImpuestosTrasladados too.
enum class Impuestos { kCompletos, kSoloTraslados };

// The document's XML text, as saved: CFDi 3.2 (cfdi: prefix, Complemento when stamped) or
// CFD 2.2 (no prefix, noAprobacion/anoAprobacion), chosen by comprobante.Version. Attribute
// order, the "if set" rules, the number text and the CR LF + tab text nodes are those of the
// SAT files the company sends. The AXXA addenda, when given, goes last under the root (CFD).
QByteArray ConstruirXml(const Comprobante& comprobante, Impuestos impuestos = Impuestos::kCompletos,
                        const QByteArray& addenda = {});

// The same with the scheme given rather than read from comprobante.Version, for the entries that
// know the document's scheme from its row. An addenda that is not well-formed XML makes the
// build fail: the result is then empty.
enum class FormatoXml { kCfdi32, kCfd22 };
QByteArray ConstruirXml(const Comprobante& comprobante, FormatoXml formato,
                        Impuestos impuestos = Impuestos::kCompletos,
                        const QByteArray& addenda = {});

// The shortest general text of a number, as the document writes it: 1160 -> "1160",
// 0.16 -> "0.16", 16 -> "16".
QString TextoNumero(double valor);

// The file name of a document: (serie + "-" when there is one) + folio + ".xml".
QString NombreArchivoXml(const QString& serie, const QString& folio);

// Reads the comprobante block of a stored document row (facturas or notas cliente: the key
// column and table given), its emisor/receptor snapshots, taxes and concepts ([<tabla>
// resumen] first, else the detail rows by item). False when the row is missing.
bool LeerComprobante(Connection& connection, const QString& tabla, const QString& llave,
                     const QString& documento, Comprobante* comprobante);

// The comprobante block, emisor and receptor snapshots as columns of `tabla` (those the table
// has), for a document row about to be written; the stamp's columns only `con_timbre`.
QVariantMap ColumnasDeComprobante(const QString& tabla, const Comprobante& comprobante, bool sql,
                                  bool con_timbre = false);

// Writes the comprobante block, emisor and receptor snapshots to the stored row (an update of
// the row that must already exist). Used by the capture screens after a successful sealing.
bool EscribirComprobante(Connection& connection, const QString& tabla, const QString& llave,
                         const QString& documento, const Comprobante& comprobante,
                         QString* error = nullptr);

// mCrearXML_CFDi / mCrearXML_CFD: writes <CarpetaXml>/<factura>.xml again from the stored row,
// with the stored seal (and stamp for CFDi). The Outcome carries the exact messages.
Outcome CrearXmlDesdeFactura(const Session& session, const QString& factura);
Outcome CrearXmlDesdeFacturaCFD(const Session& session, const QString& factura);

}  // namespace ventarix::edocs
