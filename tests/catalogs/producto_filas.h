#pragma once

// The product the mass price tests stand on, and a column of it read back.
#include <QString>

#include "core/database.h"
#include "support/document_rows.h"

namespace ventarix::testing {

// A product with the margins 30, 25, 20, 15, 10 and 16 % tax.
inline bool ProductoConMargenes(Connection& c, const QString& codigo, double costo = 5) {
  return InsertarFila(c, QStringLiteral("productos"),
                      {{QStringLiteral("codigo"), codigo},
                       {QStringLiteral("producto"), QStringLiteral("PRODUCTO ") + codigo},
                       {QStringLiteral("costo"), costo},
                       {QStringLiteral("impuesto"), 16.0},
                       {QStringLiteral("utilidad1"), 30.0},
                       {QStringLiteral("utilidad2"), 25.0},
                       {QStringLiteral("utilidad3"), 20.0},
                       {QStringLiteral("utilidad4"), 15.0},
                       {QStringLiteral("utilidad5"), 10.0}});
}

inline double ColumnaDeProducto(Connection& c, const QString& columna, const QString& codigo) {
  return c
      .Scalar(
          QStringLiteral("select ") + columna + QStringLiteral(" from productos where codigo = ?"),
          {codigo})
      .toDouble();
}

}  // namespace ventarix::testing
