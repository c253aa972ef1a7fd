#pragma once

#include <vector>

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// The capture of a commercial document: one engine for every family, each family a row of
// differences (FamiliaCaptura). A document comes in as a plain object, header columns and
// rows by their column names, from the capture screen, the command line or a test alike; the
// engine checks it, and saves it in one transaction: header, rows, totals, stock, and what
// depends on it.
namespace ventarix::captura {

// A document as the user gave it. Column names are the tables' own, in lower case.
struct Documento {
  QString llave;                      // the stored document a change rewrites; empty for a new one
  QVariantMap encabezado;             // cliente, fecha, plazo, obs, tipo, ...
  std::vector<QVariantMap> partidas;  // codigo, cantidad, precio, dcto, ... of each row
  // The folio the screen showed while typing: only a forecast, the save takes the next one.
  qint32 folio_previsto = 0;
};

struct Guardado {
  Outcome outcome;
  QString llave;  // the key written
};

// How a family moves stock when it is saved: goods out of the store's warehouse, or back in
// (a return on a credit note).
enum class Existencias { kNinguna, kSalida, kEntrada };

// What a save did, for the recomputations that depend on it.
struct Hechos {
  QString llave;
  QStringList fuentes;        // source documents of the rows, before and after
  bool alta = true;           // a new document
  qint32 socio_anterior = 0;  // the party the stored document had before a change
};

struct FamiliaCaptura;

// What a family adds to the shared checks. Each takes the document being saved (rows already
// completed) and reads inside the save's transaction on `c`.
using RevisarFamilia = Outcome (*)(const Session& session, Connection& c, const Documento& d,
                                   bool alta);
// Fills what the screen fills by itself on a row of a known code: description, unit, price
// by the client's rules when none is given, tax, cost.
using CompletarPartida = Outcome (*)(const Session& session, Connection& c, const Documento& d,
                                     QVariantMap* partida);
// Fills what leaving the party's field fills on the screen (agent, credit term, payment data),
// where the document does not say.
using CompletarEncabezado = Outcome (*)(const Session& session, Connection& c, Documento* d);
// Whether a row is written: one that names a product by default; a family whose rows name
// other documents says which of its rows count.
using PartidaPresente = bool (*)(const QVariantMap& partida);
// Totals from the stored rows (the document gives what the header adds: retentions, summary).
using Totalizar = Outcome (*)(const Session& session, Connection& c, const Documento& d,
                              const QString& llave);
// Balances, statuses and fulfilment of the document and of the documents its rows came from
// (both before and after a change).
using Recalcular = Outcome (*)(const Session& session, Connection& c, const Documento& d,
                               const Hechos& hechos);
// The electronic document made under the serie and folio just taken, before the header is
// written: the driver may move the folio (a range's first one) and gives the header columns it
// fills (the emitter's, the receptor's, the seal). A refusal is the driver's message, on Msg1.
using Sellar = Outcome (*)(const Session& session, Connection& c, const Documento& d,
                           const QString& serie, qint32* folio, QVariantMap* columnas);
// Stock moved by the stored rows of `llave` when they go otherwise than by their quantities in
// the store's warehouse (an adjustment's warehouse, a transfer's two, production's components):
// `signo` +1 applies them after they are written, -1 undoes them before a change rewrites them.
using MoverExistencias = Outcome (*)(const Session& session, Connection& c, const QString& llave,
                                     int signo);

// The families whose serie is a folio range's (invoices, credit notes) rather than the session's.
struct RangoDeFolios {
  const char* tabla = nullptr;    // "folios facturas"; none: the session's default serie
  const char* columna = nullptr;  // header column naming the range: "ingreso"
  qint32 Session::*predeterminado = nullptr;  // the range in force: &Session::FolioFacturas
  bool series_del_usuario = false;            // AplicarSeriesEnFacturas limits the user's series
};

// One family of the capture pattern.
struct FamiliaCaptura {
  const char* tabla;              // header table: "remisiones"
  const char* llave;              // key column: "remision"
  const char* derechos;           // rights text column of usuarios: "Remisiones"
  QString Session::*actual;       // current-document variable: &Session::RemisionActual
  QString Session::*serie;        // default serie: &Session::SerieRemisiones
  const char* status_inicial;     // "POR FACTURAR"
  const char* socio = "cliente";  // the header's party column; nullptr: none
  // Rows name products (code, description, unit, quantity): the row check and the stock
  // check apply. A receipt's rows name invoices instead.
  bool productos = true;
  PartidaPresente presente = nullptr;  // which rows are written; nullptr: those with a code
  // A change rewrites the rows; without, it rewrites the header and the rows stay as stored.
  bool cambio_con_partidas = true;
  bool checar_suspendido = true;  // a suspended client's document is refused
  const char* mensaje_folio = "Se requiere la entrada de folio mayor a cero";
  // Header columns the document may carry besides the shared ones.
  QStringList columnas;
  // Row columns taken from the document's rows (besides the key, item, fecha, codigo,
  // descripcion, unidad, cantidad).
  QStringList columnas_partida;
  const char* almacen_partida = nullptr;  // row column that takes the session's store
  const char* fuente_partida = nullptr;   // row column naming the source document
  bool con_costo = true;                  // rows carry cost and commission
  bool checar_utilidad = false;           // a row sold at no profit stops the save
  // The shared row check; invoices leave it to their sealing, whose messages
  // the user sees instead.
  bool checar_partidas = true;
  Existencias existencias = Existencias::kNinguna;
  // The warehouse the document names itself (a purchase's Movimiento, "ALMACEN2"), written on
  // its rows; 0: the document moves no stock and its rows are not checked (an expense).
  // nullptr: the session's store.
  int (*almacen)(const Documento& d) = nullptr;
  // Goods brought in are checked too: a change that lowers them below what was already taken
  // out of the warehouse is refused.
  bool checar_entrada = false;
  MoverExistencias mover = nullptr;  // in place of `existencias`
  RangoDeFolios rango;
  // A serie and folio taken (another family's document, or a folio the sealing moved) stop the
  // save with this text, two line breaks and the key; null: the next folio is taken instead.
  const char* folio_existente = nullptr;
  // The credit check (or the invoice's scheme and rate) comes right after the rights; the
  // family's required fields after the suspended client.
  RevisarFamilia revisar_credito = nullptr;
  RevisarFamilia revisar_campos = nullptr;
  // The family's own stock check, last, where `existencias` has none.
  RevisarFamilia revisar_existencias = nullptr;
  CompletarEncabezado completar_encabezado = nullptr;
  CompletarPartida completar = nullptr;
  Totalizar totalizar = nullptr;
  Recalcular recalcular = nullptr;
  Sellar sellar = nullptr;
};

// The shared checks of a capture, in order: rights, credit, folio, suspended client, the
// family's required fields, the month of a change, the rows, the stock. The screen asks for
// its authorization after these pass.
Outcome RevisarDocumento(const Session& session, const FamiliaCaptura& familia,
                         const Documento& documento);

// Checks again and saves in one transaction; a new document takes the next folio of its serie
// at this moment (another workstation saving the same serie waits for its turn, and a key
// already taken moves on to the next folio). Sets the family's current-document variable.
Guardado GuardarDocumento(Session& session, const FamiliaCaptura& familia, Documento documento);
// The same inside a transaction the caller holds on `c` (a batch of documents saved as one);
// nothing is committed, and the session's current-document variable stays.
Guardado GuardarDocumento(const Session& session, Connection& c, const FamiliaCaptura& familia,
                          Documento documento);

// The rows of a document as the change screen shows them, and the header, by column name.
struct Leido {
  Outcome outcome;
  Documento documento;
  bool modificable = false;  // still in its first status
};
Leido LeerDocumento(const Session& session, const FamiliaCaptura& familia, const QString& llave);
Leido LeerDocumento(Connection& c, const FamiliaCaptura& familia, const QString& llave);

// "Se requiere una descripción ó unidad para la fila: " and the like over the rows; `fila` is
// the 1-based row that stopped the check.
Outcome ChecarPartidas(const std::vector<QVariantMap>& partidas, bool checar_utilidad,
                       bool tolerante, int* fila = nullptr);

// The key of serie and folio: "A-125", or the folio alone without serie.
QString Llave(const QString& serie, qint32 folio);

// The serie a new document of the family takes, and for a family of folio ranges the range's
// scheme ("CFDI", ...) and number; both empty when the range is missing or not the user's.
struct SerieDelDocumento {
  QString serie;
  QString esquema;
  qint32 rango = 0;
};
SerieDelDocumento SerieDe(const Session& session, Connection& c, const FamiliaCaptura& familia,
                          const Documento& documento);

}  // namespace ventarix::captura
