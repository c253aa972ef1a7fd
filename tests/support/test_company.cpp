#include "support/test_company.h"

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

// Creating every table and index takes seconds on PostgreSQL; a test program makes one
// company per engine and clones it for every test (a file copy, or CREATE DATABASE ...
// TEMPLATE). The template goes when the program ends.
struct Templates {
  QTemporaryDir dir;
  QString sqlite_file;
  QString pg_catalog;
  QString pg_admin;
  QString error;
};

Templates& SharedTemplates() {
  static Templates* templates = [] {
    auto* t = new Templates;
    qAddPostRoutine([] {
      Templates& s = SharedTemplates();
      if (!s.pg_catalog.isEmpty()) {
        Connection admin(s.pg_admin);
        Administrar(admin);
        if (admin.ok()) {
          admin.Run(QStringLiteral("drop database if exists ") + s.pg_catalog +
                    QStringLiteral(" with (force)"));
          admin.Run(QStringLiteral("drop role if exists ") + s.pg_catalog +
                    QStringLiteral("_consulta"));
        }
      }
    });
    return t;
  }();
  return *templates;
}

QString SqliteTemplate(QString* error) {
  Templates& t = SharedTemplates();
  if (t.sqlite_file.isEmpty()) {
    const QString path = t.dir.filePath(QStringLiteral("plantilla.mdb"));
    const Outcome made = CrearEmpresa(path);
    if (!made) {
      *error = made.message;
      return {};
    }
    t.sqlite_file = path;
  }
  return t.sqlite_file;
}

QString PostgresTemplate(const QString& admin_cadena, QString* error) {
  Templates& t = SharedTemplates();
  if (!t.pg_catalog.isEmpty()) return t.pg_catalog;
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
  t.pg_catalog = catalog;
  target->catalog = catalog;
  const QString file = t.dir.filePath(QStringLiteral("plantilla.txt"));
  if (!WriteConnectionFile(file, PostgresCadena(*target), error)) return {};
  const Outcome made = CrearEmpresa(file);
  if (!made) {
    *error = made.message;
    return {};
  }
  return catalog;
}

}  // namespace

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
    if (with_tables) {
      const QString plantilla = SqliteTemplate(&error_);
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
      const QString plantilla = PostgresTemplate(admin_cadena_, &error_);
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
