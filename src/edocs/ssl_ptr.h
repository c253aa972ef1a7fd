#pragma once

// Owning handles of OpenSSL objects, each freed by the library's own function. Included by the
// domain's .cpp files only: the library is linked privately.
#include <memory>

#include <openssl/asn1.h>
#include <openssl/bio.h>
#include <openssl/bn.h>
#include <openssl/evp.h>
#include <openssl/pkcs12.h>
#include <openssl/x509.h>

#include <QString>

namespace ventarix::edocs {

// One-time set-up of libcrypto (algorithms and error strings), safe from any thread.
void InicializarSsl();

template <auto Free>
struct SslFree {
  template <typename T>
  void operator()(T* p) const {
    Free(p);
  }
};

using BioPtr = std::unique_ptr<BIO, SslFree<BIO_free_all>>;
using X509Ptr = std::unique_ptr<X509, SslFree<X509_free>>;
using EvpPkeyPtr = std::unique_ptr<EVP_PKEY, SslFree<EVP_PKEY_free>>;
using EvpMdCtxPtr = std::unique_ptr<EVP_MD_CTX, SslFree<EVP_MD_CTX_free>>;
using EvpPkeyCtxPtr = std::unique_ptr<EVP_PKEY_CTX, SslFree<EVP_PKEY_CTX_free>>;
using BignumPtr = std::unique_ptr<BIGNUM, SslFree<BN_free>>;
// The encrypted PKCS#8 envelope of a .key, and what it decrypts to (freed with its key bytes
// cleared).
using X509SigPtr = std::unique_ptr<X509_SIG, SslFree<X509_SIG_free>>;
using Pkcs8InfoPtr = std::unique_ptr<PKCS8_PRIV_KEY_INFO, SslFree<PKCS8_PRIV_KEY_INFO_free>>;

// The oldest error OpenSSL queued on this thread, in its own words; the queue is left empty.
QString ErrorSsl();

// Text OpenSSL allocated (BN_bn2hex, i2s_ASN1_INTEGER): OPENSSL_free is a macro, hence the
// struct.
struct SslCharFree {
  void operator()(char* p) const { OPENSSL_free(p); }
};
using SslCharPtr = std::unique_ptr<char, SslCharFree>;

}  // namespace ventarix::edocs
