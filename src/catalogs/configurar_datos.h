#pragma once

#include <QString>
#include <QStringList>

#include "core/outcome.h"
#include "core/session.h"

// The terminal settings of a user (table configurar, one row per user): point-of-sale
// behaviour and the three printed forms, ticket, note and quotation.
namespace ventarix::configurar {

// The prefixes of the three printed forms' columns, in the order the point of sale offers
// them ("T", "N", "C").
const QStringList& Formularios();

// An administrator may edit the settings of any user, anyone else only their own.
bool PuedeConfigurar(const Session& session, const QString& usuario);

// The users whose settings the session may edit: for an administrator "ADMINISTRADOR" and
// every user by name; for anyone else only themselves. A failed read is logged and comes back
// in *error, with the session's own user as the only choice.
QStringList UsuariosConfigurables(const Session& session, Outcome* error = nullptr);

// The user's row by lower-case column name, with the terminal's defaults where the row or a
// column is missing. The three series are those stored (upper case), empty when unused: the
// fall-back to "A" is the session's, not the row's.
RowValues LeerConfiguracion(const Session& session, const QString& usuario,
                            Outcome* error = nullptr);

// Writes every column of the user's row in one transaction, adding the row when missing:
// numbers through ValorNumerico, texts through ValorTexto, series in upper case, flags "S" or
// "N". Saving one's own row reloads the session's terminal block and its derived fields.
Outcome GuardarConfiguracion(Session& session, const QString& usuario, const RowValues& datos);

}  // namespace ventarix::configurar
