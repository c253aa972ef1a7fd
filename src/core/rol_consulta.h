#pragma once

#include <QString>

#include "core/database.h"
#include "core/outcome.h"

// On PostgreSQL a saved view runs as the company's query role, "<catalog>_consulta": it may
// read every table of the company but not the columns of passwords and keys
// (schema::ColumnasSecretas), and it may not write at all. The company's own login role must
// be a member. Making the role needs CREATEROLE (or a superuser); a company whose role could
// not be made still works, but its views are not kept from the secret columns.
namespace ventarix::rol_consulta {

QString Nombre(const QString& catalogo);

// Creates the role if missing, makes the connection's user a member, and grants it SELECT on
// every table of the company, column by column where a table holds secrets. Runs its own
// transaction. Ok and nothing done on SQLite.
Outcome Preparar(Connection& connection);

// Whether the company's role exists and the connection's user may take it.
bool Disponible(Connection& connection, const QString& catalogo);

// Takes the role for the rest of this connection's session, when available.
void Asumir(Connection& connection, const QString& catalogo);

}  // namespace ventarix::rol_consulta
