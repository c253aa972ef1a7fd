#pragma once

#include <memory>

#include <QString>

class QProcess;
class QTemporaryDir;

namespace ventarix::testing {

// The stand-in PAC (the ventarix-pac program) started for a test on a free port of 127.0.0.1,
// with its records in a folder of its own; stopped when this object goes.
class PacLocal {
 public:
  PacLocal();
  ~PacLocal();
  PacLocal(const PacLocal&) = delete;
  PacLocal& operator=(const PacLocal&) = delete;

  // False when the program could not be started; error() says why.
  bool ok() const;
  QString error() const;
  // The SOAP 1.1 address of its stamping service, as a company's PAC address.
  QString url() const;
  // The certificate its selloSAT verifies with (DER .cer).
  QString certificado() const;
  // Documents stamped and kept in its records, and of them those cancelled.
  int Timbres() const;
  int Cancelados() const;

 private:
  std::unique_ptr<QTemporaryDir> carpeta_;
  std::unique_ptr<QProcess> proceso_;
  QString url_;
  QString error_;
};

}  // namespace ventarix::testing
