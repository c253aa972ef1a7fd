#include "core/passwords.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <QByteArray>
#include <QRegularExpression>
#include <QStringList>

namespace ventarix::passwords {

namespace {

// Stored form: "pbkdf2-sha256$<iterations>$<salt base64>$<hash base64>". The iteration count
// travels with the hash so that it can be raised later without breaking older users.
const QLatin1String kPrefix("pbkdf2-sha256");
constexpr int kIterations = 210000;
constexpr int kSaltBytes = 16;
constexpr int kHashBytes = 32;
// An upper bound keeps a forged stored text from stalling the login.
constexpr int kMaxIterations = 10000000;

// Key material is wiped when it leaves scope.
class SecretBytes {
 public:
  explicit SecretBytes(QByteArray bytes) : bytes_(std::move(bytes)) {}
  explicit SecretBytes(int size) : bytes_(size, '\0') {}
  ~SecretBytes() {
    if (!bytes_.isEmpty()) OPENSSL_cleanse(bytes_.data(), static_cast<size_t>(bytes_.size()));
  }
  SecretBytes(const SecretBytes&) = delete;
  SecretBytes& operator=(const SecretBytes&) = delete;
  QByteArray& bytes() { return bytes_; }

 private:
  QByteArray bytes_;
};

struct Parsed {
  int iterations = 0;
  QByteArray salt;
  QByteArray hash;
};

bool Parse(const QString& stored, Parsed* out) {
  const QStringList parts = stored.split(QLatin1Char('$'));
  if (parts.size() != 4 || parts[0] != kPrefix) return false;
  bool ok = false;
  const int iterations = parts[1].toInt(&ok);
  if (!ok || iterations < 1 || iterations > kMaxIterations) return false;
  const auto salt =
      QByteArray::fromBase64Encoding(parts[2].toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
  const auto hash =
      QByteArray::fromBase64Encoding(parts[3].toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
  if (!salt || !hash || (*salt).isEmpty() || (*hash).size() != kHashBytes) return false;
  out->iterations = iterations;
  out->salt = *salt;
  out->hash = *hash;
  return true;
}

bool Derive(const QString& plain, const QByteArray& salt, int iterations, QByteArray& out) {
  SecretBytes secret(plain.toUtf8());
  out.fill('\0', kHashBytes);
  return PKCS5_PBKDF2_HMAC(secret.bytes().constData(), static_cast<int>(secret.bytes().size()),
                           reinterpret_cast<const unsigned char*>(salt.constData()),
                           static_cast<int>(salt.size()), iterations, EVP_sha256(), kHashBytes,
                           reinterpret_cast<unsigned char*>(out.data())) == 1;
}

// Both sides of every comparison go through here.
QString Normalized(const QString& password) {
  return password.normalized(QString::NormalizationForm_C).toUpper();
}

bool SameBytes(const QByteArray& a, const QByteArray& b) {
  if (a.size() != b.size()) return false;
  return CRYPTO_memcmp(a.constData(), b.constData(), static_cast<size_t>(a.size())) == 0;
}

}  // namespace

QString Hash(const QString& plain) {
  QByteArray salt(kSaltBytes, '\0');
  if (RAND_bytes(reinterpret_cast<unsigned char*>(salt.data()), kSaltBytes) != 1) return {};
  SecretBytes hash(kHashBytes);
  if (!Derive(Normalized(plain), salt, kIterations, hash.bytes())) return {};
  return QStringList{kPrefix, QString::number(kIterations), QString::fromLatin1(salt.toBase64()),
                     QString::fromLatin1(hash.bytes().toBase64())}
      .join(QLatin1Char('$'));
}

bool IsHashed(const QString& stored) {
  Parsed parsed;
  return Parse(stored, &parsed);
}

bool NeedsHashing(const QString& stored) { return !stored.isEmpty() && !IsHashed(stored); }

bool Verify(const QString& typed, const QString& stored) {
  Parsed parsed;
  if (!Parse(stored, &parsed)) {
    // Companies from before hashing keep their passwords in the clear.
    SecretBytes a(Normalized(typed).toUtf8());
    SecretBytes b(Normalized(stored).toUtf8());
    return SameBytes(a.bytes(), b.bytes());
  }
  SecretBytes derived(kHashBytes);
  if (!Derive(Normalized(typed), parsed.salt, parsed.iterations, derived.bytes())) return false;
  const bool same = SameBytes(derived.bytes(), parsed.hash);
  OPENSSL_cleanse(parsed.hash.data(), static_cast<size_t>(parsed.hash.size()));
  return same;
}

QString Enmascarar(const QString& texto) {
  // user:password@ right after a scheme; the password runs to the last "@" of the word.
  static const QRegularExpression kUrl(
      QStringLiteral(R"(([A-Za-z][A-Za-z0-9+.-]*://[^:/@\s]*):[^\s]*@)"));
  static const QRegularExpression kClave(
      QStringLiteral(R"(\b(password|pwd)(\s*=\s*)('(?:[^'\\]|\\.)*'?|[^;\s]*))"),
      QRegularExpression::CaseInsensitiveOption);
  if (!texto.contains(QLatin1Char('@')) && !texto.contains(QLatin1Char('='))) return texto;
  QString oculto = texto;
  oculto.replace(kUrl, QStringLiteral("\\1:***@"));
  oculto.replace(kClave, QStringLiteral("\\1\\2***"));
  return oculto;
}

}  // namespace ventarix::passwords
