#pragma once

#include <QString>

#include "core/session.h"

// The steps of the desktop program before the main window, each with the dialogs it needs.
namespace ventarix::escritorio {

// The regional check: false (after the critical message) when decimals are written with a
// comma.
bool RevisarRegion();

// Repeats until a company database passes the company check: the given company path (kept as
// the stored choice), else the stored choice, else the open-file dialog in the user's
// documents; a PostgreSQL company that cannot be reached first offers a new remote address.
// Without a file chosen the program says it would end and offers to make a new empty company
// or the demo company instead, which then opens. False when the user leaves.
bool SeleccionarBaseDatos(Session& session, const QString& empresa);

// The remote address prompt, until a valid address is given (true, connection file
// rewritten) or the answer is empty or cancelled (false).
bool PedirDireccion(Session& session);

// The login decision: a company without administrator enters at once as ADMINISTRADOR;
// otherwise the login form. False when the user left it.
bool Identificar(Session& session);

}  // namespace ventarix::escritorio
