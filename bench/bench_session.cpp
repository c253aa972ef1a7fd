// Times what a shop waits for at the start: making a new company, filling the demo company,
// and opening a session on it (company check, login decision, session load). SQLite always;
// PostgreSQL too when VENTARIX_TEST_PG names a server where catalogs may be created.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include "core/company_database.h"
#include "core/database.h"
#include "core/session.h"
#include "core/session_load.h"
#include "core/startup.h"
#include "demo/demo_company.h"

using namespace ventarix;

namespace {

constexpr int kRepeats = 7;

// Where the companies of one engine are made: fresh SQLite files, or fresh catalogs named by
// .txt connection files.
class Place {
 public:
  Place(const QString& folder, const QString& admin) : folder_(folder), admin_(admin) {}
  // Always the same existing company.
  explicit Place(const QString& existing) : existing_(existing) {}
  ~Place() {
    for (const QString& catalog : catalogs_) {
      Connection c(admin_);
      c.Run(QStringLiteral("drop database if exists ") + catalog + QStringLiteral(" with (force)"));
    }
  }
  bool sql() const { return !admin_.isEmpty(); }

  // A path for a new, empty company; empty when the catalog could not be made.
  QString Next() {
    if (!existing_.isEmpty()) return existing_;
    const QString name =
        QStringLiteral("vtx_bench_%1_%2").arg(QCoreApplication::applicationPid()).arg(++count_);
    if (!sql()) return QDir(folder_).filePath(name + QStringLiteral(".mdb"));
    Connection admin(admin_);
    QString error;
    if (!admin.ok() || !admin.Run(QStringLiteral("create database ") + name, {}, &error)) {
      std::fprintf(stderr, "create database: %s %s\n", qPrintable(admin.error()),
                   qPrintable(error));
      return {};
    }
    catalogs_ << name;
    std::optional<ConnectionTarget> target = ParseCadena(admin_);
    target->catalog = name;
    const QString path = QDir(folder_).filePath(name + QStringLiteral(".txt"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) return {};
    QTextStream(&file) << PostgresCadena(*target) << '\n' << PostgresCadena(*target) << '\n';
    return path;
  }

 private:
  QString folder_;
  QString admin_;
  QString existing_;
  QStringList catalogs_;
  int count_ = 0;
};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// Milliseconds of each run of `step` on a fresh company path from `place` (made beforehand,
// outside the timing: a new PostgreSQL catalog takes a while of its own).
bool Time(const QString& what, const QString& engine, Place& place,
          const std::function<bool(const QString&)>& step) {
  std::vector<double> ms;
  for (int i = 0; i < kRepeats; ++i) {
    const QString path = place.Next();
    if (path.isEmpty()) return false;
    QElapsedTimer timer;
    timer.start();
    if (!step(path)) {
      std::fprintf(stderr, "%s (%s) failed\n", qPrintable(what), qPrintable(engine));
      return false;
    }
    ms.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  QTextStream(stdout) << QStringLiteral("%1 %2 median %3 ms   min %4 ms   (%5 runs)\n")
                             .arg(what, -26)
                             .arg(engine, -10)
                             .arg(Median(ms), 8, 'f', 1)
                             .arg(*std::min_element(ms.begin(), ms.end()), 8, 'f', 1)
                             .arg(kRepeats);
  return true;
}

bool StartSession(const QString& path, const QString& folder) {
  Session session;
  startup::AplicarEleccion(session, startup::EleccionDeArchivo(path));
  session.BaseCarpeta = folder;
  session.Equipo = QStringLiteral("BENCH");
  if (!startup::ChecarEmpresa(session)) return false;
  if (!startup::EntrarSinAcceso(session)) return false;  // the demo has no users
  CargarSesion(session);
  return session.empresa.Text(QStringLiteral("rfc")) == QLatin1String("EKU9003173C9");
}

bool Bench(const QString& engine, Place& place, const QString& folder) {
  if (!Time(QStringLiteral("empresa nueva"), engine, place,
            [](const QString& path) { return CrearEmpresa(path).ok; })) {
    return false;
  }
  QString demo;
  if (!Time(QStringLiteral("demo (con empresa nueva)"), engine, place,
            [&demo](const QString& path) {
              demo = path;
              return CrearEmpresaDemo(path).ok;
            })) {
    return false;
  }
  // The session starts on the last demo; each run stands for one workstation starting.
  Place same(demo);
  return Time(QStringLiteral("inicio de sesión"), engine, same,
              [&folder](const QString& path) { return StartSession(path, folder); });
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  QTemporaryDir dir;
  if (!dir.isValid()) return 1;
  bool ok = true;
  {
    Place sqlite(dir.path(), {});
    ok = Bench(QStringLiteral("SQLite"), sqlite, dir.path()) && ok;
  }
  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  if (admin.isEmpty()) {
    std::printf("PostgreSQL: VENTARIX_TEST_PG is not set, skipped\n");
  } else {
    Place postgres(dir.path(), admin);
    ok = Bench(QStringLiteral("PostgreSQL"), postgres, dir.path()) && ok;
  }
  return ok ? 0 : 1;
}
