#pragma once

#include <optional>

#include <QLocale>
#include <QString>

#include "core/outcome.h"
#include "core/session.h"

// Start-up of a session: the regional check, the choice of company database kept in the
// settings store, the company check, the remote address prompt's rules and the login.
namespace ventarix::startup {

// False when the machine writes decimals with a comma; the message to show then.
bool SeparadorDecimalEsPunto();
bool SeparadorDecimalEsPunto(const QLocale& locale);
QString MensajeSeparadorDecimal();

// The values MDB0..MDB3 kept under QSettings("Ventarix", "TVik").
struct EleccionGuardada {
  QString motor, base_datos, base_nombre, base_carpeta;
};
EleccionGuardada LeerEleccion();
void GuardarEleccion(const Session& session);
void OlvidarEleccion();

// "Sql" when the lower-cased file title contains ".txt" (a connection file), else "Access"
// (a SQLite file, whatever its extension); empty for no title.
QString MotorDeTitulo(const QString& titulo);

// Applies a stored or chosen database to the session: sets Motor, Sql, Access; an unknown
// motor blanks BaseDatos.
void AplicarEleccion(Session& session, const EleccionGuardada& eleccion);
// The choice made in the open-file dialog (or on the command line).
EleccionGuardada EleccionDeArchivo(const QString& path);

// The company check: the strings are built, a connection opened, its catalogue read and
// table "tablas" looked for. Failure carries the stop message to show: a file the engine
// can't read as a database, or the missing table (empty when the connection itself failed).
Outcome ChecarEmpresa(Session& session);

// The remote address prompt runs for a PostgreSQL company whose Cadena mentions 1433.
bool PedirDireccionRemota(const Session& session);
QString DireccionActual(const Session& session);
// The answer with its blanks removed. An empty one leaves the prompt (the open-file dialog
// follows); one with exactly three points is accepted; any other gets "Esta IP no es válida"
// and the prompt again.
struct RespuestaDireccion {
  bool vacia = false;
  bool valida = false;
  QString direccion;
};
RespuestaDireccion RevisarDireccion(const QString& respuesta);
// Rebuilds both strings with the new address and port 1433 and rewrites the connection file.
bool CambiarDireccionRemota(Session& session, const QString& direccion);

// After the company check: reads usuarios for the authorization passwords. Without any
// administrator the table is emptied and the session enters directly as ADMINISTRADOR
// (returns true: no login).
bool EntrarSinAcceso(Session& session);

// The login button: exact messages, focus on "usuario" or "contrasena". The password counts
// in upper case whatever was typed (core/passwords.h); one still kept in the clear is stored
// hashed once it let its user in.
Outcome Entrar(Session& session, const QString& usuario, const QString& contrasena);

}  // namespace ventarix::startup
