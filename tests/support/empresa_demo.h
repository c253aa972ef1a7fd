#pragma once

#include <memory>

#include <QTest>

#include "support/test_company.h"

namespace ventarix::testing {

// A demo company on the current engine; null when it could not be made (the test has failed
// or been skipped by then).
inline std::unique_ptr<TestCompany> EmpresaDemo() {
  QFETCH_GLOBAL(QString, engine);
  auto company = std::make_unique<TestCompany>(engine, TestCompany::Contenido::kDemo);
  if (company->skipped()) {
    QTest::qSkip("VENTARIX_TEST_PG is not set", __FILE__, __LINE__);
    return nullptr;
  }
  if (!company->ok()) {
    QTest::qFail(qPrintable(company->error()), __FILE__, __LINE__);
    return nullptr;
  }
  return company;
}

}  // namespace ventarix::testing
