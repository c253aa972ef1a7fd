#include "documents/mChecarExistencias.h"

#include <cmath>

#include <QHash>
#include <QMap>
#include <QRegularExpression>
#include <QSqlQuery>

#include "core/dialect.h"

namespace ventarix::mChecarExistencias {

namespace {

using namespace Qt::StringLiterals;

constexpr qsizetype kCodigosPorLectura = 500;

enum class Sentido { kSalida, kEntrada };

// Codes are compared as the capture stores them: trimmed, without the characters that text
// entry strips.
QString LimpiarCodigo(QString codigo) {
  codigo.remove(u'`').remove(u'\'').remove(QChar(0x00B0));
  return codigo.trimmed();
}

// Quantities carry 8 decimals; rounding the sum there keeps binary noise (0.1 + 0.2 - 0.3)
// from refusing a document that leaves exactly nothing.
double RedondearCantidad(double value) { return std::round(value * 1e8) / 1e8; }

bool ColumnaValida(const QString& columna) {
  static const QRegularExpression kAlmacen(u"^almacen[1-5]$"_s,
                                           QRegularExpression::CaseInsensitiveOption);
  return kAlmacen.match(columna).hasMatch();
}

bool NombreValido(const QString& name) {
  static const QRegularExpression kNombre(u"^[a-z][a-z ]*$"_s);
  return kNombre.match(name).hasMatch();
}

// Adds to `cambios` what undoing the stored document does to each of its products.
QString DeshacerGuardado(Connection& connection, const QString& tabla, const QString& columna_clave,
                         const QString& clave, double signo, QMap<QString, double>& cambios) {
  QSqlQuery query = connection.Exec(u"select codigo, sum(cantidad) as total from "_s +
                                        dialect::Name(tabla + u" detalles"_s) + u" where "_s +
                                        dialect::Name(columna_clave) + u" = ? group by codigo"_s,
                                    {clave});
  if (!query.isActive()) return QueryError(query);
  while (query.next()) cambios[query.value(0).toString()] += signo * query.value(1).toDouble();
  return {};
}

// Stock of `columna` for each code that exists in productos.
QString LeerExistencias(Connection& connection, const QString& columna, const QStringList& codigos,
                        QHash<QString, double>& existencias) {
  for (qsizetype first = 0; first < codigos.size(); first += kCodigosPorLectura) {
    const QStringList slice = codigos.mid(first, kCodigosPorLectura);
    QVariantList values;
    for (const QString& codigo : slice) values << codigo;
    QSqlQuery query = connection.Exec(u"select codigo, "_s + columna.toLower() +
                                          u" from productos where codigo in ("_s +
                                          QStringList(slice.size(), u"?"_s).join(u',') + u')',
                                      values);
    if (!query.isActive()) return QueryError(query);
    while (query.next()) existencias.insert(query.value(0).toString(), query.value(1).toDouble());
  }
  return {};
}

Outcome Checar(const Session& session, Connection& connection, Sentido sentido,
               const QString& tabla, const QString& columna_clave, const QString& clave,
               const QString& columna, bool guardado, const QList<Partida>* malla) {
  if (session.empresa.Flag(u"guardar_sin_existencias"_s)) return Outcome::Ok();
  if (!ColumnaValida(columna)) {
    return Outcome::Stop(u"No existe la columna "_s + columna + u" en productos"_s);
  }
  // Only the net change per product is tested: what the stored document did is undone, what
  // the grid holds is done.
  const double deshacer = sentido == Sentido::kSalida ? 1.0 : -1.0;
  QMap<QString, double> cambios;
  if (guardado) {
    if (!NombreValido(tabla) || !NombreValido(columna_clave)) {
      return Outcome::Stop(u"Tabla no válida: "_s + tabla);
    }
    const QString error =
        DeshacerGuardado(connection, tabla, columna_clave, clave, deshacer, cambios);
    if (!error.isEmpty()) return Outcome::Stop(error);
  }
  if (malla) {
    for (const Partida& partida : *malla) {
      const QString codigo = LimpiarCodigo(partida.codigo);
      if (!codigo.isEmpty()) cambios[codigo] -= deshacer * partida.cantidad;
    }
  }
  if (cambios.isEmpty()) return Outcome::Ok();

  QHash<QString, double> existencias;
  const QString error = LeerExistencias(connection, columna, cambios.keys(), existencias);
  if (!error.isEmpty()) return Outcome::Stop(error);
  for (auto it = cambios.cbegin(); it != cambios.cend(); ++it) {
    const auto found = existencias.constFind(it.key());
    if (found == existencias.cend()) {
      return Outcome::Refuse(u"No existe en productos el código "_s + it.key());
    }
    const double suma = RedondearCantidad(found.value() + it.value());
    if (suma < 0) {
      return Outcome::Refuse(u"No se permiten existencias negativas para "_s + columna +
                             u" del código "_s + it.key() + u"\n\nExistencias = "_s +
                             QString::number(suma, 'g', 15));
    }
  }
  return Outcome::Ok();
}

}  // namespace

Outcome ChecarExistenciasSalida(const Session& session, Connection& connection,
                                const QString& tabla, const QString& columna_clave,
                                const QString& clave, const QString& columna, bool guardado,
                                const QList<Partida>* malla) {
  return Checar(session, connection, Sentido::kSalida, tabla, columna_clave, clave, columna,
                guardado, malla);
}

Outcome ChecarExistenciasEntrada(const Session& session, Connection& connection,
                                 const QString& tabla, const QString& columna_clave,
                                 const QString& clave, const QString& columna, bool guardado,
                                 const QList<Partida>* malla) {
  return Checar(session, connection, Sentido::kEntrada, tabla, columna_clave, clave, columna,
                guardado, malla);
}

}  // namespace ventarix::mChecarExistencias
