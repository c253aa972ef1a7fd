#pragma once

#include <optional>
#include <vector>

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>

#include "core/browse_view.h"
#include "core/database.h"
#include "core/session.h"

// The look-ups behind every field's F1: a keyword names a list (clients, products, documents,
// folio ranges...), its statement, its captions and the columns its F2, F3 and F4 search.
namespace ventarix::ayuda {

// One column of the list as shown: caption (the "<F2>" mark tells which key searches it),
// width in pixels, alignment (Qt::Alignment flags) and the number or date format.
struct ColumnaAyuda {
  QString titulo;
  int ancho = 100;
  int alineacion = 0;
  QString formato;
};

// What F2, F3 or F4 asks and where it looks: `igual` compares a number, otherwise the typed
// text is looked for anywhere in the column.
struct BusquedaAyuda {
  int tecla = 2;
  QString columna;
  QString indicacion;
  bool igual = false;
};

// A look-up ready to run. The statement is kept in pieces so that a search can replace the
// list's own restriction (the first brand of a big catalogue, the code typed in the field)
// while the joins and fixed conditions and the ordering stay.
struct PeticionAyuda {
  QString titulo;
  QString sentencia;     // the whole statement, with `?` for every value
  QVariantList valores;  // the values of the statement, in order
  std::vector<ColumnaAyuda> columnas;
  std::vector<BusquedaAyuda> busquedas;
  // The discount row's code needs no list: the look-up answers it at once.
  bool inmediata = false;
  QString resultado_inmediato;

  QString seleccion;  // "select ... from ..."
  QString fija;       // conditions every search keeps (joins, the client, the status)
  QVariantList valores_fijos;
  mBrowse::Condicion restriccion;  // what a search replaces
  QString cola;                    // group by, order by, limit
};

// What the calling screen knows about its document: the client or supplier, the document
// family of SERIES, the table of PERIODOS, the invoice or purchase of the *_PRODUCTOS lists,
// and the code typed in a product field.
struct ParametrosAyuda {
  qint32 cliente = 0;
  qint32 proveedor = 0;
  QString documento;
  QString tabla;
  QString factura;
  QString codigo;
};

// Every keyword the look-up knows, in upper case.
const QStringList& Palabras();

// The look-up of a keyword, matched in upper case; nothing for an unknown keyword, or for
// PERIODOS of a table that keeps no periods.
std::optional<PeticionAyuda> Peticion(const Session& session, const QString& palabra,
                                      const ParametrosAyuda& parametros = {});

// The search key's column, or null when the key searches nothing in this list.
const BusquedaAyuda* BusquedaDeTecla(const PeticionAyuda& peticion, int tecla);

// The condition an answer to a search prompt gives: "*" lifts every restriction; a number
// compares equal (any text reads as a number, nonsense as 0); text is looked for anywhere in
// the column, case-insensitively. The answer only ever travels as a bound value.
mBrowse::Condicion BusquedaEnAyuda(Engine engine, const BusquedaAyuda& busqueda,
                                   const QString& respuesta);

// The request with its restriction replaced by the search's condition.
PeticionAyuda Buscar(PeticionAyuda peticion, const mBrowse::Condicion& condicion);

// Puts the statement and its values together again from the pieces.
void Componer(PeticionAyuda& peticion);

// A value as the list shows it under a column's format: "#,##0.00", "#,##0.0000" and the
// like for numbers, "dd/MM/yyyy" for dates; other values as they are.
QString Formatear(const QVariant& valor, const QString& formato);

// A number read from typed text the way every field reads one: a leading "-" makes it
// negative, only the digits and the first point count, nothing readable is 0.
double Numero(const QString& texto);

}  // namespace ventarix::ayuda
