// Rows written the way every add starts: the zeroes and empty texts of the table, then the
// test's own columns.
#pragma once

#include <QStringList>
#include <QVariantMap>

#include "core/database.h"
#include "core/dialect.h"
#include "core/mFunciones.h"
#include "support/escribir.h"

namespace ventarix::testing {

inline bool Insertar(Connection& c, const QString& tabla, const QVariantMap& propios) {
  QVariantMap fila = mFunciones::InicializarRegistro(tabla);
  for (auto it = propios.cbegin(); it != propios.cend(); ++it) fila.insert(it.key(), it.value());
  QStringList nombres, marcas;
  for (const QString& nombre : fila.keys()) {
    nombres << dialect::Name(nombre);
    marcas << QStringLiteral("?");
  }
  QString error;
  const bool ok = testing::Escribir(
      c,
      QStringLiteral("insert into %1 (%2) values (%3)")
          .arg(dialect::Name(tabla), nombres.join(QLatin1Char(',')), marcas.join(QLatin1Char(','))),
      fila.values(), &error);
  if (!ok) qWarning("%s", qPrintable(error));
  return ok;
}

}  // namespace ventarix::testing
