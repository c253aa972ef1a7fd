#include "catalogs/socios_campos.h"

#include "core/mFunciones_valores.h"

namespace ventarix::socios {

using namespace Qt::StringLiterals;

QString LimpiarRfc(const QString& texto) {
  QString rfc;
  for (const QChar c : texto) {
    if (c != u'-' && c != u'.' && !c.isSpace()) rfc += c;
  }
  return rfc.toUpper();
}

QString FechaDeRfc(const QString& rfc) {
  static const char* const kMeses[] = {"ene", "feb", "mar", "abr", "may", "jun",
                                       "jul", "ago", "sep", "oct", "nov", "dic"};
  if (!mFunciones::EsRfcValido(rfc)) return {};
  const qsizetype inicio = rfc.size() == 12 ? 3 : 4;
  const int ano = rfc.mid(inicio, 2).toInt();
  const int mes = rfc.mid(inicio + 2, 2).toInt();
  // The two-digit year as the desktop reads it: 00 to 29 this century, the rest the last.
  const int siglo = ano < 30 ? 2000 : 1900;
  return rfc.mid(inicio + 4, 2) + u' ' + QLatin1String(kMeses[mes - 1]) + u' ' +
         QString::number(siglo + ano);
}

RevisionRfc RevisarRfc(Socio socio, const QString& texto) {
  RevisionRfc revision;
  revision.rfc = LimpiarRfc(texto);
  revision.outcome = mFunciones::RfcValido(revision.rfc);
  if (socio == Socio::kClientes) {
    revision.fecha = revision.outcome ? FechaDeRfc(revision.rfc) : QString::fromUtf8(kRfcNoValido);
  }
  return revision;
}

QString RfcGenerico(int digito) {
  if (digito == 1) return u"XAXX010101000"_s;
  if (digito == 2) return u"XEXX010101000"_s;
  return {};
}

QString NumCtaPagoAlDejar(const QString& texto) {
  const QString cuenta = texto.trimmed();
  if (cuenta.size() < 4) return {};
  return cuenta.right(4);
}

}  // namespace ventarix::socios
