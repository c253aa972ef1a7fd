#include "core/browse_query.h"

#include <algorithm>

#include <QDateTime>
#include <QHash>
#include <QRegularExpression>

#include "core/dialect.h"
#include "core/schema.h"
#include "core/sentencia_vista.h"

namespace ventarix::mBrowse {

namespace {

// The text of a statement with its string literals and quoted names emptied and its comments
// dropped, so that the checks below see only the statement's own words. A quote inside a
// comment starts nothing. These checks only give an early, clear answer: what keeps a view
// from writing or reading secrets is the connection it runs on (sentencia_vista.h).
QString SinLiterales(const QString& sentencia) {
  QString limpio;
  const qsizetype n = sentencia.size();
  for (qsizetype i = 0; i < n; ++i) {
    const QChar c = sentencia.at(i);
    const QChar siguiente = i + 1 < n ? sentencia.at(i + 1) : QChar();
    if (c == u'\'' || c == u'"') {
      const qsizetype fin = sentencia.indexOf(c, i + 1);
      limpio += c;
      limpio += c;
      i = fin < 0 ? n : fin;
    } else if (c == u'-' && siguiente == u'-') {
      const qsizetype fin = sentencia.indexOf(u'\n', i);
      limpio += u' ';
      i = fin < 0 ? n : fin;
    } else if (c == u'/' && siguiente == u'*') {
      const qsizetype fin = sentencia.indexOf(QStringLiteral("*/"), i + 2);
      limpio += u' ';
      i = fin < 0 ? n : fin + 1;
    } else {
      limpio += c;
    }
  }
  return limpio;
}

// Functions and names through which a select could read files, other databases or server
// state, or change settings.
const QRegularExpression& Prohibidas() {
  static const QRegularExpression kProhibidas(
      QStringLiteral(R"(\b(pg_\w+|lo_\w+|dblink\w*|set_config|current_setting|\w+_to_xml\w*|)"
                     R"(load_extension|readfile|writefile|edit|fts3_tokenizer|information_schema|)"
                     R"(sqlite_\w+|attach|detach|pragma|copy|vacuum|into)\b)"),
      QRegularExpression::CaseInsensitiveOption);
  return kProhibidas;
}

// SQLite reports only a few declared types to Qt: the company's schema tells numbers and
// dates from text by the column's name. A name that means different types in different
// tables counts as text.
int TipoDeEsquema(const QString& nombre) {
  static const QHash<QString, int> kTipos = [] {
    QHash<QString, int> tipos;
    for (const schema::Table& tabla : schema::Tables()) {
      for (const schema::Column& columna : tabla.columns) {
        int tipo = kTipoTexto;
        switch (columna.type) {
          case schema::Type::kInt16:
            tipo = kTipoEntero16;
            break;
          case schema::Type::kInt32:
            tipo = kTipoEntero32;
            break;
          case schema::Type::kDouble:
            tipo = kTipoDoble;
            break;
          case schema::Type::kDateTime:
            tipo = kTipoFecha;
            break;
          case schema::Type::kBinary:
            tipo = kTipoBinario;
            break;
          default:
            break;
        }
        const QString nombre_columna = QString::fromUtf8(columna.name);
        const auto previo = tipos.constFind(nombre_columna);
        if (previo == tipos.constEnd()) {
          tipos.insert(nombre_columna, tipo);
        } else if (TipoDe(*previo) != TipoDe(tipo)) {
          tipos.insert(nombre_columna, kTipoTexto);
        }
      }
    }
    return tipos;
  }();
  return kTipos.value(nombre.toLower(), kTipoTexto);
}

int TipoDeCampo(const QString& nombre, QMetaType tipo) {
  switch (tipo.id()) {
    case QMetaType::Short:
    case QMetaType::UShort:
      return kTipoEntero16;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Bool:
      return kTipoEntero32;
    case QMetaType::Double:
    case QMetaType::Float:
      return kTipoDoble;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
    case QMetaType::QTime:
      return kTipoFecha;
    case QMetaType::QByteArray:
      return kTipoBinario;
    default:
      return TipoDeEsquema(nombre);
  }
}

QString Columna(const QString& alias, const QString& nombre) {
  return alias + u'.' + dialect::Name(nombre);
}

int IndiceDe(const QStringList& columnas, const QString& nombre) {
  for (int i = 0; i < columnas.size(); ++i) {
    if (columnas.at(i).compare(nombre, Qt::CaseInsensitive) == 0) return i;
  }
  return -1;
}

QString Direccion(bool descendente) {
  return descendente ? QStringLiteral(" desc nulls last") : QStringLiteral(" asc nulls first");
}

// The order of pages: the sort's columns, then the key, so that equal values keep one order.
// Reversed, it reads the view from its end.
QString OrdenDePaginas(const Consulta& consulta, bool invertida) {
  QStringList partes;
  bool descendente = invertida;
  for (const Orden& o : consulta.orden) {
    descendente = o.descendente != invertida;
    partes << Columna(QStringLiteral("p"), o.columna) + Direccion(descendente);
  }
  // Keys are never null: the plain direction lets PostgreSQL walk their index.
  for (const QString& llave : consulta.llave) {
    partes << Columna(QStringLiteral("p"), llave) +
                  (descendente ? QStringLiteral(" desc") : QStringLiteral(" asc"));
  }
  if (partes.isEmpty()) return {};
  return QStringLiteral(" order by ") + partes.join(QStringLiteral(", "));
}

// The condition that starts a page right after the last row read (in the reversed order:
// right before it), or nothing when the order does not allow it.
std::optional<Condicion> DespuesDe(const Consulta& consulta, const QStringList& columnas,
                                   const QVariantList& ultima, bool invertida) {
  if (!consulta.llave_unica || consulta.llave.isEmpty() || ultima.isEmpty()) return std::nullopt;
  if (consulta.orden.size() > 1) return std::nullopt;
  QVariantList llaves;
  QStringList nombres;
  for (const QString& llave : consulta.llave) {
    const int i = IndiceDe(columnas, llave);
    if (i < 0 || ultima.value(i).isNull()) return std::nullopt;
    llaves << ultima.value(i);
    nombres << Columna(QStringLiteral("p"), llave);
  }
  const bool descendente =
      (!consulta.orden.empty() && consulta.orden.front().descendente) != invertida;
  const QString comparador = descendente ? QStringLiteral(" < ") : QStringLiteral(" > ");
  const QString marcas = QStringList(llaves.size(), QStringLiteral("?")).join(u',');
  const QString por_llave = u'(' + nombres.join(u',') + u')' + comparador + u'(' + marcas + u')';
  if (consulta.orden.empty()) return Condicion{por_llave, llaves};

  const int i = IndiceDe(columnas, consulta.orden.front().columna);
  if (i < 0) return std::nullopt;
  const QString c = Columna(QStringLiteral("p"), consulta.orden.front().columna);
  const QVariant valor = ultima.value(i);
  if (valor.isNull()) {
    // Nulls come first going up and last going down.
    if (descendente) return Condicion{c + QStringLiteral(" is null and ") + por_llave, llaves};
    return Condicion{QStringLiteral("(") + c + QStringLiteral(" is null and ") + por_llave +
                         QStringLiteral(") or ") + c + QStringLiteral(" is not null"),
                     llaves};
  }
  QVariantList valores = {valor, valor};
  valores << llaves;
  QString texto = c + comparador + QStringLiteral("? or (") + c + QStringLiteral(" = ? and ") +
                  por_llave + u')';
  if (descendente) texto += QStringLiteral(" or ") + c + QStringLiteral(" is null");
  return Condicion{texto, valores};
}

// Dates go to the engine as the text both engines compare as dates.
QVariantList Valores(const QVariantList& valores, bool sql) {
  QVariantList enviados;
  for (const QVariant& v : valores) {
    const bool fecha = v.metaType().id() == QMetaType::QDateTime;
    enviados << (fecha ? dialect::DateValue(v.toDateTime(), sql) : v);
  }
  return enviados;
}

ResultadoVista Ejecutar(Connection& connection, const QString& texto, const QVariantList& valores) {
  return EjecutarVista(connection, texto, Valores(valores, connection.sql()));
}

Pagina Leer(Connection& connection, const QString& texto, const QVariantList& valores) {
  ResultadoVista r = Ejecutar(connection, texto, valores);
  if (!r.ok()) return {Outcome::Stop(r.error), {}};
  return {Outcome::Ok(), std::move(r.filas)};
}

}  // namespace

Outcome SentenciaPermitida(const QString& sentencia) {
  QString texto = SinLiterales(sentencia).trimmed();
  while (texto.endsWith(u';')) texto.chop(1);
  const QString inicio = texto.section(QRegularExpression(QStringLiteral("\\s+")), 0, 0).toLower();
  if (inicio != QLatin1String("select") && inicio != QLatin1String("with")) {
    return Outcome::Stop(QStringLiteral("La sentencia de la vista debe ser una consulta (select)"),
                         QStringLiteral("Sentencia"));
  }
  if (texto.contains(u';')) {
    return Outcome::Stop(QStringLiteral("La sentencia de la vista debe ser una sola consulta"),
                         QStringLiteral("Sentencia"));
  }
  const QRegularExpressionMatch prohibida = Prohibidas().match(texto);
  if (prohibida.hasMatch()) {
    return Outcome::Stop(
        QStringLiteral("La sentencia de la vista no puede usar: ") + prohibida.captured(1),
        QStringLiteral("Sentencia"));
  }
  return Outcome::Ok();
}

Campos CamposDeSentencia(Connection& connection, const QString& sentencia) {
  Campos resultado;
  resultado.outcome = SentenciaPermitida(sentencia);
  if (!resultado.outcome) return resultado;
  QString texto = sentencia.trimmed();
  while (texto.endsWith(u';')) texto.chop(1);
  const QString sin_limite = QStringLiteral("select * from (") + texto + QStringLiteral(") as t");
  ResultadoVista r = Ejecutar(connection, sin_limite + QStringLiteral(" limit 0"), {});
  if (!r.ok()) {
    resultado.outcome = Outcome::Stop(r.error);
    return resultado;
  }
  // SQLite tells the type of a computed column (a count beside the row) only from a row.
  if (std::any_of(r.tipos.begin(), r.tipos.end(), [](QMetaType t) { return !t.isValid(); })) {
    const ResultadoVista con_fila =
        Ejecutar(connection, sin_limite + QStringLiteral(" limit 1"), {});
    if (con_fila.ok() && con_fila.tipos.size() == r.tipos.size()) {
      for (qsizetype i = 0; i < r.tipos.size(); ++i) {
        if (!r.tipos.at(i).isValid()) r.tipos[i] = con_fila.tipos.at(i);
      }
    }
  }
  for (qsizetype i = 0; i < r.nombres.size(); ++i) {
    resultado.campos.push_back({r.nombres.at(i), TipoDeCampo(r.nombres.at(i), r.tipos.at(i))});
  }
  return resultado;
}

std::vector<Orden> LeerOrdenar(const QString& ordenar) {
  static const QRegularExpression kTermino(QStringLiteral(R"(^\s*\[([^\]]+)\]\s*(asc|desc)?\s*$)"),
                                           QRegularExpression::CaseInsensitiveOption);
  std::vector<Orden> orden;
  for (const QString& pieza : ordenar.split(u',', Qt::SkipEmptyParts)) {
    const QRegularExpressionMatch m = kTermino.match(pieza);
    if (!m.hasMatch()) continue;
    orden.push_back(
        {m.captured(1), m.captured(2).compare(QLatin1String("desc"), Qt::CaseInsensitive) == 0});
  }
  return orden;
}

QString EscribirOrdenar(const std::vector<Orden>& orden) {
  QStringList partes;
  for (const Orden& o : orden) {
    partes << u'[' + o.columna + QStringLiteral("] ") +
                  (o.descendente ? QStringLiteral("Desc") : QStringLiteral("Asc"));
  }
  return partes.join(QStringLiteral(", "));
}

Condicion SentenciaFiltrada(const Consulta& consulta) {
  QString base = consulta.sentencia.trimmed();
  while (base.endsWith(u';')) base.chop(1);
  Condicion resultado{QStringLiteral("select t.* from (") + base + QStringLiteral(") as t"), {}};
  QStringList condiciones;
  if (!consulta.busqueda.vacia()) {
    condiciones << u'(' + consulta.busqueda.texto + u')';
    resultado.valores << consulta.busqueda.valores;
  }
  if (consulta.periodo) {
    condiciones << Columna(QStringLiteral("t"), QStringLiteral("periodo")) + QStringLiteral(" = ?");
    resultado.valores << *consulta.periodo;
  }
  if (!condiciones.isEmpty()) {
    resultado.texto += QStringLiteral(" where ") + condiciones.join(QStringLiteral(" and "));
  }
  return resultado;
}

std::optional<qint64> ContarFilas(Connection& connection, const Consulta& consulta,
                                  QString* error) {
  if (Outcome permitida = SentenciaPermitida(consulta.sentencia); !permitida) {
    if (error) *error = permitida.message;
    return std::nullopt;
  }
  const Condicion filtrada = SentenciaFiltrada(consulta);
  const ResultadoVista r = Ejecutar(
      connection,
      QStringLiteral("select count(*) as filas from (") + filtrada.texto + QStringLiteral(") as c"),
      filtrada.valores);
  if (!r.ok() || r.filas.empty()) {
    if (error) *error = r.error;
    return std::nullopt;
  }
  return r.filas.front().value(0).toLongLong();
}

bool OrdenTotal(const Consulta& consulta) {
  return consulta.llave_unica && !consulta.llave.isEmpty();
}

Pagina LeerPagina(Connection& connection, const Consulta& consulta, const QStringList& columnas,
                  const QVariantList& ultima, qint64 desde, int cuantas, bool desde_el_final) {
  if (Outcome permitida = SentenciaPermitida(consulta.sentencia); !permitida) {
    return {permitida, {}};
  }
  // Only an order that tells every row apart reads the same rows backwards.
  const bool invertida = desde_el_final && OrdenTotal(consulta);
  if (desde_el_final && !invertida) return {Outcome::Stop(QStringLiteral("Orden parcial")), {}};
  const Condicion filtrada = SentenciaFiltrada(consulta);
  QString texto = QStringLiteral("select p.* from (") + filtrada.texto + QStringLiteral(") as p");
  QVariantList valores = filtrada.valores;
  const std::optional<Condicion> despues = DespuesDe(consulta, columnas, ultima, invertida);
  if (despues) {
    texto += QStringLiteral(" where ") + despues->texto;
    valores << despues->valores;
  }
  texto += OrdenDePaginas(consulta, invertida) + QStringLiteral(" limit ?");
  valores << cuantas;
  if (!despues && desde > 0) {
    texto += QStringLiteral(" offset ?");
    valores << desde;
  }
  Pagina pagina = Leer(connection, texto, valores);
  if (invertida) std::reverse(pagina.filas.begin(), pagina.filas.end());
  return pagina;
}

Pagina LeerFilas(Connection& connection, const QString& sentencia, const Condicion& donde,
                 int cuantas) {
  if (Outcome permitida = SentenciaPermitida(sentencia); !permitida) return {permitida, {}};
  Consulta consulta;
  consulta.sentencia = sentencia;
  consulta.busqueda = donde;
  const Condicion filtrada = SentenciaFiltrada(consulta);
  return Leer(connection, filtrada.texto + QStringLiteral(" limit ?"),
              QVariantList(filtrada.valores) << cuantas);
}

}  // namespace ventarix::mBrowse
