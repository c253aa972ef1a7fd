#include "support/test_company.h"

#include <vector>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTest>
#include <QTextStream>

#include "core/company_database.h"
#include "core/mFunciones.h"
#include "core/rol_consulta.h"
#include "core/session_load.h"
#include "demo/demo_company.h"

namespace ventarix::testing {

namespace {

QString RandomSuffix() {
  return QStringLiteral("%1_%2")
      .arg(QCoreApplication::applicationPid())
      .arg(QRandomGenerator::global()->generate() % 1000000000u);
}

bool WriteConnectionFile(const QString& path, const QString& cadena, QString* error) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) {
    *error = QStringLiteral("cannot write ") + path;
    return false;
  }
  QTextStream(&file) << cadena << '\n' << cadena << '\n';
  return true;
}

// Catalogs are made and dropped outside any transaction, on a session that may write.
void Administrar(Connection& admin) {
  admin.Run(QStringLiteral("set default_transaction_read_only = off"));
}

// Creating every table and index takes seconds on PostgreSQL, the demo shop more; a test
// program makes each kind of company once per engine and clones it for every test (a file
// copy, or CREATE DATABASE ... TEMPLATE). The templates go when the program ends.
struct Plantilla {
  QString sqlite_file;
  QString pg_catalog;
};

struct Templates {
  QTemporaryDir dir;
  Plantilla tablas, demo;
  QString pg_admin;
  std::vector<QString> catalogos;
};

Templates& SharedTemplates() {
  static Templates* templates = [] {
    auto* t = new Templates;
    qAddPostRoutine([] {
      Templates& s = SharedTemplates();
      if (s.catalogos.empty()) return;
      Connection admin(s.pg_admin);
      Administrar(admin);
      if (!admin.ok()) return;
      for (const QString& catalog : s.catalogos) {
        admin.Run(QStringLiteral("drop database if exists ") + catalog +
                  QStringLiteral(" with (force)"));
        admin.Run(QStringLiteral("drop role if exists ") + catalog + QStringLiteral("_consulta"));
      }
    });
    return t;
  }();
  return *templates;
}

using Contenido = TestCompany::Contenido;

Plantilla& PlantillaDe(Contenido contenido) {
  Templates& t = SharedTemplates();
  return contenido == Contenido::kDemo ? t.demo : t.tablas;
}

Outcome Llenar(Contenido contenido, const QString& path) {
  return contenido == Contenido::kDemo ? CrearEmpresaDemo(path) : CrearEmpresa(path);
}

QString SqliteTemplate(Contenido contenido, QString* error) {
  Plantilla& p = PlantillaDe(contenido);
  if (p.sqlite_file.isEmpty()) {
    const QString path = SharedTemplates().dir.filePath(
        contenido == Contenido::kDemo ? QStringLiteral("demo.mdb") : QStringLiteral("tablas.mdb"));
    if (contenido == Contenido::kDemo) QFile(path).open(QIODevice::WriteOnly);  // as a test's
    const Outcome made = Llenar(contenido, path);
    if (!made) {
      *error = made.message;
      return {};
    }
    p.sqlite_file = path;
  }
  return p.sqlite_file;
}

QString PostgresTemplate(Contenido contenido, const QString& admin_cadena, QString* error) {
  Plantilla& p = PlantillaDe(contenido);
  if (!p.pg_catalog.isEmpty()) return p.pg_catalog;
  Templates& t = SharedTemplates();
  std::optional<ConnectionTarget> target = ParseCadena(admin_cadena);
  const QString catalog = QStringLiteral("vtx_tpl_") + RandomSuffix();
  {
    Connection admin(admin_cadena);
    Administrar(admin);
    if (!admin.ok() || !admin.Run(QStringLiteral("create database ") + catalog, {}, error)) {
      if (error->isEmpty()) *error = admin.error();
      return {};
    }
  }
  t.pg_admin = admin_cadena;
  t.catalogos.push_back(catalog);
  target->catalog = catalog;
  const QString file = t.dir.filePath(catalog + QStringLiteral(".txt"));
  if (!WriteConnectionFile(file, PostgresCadena(*target), error)) return {};
  const Outcome made = Llenar(contenido, file);
  if (!made) {
    *error = made.message;
    return {};
  }
  p.pg_catalog = catalog;
  return catalog;
}

}  // namespace

void AddEngineRows() {
  QTest::addColumn<QString>("engine");
  QTest::newRow("sqlite") << QStringLiteral("sqlite");
  QTest::newRow("postgres") << QStringLiteral("postgres");
}

TestCompany::TestCompany(const QString& engine, Contenido contenido) {
  const bool with_tables = contenido != Contenido::kNada;
  if (!dir_.isValid()) {
    error_ = QStringLiteral("no temporary folder");
    return;
  }
  if (engine == QLatin1String("sqlite")) {
    path_ = dir_.filePath(QStringLiteral("empresa.mdb"));
    if (with_tables) {
      const QString plantilla = SqliteTemplate(contenido, &error_);
      if (plantilla.isEmpty()) return;
      if (!QFile::copy(plantilla, path_)) {
        error_ = QStringLiteral("cannot copy the template company");
        return;
      }
      QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner);
    } else {
      QFile file(path_);
      file.open(QIODevice::WriteOnly);  // an empty SQLite file is an empty database
    }
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
    QString create = QStringLiteral("create database ");
    catalog_ = QStringLiteral("vtx_t_") + RandomSuffix();
    create += catalog_;
    if (with_tables) {
      const QString plantilla = PostgresTemplate(contenido, admin_cadena_, &error_);
      if (plantilla.isEmpty()) return;
      create += QStringLiteral(" template ") + plantilla;
    }
    {
      Connection admin(admin_cadena_);
      Administrar(admin);
      if (!admin.ok() || !admin.Run(create, {}, &error_)) {
        if (error_.isEmpty()) error_ = admin.error();
        catalog_.clear();
        return;
      }
    }
    target->catalog = catalog_;
    path_ = dir_.filePath(QStringLiteral("empresa.txt"));
    if (!WriteConnectionFile(path_, PostgresCadena(*target), &error_)) return;
    if (with_tables) {
      // A clone carries the template's grants; its own query role is made here.
      Connection c(PostgresCadena(*target));
      if (const Outcome rol = rol_consulta::Preparar(c); !rol) {
        error_ = rol.message;
        return;
      }
    }
  }
  cadena_ = CadenaDeRuta(path_);
  ok_ = true;
}

TestCompany::~TestCompany() {
  if (catalog_.isEmpty()) return;
  Connection admin(admin_cadena_);
  Administrar(admin);
  if (admin.ok()) {
    admin.Run(QStringLiteral("drop database if exists ") + catalog_ +
              QStringLiteral(" with (force)"));
    admin.Run(QStringLiteral("drop role if exists ") + catalog_ + QStringLiteral("_consulta"));
  }
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
  PermisosCompletos(s.usuario, s.Usuario);
  return s;
}

}  // namespace ventarix::testing
