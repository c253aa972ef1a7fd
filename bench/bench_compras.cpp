// A 20-row purchase into warehouse 2 saved through the capture engine (checks, folio, header,
// rows, totals, stock, last purchase data and costs, balances, order fulfilment) on a company
// of 100,000 documents: p50 and p95 of each engine.
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
#include "purchasing/familia_compras.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kGuardados = 40;

Session Sesion(const QString& path, bool sql) {
  Session s = bench::SesionDeBanco(path, sql);
  s.SerieCompras = u"W"_s;
  s.usuario.Set(u"Compras"_s, u"SSS"_s);
  // Costs and prices follow every purchase: the heaviest of the company's rules.
  s.empresa.Set(u"EnCompras_Modificar_Costos_y_Precios"_s, u"S"_s);
  s.empresa.Set(u"EnCompras_Modificar_Al_Ultimo_Costo"_s, u"S"_s);
  s.empresa.Set(u"Aplicar_Utilidad_Aritmetica"_s, u"S"_s);
  return s;
}

captura::Documento Compra(int n) {
  captura::Documento d;
  d.encabezado = {{u"proveedor"_s, 1 + n % bench::kProveedores},
                  {u"factura"_s, u"F-%1"_s.arg(n)},
                  {u"obs"_s, u"BANCO"_s},
                  {u"tipo"_s, u"CREDITO"_s},
                  {u"movimiento"_s, u"ALMACEN2"_s},
                  {u"plazo"_s, 30}};
  for (int i = 0; i < 20; ++i) {
    d.partidas.push_back({{u"codigo"_s, u"P%1"_s.arg(1 + (n * 20 + i) % bench::kProductos)},
                          {u"cantidad"_s, 1 + i % 5},
                          {u"precio"_s, 5.5 + (n + i) % 40}});
  }
  return d;
}

struct Cifras {
  double p50 = -1, p95 = -1;
};

Cifras Medir(Session& s) {
  std::vector<double> ms;
  for (int i = 0; i < kGuardados; ++i) {
    QElapsedTimer reloj;
    reloj.start();
    const captura::Guardado g = captura::GuardarDocumento(s, compras::Compras(), Compra(i));
    ms.push_back(reloj.nsecsElapsed() / 1e6);
    if (!g.outcome) {
      std::fprintf(stderr, "save: %s\n", qPrintable(g.outcome.message));
      return {};
    }
  }
  std::sort(ms.begin(), ms.end());
  return {ms[ms.size() / 2], ms[ms.size() * 95 / 100]};
}

bool Correr(const char* motor, Session s, int documentos) {
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
  const Cifras cifras = Medir(s);
  if (cifras.p50 < 0) return false;
  std::printf("| %s | %d | %.1f ms | %.1f ms |\n", motor, documentos, cifras.p50, cifras.p95);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const double escala = argc > 1 ? QString::fromLocal8Bit(argv[1]).toDouble() : 1.0;
  const int documentos = std::max(1000, int(100000 * escala));
  QTemporaryDir dir;
  std::printf("| engine | documents | p50 | p95 |\n|---|---:|---:|---:|\n");
  if (!Correr("sqlite", Sesion(dir.filePath(u"compras.mdb"_s), false), documentos)) return 1;
  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  if (admin.isEmpty()) return 0;
  const QString catalog = u"vtx_bench_compras_%1"_s.arg(QCoreApplication::applicationPid());
  Connection server(admin);
  server.Run(u"set default_transaction_read_only = off"_s);
  if (!server.Run(u"create database "_s + catalog)) return 1;
  std::optional<ConnectionTarget> target = ParseCadena(admin);
  target->catalog = catalog;
  const QString path = dir.filePath(u"compras.txt"_s);
  QFile txt(path);
  txt.open(QIODevice::WriteOnly | QIODevice::Text);
  QTextStream(&txt) << PostgresCadena(*target) << '\n' << PostgresCadena(*target) << '\n';
  txt.close();
  const bool ok = Correr("postgres", Sesion(path, true), documentos);
  server.Run(u"drop database if exists "_s + catalog + u" with (force)"_s);
  server.Run(u"drop role if exists "_s + catalog + u"_consulta"_s);
  return ok ? 0 : 1;
}
