#pragma once

#include "core/outcome.h"
#include "core/session.h"

// The company's own row of empresa (numero = 1): fiscal identity, tax and pricing rules, mail
// and stamping account, logo.
namespace ventarix::empresa {

// Every column of the row, logo included, by lower-case name. A company without the row gets
// the values the session runs on (its defaults: tax 16, "MXN", the default mail relay...) with
// an empty RFC, so that the first save starts from them. A failed read is logged and comes
// back as a stop in *error.
RowValues LeerEmpresa(const Session& session, Outcome* error = nullptr);

// The checks of Guardar, in order, each with the field that takes the focus: the RFC, then the
// fiscal address. When the RFC check has a reason of its own (a month or day out of range) it
// goes into *aviso_rfc, to be shown before the refusal.
Outcome RevisarEmpresa(const RowValues& datos, Outcome* aviso_rfc = nullptr);

// Only a user whose menu reaches the company screen saves it. Checks and writes the row in one
// transaction, adding it with numero 1 when missing. Only the columns the row holds are
// written (the logo too: a null "logotipo" clears it); the pending code change is left alone.
// The session is not reloaded here: the caller does it.
Outcome GuardarEmpresa(const Session& session, const RowValues& datos,
                       Outcome* aviso_rfc = nullptr);

// Deletes the logo extracted for this session, so that the next session load extracts the
// one just saved.
void DescartarLogoExtraido(const Session& session);

}  // namespace ventarix::empresa
