#include "edocs/ssl_ptr.h"

#include <mutex>

#include <openssl/crypto.h>
#include <openssl/err.h>

namespace ventarix::edocs {

void InicializarSsl() {
  static std::once_flag once;
  std::call_once(once, [] {
    OPENSSL_init_crypto(OPENSSL_INIT_LOAD_CRYPTO_STRINGS | OPENSSL_INIT_ADD_ALL_CIPHERS |
                            OPENSSL_INIT_ADD_ALL_DIGESTS,
                        nullptr);
  });
}

QString ErrorSsl() {
  const unsigned long code = ERR_get_error();
  ERR_clear_error();
  if (code == 0) return {};
  char text[256];
  ERR_error_string_n(code, text, sizeof text);
  return QString::fromUtf8(text);
}

}  // namespace ventarix::edocs
