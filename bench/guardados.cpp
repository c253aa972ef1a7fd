#include "guardados.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include "bench_sesion.h"
#include "big_company.h"
#include "core/company_database.h"

namespace ventarix::bench {
namespace {

using namespace Qt::StringLiterals;

constexpr int kGuardados = 40;

bool Llenar(const Session& s, int documentos) {
  if (!CrearEmpresa(s.BaseDatos).ok) return false;
  Connection c(s.Cadena);
  QString error;
  qint64 filas = 0;
  if (!GenerarCatalogos(c, &error) || !GenerarDocumentos(c, 1, documentos, &filas, &error)) {
    std::fprintf(stderr, "generation: %s\n", qPrintable(error));
    return false;
  }
  if (c.sql()) {
    c.Run(u"set client_min_messages = error"_s);
    c.Run(u"analyze"_s);
  }
  return true;
}

bool Correr(const char* motor, Session s, int documentos, const captura::FamiliaCaptura& familia,
            const std::function<captura::Documento(int)>& documento) {
  if (!Llenar(s, documentos)) return false;
  std::vector<double> ms;
  for (int i = 0; i < kGuardados; ++i) {
    QElapsedTimer reloj;
    reloj.start();
    const captura::Guardado g = captura::GuardarDocumento(s, familia, documento(i));
    ms.push_back(reloj.nsecsElapsed() / 1e6);
    if (!g.outcome) {
      std::fprintf(stderr, "save: %s\n", qPrintable(g.outcome.message));
      return false;
    }
  }
  std::sort(ms.begin(), ms.end());
  std::printf("| %s | %d | %.1f ms | %.1f ms |\n", motor, documentos, ms[ms.size() / 2],
              ms[ms.size() * 95 / 100]);
  return true;
}

}  // namespace

int MedirGuardados(int argc, char** argv, const char* nombre,
                   const captura::FamiliaCaptura& familia,
                   const std::function<void(Session&)>& ajustar,
                   const std::function<captura::Documento(int)>& documento) {
  QCoreApplication app(argc, argv);
  const double escala = argc > 1 ? QString::fromLocal8Bit(argv[1]).toDouble() : 1.0;
  const int documentos = std::max(1000, int(100000 * escala));
  const QString base = QString::fromLatin1(nombre);
  const auto sesion = [&ajustar](const QString& path, bool sql) {
    Session s = SesionDeBanco(path, sql);
    ajustar(s);
    return s;
  };
  QTemporaryDir dir;
  std::printf("| engine | documents | p50 | p95 |\n|---|---:|---:|---:|\n");
  if (!Correr("sqlite", sesion(dir.filePath(base + u".mdb"_s), false), documentos, familia,
              documento)) {
    return 1;
  }
  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  if (admin.isEmpty()) return 0;
  const QString catalog = u"vtx_bench_%1_%2"_s.arg(base).arg(QCoreApplication::applicationPid());
  Connection server(admin);
  server.Run(u"set default_transaction_read_only = off"_s);
  if (!server.Run(u"create database "_s + catalog)) return 1;
  std::optional<ConnectionTarget> target = ParseCadena(admin);
  target->catalog = catalog;
  const QString path = dir.filePath(base + u".txt"_s);
  QFile txt(path);
  txt.open(QIODevice::WriteOnly | QIODevice::Text);
  QTextStream(&txt) << PostgresCadena(*target) << '\n' << PostgresCadena(*target) << '\n';
  txt.close();
  const bool ok = Correr("postgres", sesion(path, true), documentos, familia, documento);
  server.Run(u"drop database if exists "_s + catalog + u" with (force)"_s);
  server.Run(u"drop role if exists "_s + catalog + u"_consulta"_s);
  return ok ? 0 : 1;
}

}  // namespace ventarix::bench
