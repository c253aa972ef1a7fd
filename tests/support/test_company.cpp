#include "support/test_company.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTest>
#include <QTextStream>

#include "core/company_database.h"
#include "core/mFunciones.h"

namespace ventarix::testing {

void AddEngineRows() {
  QTest::addColumn<QString>("engine");
  QTest::newRow("sqlite") << QStringLiteral("sqlite");
  QTest::newRow("postgres") << QStringLiteral("postgres");
}

TestCompany::TestCompany(const QString& engine, bool with_tables) {
  if (!dir_.isValid()) {
    error_ = QStringLiteral("no temporary folder");
    return;
  }
  if (engine == QLatin1String("sqlite")) {
    path_ = dir_.filePath(QStringLiteral("empresa.mdb"));
  } else {
    sql_ = true;
    admin_cadena_ = qEnvironmentVariable("VENTARIX_TEST_PG");
    if (admin_cadena_.isEmpty()) {
      if (qEnvironmentVariableIsSet("VENTARIX_REQUIRE_PG")) {
        error_ = QStringLiteral("VENTARIX_TEST_PG is not set and PostgreSQL is required");
      } else {
        skipped_ = true;
      }
      return;
    }
    std::optional<ConnectionTarget> target = ParseCadena(admin_cadena_);
    if (!target) {
      error_ = QStringLiteral("VENTARIX_TEST_PG is not a postgresql:// URI");
      return;
    }
    catalog_ = QStringLiteral("vtx_t_%1_%2")
                   .arg(QCoreApplication::applicationPid())
                   .arg(QRandomGenerator::global()->generate() % 1000000000u);
    {
      Connection admin(admin_cadena_);
      if (!admin.ok() ||
          !admin.Run(QStringLiteral("create database ") + catalog_, {}, &error_)) {
        if (error_.isEmpty()) error_ = admin.error();
        return;
      }
    }
    target->catalog = catalog_;
    const QString cadena = PostgresCadena(*target);
    path_ = dir_.filePath(QStringLiteral("empresa.txt"));
    QFile file(path_);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
      error_ = QStringLiteral("cannot write ") + path_;
      return;
    }
    QTextStream(&file) << cadena << '\n' << cadena << '\n';
  }
  if (with_tables) {
    const Outcome made = CrearEmpresa(path_);
    if (!made) {
      error_ = made.message;
      return;
    }
  } else if (!sql_) {
    QFile file(path_);
    file.open(QIODevice::WriteOnly);  // an empty SQLite file is an empty database
  }
  cadena_ = CadenaDeRuta(path_);
  ok_ = true;
}

TestCompany::~TestCompany() {
  if (catalog_.isEmpty()) return;
  Connection admin(admin_cadena_);
  if (admin.ok()) admin.Run(QStringLiteral("drop database if exists ") + catalog_ + QStringLiteral(" with (force)"));
}

Session TestCompany::MakeSession() const {
  Session s;
  s.Motor = sql_ ? QStringLiteral("Sql") : QStringLiteral("Access");
  s.BaseDatos = path_;
  s.BaseNombre = QFileInfo(path_).fileName();
  s.BaseCarpeta = dir_.path();
  s.Sql = sql_;
  s.Access = !sql_;
  mFunciones::ConstruirCadenas(s);
  s.Equipo = QStringLiteral("PRUEBAS");
  return s;
}

}  // namespace ventarix::testing
