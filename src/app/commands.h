#pragma once

#include <QString>
#include <QStringList>

// The subcommands of the ventarix executable. Each takes the words after its own name and
// returns the process exit code. They run under a QCoreApplication: no display needed.
namespace ventarix::app {

inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

int RunEmpresa(const QStringList& args);
int RunDemo(const QStringList& args);
int RunMantenimiento(const QStringList& args);
int RunDocumento(const QStringList& args);
// Cancelling and deleting a record: "documento cancelar|borrar KEY ...".
bool EsAccionDeBaja(const QString& accion);
int RunDocumentoBaja(const QStringList& args);
// Stamping a saved CFDi document and cancelling a UUID at the PAC.
int RunTimbrar(const QStringList& args);
// A supplier's CFD or CFDi saved as a purchase: "compra importar FILE.xml ...".
int RunCompra(const QStringList& args);
int RunCancelar(const QStringList& args);
void PrintHelp();

// Console output, UTF-8 whatever the locale says.
void Print(const QString& line);
void PrintError(const QString& line);

}  // namespace ventarix::app
