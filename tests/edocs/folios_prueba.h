#pragma once

// What the folio range tests share, with and without windows: the fixture company's session
// with its folders and every right over both range tables, and one value read from it.
#include <QVariant>

#include "core/database.h"
#include "support/escribir.h"
#include "core/mFunciones.h"
#include "support/test_company.h"

namespace ventarix::testing {

inline Session SesionFolios(const TestCompany& company) {
  Session s = company.MakeSession();
  mFunciones::CrearCarpetas(s);
  s.usuario.Set(QStringLiteral("FoliosFacturas"), QStringLiteral("SSS"));
  s.usuario.Set(QStringLiteral("FoliosNotas"), QStringLiteral("SSS"));
  return s;
}

// A read, or a change made by hand in its own transaction.
inline QVariant Valor(const Session& s, const QString& sentencia,
                      const QVariantList& valores = {}) {
  Connection c(s.Cadena);
  if (!sentencia.startsWith(QStringLiteral("select"))) return Escribir(c, sentencia, valores);
  return c.Scalar(sentencia, valores);
}

}  // namespace ventarix::testing
