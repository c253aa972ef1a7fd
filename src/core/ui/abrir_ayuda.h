#pragma once

#include <QString>

#include "core/ayuda.h"
#include "core/session.h"

class QWidget;

namespace ventarix {

// Opens the look-up of a keyword (matched in upper case) and answers the first column of the
// row chosen; empty when the user left with Esc or the keyword is unknown. The discount code of a
// credit note answers at once, with no list.
QString AbrirAyuda(Session& session, const QString& palabra, QWidget* parent,
                   const ayuda::ParametrosAyuda& parametros = {});

}  // namespace ventarix
