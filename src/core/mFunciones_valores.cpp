#include "core/mFunciones_valores.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <QLocale>

#include "core/dialect.h"

namespace ventarix::mFunciones {

using namespace Qt::StringLiterals;

namespace {

bool EsNumero(const QVariant& value) {
  switch (value.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::Double:
    case QMetaType::Float:
      return true;
    default:
      return false;
  }
}

bool EsDigito(QChar c) { return c >= u'0' && c <= u'9'; }
bool EsLetraLatina(QChar c) { return c >= u'A' && c <= u'Z'; }

// Letters of an RFC's name part, and what its check characters may be.
bool EsLetraRfc(QChar c) { return EsLetraLatina(c) || c == u'Ñ' || c == u'&'; }
bool EsClaveRfc(QChar c) { return EsLetraRfc(c) || EsDigito(c); }

QString MesCorto(int mes) {
  static const std::array<QString, 12> kMeses = {u"ene"_s, u"feb"_s, u"mar"_s, u"abr"_s,
                                                 u"may"_s, u"jun"_s, u"jul"_s, u"ago"_s,
                                                 u"sep"_s, u"oct"_s, u"nov"_s, u"dic"_s};
  return kMeses.at(mes - 1);
}

QString FormatoFecha(const QVariant& valor) {
  const QDateTime fecha = dialect::ReadDate(valor);
  if (!fecha.isValid()) return valor.toString().trimmed();
  const QDate dia = fecha.date();
  return u"%1/%2/%3"_s.arg(dia.day(), 2, 10, QLatin1Char('0'))
      .arg(MesCorto(dia.month()))
      .arg(dia.year() % 100, 2, 10, QLatin1Char('0'));
}

}  // namespace

double ValorNumerico(const QVariant& value) {
  // A number read from the database needs no parsing, and its text form ("1e-05") would not
  // survive the digit filter below.
  if (EsNumero(value)) return value.toDouble();
  const QString text = value.toString().trimmed();
  if (text.isEmpty()) return 0;
  const bool negativo = text.front() == u'-';
  QString kept;
  bool punto = false;
  for (qsizetype i = negativo ? 1 : 0; i < text.size(); ++i) {
    const QChar c = text.at(i);
    if (EsDigito(c)) {
      kept.append(c);
    } else if (c == u'.' && !punto) {
      kept.append(c);
      punto = true;
    }
  }
  bool ok = false;
  const double number = QLocale::c().toDouble(kept, &ok);
  if (!ok) return 0;
  return negativo ? -number : number;
}

QString ValorTexto(const QVariant& value, bool soloClave) {
  const QString text = value.toString().trimmed();
  QString result;
  result.reserve(text.size());
  for (const QChar original : text) {
    if (!soloClave) {
      if (original != u'`' && original != u'\'' && original != u'°') result.append(original);
      continue;
    }
    const QChar c = original.toUpper();
    if (EsLetraLatina(c) || c == u'Ñ' || c == u'0' || c == u'*') result.append(c);
  }
  return result;
}

QString FiltrarCaracteres(const QString& text) {
  QString result;
  for (const QChar c : text.toUpper()) {
    if (EsLetraLatina(c) || EsDigito(c) || c == u'-' || c == u'/' || c == u'.' || c == u' ' ||
        c == u'Ñ') {
      result.append(c);
    }
  }
  return result;
}

QString FormatoNumero(double value, int decimales) {
  QLocale c = QLocale::c();
  c.setNumberOptions({});  // the C locale omits the thousands separator by default
  QString text = c.toString(value, 'f', qBound(0, decimales, 10));
  // A small negative value rounds to zero and must not print as "-0.00".
  const bool cero =
      std::none_of(text.cbegin(), text.cend(), [](QChar c) { return c >= u'1' && c <= u'9'; });
  if (cero && text.startsWith(u'-')) text.remove(0, 1);
  return text;
}

QString FormatoMoneda(double value) {
  if (value == 0) return u"0"_s;
  return FormatoNumero(value, 2);
}

QString Alinear(const QString& tipo, const QVariant& valor, int ancho) {
  const auto es = [&tipo](const char* nombre) {
    return tipo.compare(QLatin1String(nombre), Qt::CaseInsensitive) == 0;
  };
  if (es("Long") || es("Integer") || es("Double")) {
    const double numero = ValorNumerico(valor);
    const QString text = es("Double")
                             ? FormatoNumero(numero, 2)
                             : QString::number(static_cast<qlonglong>(std::llround(numero)));
    return ancho > 0 ? text.rightJustified(ancho, u' ') : text;
  }
  const QString text = es("Date") ? FormatoFecha(valor) : valor.toString();
  return ancho > 0 ? text.leftJustified(ancho, u' ', true) : text;
}

Outcome RfcValido(const QString& rfc) {
  const Outcome invalido{false, {}, MessageIcon::kNone, {}};
  qsizetype letras = 0;
  if (rfc.size() == 12) {
    letras = 3;
  } else if (rfc.size() == 13) {
    letras = 4;
  } else {
    return invalido;
  }
  for (qsizetype i = 0; i < rfc.size(); ++i) {
    const QChar c = rfc.at(i);
    const bool cabe = i < letras ? EsLetraRfc(c) : i < letras + 6 ? EsDigito(c) : EsClaveRfc(c);
    if (!cabe) return invalido;
  }
  const int mes = rfc.mid(letras + 2, 2).toInt();
  const int dia = rfc.mid(letras + 4, 2).toInt();
  if (mes < 1 || mes > 12) return Outcome::Refuse(u"El mes no corresponde al RFC"_s, u"Rfc"_s);
  if (dia < 1 || dia > 31) return Outcome::Refuse(u"El día no corresponde al RFC"_s, u"Rfc"_s);
  return Outcome::Ok();
}

bool EsRfcValido(const QString& rfc) { return RfcValido(rfc).ok; }

Outcome TienePermiso(const QString& derechos, const QString& letra) {
  qsizetype posicion = -1;
  QString negado;
  if (letra == u"A"_s) {
    posicion = 0;
    negado = u"Este usuario no tiene permisos para el registro de altas"_s;
  } else if (letra == u"B"_s) {
    posicion = 1;
    negado = u"Este usuario no tiene permisos para bajas de registros"_s;
  } else if (letra == u"C"_s) {
    posicion = 2;
    negado = u"Este usuario no tiene permisos para cambios de registros"_s;
  } else {
    return Outcome{false, {}, MessageIcon::kNone, {}};
  }
  if (posicion < derechos.size() && derechos.at(posicion) == u'S') return Outcome::Ok();
  return Outcome::Warning(negado);
}

Outcome TienePermiso(const Session& session, const QString& columna, const QString& letra) {
  return TienePermiso(session.usuario.Text(columna), letra);
}

Outcome ValidarPartidas(const std::vector<PartidaCapturada>& partidas, RevisarUtilidad revisar) {
  const QString grid = u"Fg1"_s;
  bool alguna = false;
  for (std::size_t i = 0; i < partidas.size(); ++i) {
    const PartidaCapturada& partida = partidas[i];
    if (partida.codigo.trimmed().isEmpty()) continue;
    alguna = true;
    const QString fila = QString::number(i + 1);
    if (partida.descripcion.trimmed().isEmpty() && partida.unidad.trimmed().isEmpty()) {
      return Outcome::Warning(u"Se requiere una descripción ó unidad para la fila: "_s + fila,
                              grid);
    }
    if (revisar == RevisarUtilidad::kNo || partida.utilidad > 0) continue;
    if (revisar == RevisarUtilidad::kAdvertir) {
      return Outcome::Warning(u"Es importante verificar la utilidad para la fila: "_s + fila, grid);
    }
    return Outcome::Refuse(u"Se requiere una utilidad mayor a cero para la fila: "_s + fila, grid);
  }
  if (!alguna) return Outcome::Warning(u"Se requiere al menos el registro de una partida"_s, grid);
  return Outcome::Ok();
}

}  // namespace ventarix::mFunciones
