#include "core/engine_handles.h"

#include <cstring>

#include <QSqlDriver>
#include <QVariant>

#include "core/schema.h"

namespace ventarix::engine {

namespace {

// The driver names the handle's type as its C declaration spells it: "sqlite3*", and
// "pg_conn*" for libpq's typedef PGconn.
template <typename T>
T* HandleOfType(const QSqlDatabase& db, std::initializer_list<const char*> type_names) {
  if (!db.isOpen() || db.driver() == nullptr) return nullptr;
  const QVariant handle = db.driver()->handle();
  if (!handle.isValid()) return nullptr;
  for (const char* name : type_names) {
    if (qstrcmp(handle.typeName(), name) == 0) return *static_cast<T* const*>(handle.constData());
  }
  return nullptr;
}

bool Cambia(int accion) {
  switch (accion) {
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
    case SQLITE_CREATE_INDEX:
    case SQLITE_CREATE_TABLE:
    case SQLITE_CREATE_TRIGGER:
    case SQLITE_CREATE_VIEW:
    case SQLITE_CREATE_VTABLE:
    case SQLITE_DROP_INDEX:
    case SQLITE_DROP_TABLE:
    case SQLITE_DROP_TRIGGER:
    case SQLITE_DROP_VIEW:
    case SQLITE_DROP_VTABLE:
    case SQLITE_ALTER_TABLE:
    case SQLITE_REINDEX:
      return true;
    default:
      return false;
  }
}

// Scratch tables of the connection itself ("temp") may change at any time.
bool EnTemporal(const char* base) { return base != nullptr && std::strcmp(base, "temp") == 0; }

// SQLite asks about its own catalogue (sqlite_master) while it reads the schema; changes of
// structure come as their own actions (create, drop, alter).
bool Interna(const char* tabla) {
  return tabla != nullptr && sqlite3_strnicmp(tabla, "sqlite_", 7) == 0;
}

int SoloEnTransaccion(void* datos, int accion, const char* tabla, const char*, const char* base,
                      const char*) {
  if (!Cambia(accion) || EnTemporal(base)) return SQLITE_OK;
  if ((accion == SQLITE_UPDATE || accion == SQLITE_INSERT || accion == SQLITE_DELETE) &&
      Interna(tabla)) {
    return SQLITE_OK;
  }
  return sqlite3_get_autocommit(static_cast<sqlite3*>(datos)) != 0 ? SQLITE_DENY : SQLITE_OK;
}

// Functions a select could use to reach outside the company's data.
bool FuncionVedada(const char* nombre) {
  static constexpr const char* kVedadas[] = {"load_extension", "readfile", "writefile", "edit",
                                             "fts3_tokenizer"};
  for (const char* vedada : kVedadas) {
    if (nombre != nullptr && sqlite3_stricmp(nombre, vedada) == 0) return true;
  }
  return false;
}

int SoloLectura(void*, int accion, const char* a, const char* b, const char*, const char*) {
  // The schema's own reading; the connection is opened read-only besides.
  if (accion == SQLITE_UPDATE && Interna(a)) return SQLITE_OK;
  switch (accion) {
    case SQLITE_SELECT:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    case SQLITE_READ:
      return a != nullptr && b != nullptr &&
                     schema::EsColumnaSecreta(QString::fromUtf8(a), QString::fromUtf8(b))
                 ? SQLITE_DENY
                 : SQLITE_OK;
    case SQLITE_FUNCTION:
      return FuncionVedada(b) ? SQLITE_DENY : SQLITE_OK;
    default:
      return SQLITE_DENY;
  }
}

}  // namespace

sqlite3* SqliteHandle(const QSqlDatabase& db) { return HandleOfType<sqlite3>(db, {"sqlite3*"}); }

PGconn* PostgresHandle(const QSqlDatabase& db) {
  return HandleOfType<PGconn>(db, {"PGconn*", "pg_conn*"});
}

void ExigirTransaccionParaEscribir(sqlite3* db) {
  if (db != nullptr) sqlite3_set_authorizer(db, SoloEnTransaccion, db);
}

void SoloLecturaSinSecretos(sqlite3* db) {
  if (db != nullptr) sqlite3_set_authorizer(db, SoloLectura, nullptr);
}

}  // namespace ventarix::engine
