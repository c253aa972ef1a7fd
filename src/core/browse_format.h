#pragma once

#include <vector>

#include <QString>
#include <QStringList>

#include "core/browse_view.h"
#include "core/outcome.h"
#include "core/session.h"

// The view editor's work on `tablas`: which parts of a saved view it writes, for which users,
// and the checks a new statement passes first.
namespace ventarix::mBrowse {

// A column the browser's own code reads from every row of its view, with its data type code
// (kTipoTexto, kTipoEntero32 ...).
struct ColumnaRequerida {
  QString nombre;
  int tipo = kTipoTexto;
};

// The parts of a view the editor writes: only those whose Aplicar... is set.
struct Formato {
  bool AplicarPermisos = false;
  bool AplicarSeguridad = false;
  bool AplicarOrdenar = false;
  bool AplicarSql = false;
  QString Permisos;   // "1"/"0" per toolbar button
  QString Seguridad;  // one line per toolbar button, fields separated by "|"
  QString Ordenar;    // "[col] Asc" or "[col] Desc", comma-joined
  QString Sentencia;  // the view's select; empty for the whole table
};

// A user the editor offers.
struct UsuarioDeFormato {
  QString usuario;
  bool gerente = false;
};

// The template user first, then the rows of `usuarios` by name.
std::vector<UsuarioDeFormato> UsuariosDeFormato(const Session& session);

// The view the editor starts from: the session user's row, else the template's; a Vista with
// only its Tabla when neither exists.
Vista VistaDeFormato(const Session& session, const QString& tabla);

// The view editor, and with it the buttons' rights and prompts of every view, is the
// administrators': anyone else gets a warning from each of its routines.
Outcome RevisarAdministrador(const Session& session);

// Runs the statement read-only, one row at most, and checks that it yields each required
// column with a type of the same kind. A statement that fails gives the engine's words.
Outcome ProbarSentencia(const Session& session, const QString& sentencia,
                        const std::vector<ColumnaRequerida>& requeridas);

// Writes the applied parts of `formato` into the view row of each user in `usuarios`, in one
// transaction. A user without a row gets a copy of the template's layout (not its search or
// position), or an empty row when there is no template.
Outcome GuardarFormato(const Session& session, const QString& tabla, const QStringList& usuarios,
                       const Formato& formato, const std::vector<ColumnaRequerida>& requeridas);

// Seguridad normalised as stored: lines ended by a carriage return and line feed, blank
// lines dropped.
QString LineasDeSeguridad(const QString& texto);

}  // namespace ventarix::mBrowse
