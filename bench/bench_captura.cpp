// A 20-row delivery note saved through the capture engine (checks, folio, header, rows,
// totals, stock, orders) on a company of 10,000 and then 100,000 documents: p50 and p95 of
// each engine. Then the delivery-note browser on the big company: opening it (saved view,
// statement, count, first page) and reading one more page as the grid scrolls.
#include <algorithm>
#include <cstdio>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include "bench_sesion.h"
#include "big_company.h"
#include "core/browse_families.h"
#include "core/company_database.h"
#include "core/mFunciones.h"
#include "core/ui/browse_model.h"
#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "documents/captura.h"
#include "sales/familias_ventas.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kGuardados = 40;

Session Sesion(const QString& path, bool sql) {
  Session s = bench::SesionDeBanco(path, sql);
  s.SerieRemisiones = u"W"_s;
  s.usuario.Set(u"Remisiones"_s, u"SSS"_s);
  s.empresa.Set(u"guardar_sin_existencias"_s, u"S"_s);
  return s;
}

captura::Documento Nota(int n) {
  captura::Documento d;
  d.encabezado = {{u"cliente"_s, 1 + n % 100},
                  {u"plazo"_s, 0},
                  {u"obs"_s, u"BANCO"_s},
                  {u"tipo"_s, u"DIRECTA"_s},
                  {u"metodo"_s, 1}};
  for (int i = 0; i < 20; ++i) {
    d.partidas.push_back({{u"codigo"_s, u"P%1"_s.arg(1 + (n * 20 + i) % bench::kProductos)},
                          {u"cantidad"_s, 1 + i % 3}});
  }
  return d;
}

struct Cifras {
  double p50 = 0, p95 = 0;
};

Cifras Percentiles(std::vector<double> ms) {
  std::sort(ms.begin(), ms.end());
  return {ms[ms.size() / 2], ms[ms.size() * 95 / 100]};
}

// The delivery-note browser as a clerk opens it, and one page more as the grid scrolls.
struct Navegacion {
  Cifras abrir, pagina;
};

Navegacion Navegar(Session& s) {
  const FormRegistry registry;
  std::vector<double> abrir, pagina;
  for (int i = 0; i < 7; ++i) {
    QElapsedTimer reloj;
    reloj.start();
    Navegador navegador(s, *mBrowse::FamiliaDeForma(u"FrmRemisiones"_s), registry);
    abrir.push_back(reloj.nsecsElapsed() / 1e6);
    for (int p = 0; p < 3 && navegador.modelo()->canFetchMore(); ++p) {
      reloj.restart();
      navegador.modelo()->fetchMore();
      pagina.push_back(reloj.nsecsElapsed() / 1e6);
    }
  }
  return {Percentiles(abrir), Percentiles(pagina)};
}

Cifras Medir(Session& s, int desde) {
  std::vector<double> ms;
  for (int i = 0; i < kGuardados; ++i) {
    QElapsedTimer reloj;
    reloj.start();
    const captura::Guardado g = captura::GuardarDocumento(s, ventas::Remisiones(), Nota(desde + i));
    ms.push_back(reloj.nsecsElapsed() / 1e6);
    if (!g.outcome) {
      std::fprintf(stderr, "save: %s\n", qPrintable(g.outcome.message));
      return {-1, -1};
    }
  }
  return Percentiles(ms);
}

// The same saves on one connection kept open between them, each in its own transaction: what
// a workstation would save if it did not open a connection per document.
Cifras MedirAbierta(Session& s, int desde) {
  Connection c(s.Cadena);
  std::vector<double> ms;
  for (int i = 0; i < kGuardados; ++i) {
    QElapsedTimer reloj;
    reloj.start();
    Transaction t(c);
    const captura::Guardado g =
        captura::GuardarDocumento(s, c, ventas::Remisiones(), Nota(desde + i));
    const bool hecho = g.outcome && t.Commit();
    ms.push_back(reloj.nsecsElapsed() / 1e6);
    if (!hecho) {
      std::fprintf(stderr, "save: %s\n", qPrintable(g.outcome.message));
      return {-1, -1};
    }
  }
  return Percentiles(ms);
}

bool Crecer(Session& s, int desde, int hasta) {
  Connection c(s.Cadena);
  QString error;
  qint64 filas = 0;
  if ((desde == 1 && !bench::GenerarCatalogos(c, &error)) ||
      !bench::GenerarDocumentos(c, desde, hasta, &filas, &error)) {
    std::fprintf(stderr, "generation: %s\n", qPrintable(error));
    return false;
  }
  if (c.sql()) {
    c.Run(u"set client_min_messages = error"_s);
    c.Run(u"analyze"_s);
  }
  return true;
}

bool Correr(const char* motor, Session s, int chica, int grande) {
  if (!CrearEmpresa(s.BaseDatos).ok || !Crecer(s, 1, chica)) return false;
  const Cifras a = Medir(s, 0);
  if (a.p50 < 0 || !Crecer(s, chica + 1, grande)) return false;
  const Cifras b = Medir(s, kGuardados);
  const Cifras abierta = MedirAbierta(s, 2 * kGuardados);
  if (b.p50 < 0 || abierta.p50 < 0) return false;
  const Navegacion n = Navegar(s);
  std::printf("| %s | %.1f ms | %.1f ms | %.1f ms | %.1f ms | %.1f ms | %.1f ms | %.1f ms |\n",
              motor, a.p50, a.p95, b.p50, b.p95, abierta.p50, n.abrir.p50, n.pagina.p50);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  const double escala = argc > 1 ? QString::fromLocal8Bit(argv[1]).toDouble() : 1.0;
  const int grande = std::max(1000, int(100000 * escala));
  const int chica = grande / 10;
  QTemporaryDir dir;
  std::printf(
      "| engine | p50 at %d | p95 at %d | p50 at %d | p95 at %d | p50 at %d, connection kept "
      "| browser opens | one page more |\n|---|---:|---:|---:|---:|---:|---:|---:|\n",
      chica, chica, grande, grande, grande);
  if (!Correr("sqlite", Sesion(dir.filePath(u"captura.mdb"_s), false), chica, grande)) return 1;
  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  if (admin.isEmpty()) return 0;
  const QString catalog = u"vtx_bench_captura_%1"_s.arg(QCoreApplication::applicationPid());
  Connection server(admin);
  server.Run(u"set default_transaction_read_only = off"_s);
  if (!server.Run(u"create database "_s + catalog)) return 1;
  std::optional<ConnectionTarget> target = ParseCadena(admin);
  target->catalog = catalog;
  const QString path = dir.filePath(u"captura.txt"_s);
  QFile txt(path);
  txt.open(QIODevice::WriteOnly | QIODevice::Text);
  QTextStream(&txt) << PostgresCadena(*target) << '\n' << PostgresCadena(*target) << '\n';
  txt.close();
  const bool ok = Correr("postgres", Sesion(path, true), chica, grande);
  server.Run(u"drop database if exists "_s + catalog + u" with (force)"_s);
  server.Run(u"drop role if exists "_s + catalog + u"_consulta"_s);
  return ok ? 0 : 1;
}
