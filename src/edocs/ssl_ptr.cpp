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

}  // namespace ventarix::edocs
