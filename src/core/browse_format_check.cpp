// The test a new view statement passes before the view editor stores it.
#include "core/browse_filter.h"
#include "core/browse_format.h"
#include "core/browse_query.h"
#include "core/database.h"
#include "core/sentencia_vista.h"

namespace ventarix::mBrowse {

namespace {

using namespace Qt::StringLiterals;

// Kinds of values: a column matches a required type when both are of the same kind. The two
// engines tell integer sizes apart differently, so sizes do not count.
enum class Clase { kTexto, kEntero, kReal, kFecha, kBinario, kDesconocida };

Clase ClaseDeCodigo(int tipo) {
  switch (tipo) {
    case kTipoTexto:
    case kTipoMemo:
      return Clase::kTexto;
    case kTipoEntero16:
    case kTipoEntero32:
      return Clase::kEntero;
    case kTipoDoble:
      return Clase::kReal;
    case kTipoFecha:
      return Clase::kFecha;
    case kTipoBinario:
      return Clase::kBinario;
    default:
      return Clase::kDesconocida;
  }
}

Clase ClaseDeTipo(QMetaType::Type tipo) {
  switch (tipo) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Bool:
      return Clase::kEntero;
    case QMetaType::Double:
    case QMetaType::Float:
      return Clase::kReal;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
      return Clase::kFecha;
    case QMetaType::QByteArray:
      return Clase::kBinario;
    case QMetaType::QString:
      return Clase::kTexto;
    default:
      return Clase::kDesconocida;
  }
}

// SQLite reports most declared types as text; the kind of the first value that is not null
// tells what the column holds. Dates are text there.
Clase ClaseEnSqlite(Connection& c, const QString& sentencia, const QString& columna) {
  const QString columna_t = ColumnaDeVista(columna);
  const ResultadoVista r =
      EjecutarVista(c,
                    u"select typeof("_s + columna_t + u") from ("_s + sentencia +
                        u") as t where "_s + columna_t + u" is not null limit 1"_s,
                    {});
  if (!r.ok() || r.filas.empty()) return Clase::kDesconocida;
  const QString tipo = r.filas.front().value(0).toString();
  if (tipo == u"integer"_s) return Clase::kEntero;
  if (tipo == u"real"_s) return Clase::kReal;
  if (tipo == u"blob"_s) return Clase::kBinario;
  return Clase::kTexto;
}

bool MismaClase(Clase requerida, Clase hallada, bool sql) {
  if (requerida == Clase::kDesconocida || hallada == Clase::kDesconocida) return true;
  if (!sql && requerida == Clase::kFecha && hallada == Clase::kTexto) return true;
  return requerida == hallada;
}

Outcome Falta(const ColumnaRequerida& requerida) {
  return Outcome::Warning(u"Se require la columna de "_s + requerida.nombre +
                              u" con el tipo de datos "_s + QString::number(requerida.tipo),
                          u"Sentencia"_s);
}

}  // namespace

Outcome ProbarSentencia(const Session& session, const QString& sentencia,
                        const std::vector<ColumnaRequerida>& requeridas) {
  // Whoever may test a statement may write views for everybody.
  if (Outcome administrador = RevisarAdministrador(session); !administrador) return administrador;
  // On the connection of the views themselves: the statement under test runs as it would in
  // the browser, and can change nothing.
  Connection c(session.Cadena, Connection::Acceso::kVista);
  if (!c.ok()) return Outcome::Stop(c.error());
  if (const Outcome permitida = SentenciaPermitida(sentencia); !permitida) {
    return Outcome::Warning(u"La sentencia no se puede ejecutar: "_s + permitida.message,
                            u"Sentencia"_s);
  }
  const ResultadoVista r =
      EjecutarVista(c, u"select * from ("_s + sentencia + u") as t limit 1"_s, {});
  if (!r.ok()) {
    return Outcome::Warning(u"La sentencia no se puede ejecutar: "_s + r.error, u"Sentencia"_s);
  }
  for (const ColumnaRequerida& requerida : requeridas) {
    qsizetype indice = -1;
    for (qsizetype i = 0; i < r.nombres.size(); ++i) {
      if (r.nombres.at(i).compare(requerida.nombre, Qt::CaseInsensitive) == 0) indice = i;
    }
    if (indice < 0) return Falta(requerida);
    Clase hallada = ClaseDeTipo(static_cast<QMetaType::Type>(r.tipos.at(indice).id()));
    if (!c.sql() && hallada == Clase::kTexto) {
      hallada = ClaseEnSqlite(c, sentencia, r.nombres.at(indice));
    }
    if (!MismaClase(ClaseDeCodigo(requerida.tipo), hallada, c.sql())) return Falta(requerida);
  }
  return Outcome::Ok();
}

}  // namespace ventarix::mBrowse
