#pragma once

#include <memory>

#include <QByteArray>
#include <QString>

namespace ventarix::edocs {

// The private key of a sealing certificate: a DER PKCS#8 encrypted .key opened with its
// password. The key material never leaves this object.
class LlavePrivada {
 public:
  enum class Estado { kOk, kContrasenaIncorrecta, kSinReferencia };

  // kContrasenaIncorrecta when the password does not open the file; kSinReferencia when the
  // file cannot be read at all.
  static LlavePrivada Abrir(const QByteArray& der, const QString& password);
  static LlavePrivada AbrirArchivo(const QString& path, const QString& password);

  LlavePrivada(LlavePrivada&&) noexcept;
  LlavePrivada& operator=(LlavePrivada&&) noexcept;
  ~LlavePrivada();

  Estado estado() const { return estado_; }
  bool ok() const { return estado_ == Estado::kOk; }

  // RSA PKCS#1 v1.5 signature with SHA-1 of the bytes, in Base64 on one line; empty on failure.
  QString FirmarSha1(const QByteArray& datos) const;

  // True when this key belongs to the certificate (same public key).
  bool CorrespondeA(const QByteArray& certificado_der) const;

 private:
  struct Impl;
  LlavePrivada();
  Estado estado_ = Estado::kSinReferencia;
  std::unique_ptr<Impl> impl_;
};

}  // namespace ventarix::edocs
