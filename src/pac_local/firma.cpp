#include "pac_local/firma.h"

#include <openssl/err.h>
#include <openssl/objects.h>

#include "edocs/ssl_ptr.h"

namespace ventarix::pac {

namespace {

edocs::X509Ptr Leer(const QByteArray& der) {
  edocs::InicializarSsl();
  const auto* bytes = reinterpret_cast<const unsigned char*>(der.constData());
  edocs::X509Ptr x509(d2i_X509(nullptr, &bytes, der.size()));
  ERR_clear_error();
  return x509;
}

}  // namespace

bool FirmaVerifica(const QByteArray& certificado_der, const QByteArray& datos,
                   const QString& firma) {
  const edocs::X509Ptr x509 = Leer(certificado_der);
  EVP_PKEY* publica = x509 ? X509_get0_pubkey(x509.get()) : nullptr;  // owned by the x509
  const QByteArray bytes = QByteArray::fromBase64(firma.toLatin1());
  const edocs::EvpMdCtxPtr ctx(EVP_MD_CTX_new());
  const bool valida =
      publica != nullptr && ctx && !bytes.isEmpty() &&
      EVP_DigestVerifyInit(ctx.get(), nullptr, EVP_sha1(), nullptr, publica) == 1 &&
      EVP_DigestVerify(ctx.get(), reinterpret_cast<const unsigned char*>(bytes.constData()),
                       bytes.size(), reinterpret_cast<const unsigned char*>(datos.constData()),
                       datos.size()) == 1;
  ERR_clear_error();
  return valida;
}

QString RfcDelCertificado(const QByteArray& certificado_der) {
  const edocs::X509Ptr x509 = Leer(certificado_der);
  if (!x509) return {};
  const X509_NAME* sujeto = X509_get_subject_name(x509.get());
  const int indice = X509_NAME_get_index_by_NID(sujeto, NID_x500UniqueIdentifier, -1);
  if (indice < 0) return {};
  const ASN1_STRING* dato = X509_NAME_ENTRY_get_data(X509_NAME_get_entry(sujeto, indice));
  const QString texto = QString::fromUtf8(
      reinterpret_cast<const char*>(ASN1_STRING_get0_data(dato)), ASN1_STRING_length(dato));
  return texto.trimmed().section(QLatin1Char(' '), 0, 0).section(QLatin1Char('/'), 0, 0).left(13);
}

}  // namespace ventarix::pac
