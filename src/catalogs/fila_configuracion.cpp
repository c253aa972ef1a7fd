#include "catalogs/fila_configuracion.h"

#include <cmath>
#include <limits>

#include "core/dialect.h"
#include "core/mFunciones_valores.h"
#include "core/schema.h"

namespace ventarix::ajustes {

using namespace Qt::StringLiterals;

namespace {

// A whole number the column can hold; settings are counts and choices, never negative.
Outcome Entero(const QString& columna, const QVariant& valor, qint64 maximo, QVariant* salida) {
  const double numero = std::round(mFunciones::ValorNumerico(valor));
  if (numero < 0 || numero > static_cast<double>(maximo)) {
    return Outcome::Warning(u"Se requiere un número entre 0 y %1"_s.arg(maximo), columna);
  }
  *salida = static_cast<qint64>(numero);
  return Outcome::Ok();
}

}  // namespace

Outcome ArmarFila(const QString& tabla, const RowValues& datos, const QSet<QString>& fuera,
                  const QSet<QString>& literales, FilaParaGuardar* fila) {
  const schema::Table* definicion = schema::FindTable(tabla);
  if (definicion == nullptr) return Outcome::Stop(u"No existe la tabla: "_s + tabla);
  *fila = {};
  for (const schema::Column& column : definicion->columns) {
    const QString nombre = QString::fromUtf8(column.name);
    // A column the row does not hold keeps what is stored.
    if (fuera.contains(nombre) || !datos.Has(nombre)) continue;
    const QVariant valor = datos.Value(nombre);
    QVariant guardado;
    switch (column.type) {
      case schema::Type::kInt16:
      case schema::Type::kInt32: {
        const qint64 maximo = column.type == schema::Type::kInt16
                                  ? std::numeric_limits<qint16>::max()
                                  : std::numeric_limits<qint32>::max();
        if (Outcome o = Entero(nombre, valor, maximo, &guardado); !o) return o;
        break;
      }
      case schema::Type::kDouble:
        guardado = mFunciones::ValorNumerico(valor);
        break;
      case schema::Type::kYesNo:
        guardado = datos.Flag(nombre) ? u"S"_s : u"N"_s;
        break;
      case schema::Type::kText:
        guardado = literales.contains(nombre) ? datos.Text(nombre) : mFunciones::ValorTexto(valor);
        break;
      case schema::Type::kBinary:
        guardado = valor.isNull() ? QVariant(QMetaType::fromType<QByteArray>())
                                  : QVariant(valor.toByteArray());
        break;
      case schema::Type::kDateTime:
        // The settings tables keep no dates.
        continue;
    }
    fila->columnas << nombre;
    fila->valores << guardado;
  }
  return Outcome::Ok();
}

QString SentenciaActualizar(const QString& tabla, const FilaParaGuardar& fila,
                            const QString& condicion) {
  QStringList asignaciones;
  for (const QString& columna : fila.columnas) {
    asignaciones << dialect::Name(columna) + u" = ?"_s;
  }
  return u"update "_s + dialect::Name(tabla) + u" set "_s + asignaciones.join(u", "_s) + u' ' +
         condicion;
}

QString SentenciaAgregar(const QString& tabla, const FilaParaGuardar& fila) {
  QStringList nombres;
  for (const QString& columna : fila.columnas) nombres << dialect::Name(columna);
  const QStringList marcas(fila.columnas.size(), u"?"_s);
  return u"insert into "_s + dialect::Name(tabla) + u" ("_s + nombres.join(u", "_s) +
         u") values ("_s + marcas.join(u", "_s) + u')';
}

}  // namespace ventarix::ajustes
