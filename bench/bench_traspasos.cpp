// A 20-row transfer from warehouse 1 to warehouse 2 saved through the capture engine (checks,
// folio, header, rows, totals, the stock of both warehouses) on a company of 100,000
// documents: p50 and p95 of each engine over 40 saves.
#include <algorithm>
#include <cstdio>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include "bench_sesion.h"
#include "big_company.h"
#include "core/company_database.h"
#include "documents/captura.h"
#include "inventory/familias_inventario.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kGuardados = 40;

captura::Documento Traspaso(int n) {
  captura::Documento d;
  d.encabezado = {{u"de"_s, 1}, {u"a"_s, 2}, {u"obs"_s, u"BANCO"_s}};
  for (int i = 0; i < 20; ++i) {
    d.partidas.push_back({{u"codigo"_s, u"P%1"_s.arg(1 + (n * 20 + i) % bench::kProductos)},
                          {u"cantidad"_s, 1 + i % 3}});
  }
  return d;
}

bool Correr(const char* motor, Session s, int documentos) {
  s.SerieTraspasos = u"W"_s;
  s.usuario.Set(u"Traspasos"_s, u"SSS"_s);
  // The generated stock is whatever the generated documents left: the bench times the save,
  // not the refusal of a short warehouse.
  s.empresa.Set(u"guardar_sin_existencias"_s, u"S"_s);
  if (!CrearEmpresa(s.BaseDatos).ok) return false;
  {
    Connection c(s.Cadena);
    QString error;
    qint64 filas = 0;
    if (!bench::GenerarCatalogos(c, &error) ||
        !bench::GenerarDocumentos(c, 1, documentos, &filas, &error)) {
      std::fprintf(stderr, "generation: %s\n", qPrintable(error));
      return false;
    }
    if (c.sql()) {
      c.Run(u"set client_min_messages = error"_s);
      c.Run(u"analyze"_s);
    }
  }
  std::vector<double> ms;
  for (int i = 0; i < kGuardados; ++i) {
    QElapsedTimer reloj;
    reloj.start();
    const captura::Guardado g = captura::GuardarDocumento(s, inventario::Traspasos(), Traspaso(i));
    ms.push_back(reloj.nsecsElapsed() / 1e6);
    if (!g.outcome) {
      std::fprintf(stderr, "save: %s\n", qPrintable(g.outcome.message));
      return false;
    }
  }
  std::sort(ms.begin(), ms.end());
  std::printf("| %s | %.1f ms | %.1f ms |\n", motor, ms[ms.size() / 2], ms[ms.size() * 95 / 100]);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const double escala = argc > 1 ? QString::fromLocal8Bit(argv[1]).toDouble() : 1.0;
  const int documentos = std::max(1000, int(100000 * escala));
  QTemporaryDir dir;
  std::printf("| engine | p50 at %d | p95 at %d |\n|---|---:|---:|\n", documentos, documentos);
  if (!Correr("sqlite", bench::SesionDeBanco(dir.filePath(u"traspasos.mdb"_s), false), documentos))
    return 1;
  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  if (admin.isEmpty()) return 0;
  const QString catalog = u"vtx_bench_traspasos_%1"_s.arg(QCoreApplication::applicationPid());
  Connection server(admin);
  server.Run(u"set default_transaction_read_only = off"_s);
  if (!server.Run(u"create database "_s + catalog)) return 1;
  std::optional<ConnectionTarget> target = ParseCadena(admin);
  target->catalog = catalog;
  const QString path = dir.filePath(u"traspasos.txt"_s);
  QFile txt(path);
  txt.open(QIODevice::WriteOnly | QIODevice::Text);
  QTextStream(&txt) << PostgresCadena(*target) << '\n' << PostgresCadena(*target) << '\n';
  txt.close();
  const bool ok = Correr("postgres", bench::SesionDeBanco(path, true), documentos);
  server.Run(u"drop database if exists "_s + catalog + u" with (force)"_s);
  server.Run(u"drop role if exists "_s + catalog + u"_consulta"_s);
  return ok ? 0 : 1;
}
