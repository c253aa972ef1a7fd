#include "core/browse_filter.h"

#include <cmath>
#include <optional>
#include <utility>

#include <QDate>
#include <QRegularExpression>

#include "core/dialect.h"
#include "core/mFunciones_valores.h"

namespace ventarix::mBrowse {

namespace {

using namespace Qt::StringLiterals;

// LIKE has no escape character of its own on SQLite and a backslash on PostgreSQL; naming one
// keeps the typed %, _ and backslash plain characters on both engines.
constexpr QChar kEscape = u'!';

QString SinControles(const QString& texto) {
  QString limpio;
  limpio.reserve(texto.size());
  for (const QChar ch : texto) {
    if (ch.category() != QChar::Other_Control) limpio += ch;
  }
  return limpio;
}

QString Literal(const QString& texto) {
  QString patron;
  patron.reserve(texto.size() + 2);
  for (const QChar ch : texto) {
    if (ch == kEscape || ch == u'%' || ch == u'_') patron += kEscape;
    patron += ch;
  }
  return patron;
}

QString Like(Engine engine, const QString& expresion) {
  return expresion + u' ' + dialect::ILike(engine == Engine::kPostgres) + u" ? escape '!'"_s;
}

Condicion Entre(const QString& texto, QVariantList valores) {
  return {u'(' + texto + u')', std::move(valores)};
}

Condicion Entre(const Condicion& condicion) { return Entre(condicion.texto, condicion.valores); }

ResultadoFiltro Ok(Condicion condicion) { return {Outcome::Ok(), std::move(condicion)}; }

ResultadoFiltro NoValido(const QString& columna, const QString& como) {
  return {
      Outcome::Warning(u"El filtro de "_s + columna + u" no es válido: escriba "_s + como, columna),
      {}};
}

Condicion Nulo(TipoColumna tipo, const QString& c) {
  if (tipo == TipoColumna::kTexto) return Entre(c + u" is null or "_s + c + u" = ''"_s, {});
  return Entre(c + u" is null"_s, {});
}

Condicion FiltroTexto(Engine engine, const QString& c, const QString& texto) {
  if (!texto.contains(u',')) return Entre(Contiene(engine, c, texto));
  // The list compares whole values; like the plain form it ignores case.
  QStringList partes;
  QVariantList valores;
  for (const QString& termino : texto.split(u',')) {
    partes << Like(engine, c);
    valores << Literal(termino.trimmed());
  }
  return Entre(partes.join(u" or "_s), valores);
}

std::optional<double> Numero(const QString& texto) {
  static const QRegularExpression kForma(uR"(^[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)$)"_s);
  const QString t = texto.trimmed();
  if (!kForma.match(t).hasMatch()) return std::nullopt;
  bool ok = false;
  const double valor = t.toDouble(&ok);
  if (!ok || !std::isfinite(valor)) return std::nullopt;
  return valor;
}

// "a-b" of two numbers: the hyphen that follows a digit or a point (a leading one is a sign).
std::optional<std::pair<QString, QString>> Rango(const QString& texto) {
  for (qsizetype i = 1; i < texto.size(); ++i) {
    if (texto[i] != u'-') continue;
    const QString izquierda = texto.left(i).trimmed();
    if (izquierda.isEmpty()) continue;
    const QChar ultimo = izquierda.back();
    if ((ultimo >= u'0' && ultimo <= u'9') || ultimo == u'.') {
      return std::make_pair(izquierda, texto.mid(i + 1));
    }
  }
  return std::nullopt;
}

ResultadoFiltro FiltroNumero(const QString& columna, const QString& c, const QString& texto) {
  const QString como = u"un número (125), un rango (10-20) o una lista (1,5,9)"_s;
  QStringList partes;
  QVariantList valores;
  if (texto.contains(u',')) {
    for (const QString& termino : texto.split(u',')) {
      const std::optional<double> valor = Numero(termino);
      if (!valor) return NoValido(columna, como);
      partes << ComparaNumero(c, u"="_s, *valor, valores);
    }
    return Ok(Entre(partes.join(u" or "_s), valores));
  }
  if (const auto rango = Rango(texto)) {
    const std::optional<double> desde = Numero(rango->first);
    const std::optional<double> hasta = Numero(rango->second);
    if (!desde || !hasta) return NoValido(columna, como);
    partes << ComparaNumero(c, u">="_s, *desde, valores)
           << ComparaNumero(c, u"<="_s, *hasta, valores);
    return Ok(Entre(partes.join(u" and "_s), valores));
  }
  const std::optional<double> valor = Numero(texto);
  if (!valor) return NoValido(columna, como);
  partes << ComparaNumero(c, u"="_s, *valor, valores);
  return Ok(Entre(partes.front(), valores));
}

// Days from `desde` up to, not including, `hasta`.
struct Periodo {
  QDate desde;
  QDate hasta;
};

std::optional<int> Ano(const QString& texto) {
  const int ano = texto.toInt();
  if (texto.size() == 2) return ano < 30 ? 2000 + ano : 1900 + ano;
  // Dates are kept as text on SQLite: only four-digit years keep their order there.
  if (ano < 1000) return std::nullopt;
  return ano;
}

std::optional<Periodo> LeerPeriodo(const QString& texto) {
  static const QRegularExpression kDia(u"^([0-9]{1,2})/([0-9]{1,2})/([0-9]{4}|[0-9]{2})$"_s);
  static const QRegularExpression kMes(u"^([0-9]{1,2})/([0-9]{4}|[0-9]{2})$"_s);
  static const QRegularExpression kAno(u"^[0-9]{4}$"_s);
  const QString t = texto.trimmed();
  if (const auto m = kDia.match(t); m.hasMatch()) {
    const std::optional<int> ano = Ano(m.captured(3));
    const QDate dia = ano ? QDate(*ano, m.captured(2).toInt(), m.captured(1).toInt()) : QDate();
    if (!dia.isValid()) return std::nullopt;
    return Periodo{dia, dia.addDays(1)};
  }
  if (const auto m = kMes.match(t); m.hasMatch()) {
    const std::optional<int> ano = Ano(m.captured(2));
    const QDate primero = ano ? QDate(*ano, m.captured(1).toInt(), 1) : QDate();
    if (!primero.isValid()) return std::nullopt;
    return Periodo{primero, primero.addMonths(1)};
  }
  if (kAno.match(t).hasMatch()) {
    const std::optional<int> ano = Ano(t);
    if (!ano) return std::nullopt;
    return Periodo{QDate(*ano, 1, 1), QDate(*ano + 1, 1, 1)};
  }
  return std::nullopt;
}

Condicion CondicionDePeriodo(Engine engine, const QString& c, const Periodo& periodo) {
  const bool sql = engine == Engine::kPostgres;
  // Nothing lies after the year 9999; its text would not sort after it on SQLite either.
  if (periodo.hasta.year() > 9999)
    return Entre(c + u" >= ?"_s, {dialect::DateValue(periodo.desde, sql)});
  return Entre(c + u" >= ? and "_s + c + u" < ?"_s,
               {dialect::DateValue(periodo.desde, sql), dialect::DateValue(periodo.hasta, sql)});
}

ResultadoFiltro FiltroFecha(Engine engine, const QString& columna, const QString& c,
                            const QString& texto) {
  const QString como =
      u"una fecha (31/12/2014), un mes (12/2014), un año (2014) o un rango (1/1/2014-31/1/2014)"_s;
  const QStringList lados = texto.split(u'-');
  if (lados.size() > 2) return NoValido(columna, como);
  const std::optional<Periodo> primero = LeerPeriodo(lados.front());
  const std::optional<Periodo> ultimo = LeerPeriodo(lados.back());
  if (!primero || !ultimo) return NoValido(columna, como);
  return Ok(CondicionDePeriodo(engine, c, {primero->desde, ultimo->hasta}));
}

}  // namespace

Condicion Contiene(Engine engine, const QString& expresion, const QString& texto) {
  return {Like(engine, expresion), {u'%' + Literal(texto) + u'%'}};
}

QString ComparaNumero(const QString& expresion, const QString& operador, double valor,
                      QVariantList& valores) {
  if (valor == std::trunc(valor) && std::abs(valor) <= 2147483647.0) {
    valores << static_cast<qlonglong>(valor);
    return expresion + u' ' + operador + u" ?"_s;
  }
  // PostgreSQL takes the value as the type of an integer column: a fraction rounded to its
  // nearest neighbour, a big number refused. As a decimal it compares the way SQLite does.
  valores << valor;
  return expresion + u" * 1.0 "_s + operador + u" ?"_s;
}

Condicion IgualAClave(const QString& expresion, double valor) {
  if (valor != std::trunc(valor) || std::abs(valor) > 2147483647.0) return {u"1 = 0"_s, {}};
  return {expresion + u" = ?"_s, {static_cast<qlonglong>(valor)}};
}

QString ColumnaDeVista(const QString& columna) {
  QString nombre = columna;
  nombre.replace(u'"', u"\"\""_s);
  return u"t.\""_s + nombre + u'"';
}

ResultadoFiltro CondicionDeFiltro(Engine engine, TipoColumna tipo, const QString& columna,
                                  const QString& texto) {
  const QString limpio = SinControles(texto);
  const QString t = limpio.trimmed();
  if (limpio.isEmpty() || t == u"*"_s) return {};
  const QString c = ColumnaDeVista(columna);
  if (t.isEmpty()) return Ok(Nulo(tipo, c));
  if (t.size() > kLargoMaximoFiltro) {
    return {Outcome::Warning(u"El filtro de "_s + columna + u" es demasiado largo"_s, columna), {}};
  }
  switch (tipo) {
    case TipoColumna::kTexto:
      return Ok(FiltroTexto(engine, c, t));
    case TipoColumna::kNumero:
      return FiltroNumero(columna, c, t);
    case TipoColumna::kFecha:
      return FiltroFecha(engine, columna, c, t);
    case TipoColumna::kOtro:
      break;
  }
  return {Outcome::Warning(u"La columna "_s + columna + u" no admite filtros"_s, columna), {}};
}

Condicion UnirCondiciones(const std::vector<Condicion>& condiciones) {
  Condicion union_;
  for (const Condicion& condicion : condiciones) {
    if (condicion.vacia()) continue;
    if (!union_.vacia()) union_.texto += u" and "_s;
    union_.texto += condicion.texto;
    union_.valores += condicion.valores;
  }
  return union_;
}

Condicion CondicionDeBusqueda(Engine engine, const QString& columna, bool igual,
                              const QString& respuesta) {
  const QString t = SinControles(respuesta).trimmed();
  if (t == u"*"_s) return {};
  const QString c = ColumnaDeVista(columna);
  if (igual) return Entre(IgualAClave(c, mFunciones::ValorNumerico(t)));
  if (t.size() > kLargoMaximoFiltro) return Entre(u"1 = 0"_s, {});
  // A search may fall on a column of any type; read as text it compares on both engines.
  return Entre(Contiene(engine, u"cast("_s + c + u" as text)"_s, t));
}

Condicion CondicionDeSubconsulta(Engine engine, const QString& columna, const QString& subconsulta,
                                 const QString& columna_detalle, const QString& respuesta) {
  const QString t = SinControles(respuesta).trimmed();
  if (t == u"*"_s) return {};
  if (t.size() > kLargoMaximoFiltro) return Entre(u"1 = 0"_s, {});
  const Condicion comparacion =
      Contiene(engine, u"cast("_s + dialect::Name(columna_detalle) + u" as text)"_s, t);
  return Entre(ColumnaDeVista(columna) + u" in ("_s + subconsulta.arg(comparacion.texto) + u')',
               comparacion.valores);
}

}  // namespace ventarix::mBrowse
