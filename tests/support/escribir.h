#pragma once

#include <QString>
#include <QVariantList>

#include "core/database.h"

namespace ventarix::testing {

// A change a test makes by hand: the company's connections write nothing outside a
// transaction.
inline bool Escribir(Connection& c, const QString& statement, const QVariantList& values = {},
                     QString* error = nullptr) {
  return RunInTransaction(c, statement, values, error);
}

}  // namespace ventarix::testing
