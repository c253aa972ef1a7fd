#pragma once

#include <optional>
#include <vector>

#include <QString>
#include <QVariantList>

#include "core/browse_view.h"
#include "core/database.h"
#include "core/outcome.h"

// The statements a browser runs over a saved view: the view's own select, narrowed by the
// search or filter and the year, sorted, counted and read page by page. A view's statement
// may be typed by an administrator; it only ever runs wrapped as a subquery, on a read-only
// connection, so that it can neither change data nor reach outside the company database.
namespace ventarix::mBrowse {

// More rows than this are cut to the first ones.
inline constexpr qint64 kLimiteFilas = 200000;

// A column of a statement's result as the database describes it.
struct Campo {
  QString nombre;
  int tipo = kTipoTexto;  // a data type code of browse_view.h
};

// Whether a view's statement may run: one select (or with ... select), no statement separator,
// no function that reaches files, other databases or server settings.
Outcome SentenciaPermitida(const QString& sentencia);

// The result columns of a statement, read without fetching rows. Fails with the engine's words
// when the statement does not run.
struct Campos {
  Outcome outcome;
  std::vector<Campo> campos;
};
Campos CamposDeSentencia(Connection& connection, const QString& sentencia);

// One term of a sort: column and direction.
struct Orden {
  QString columna;
  bool descendente = false;
};
// "[col] Asc, [col2] Desc" as kept in `Ordenar`; unknown pieces are dropped.
std::vector<Orden> LeerOrdenar(const QString& ordenar);
QString EscribirOrdenar(const std::vector<Orden>& orden);

// What a browser asks for.
struct Consulta {
  QString sentencia;           // the view's select
  Condicion busqueda;          // search or filter over t."column"
  std::optional<int> periodo;  // year filter, when the view has `periodo`
  std::vector<Orden> orden;    // sort; empty: the key's order
  QStringList llave;           // key columns for a stable order, when the view has them
  bool llave_unica = false;    // the key identifies one row: pages go by key
};

// "select t.* from (<sentencia>) as t where ..." and its values, without order or limit.
Condicion SentenciaFiltrada(const Consulta& consulta);
// The count guard's number of rows (what the grid shows is at most kLimiteFilas).
std::optional<qint64> ContarFilas(Connection& connection, const Consulta& consulta,
                                  QString* error = nullptr);

// A page of rows, each a list of the columns' values in the statement's order.
struct Pagina {
  Outcome outcome;
  std::vector<QVariantList> filas;
};
// Whether the order tells every row apart (a unique key closes it), so that the view read
// backwards gives the same rows in reverse.
bool OrdenTotal(const Consulta& consulta);

// Reads up to `cuantas` rows after position `desde`. When the order is the key alone or one
// column plus a unique key, the page starts after `ultima` (the last row read, whose values
// are found by the column names `columnas`); otherwise it skips `desde` rows.
// `desde_el_final` reads the view backwards, for a total order only: the rows right before
// `ultima`, or those before the last `desde` rows; they come back in the view's order.
Pagina LeerPagina(Connection& connection, const Consulta& consulta, const QStringList& columnas,
                  const QVariantList& ultima, qint64 desde, int cuantas,
                  bool desde_el_final = false);

// The rows of the view that satisfy a where text over t."column" (a saved row after a change).
Pagina LeerFilas(Connection& connection, const QString& sentencia, const Condicion& donde,
                 int cuantas);

}  // namespace ventarix::mBrowse
