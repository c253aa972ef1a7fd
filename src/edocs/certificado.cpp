#include "edocs/certificado.h"

#include <array>
#include <ctime>

#include <openssl/err.h>

#include <QFile>

#include "edocs/ssl_ptr.h"

namespace ventarix::edocs {

namespace {

// ASN1 times are UTC; the screens and the validity check work in local time.
QDateTime FechaLocal(const ASN1_TIME* tiempo) {
  std::tm tm{};
  if (tiempo == nullptr || ASN1_TIME_to_tm(tiempo, &tm) != 1) return {};
  const QDate fecha(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday);
  const QTime hora(tm.tm_hour, tm.tm_min, tm.tm_sec);
  return QDateTime(fecha, hora, Qt::UTC).toLocalTime();
}

QString SerieHexadecimal(const X509* x509) {
  BignumPtr numero(ASN1_INTEGER_to_BN(X509_get0_serialNumber(x509), nullptr));
  if (!numero) return {};
  SslCharPtr hex(BN_bn2hex(numero.get()));
  return hex ? QString::fromLatin1(hex.get()) : QString();
}

Certificado Fallido(QString error) {
  Certificado certificado;
  certificado.error = std::move(error);
  return certificado;
}

}  // namespace

Certificado LeerCertificado(const QByteArray& der) {
  InicializarSsl();
  ERR_clear_error();
  const auto* bytes = reinterpret_cast<const unsigned char*>(der.constData());
  X509Ptr x509(d2i_X509(nullptr, &bytes, der.size()));
  if (!x509) {
    const QString error = ErrorSsl();
    return Fallido(error.isEmpty() ? QStringLiteral("not a DER certificate") : error);
  }
  Certificado certificado;
  certificado.NoCertificado = NumeroDeSerie(SerieHexadecimal(x509.get()));
  certificado.valido_desde = FechaLocal(X509_get0_notBefore(x509.get()));
  certificado.valido_hasta = FechaLocal(X509_get0_notAfter(x509.get()));
  certificado.base64 = QString::fromLatin1(der.toBase64());
  certificado.der = der;
  certificado.ok = true;
  return certificado;
}

Certificado LeerCertificadoDeArchivo(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return Fallido(file.errorString());
  return LeerCertificado(file.readAll());
}

QString NumeroDeSerie(const QString& hex_pairs) {
  const QString pares = hex_pairs.trimmed();
  QString serie;
  serie.reserve(pares.size() / 2);
  for (qsizetype i = 1; i < pares.size(); i += 2) serie.append(pares.at(i));
  return serie;
}

QString FechaDeVigencia(const QDateTime& fecha) {
  static constexpr std::array<const char*, 12> kMeses = {"ene", "feb", "mar", "abr", "may", "jun",
                                                         "jul", "ago", "sep", "oct", "nov", "dic"};
  if (!fecha.isValid()) return {};
  const QDate dia = fecha.date();
  const QTime hora = fecha.time();
  const int hora12 = hora.hour() % 12 == 0 ? 12 : hora.hour() % 12;
  return QStringLiteral("%1/%2/%3 %4:%5:%6 %7")
      .arg(dia.day(), 2, 10, QLatin1Char('0'))
      .arg(QLatin1String(kMeses[dia.month() - 1]))
      .arg(dia.year(), 4, 10, QLatin1Char('0'))
      .arg(hora12, 2, 10, QLatin1Char('0'))
      .arg(hora.minute(), 2, 10, QLatin1Char('0'))
      .arg(hora.second(), 2, 10, QLatin1Char('0'))
      .arg(hora.hour() < 12 ? QLatin1String("am") : QLatin1String("pm"));
}

}  // namespace ventarix::edocs
