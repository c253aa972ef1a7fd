#pragma once

#include <functional>
#include <vector>

#include <QString>
#include <QStringList>
#include <QVariant>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"
#include "documents/bajas.h"

// The kinds of record the cancellation and deletion engine knows, each a row of its
// differences. Internal to the engine (bajas.cpp, borrar.cpp).
namespace ventarix::bajas {

// A check that refuses the record while its statement finds a row: the message is followed by
// the first column of that row. The statement binds the record's key once.
struct Bloqueo {
  QString sentencia;
  QString mensaje;
};

// What the engine reads before any row changes, for the checks and the recomputations.
struct Antes {
  Accion accion = Accion::kBaja;
  QString llave;
  QVariant valor;            // the key as bound: a number for catalogues
  RowValues encabezado;      // the record's own row
  QStringList codigos;       // product codes of the rows
  QStringList relacionados;  // documents the rows point at; {""} for none
  qint32 socio = 0;          // client or supplier of the header
};

// A kind's own check or recomputation, inside the record's transaction.
using Paso = Outcome (*)(const Session& session, Connection& c, const Antes& antes);

// Whether deletion is refused for a stamped fiscal folio ("CFDI" with a UUID).
enum class FolioFiscal { kNo, kBloquea, kBloqueaConUuid };

struct Clase {
  const char* clase;          // "REMISIONES"
  QString tabla;              // header table; rows in "<tabla> detalles"
  QString llave;              // key column of the header and the rows
  QString derechos;           // rights column of usuarios
  bool catalogo = false;      // no reason, no rows, status alone
  bool numerica = false;      // keyed by numero
  bool codigos = false;       // the rows' product codes are rebuilt afterwards
  QString relacionado;        // row column of the documents recomputed afterwards
  QString socio;              // header column of the client or supplier
  Paso revisar = nullptr;     // the last check, after the blocking ones (and the folio rule)
  Paso recalcular = nullptr;  // after the statements, both actions

  // Cancellation.
  std::vector<Bloqueo> bloqueos_baja;
  QString partidas_baja;     // assignments on the rows; empty: the rows stay as they are
  QString encabezado_baja;   // assignments on the header before its status and reason
  Paso totalizar = nullptr;  // the totals of the zeroed rows, first of the recomputations

  // Deletion.
  std::vector<Bloqueo> bloqueos_borrado;
  FolioFiscal folio_fiscal = FolioFiscal::kNo;
  QString mayor;             // refusal when a higher folio or number exists; empty: no rule
  QStringList borrar_antes;  // tables emptied of the record's rows before its own rows
  int documento = -1;        // those rows' documento (folio ranges: 0 invoices, 1 notes)
};

const std::vector<Clase>& Tabla();
// The kind by its name; nullptr for an unknown one.
const Clase* Buscar(const QString& clase);

// The rows of the kinds, by area (bajas_compras.cpp, bajas_ventas.cpp, bajas_inventario.cpp,
// bajas_catalogos.cpp).
std::vector<Clase> Compras();
std::vector<Clase> Ventas();
std::vector<Clase> Inventario();
std::vector<Clase> Catalogos();

// Steps shared by both actions (bajas_pasos.cpp).

// Opens a connection, begins the transaction, runs `accion` and commits; anything but Ok
// rolls back.
Outcome EnTransaccion(const Session& session, const std::function<Outcome(Connection&)>& accion);

// The record's own row (held until the end on PostgreSQL, so that two workstations take
// turns on it) and its key as bound. A record not found is a warning.
Outcome LeerRegistro(Connection& c, const Clase& k, const QString& llave, Antes* antes);
// The first blocking check that finds a row refuses, with its message and the key found.
Outcome Bloquear(Connection& c, const std::vector<Bloqueo>& bloqueos, const QVariant& valor);
// The product codes, related documents and party of the record, read before any change.
Outcome LeerListas(Connection& c, const Clase& k, Antes* antes);
// One statement of the action; its failure is a stop with the engine's words.
Outcome Ejecutar(Connection& c, const QString& sentencia, const QVariantList& valores);

// Recomputation pieces the kinds put together.
Outcome Existencias(Connection& c, int almacen, const QStringList& codigos);

// Runs the steps in order until one does not end Ok.
template <typename... Pasos>
Outcome EnOrden(Pasos&&... pasos) {
  Outcome o;
  (void)((o = pasos(), o.ok) && ...);
  return o;
}

}  // namespace ventarix::bajas
