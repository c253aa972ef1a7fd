#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>
#include <QVariantList>

#include "core/database.h"
#include "core/session.h"

// Shared helpers of data access and start-up that every screen uses.
namespace ventarix::mFunciones {

// The password of every embedded company file in the original system; kept as the starting
// value of the authorization passwords at login.
inline constexpr char kClaveFija[] = "qxlmarda_vep";

// Access: Cadena and CadenaShape of the SQLite file BaseDatos. Sql: the two lines of the
// connection file BaseDatos (a missing line leaves its string empty).
void ConstruirCadenas(Session& session);

// Assigns every folder of the tree under BaseCarpeta and creates the missing ones; the
// company folders take the company's RFC.
void CrearCarpetas(Session& session);

QString NombreEquipo();

// max(column) + 1 over the table, optionally under a condition with its bound values;
// 1 on an empty table. No lock: unique indexes settle a collision.
qint32 NumeroSiguiente(Connection& connection, const QString& column, const QString& table,
                       const QString& condition = {}, const QVariantList& values = {});
qint32 NumeroSiguiente(const Session& session, const QString& column, const QString& table,
                       const QString& condition = {}, const QVariantList& values = {});

// Inserts a row under the next number of `column` (NumeroSiguiente, inside the caller's
// transaction): `fila` holds the other columns. When another workstation took that number in
// the same instant, the table's unique index turns the insert into nothing and the next
// number is tried, so a collision never reaches the user. *numero gets the number written.
bool InsertarConNumero(Connection& connection, const QString& table, const QString& column,
                       const QVariantMap& fila, qint32* numero, QString* error);

// The server's date and time (PostgreSQL) or the workstation's (SQLite); date only when
// asked. FechaFija "yyyyMMdd" overrides both.
QDateTime FechaServidor(const Session& session, bool solo_fecha = false);
// The same on a connection already open (a save asks inside its own transaction).
QDateTime FechaServidor(Connection& connection, const Session& session, bool solo_fecha = false);

// Statement and bound values that find a product by any of its four codes.
struct SqlText {
  QString text;
  QVariantList values;
};
SqlText SqlProducto(const QString& codigo);

bool ExisteFolio(const Session& session, const QString& tabla, const QString& serie, qint32 folio);

// Deletes the rows of "<tabla> detalles" whose key column holds the value; nothing for an
// empty value.
bool BorrarDetalles(Connection& connection, const QString& tabla, const QString& columna,
                    const QString& valor);

// Values of a freshly added row before its own columns are assigned: zero for numbers, empty
// text for text, dates and binaries left null. Columns the database validates are left out:
// the caller assigns them.
QVariantMap InicializarRegistro(const QString& tabla);

// A new scratch file name "TVIK<hex>.TMP" in the temporary folder, after sweeping the older
// ones; also kept in BaseTemporal.
QString ArchivoTemporal(Session& session);

// Extracts empresa.logotipo into CarpetaTmp/logo.tmp when that file is missing.
bool ExtraerLogo(Session& session);

// " and serie in (...)" of the user's invoice series when AplicarSeriesEnFacturas is "S",
// else empty; the series go into `values` as bound values.
QString SerieEnLista(const Session& session, QVariantList& values);

bool EsJuridico(const Session& session, qint32 cliente);

// Hands a path to the desktop to open.
bool AbrirArchivo(const QString& path);

// Appends a line to CarpetaErrores/errores_<mmmyyyy>.txt.
void RegistrarError(const Session& session, const QString& descripcion);
// The monthly log file of a day ("errores_ene2014.txt", Spanish month names), and one line
// of it: company folder, user, description and "dd/mmmm/yyyy hh:mm:ss am".
QString ArchivoDeErrores(const Session& session, const QDate& fecha);
QString LineaDeError(const Session& session, const QString& descripcion, const QDateTime& momento);

}  // namespace ventarix::mFunciones
