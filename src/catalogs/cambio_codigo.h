#pragma once

#include <functional>
#include <optional>

#include <QString>
#include <QStringList>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// A product's code changed through every document row, the materials and the catalogue. The
// change is first written into empresa ([codigo actual], [codigo nuevo]) and stays there until
// every table is done, so that a change cut short goes on at the next start. Each table is
// its own save: a table finished stays finished, and running the change again finds nothing
// left in it.
namespace ventarix::cambio_codigo {

struct Cambio {
  QString actual;
  QString nuevo;
};

// The tables the code is carried through, in their order; `productos` comes last.
const QStringList& Tablas();

struct Avance {
  // The pending change was read: the codes it carries.
  std::function<void(const Cambio& cambio)> cambio;
  // A table begins: its name, its number (from 1) and how many tables there are.
  std::function<void(const QString& tabla, int numero, int tablas)> tabla;
  // A table is done: the rows that took the new code (0 for a catalogue that already had it).
  std::function<void(const QString& tabla, int filas)> hecho;
  // Asked after each table: true stops there and leaves the change pending.
  std::function<bool()> detener;
};

// The change waiting in empresa's row 1, if both codes are there; a failed read sets *error.
std::optional<Cambio> Pendiente(Connection& c, QString* error);

// Carries the pending change through every table, then empties the pending columns. The
// session's CambioDeCodigoPendiente ends false once the change is complete (or when there
// was none), and stays true when it was stopped or failed.
// No right is asked here: the change was written under the right "C" on Productos
// (productos::AnotarCambioDeCodigo), and whoever starts the company next must be able to
// finish it, or documents and catalogue would name the product differently.
Outcome Cambiar(Session& session, const Avance& avance = {});

}  // namespace ventarix::cambio_codigo
