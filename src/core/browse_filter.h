#pragma once

#include <vector>

#include <QString>

#include "core/browse_view.h"
#include "core/database.h"
#include "core/outcome.h"

// The filter language of the grid browsers and the answers of their search prompts. What a
// user types under a column becomes a piece of WHERE text over the view "t"; the typed values
// travel as bound values, never inside the text.
namespace ventarix::mBrowse {

// The longest text a filter accepts under one column.
inline constexpr int kLargoMaximoFiltro = 1000;

// The filter of one column: the condition, or why the text does not read for the column's
// type (a warning whose field is the column's name). "*" and an empty text give an ok outcome
// with an empty condition: no filter on that column.
struct ResultadoFiltro {
  Outcome outcome;
  Condicion condicion;
};

// `expresion` holds `texto` anywhere, ignoring case (ilike on PostgreSQL, like on SQLite: the
// letters of ASCII on both); %, _ and ! are plain characters of the text, not wildcards. Every
// "contains" search of the browsers and look-ups is this one.
Condicion Contiene(Engine engine, const QString& expresion, const QString& texto);

// `expresion`, a number column, compared with a number (`operador` "=", ">=", "<="); the
// value goes into `valores`. A fraction compares as a decimal, so that a column of whole
// numbers holds no value equal to it on either engine.
QString ComparaNumero(const QString& expresion, const QString& operador, double valor,
                      QVariantList& valores);

// `expresion`, a key of whole numbers (folio, numero, cliente), equal to a number: a fraction,
// or a number beyond any key, matches nothing.
Condicion IgualAClave(const QString& expresion, double valor);

// A column of the view as the conditions name it: t."name", quotes inside doubled.
QString ColumnaDeVista(const QString& columna);

// The language per column type, each condition in parentheses:
//   any:    "*" or nothing: no condition; blanks only: is null (text: or empty)
//   text:   "abc" contains abc, ignoring case; "a,b,c" equals one of the terms, ignoring case
//   number: "10-20" range, "1,5,9" one of them, "125" equal
//   date:   "31/12/2014" that day, "12/2014" that month, "2014" that year, and "a-b" from the
//           first day of a to the last day of b, each side in any of those three forms
// Two-digit years are read 2000-2029 and 1930-1999. The characters %, _ and ! are plain
// characters in a text filter, not wildcards; control characters are dropped.
ResultadoFiltro CondicionDeFiltro(Engine engine, TipoColumna tipo, const QString& columna,
                                  const QString& texto);

// The conditions that are not empty, joined by " and ", with their values in order.
Condicion UnirCondiciones(const std::vector<Condicion>& condiciones);

// The answer of a browser's search prompt (F2, F3, F4) over one column: "*" is all rows (an
// empty condition); `igual` compares a key column with the answer read as a number (anything
// not a number reads as 0; see IgualAClave); otherwise the column, read as text, contains the
// answer ignoring case.
// An answer longer than kLargoMaximoFiltro finds nothing.
Condicion CondicionDeBusqueda(Engine engine, const QString& columna, bool igual,
                              const QString& respuesta);

// The answer as a "contains" search among a document's rows: `subconsulta` selects the
// document's key from its detail table with "%1" where the comparison of `columna_detalle`
// goes; the view's `columna` must be among those keys. "*" is all rows.
Condicion CondicionDeSubconsulta(Engine engine, const QString& columna, const QString& subconsulta,
                                 const QString& columna_detalle, const QString& respuesta);

}  // namespace ventarix::mBrowse
