#pragma once

#include <QString>
#include <QStringList>

#include "core/session.h"

// What the subcommands that work on a company share: their options and the company opened as
// the desktop opens it.
namespace ventarix::app {

// The value after "--name" (or in "--name=value"); empty when there is none.
QString Opcion(const QStringList& args, const QString& nombre);
// The words that are not options nor their values.
QStringList SinOpciones(const QStringList& args, const QStringList& con_valor);

// The company opened as the desktop opens it, without a login: the file's engine, the company
// check and the session load (folders, settings, series), for `usuario` with the rights,
// store and roles of its row; "ADMINISTRADOR" of a company without that user has every right.
// A user the company does not know is refused.
bool AbrirEmpresa(const QString& path, const QString& usuario, Session& session, QString* error);

}  // namespace ventarix::app
