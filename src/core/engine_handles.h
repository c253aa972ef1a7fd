#pragma once

#include <memory>

#include <libpq-fe.h>
#include <sqlite3.h>

#include <QSqlDatabase>

// The C handles behind Qt's connections, for what Qt's drivers do not offer: SQLite's
// authorizer and PostgreSQL's single-statement protocol and transaction state. The handle
// belongs to the QSqlDatabase; nothing here closes it.
namespace ventarix::engine {

// Null when the connection is not open or is of the other engine.
sqlite3* SqliteHandle(const QSqlDatabase& db);
PGconn* PostgresHandle(const QSqlDatabase& db);

struct PgResultFree {
  void operator()(PGresult* r) const { PQclear(r); }
};
using PgResultPtr = std::unique_ptr<PGresult, PgResultFree>;

struct PgFreemem {
  void operator()(void* p) const { PQfreemem(p); }
};
using PgMemPtr = std::unique_ptr<unsigned char, PgFreemem>;

// Writes (insert, update, delete, create, alter, drop) are refused while the connection has
// no transaction begun.
void ExigirTransaccionParaEscribir(sqlite3* db);
// Only reads, and never of a password or key column.
void SoloLecturaSinSecretos(sqlite3* db);

}  // namespace ventarix::engine
