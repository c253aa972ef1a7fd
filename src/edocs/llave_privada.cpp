#include "edocs/llave_privada.h"

#include <openssl/crypto.h>
#include <openssl/err.h>

#include <QFile>

#include "edocs/ssl_ptr.h"

namespace ventarix::edocs {

struct LlavePrivada::Impl {
  EvpPkeyPtr llave;
};

LlavePrivada::LlavePrivada() = default;
LlavePrivada::LlavePrivada(LlavePrivada&&) noexcept = default;
LlavePrivada& LlavePrivada::operator=(LlavePrivada&&) noexcept = default;
LlavePrivada::~LlavePrivada() = default;

namespace {

// The password as bytes, wiped when it goes out of scope.
class Contrasena {
 public:
  explicit Contrasena(const QString& texto) : bytes_(texto.toUtf8()) {}
  ~Contrasena() { OPENSSL_cleanse(bytes_.data(), bytes_.size()); }
  Contrasena(const Contrasena&) = delete;
  Contrasena& operator=(const Contrasena&) = delete;
  const char* data() const { return bytes_.constData(); }
  int size() const { return static_cast<int>(bytes_.size()); }

 private:
  QByteArray bytes_;
};

}  // namespace

LlavePrivada LlavePrivada::Abrir(const QByteArray& der, const QString& password) {
  InicializarSsl();
  LlavePrivada resultado;
  const auto* bytes = reinterpret_cast<const unsigned char*>(der.constData());
  X509SigPtr sobre(d2i_X509_SIG(nullptr, &bytes, der.size()));
  if (!sobre) {
    ERR_clear_error();
    return resultado;  // kSinReferencia: not an encrypted key
  }
  const Contrasena contrasena(password);
  Pkcs8InfoPtr info(PKCS8_decrypt(sobre.get(), contrasena.data(), contrasena.size()));
  // With a wrong password the decryption fails on its padding or, rarely, yields bytes that do
  // not read as a key: both are the password's fault.
  EvpPkeyPtr llave(info ? EVP_PKCS82PKEY(info.get()) : nullptr);
  ERR_clear_error();
  if (!llave || EVP_PKEY_get_base_id(llave.get()) != EVP_PKEY_RSA) {
    resultado.estado_ = Estado::kContrasenaIncorrecta;
    return resultado;
  }
  resultado.impl_ = std::make_unique<Impl>();
  resultado.impl_->llave = std::move(llave);
  resultado.estado_ = Estado::kOk;
  return resultado;
}

LlavePrivada LlavePrivada::AbrirArchivo(const QString& path, const QString& password) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return LlavePrivada();
  return Abrir(file.readAll(), password);
}

QString LlavePrivada::FirmarSha1(const QByteArray& datos) const {
  if (!ok()) return {};
  EvpMdCtxPtr contexto(EVP_MD_CTX_new());
  size_t largo = 0;
  const auto* entrada = reinterpret_cast<const unsigned char*>(datos.constData());
  if (!contexto ||
      EVP_DigestSignInit(contexto.get(), nullptr, EVP_sha1(), nullptr, impl_->llave.get()) != 1 ||
      EVP_DigestSign(contexto.get(), nullptr, &largo, entrada, datos.size()) != 1) {
    ERR_clear_error();
    return {};
  }
  QByteArray firma(static_cast<qsizetype>(largo), Qt::Uninitialized);
  auto* salida = reinterpret_cast<unsigned char*>(firma.data());
  if (EVP_DigestSign(contexto.get(), salida, &largo, entrada, datos.size()) != 1) {
    ERR_clear_error();
    return {};
  }
  firma.truncate(static_cast<qsizetype>(largo));
  return QString::fromLatin1(firma.toBase64());
}

bool LlavePrivada::CorrespondeA(const QByteArray& certificado_der) const {
  if (!ok()) return false;
  const auto* bytes = reinterpret_cast<const unsigned char*>(certificado_der.constData());
  X509Ptr x509(d2i_X509(nullptr, &bytes, certificado_der.size()));
  const EVP_PKEY* publica = x509 ? X509_get0_pubkey(x509.get()) : nullptr;
  const bool iguales = publica != nullptr && EVP_PKEY_eq(impl_->llave.get(), publica) == 1;
  ERR_clear_error();
  return iguales;
}

}  // namespace ventarix::edocs
