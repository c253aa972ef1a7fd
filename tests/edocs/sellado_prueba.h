#pragma once

// What the sealing tests share: the fixture company on the current engine with its session,
// and a statement run on it.
#include <QDebug>
#include <QTest>

#include "core/database.h"
#include "edocs/empresa_sellado.h"
#include "support/test_company.h"

// The sealing company of the current global engine row and its session.
#define VENTARIX_SELLADO(company, session)                                           \
  VENTARIX_COMPANY(company);                                                         \
  {                                                                                  \
    QString error_;                                                                  \
    QVERIFY2(::ventarix::testing::PrepararEmpresaSellado(company.cadena(), &error_), \
             qPrintable(error_));                                                    \
  }                                                                                  \
  ::ventarix::Session session = company.MakeSession();                               \
  ::ventarix::testing::CompletarSesionSellado(session)

namespace ventarix::testing {

inline bool EjecutarSql(const Session& s, const QString& sentencia,
                        const QVariantList& valores = {}) {
  Connection c(s.Cadena);
  QString error;
  if (!c.Run(sentencia, valores, &error)) qWarning() << error;
  return error.isEmpty();
}

}  // namespace ventarix::testing
