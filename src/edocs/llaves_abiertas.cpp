#include "edocs/llaves_abiertas.h"

#include <openssl/crypto.h>

#include <QHash>
#include <QMutex>

#include "edocs/ssl_ptr.h"

namespace ventarix::edocs {
namespace {

// SHA-256 of the parts, one after the other with a separator: what tells that a range's bytes
// or password changed, without keeping them.
QByteArray Huella(const QByteArray& primero, const QByteArray& segundo = {}) {
  InicializarSsl();
  QByteArray huella(EVP_MAX_MD_SIZE, Qt::Uninitialized);
  unsigned int largo = 0;
  EvpMdCtxPtr contexto(EVP_MD_CTX_new());
  const char separador = '\0';
  if (!contexto || EVP_DigestInit_ex(contexto.get(), EVP_sha256(), nullptr) != 1 ||
      EVP_DigestUpdate(contexto.get(), primero.constData(), primero.size()) != 1 ||
      EVP_DigestUpdate(contexto.get(), &separador, 1) != 1 ||
      EVP_DigestUpdate(contexto.get(), segundo.constData(), segundo.size()) != 1 ||
      EVP_DigestFinal_ex(contexto.get(), reinterpret_cast<unsigned char*>(huella.data()), &largo) !=
          1) {
    return {};  // matches nothing: the material is read and opened again
  }
  huella.truncate(static_cast<qsizetype>(largo));
  return huella;
}

// Wipes bytes this module alone holds (never a shared copy: cleansing would detach it first).
void Limpiar(QByteArray& bytes) {
  if (!bytes.isEmpty()) OPENSSL_cleanse(bytes.data(), static_cast<size_t>(bytes.size()));
  bytes.clear();
}

// What the session keeps of one range. No copy of the password nor of the key's bytes is kept:
// the key's fingerprint is made from both, and the opened key is freed (its numbers cleared by
// the library) when the last seal using it ends.
struct Entrada {
  QByteArray huella_cer;
  std::shared_ptr<const Certificado> certificado;
  QByteArray huella_llave;
  std::shared_ptr<const LlavePrivada> llave;
};

class LlavesAbiertas {
 public:
  template <typename T, typename Leer>
  std::shared_ptr<const T> Obtener(const RangoDeSellado& rango, QByteArray huella,
                                   QByteArray Entrada::*guardada_huella,
                                   std::shared_ptr<const T> Entrada::*guardado, Leer leer) {
    const QString clave = Clave(rango);
    {
      QMutexLocker lock(&mutex_);
      const auto it = entradas_.constFind(clave);
      if (it != entradas_.cend()) {
        const Entrada& entrada = *it;
        if (!huella.isEmpty() && entrada.*guardada_huella == huella && entrada.*guardado) {
          Limpiar(huella);
          return entrada.*guardado;
        }
      }
    }
    std::shared_ptr<const T> leido = leer();  // outside the lock: opening a key takes milliseconds
    QMutexLocker lock(&mutex_);
    Entrada& entrada = entradas_[clave];
    Limpiar(entrada.*guardada_huella);
    entrada.*guardado = leido;
    // A key that did not open is not kept: the next seal tries the password again.
    if (leido) entrada.*guardada_huella = std::move(huella);
    return leido;
  }

  void Olvidar() {
    QMutexLocker lock(&mutex_);
    for (Entrada& entrada : entradas_) Limpiar(entrada.huella_llave);
    entradas_.clear();
  }

 private:
  static QString Clave(const RangoDeSellado& rango) {
    return rango.base + QChar(u'\x1f') + TablaFolios(rango.folios) + QChar(u'\x1f') +
           QString::number(rango.numero);
  }

  QMutex mutex_;
  QHash<QString, Entrada> entradas_;
};

LlavesAbiertas& Llaves() {
  static LlavesAbiertas llaves;
  return llaves;
}

}  // namespace

std::shared_ptr<const Certificado> CertificadoDeRango(const RangoDeSellado& rango,
                                                      const QByteArray& cer) {
  return Llaves().Obtener(rango, Huella(cer), &Entrada::huella_cer, &Entrada::certificado,
                          [&cer]() -> std::shared_ptr<const Certificado> {
                            auto leido = std::make_shared<const Certificado>(LeerCertificado(cer));
                            return leido->ok ? leido : nullptr;
                          });
}

std::shared_ptr<const LlavePrivada> LlaveDeRango(const RangoDeSellado& rango, const QByteArray& der,
                                                 const QString& password) {
  QByteArray contrasena = password.toUtf8();
  QByteArray huella = Huella(der, contrasena);
  Limpiar(contrasena);
  return Llaves().Obtener(
      rango, std::move(huella), &Entrada::huella_llave, &Entrada::llave,
      [&]() -> std::shared_ptr<const LlavePrivada> {
        auto llave = std::make_shared<const LlavePrivada>(LlavePrivada::Abrir(der, password));
        return llave->ok() ? llave : nullptr;
      });
}

void OlvidarLlaves() { Llaves().Olvidar(); }

}  // namespace ventarix::edocs
