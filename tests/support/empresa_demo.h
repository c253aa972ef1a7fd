#pragma once

#include <memory>
#include <optional>

#include <QTest>

#include "core/session_load.h"
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

// The demo company with a loaded session and the rows a test writes into it by `escribir`
// (one transaction of its own); nullopt when any of it failed.
struct EmpresaConSesion {
  std::unique_ptr<TestCompany> company;
  Session s;
};
template <typename Escribir>
std::optional<EmpresaConSesion> EmpresaDemoCon(Escribir escribir) {
  auto company = EmpresaDemo();
  if (!company) return std::nullopt;
  EmpresaConSesion e{std::move(company), {}};
  e.s = e.company->MakeSession();
  CargarSesion(e.s);
  Connection c(e.s.Cadena);
  if (!escribir(c)) {
    QTest::qFail("the test's documents could not be written", __FILE__, __LINE__);
    return std::nullopt;
  }
  return e;
}

}  // namespace ventarix::testing
