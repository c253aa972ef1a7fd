#include "core/sentencia_vista.h"

#include <optional>

#include <QDateTime>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QSqlRecord>

#include "core/dialect.h"
#include "core/engine_handles.h"

namespace ventarix {

namespace {

ResultadoVista EnSqlite(Connection& c, const QString& texto, const QVariantList& valores) {
  ResultadoVista r;
  QSqlQuery query(c.db());
  query.setForwardOnly(true);
  bool ok = query.prepare(texto);
  if (ok) {
    for (const QVariant& v : valores) query.addBindValue(v);
    ok = query.exec();
  }
  if (!ok) {
    r.error = QueryError(query);
    if (r.error.isEmpty()) r.error = QStringLiteral("La sentencia no se pudo ejecutar.");
    return r;
  }
  const QSqlRecord registro = query.record();
  for (int i = 0; i < registro.count(); ++i) {
    r.nombres << registro.fieldName(i);
    r.tipos << registro.field(i).metaType();
  }
  while (query.next()) {
    QVariantList fila;
    fila.reserve(registro.count());
    for (int i = 0; i < registro.count(); ++i) fila << query.value(i);
    r.filas.push_back(std::move(fila));
  }
  return r;
}

// The type a PostgreSQL column arrives as, by its type's oid, as Qt's driver reads them.
QMetaType TipoDeOid(Oid oid) {
  switch (oid) {
    case 16:
      return QMetaType(QMetaType::Bool);
    case 20:
      return QMetaType(QMetaType::LongLong);
    case 21:
    case 23:
      return QMetaType(QMetaType::Int);
    case 26:
      return QMetaType(QMetaType::UInt);
    case 700:
    case 701:
    case 1700:
      return QMetaType(QMetaType::Double);
    case 1082:
      return QMetaType(QMetaType::QDate);
    case 1083:
      return QMetaType(QMetaType::QTime);
    case 1114:
    case 1184:
      return QMetaType(QMetaType::QDateTime);
    case 17:
      return QMetaType(QMetaType::QByteArray);
    default:
      return QMetaType(QMetaType::QString);
  }
}

QVariant ValorDeTexto(const char* texto, int largo, QMetaType tipo) {
  const QString s = QString::fromUtf8(texto, largo);
  switch (tipo.id()) {
    case QMetaType::Bool:
      return s == u"t";
    case QMetaType::LongLong:
      return s.toLongLong();
    case QMetaType::Int:
      return s.toInt();
    case QMetaType::UInt:
      return s.toUInt();
    case QMetaType::Double:
      return s.toDouble();
    case QMetaType::QDate:
      return QDate::fromString(s, Qt::ISODate);
    case QMetaType::QTime:
      return QTime::fromString(s.left(8), Qt::ISODate);
    case QMetaType::QDateTime:
      return dialect::ReadDate(s.left(19));
    case QMetaType::QByteArray: {
      size_t bytes = 0;
      engine::PgMemPtr datos(
          PQunescapeBytea(reinterpret_cast<const unsigned char*>(texto), &bytes));
      if (!datos) return QByteArray();
      return QByteArray(reinterpret_cast<const char*>(datos.get()), static_cast<qsizetype>(bytes));
    }
    default:
      return s;
  }
}

// A bound value as PostgreSQL's text form and the oid of its type (0: the server infers it
// from where the mark stands, as it does for a quoted literal).
struct Parametro {
  std::optional<QByteArray> texto;
  Oid tipo = 0;
};

Parametro ParametroDe(const QVariant& v) {
  if (v.isNull()) return {};
  switch (v.metaType().id()) {
    case QMetaType::Bool:
      return {QByteArray(v.toBool() ? "true" : "false"), 16};
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::LongLong:
      return {QByteArray::number(v.toLongLong()), 20};
    case QMetaType::ULongLong:
      return {QByteArray::number(v.toULongLong()), 1700};
    case QMetaType::Double:
    case QMetaType::Float:
      return {QByteArray::number(v.toDouble(), 'g', 17), 701};
    case QMetaType::QDateTime:
      return {v.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toUtf8(), 0};
    case QMetaType::QDate:
      return {v.toDate().toString(Qt::ISODate).toUtf8(), 0};
    default:
      return {v.toString().toUtf8(), 0};
  }
}

ResultadoVista EnPostgres(Connection& c, const QString& texto, const QVariantList& valores) {
  ResultadoVista r;
  PGconn* pg = engine::PostgresHandle(c.db());
  if (pg == nullptr) {
    r.error = QStringLiteral("La conexión no está abierta.");
    return r;
  }
  QSqlQuery inicio(c.db());
  if (!inicio.exec(QStringLiteral("begin transaction read only"))) {
    r.error = QueryError(inicio);
    return r;
  }
  std::vector<Parametro> parametros;
  for (const QVariant& v : valores) parametros.push_back(ParametroDe(v));
  std::vector<const char*> textos;
  std::vector<Oid> tipos;
  for (const Parametro& p : parametros) {
    textos.push_back(p.texto ? p.texto->constData() : nullptr);
    tipos.push_back(p.tipo);
  }
  const QByteArray sentencia = MarcasNumeradas(texto).toUtf8();
  engine::PgResultPtr resultado(PQexecParams(pg, sentencia.constData(),
                                             static_cast<int>(parametros.size()), tipos.data(),
                                             textos.data(), nullptr, nullptr, 0));
  if (PQresultStatus(resultado.get()) != PGRES_TUPLES_OK) {
    r.error = QString::fromUtf8(PQresultErrorField(resultado.get(), PG_DIAG_MESSAGE_PRIMARY));
    if (r.error.isEmpty()) r.error = QString::fromUtf8(PQerrorMessage(pg)).trimmed();
  } else {
    const int columnas = PQnfields(resultado.get());
    for (int i = 0; i < columnas; ++i) {
      r.nombres << QString::fromUtf8(PQfname(resultado.get(), i));
      r.tipos << TipoDeOid(PQftype(resultado.get(), i));
    }
    const int filas = PQntuples(resultado.get());
    r.filas.reserve(static_cast<size_t>(filas));
    for (int f = 0; f < filas; ++f) {
      QVariantList fila;
      fila.reserve(columnas);
      for (int i = 0; i < columnas; ++i) {
        if (PQgetisnull(resultado.get(), f, i)) {
          fila << QVariant(r.tipos.at(i));
        } else {
          fila << ValorDeTexto(PQgetvalue(resultado.get(), f, i),
                               PQgetlength(resultado.get(), f, i), r.tipos.at(i));
        }
      }
      r.filas.push_back(std::move(fila));
    }
  }
  // Whatever the statement set for the session (a role, a setting) goes with the rollback.
  QSqlQuery(c.db()).exec(QStringLiteral("rollback"));
  return r;
}

}  // namespace

QString MarcasNumeradas(const QString& texto) {
  QString salida;
  salida.reserve(texto.size() + 16);
  int numero = 0;
  qsizetype i = 0;
  const qsizetype n = texto.size();
  auto copiar_hasta = [&](qsizetype fin) {
    salida += texto.mid(i, fin - i);
    i = fin;
  };
  while (i < n) {
    const QChar c = texto.at(i);
    const QChar siguiente = i + 1 < n ? texto.at(i + 1) : QChar();
    if (c == u'\'' || c == u'"') {
      qsizetype fin = i + 1;
      while (fin < n && texto.at(fin) != c) ++fin;
      copiar_hasta(qMin(n, fin + 1));
    } else if (c == u'-' && siguiente == u'-') {
      const qsizetype fin = texto.indexOf(u'\n', i);
      copiar_hasta(fin < 0 ? n : fin);
    } else if (c == u'/' && siguiente == u'*') {
      const qsizetype fin = texto.indexOf(QStringLiteral("*/"), i + 2);
      copiar_hasta(fin < 0 ? n : fin + 2);
    } else if (c == u'?') {
      salida += u'$' + QString::number(++numero);
      ++i;
    } else {
      salida += c;
      ++i;
    }
  }
  return salida;
}

ResultadoVista EjecutarVista(Connection& vista, const QString& texto, const QVariantList& valores) {
  if (!vista.ok()) return {vista.error(), {}, {}, {}};
  if (vista.acceso() != Connection::Acceso::kVista) {
    return {QStringLiteral("Las vistas se consultan solo en una conexión de vistas."), {}, {}, {}};
  }
  return vista.sql() ? EnPostgres(vista, texto, valores) : EnSqlite(vista, texto, valores);
}

}  // namespace ventarix
