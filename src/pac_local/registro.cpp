#include "pac_local/registro.h"

#include <sqlite3.h>

#include <QFile>

namespace ventarix::pac {

namespace {

constexpr char kEsquema[] =
    "create table if not exists timbres ("
    " uuid text primary key, sello_cfd text not null unique, rfc_emisor text not null,"
    " fecha text not null, fecha_timbrado text not null, sello_sat text not null,"
    " no_certificado_sat text not null, cadena_original text not null, qr_code text not null,"
    " cfdi_timbrado text not null, cancelado integer not null default 0)";

constexpr char kColumnas[] =
    "uuid, sello_cfd, rfc_emisor, fecha, fecha_timbrado, sello_sat, no_certificado_sat,"
    " cadena_original, qr_code, cfdi_timbrado, cancelado";

struct Finalizar {
  void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
};
using Sentencia = std::unique_ptr<sqlite3_stmt, Finalizar>;

Sentencia Preparar(sqlite3* db, const QByteArray& sql) {
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(db, sql.constData(), static_cast<int>(sql.size()), &s, nullptr);
  return Sentencia(s);
}

void Ligar(sqlite3_stmt* s, int indice, const QString& valor) {
  const QByteArray utf8 = valor.toUtf8();
  sqlite3_bind_text(s, indice, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

QString Columna(sqlite3_stmt* s, int indice) {
  return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s, indice)));
}

bool Ejecutar(sqlite3* db, const char* sql) {
  return sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

// One write between begin and commit; rolled back when the statement fails.
template <typename Escritura>
bool EnTransaccion(sqlite3* db, Escritura escribir) {
  if (!Ejecutar(db, "begin immediate")) return false;
  if (escribir() && Ejecutar(db, "commit")) return true;
  Ejecutar(db, "rollback");
  return false;
}

}  // namespace

void Registro::Cerrar::operator()(sqlite3* db) const { sqlite3_close(db); }

Registro::Registro(const QString& archivo) {
  sqlite3* db = nullptr;
  const int rc = sqlite3_open_v2(QFile::encodeName(archivo).constData(), &db,
                                 SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  db_.reset(db);  // sqlite3_open_v2 hands a handle to close even when it fails
  if (rc != SQLITE_OK || !Ejecutar(db, kEsquema)) {
    error_ = QStringLiteral("No se pudo abrir el registro de timbres %1: %2")
                 .arg(archivo, QString::fromUtf8(sqlite3_errmsg(db)));
  }
  sqlite3_busy_timeout(db, 5000);  // a test reading the file meanwhile
}

Registro::~Registro() = default;

std::optional<Timbre> Registro::Buscar(const char* columna, const QString& valor) {
  const Sentencia s = Preparar(
      db_.get(), QByteArray("select ") + kColumnas + " from timbres where " + columna + " = ?");
  if (!s) return std::nullopt;
  Ligar(s.get(), 1, valor);
  if (sqlite3_step(s.get()) != SQLITE_ROW) return std::nullopt;
  Timbre t;
  QString* campos[] = {
      &t.uuid,      &t.sello_cfd,          &t.rfc_emisor,      &t.fecha,   &t.fecha_timbrado,
      &t.sello_sat, &t.no_certificado_sat, &t.cadena_original, &t.qr_code, &t.cfdi_timbrado};
  for (int i = 0; i < 10; ++i) *campos[i] = Columna(s.get(), i);
  t.cancelado = sqlite3_column_int(s.get(), 10) != 0;
  return t;
}

std::optional<Timbre> Registro::PorSello(const QString& sello_cfd) {
  const std::lock_guard<std::mutex> candado(mutex_);
  return Buscar("sello_cfd", sello_cfd);
}

std::optional<Timbre> Registro::PorUuid(const QString& uuid) {
  const std::lock_guard<std::mutex> candado(mutex_);
  return Buscar("uuid", uuid);
}

std::optional<Timbre> Registro::Guardar(const Timbre& t) {
  const std::lock_guard<std::mutex> candado(mutex_);
  if (auto previo = Buscar("sello_cfd", t.sello_cfd)) return previo;
  const bool guardado = EnTransaccion(db_.get(), [&] {
    const Sentencia s = Preparar(db_.get(), QByteArray("insert into timbres (") + kColumnas +
                                                ") values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0)");
    if (!s) return false;
    const QString* campos[] = {
        &t.uuid,      &t.sello_cfd,          &t.rfc_emisor,      &t.fecha,   &t.fecha_timbrado,
        &t.sello_sat, &t.no_certificado_sat, &t.cadena_original, &t.qr_code, &t.cfdi_timbrado};
    for (int i = 0; i < 10; ++i) Ligar(s.get(), i + 1, *campos[i]);
    return sqlite3_step(s.get()) == SQLITE_DONE;
  });
  if (!guardado) return std::nullopt;
  return t;
}

bool Registro::MarcarCancelado(const QString& uuid) {
  const std::lock_guard<std::mutex> candado(mutex_);
  return EnTransaccion(db_.get(), [&] {
    const Sentencia s =
        Preparar(db_.get(), "update timbres set cancelado = 1 where uuid = ? and cancelado = 0");
    if (!s) return false;
    Ligar(s.get(), 1, uuid);
    return sqlite3_step(s.get()) == SQLITE_DONE &&
           sqlite3_changes(db_.get()) == 1;  // 0: cancelled already
  });
}

}  // namespace ventarix::pac
