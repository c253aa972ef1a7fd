#pragma once

#include <QDateTime>
#include <QString>
#include <QVariantMap>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"
#include "documents/captura.h"
#include "documents/row_arithmetic.h"

// Pieces the capture engine's files share: how a document's values are read, and the checks
// run inside a save.
namespace ventarix::captura {

// Numbers as ValorNumerico reads them, texts as ValorTexto keeps them.
double Numero(const QVariantMap& valores, const char* columna);
QString Texto(const QVariantMap& valores, const char* columna);
bool TieneCodigo(const QVariantMap& partida);
// Whether the family writes the row.
bool Presente(const FamiliaCaptura& f, const QVariantMap& partida);
// What the row arithmetic takes from a row.
RowInput EntradaDe(const QVariantMap& partida);
// The document's date, without its time; today's (the server's) when none is given.
QDateTime FechaDe(const Documento& d);
// The warehouse a document moves: the session's store for a new one, the stored document's
// own for a change.
int AlmacenDe(const Session& session, Connection& c, const FamiliaCaptura& f, const Documento& d);

// The shared checks on an open connection (inside the save's transaction).
Outcome Revisar(const Session& session, Connection& c, const FamiliaCaptura& f, const Documento& d);

}  // namespace ventarix::captura
