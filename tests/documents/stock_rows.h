#pragma once

// Rows the stock tests write, and what they read back: the five warehouse columns of a product.
#include <array>

#include <QSqlQuery>

#include "core/database.h"
#include "support/document_rows.h"

namespace ventarix::testing {

using namespace Qt::StringLiterals;

inline bool Insertar(Connection& c, const QString& tabla, const QVariantMap& valores,
                     QString* error = nullptr) {
  return InsertarFila(c, tabla, valores, error);
}

inline std::array<double, 5> Existencias(Connection& c, const QString& codigo) {
  std::array<double, 5> stock{};
  QSqlQuery q = c.Exec(
      u"select almacen1, almacen2, almacen3, almacen4, almacen5 from productos where codigo = ?"_s,
      {codigo});
  if (q.next()) {
    for (int i = 0; i < 5; ++i) stock[i] = q.value(i).toDouble();
  }
  return stock;
}

inline double Existencia(Connection& c, const QString& codigo, int almacen) {
  return Existencias(c, codigo)[almacen - 1];
}

}  // namespace ventarix::testing
