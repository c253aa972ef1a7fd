#pragma once

#include <optional>
#include <vector>

#include <QString>
#include <QVariantList>

#include "core/browse_families.h"
#include "core/browse_query.h"
#include "core/browse_view.h"
#include "core/outcome.h"
#include "core/session.h"

// The shared rules of every grid browser: which saved view a user gets, how it follows a
// changed table, what a search keeps, and the prompts a toolbar button asks for.
namespace ventarix::mBrowse {

// The view of a form for the session's user: the user's own row, else the template row of
// "ADMINISTRADOR", else a new template row built from the statement's columns. A row whose
// columns no longer match the statement's is deleted and the next one tried, so views follow
// a changed table by themselves. `sentencia_inicial` is the statement of a new row ("select *
// from <tabla>" when empty).
struct VistaCargada {
  Outcome outcome;  // "NO EXISTE LA TABLA:  [<tabla>" and the like
  Vista vista;
  std::vector<ColumnaVista> columnas;
  bool propia = false;  // the row belongs to the user
};
VistaCargada ObtenerVista(const Session& session, const QString& tabla,
                          const QString& sentencia_inicial = {});

// A definition line per field, with widths and formats by type and its caption in field 7.
std::vector<ColumnaVista> DefinicionInicial(const std::vector<Campo>& campos);

// Writes the current row, first visible column, search and sort into the user's row, adding
// it from the view when missing.
Outcome GuardarVista(const Session& session, const Vista& vista);
Outcome BorrarVista(const Session& session, const QString& tabla);

// A search as the user gave it. `Busqueda` of the view keeps "where " and this, as JSON: the
// prompt's key and answer, or the filter's text under each column. The condition is built
// again from it at every load by the same routines that built it the first time, so a saved
// search never carries SQL, and what the user typed only ever travels as a bound value.
struct Busqueda {
  int tecla = -1;     // the search prompt's key (BusquedaFamilia::tecla); -1: no prompt
  QString respuesta;  // the prompt's answer
  QList<QPair<QString, QString>> filtro;  // column name and the text typed under it
  bool vacia() const { return tecla < 0 && filtro.isEmpty(); }
};
QString EscribirBusqueda(const Busqueda& busqueda);
// Anything else (an empty text, a search saved by an older version) reads as no search.
Busqueda LeerBusqueda(const QString& guardada);

// The condition of a search over the view's columns. A column the view no longer has, or a
// key its family does not search by, adds nothing.
Condicion CondicionGuardada(const Busqueda& busqueda, Engine engine,
                            const std::vector<ColumnaVista>& columnas,
                            const std::vector<BusquedaFamilia>& busquedas);
// The saved search of a view for the user, without the word "where", for reports.
Condicion LeerBusqueda(const Session& session, const QString& tabla);

// The year filter applies when the view has a `periodo` column.
bool TienePeriodo(const std::vector<Campo>& campos);

// The prompts a toolbar button of the view asks before it acts, from the view's `Seguridad`
// lines ("button|...|user|...|manager"): field 3 equal to 0 asks the user's own password when
// an administrator's password exists; field 5 equal to 0 asks the manager's. A prompt whose
// password is empty is not asked.
//
// The manager's prompt also takes the administrator's password: the owner may allow whatever
// a manager may, and a shop without a manager still gets its manager's buttons authorized.
// Without a manager, ContrasenaGerente holds the built-in password of the start-up, which
// keeps working too (compared, like every password, in upper case).
struct Prompt {
  QString titulo;
  QStringList claves;  // the stored passwords, any of which the typed one may match
};
std::vector<Prompt> PromptsDeBoton(const Session& session, const QString& seguridad, int boton);

// Whether the view's `Permisos` leaves button `boton` (1-based) enabled.
bool BotonPermitido(const QString& permisos, int boton);

// Status texts: "n filas", or "row/n filas".
QString MostrarFilas(qint64 filas, qint64 fila_actual = 0);
// The sum panel's text for a selection of `celdas` cells, `valores` those of its numeric
// columns: "Suma = 1,003.50,  Celdas = 3", or "Celdas = 3" alone when no numeric column is
// selected (codes, names and file names are text, never summed); more than 32767 cells give
// "Error, Demasiadas filas = " and the count; nothing selected, empty.
inline constexpr int kMaximoCeldas = 32767;
QString SumaSeleccion(const std::vector<double>& valores, qint64 celdas);

}  // namespace ventarix::mBrowse
