#pragma once

#include <optional>

#include <QString>
#include <QStringList>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// Cancelling ("baja") and deleting a record of any family, documents and catalogues alike:
// one engine, each kind a row of its differences (bajas_clases.cpp). A cancelled record stays
// with status 'BAJA' and its rows at zero, and what derives from it is recomputed; a deleted
// one is gone, and only the last folio of a serie (the highest number of a catalogue) may go,
// so that the numbering shows no gap. Each record is one transaction: a refusal or a failure
// leaves it as it was.
//
// Kinds are the names the browsers hand over: "ORDENESCOMPRA", "COMPRAS", "CONTRARECIBOS",
// "COTIZACIONES", "PEDIDOS", "REMISIONES", "FACTURAS", "PRODUCCION", "TRASPASOS", "CXC", "CXP",
// "NOTASCLIENTE", "NOTASPROVEEDOR", "LICITACIONES", "AJUSTES", "CLIENTES", "AGENTES",
// "PROVEEDORES", "MARCAS", "LINEAS", "PRODUCTOS", "BANCOS", "FOLIOSFACTURAS", "FOLIOSNOTAS".
// Users are deleted by usuarios::BorrarUsuario.
namespace ventarix::bajas {

enum class Accion { kBaja, kBorrado };

// What a screen shows and asks before acting on the records of a kind.
struct Avisos {
  QString titulo;              // the screen's caption: "BAJAS Registros de FACTURAS"
  QString pregunta;            // the confirmations' title: "BAJAS Registros"
  QStringList confirmaciones;  // the three questions, each answered Yes to go on
  bool pide_motivo = false;    // documents are cancelled with a reason, catalogues without
};
// Nothing for a kind the engine does not know.
std::optional<Avisos> AvisosDe(Accion accion, const QString& clase);

// Cancels the record `llave` (a document key, a catalogue number, a product code). Refusals,
// in order: the user's right "B" of the family, an empty reason for a document, a record not
// found, one already cancelled (a warning), the kind's blocking checks (their message followed
// by the key found), and for a purchase the stock it brought that is already gone.
Outcome DarDeBaja(const Session& session, const QString& clase, const QString& llave,
                  const QString& motivo);
// The same inside a transaction the caller holds on `c`; nothing is committed.
Outcome DarDeBaja(const Session& session, Connection& c, const QString& clase, const QString& llave,
                  const QString& motivo);

// Deletes the record for good. Refusals: the right "B", a record not found, the kind's
// blocking checks (a cancelled dependent blocks too), a stamped fiscal folio, a higher folio
// of the serie or a higher catalogue number, and a purchase's stock already gone.
Outcome Borrar(const Session& session, const QString& clase, const QString& llave);

// Every kind, documents first.
QStringList Clases();
// The kind of a header table ("notas cliente" gives "NOTASCLIENTE") or a kind's own name,
// compared without case; empty when none.
QString ClaseDe(const QString& nombre);
QString TablaDe(const QString& clase);
// The key column of the kind's table ("remision", "numero", "codigo"), which the browse must
// show for a row to be acted on; empty for an unknown kind.
QString ColumnaLlave(const QString& clase);

// The document kinds whose header table holds the key `llave`, in the order of Clases().
Outcome ClasesConLlave(const Session& session, const QString& llave, QStringList* clases);

}  // namespace ventarix::bajas
