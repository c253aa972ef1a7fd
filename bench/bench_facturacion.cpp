// A 10-row CFDi invoice saved through the capture engine (checks, folio, the sealing with the
// demo's test certificate and its XML file, header, rows, totals, balances of the invoice and
// its client) on a company of 10,000 and then 100,000 invoices: p50 and p95 of each engine.
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
#include "core/mFunciones.h"
#include "core/session_load.h"
#include "demo/demo_tables.h"
#include "documents/captura.h"
#include "sales/familias_ventas.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kGuardados = 40;
constexpr int kClientesFiscales = 100;

Session Sesion(const QString& path, bool sql, const QString& carpeta) {
  Session s = bench::SesionDeBanco(path, sql);
  s.usuario.Set(u"Facturas"_s, u"SSS"_s);
  const QList<std::pair<QString, QString>> empresa = {
      {u"rfc"_s, u"EKU9003173C9"_s},        {u"nombre"_s, u"FERRETERIA DEL BANCO SA DE CV"_s},
      {u"calle"_s, u"AV. INSURGENTES"_s},   {u"noexterior"_s, u"100"_s},
      {u"colonia"_s, u"CENTRO"_s},          {u"municipio"_s, u"CUAUHTEMOC"_s},
      {u"estado"_s, u"CIUDAD DE MEXICO"_s}, {u"pais"_s, u"MEXICO"_s},
      {u"codigopostal"_s, u"06000"_s},      {u"impuesto"_s, u"16"_s}};
  for (const auto& [columna, valor] : empresa) s.empresa.Set(columna, valor);
  s.BaseCarpeta = carpeta;
  mFunciones::CrearCarpetas(s);
  CargarEsquemas(s);
  s.FolioFacturas = 1;
  return s;
}

captura::Documento Factura(int n) {
  captura::Documento d;
  d.encabezado = {{u"cliente"_s, 1 + n % kClientesFiscales}, {u"plazo"_s, 0}, {u"metodo"_s, 1}};
  for (int i = 0; i < 10; ++i) {
    d.partidas.push_back({{u"codigo"_s, u"P%1"_s.arg(1 + (n * 10 + i) % bench::kProductos)},
                          {u"cantidad"_s, 1 + i % 3}});
  }
  return d;
}

struct Cifras {
  double p50 = 0, p95 = 0;
};

Cifras Medir(Session& s, int desde) {
  std::vector<double> ms;
  for (int i = 0; i < kGuardados; ++i) {
    QElapsedTimer reloj;
    reloj.start();
    const captura::Guardado g =
        captura::GuardarDocumento(s, ventas::Facturas(), Factura(desde + i));
    ms.push_back(reloj.nsecsElapsed() / 1e6);
    if (!g.outcome) {
      std::fprintf(stderr, "save: %s\n", qPrintable(g.outcome.message));
      return {-1, -1};
    }
  }
  std::sort(ms.begin(), ms.end());
  return {ms[ms.size() / 2], ms[ms.size() * 95 / 100]};
}

// The demo's CFDi ranges with its test certificate, and clients with a complete fiscal address.
bool Fiscal(Connection& c, QString* error) {
  Transaction t(c);
  return demo::EscribirFolios(c, error) &&
         c.Run(
             u"update clientes set rfc = 'XAXX010101000', calle = 'AV. JUAREZ', noexterior = "
             "'12', colonia = 'CENTRO', municipio = 'MONTERREY', estado = 'NUEVO LEON', pais = "
             "'MEXICO', codigopostal = '64000', juridico = 'N' where numero <= ?"_s,
             {kClientesFiscales}, error) &&
         t.Commit();
}

bool Crecer(Session& s, int desde, int hasta) {
  Connection c(s.Cadena);
  QString error;
  qint64 filas = 0;
  if ((desde == 1 && (!bench::GenerarCatalogos(c, &error) || !Fiscal(c, &error))) ||
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
  if (b.p50 < 0) return false;
  std::printf("| %s | %.1f / %.1f ms | %.1f / %.1f ms |\n", motor, a.p50, a.p95, b.p50, b.p95);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const double escala = argc > 1 ? QString::fromLocal8Bit(argv[1]).toDouble() : 1.0;
  const int grande = std::max(1000, int(100000 * escala));
  const int chica = grande / 10;
  QTemporaryDir dir;
  std::printf("| engine | p50 / p95 at %d | p50 / p95 at %d |\n|---|---:|---:|\n", chica, grande);
  if (!Correr("sqlite", Sesion(dir.filePath(u"facturas.mdb"_s), false, dir.filePath(u"s"_s)), chica,
              grande)) {
    return 1;
  }
  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  if (admin.isEmpty()) return 0;
  const QString catalog = u"vtx_bench_facturacion_%1"_s.arg(QCoreApplication::applicationPid());
  Connection server(admin);
  server.Run(u"set default_transaction_read_only = off"_s);
  if (!server.Run(u"create database "_s + catalog)) return 1;
  std::optional<ConnectionTarget> target = ParseCadena(admin);
  target->catalog = catalog;
  const QString path = dir.filePath(u"facturas.txt"_s);
  QFile txt(path);
  txt.open(QIODevice::WriteOnly | QIODevice::Text);
  QTextStream(&txt) << PostgresCadena(*target) << '\n' << PostgresCadena(*target) << '\n';
  txt.close();
  const bool ok = Correr("postgres", Sesion(path, true, dir.filePath(u"p"_s)), chica, grande);
  server.Run(u"drop database if exists "_s + catalog + u" with (force)"_s);
  server.Run(u"drop role if exists "_s + catalog + u"_consulta"_s);
  return ok ? 0 : 1;
}
