#pragma once

#include <QString>
#include <QStringList>

// The subcommands of the ventarix executable. Each takes the words after its own name and
// returns the process exit code. They run under a QCoreApplication: no display needed.
namespace ventarix {
struct Session;
}  // namespace ventarix

namespace ventarix::app {

inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

int RunEmpresa(const QStringList& args);
int RunDemo(const QStringList& args);
int RunMantenimiento(const QStringList& args);
// Cancelling and deleting a record: "documento cancelar|borrar KEY ...".
bool EsAccionDeBaja(const QString& accion);
int RunDocumentoBaja(const QStringList& args);
void PrintHelp();

// The value of "--name VALUE" or "--name=VALUE" among the words; empty without one.
QString Opcion(const QStringList& args, const QString& nombre);
// The company PATH opened as the desktop opens it, without a login: the file's engine, the
// company check and the session load (folders, rights, settings). With `usuario`, that user
// works: the name must have a row in usuarios (the ADMINISTRADOR of a company without any
// administrator needs none) and its rights apply. *error says why not.
bool AbrirEmpresa(const QString& path, Session& session, QString* error,
                  const QString& usuario = {});

// Console output, UTF-8 whatever the locale says.
void Print(const QString& line);
void PrintError(const QString& line);

}  // namespace ventarix::app
