#pragma once

#include <memory>
#include <mutex>
#include <optional>

#include <QString>

struct sqlite3;

namespace ventarix::pac {

// A stamp as the service gave it, kept to answer the same document again and to cancel it.
struct Timbre {
  QString uuid, sello_cfd, rfc_emisor, fecha, fecha_timbrado, sello_sat, no_certificado_sat,
      cadena_original, qr_code, cfdi_timbrado;
  bool cancelado = false;
};

// The stand-in's records: one SQLite file, one transaction per write. The service answers
// requests on several threads; every access goes through one mutex.
class Registro {
 public:
  // Opens (creating when new) the file; error() tells why it could not.
  explicit Registro(const QString& archivo);
  ~Registro();
  bool ok() const { return error_.isEmpty(); }
  QString error() const { return error_; }

  std::optional<Timbre> PorSello(const QString& sello_cfd);
  std::optional<Timbre> PorUuid(const QString& uuid);
  // Keeps the stamp unless one for the same seal was kept meanwhile: the result is the stamp
  // that stands, the first one.
  std::optional<Timbre> Guardar(const Timbre& timbre);
  bool MarcarCancelado(const QString& uuid);

 private:
  struct Cerrar {
    void operator()(sqlite3* db) const;
  };
  std::optional<Timbre> Buscar(const char* columna, const QString& valor);
  std::mutex mutex_;
  std::unique_ptr<sqlite3, Cerrar> db_;
  QString error_;
};

}  // namespace ventarix::pac
