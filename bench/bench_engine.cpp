// Times the document engine on a large company: the recomputations a save makes for one
// document, at a tenth of the size and at full size (they should not grow with the company),
// and the two maintenance sweeps over everything. Full size is 100,000 invoices with
// 1,000,000 rows and the other families in proportion; "bench_engine 0.1" runs a tenth of it.
// A second argument "sqlite" or "postgres" runs one engine. PostgreSQL runs when
// VENTARIX_TEST_PG names a server where catalogs may be created.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>

#include "bench_sesion.h"
#include "big_company.h"
#include "core/company_database.h"
#include "core/database.h"
#include "core/mFunciones.h"
#include "core/schema.h"
#include "core/session.h"
#include "documents/mInventario.h"
#include "documents/mSaldos.h"
#include "maintenance/sweeps.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRepeticiones = 7;

// One measured line: what, and its median at the small and the full size.
struct Medida {
  QString que;
  double chica = -1;
  double grande = -1;
};

struct Banco {
  const char* motor;
  Session session;
  std::vector<Medida> medidas;
  qint64 filas = 0;
  double paso_mas_largo = 0;  // longest step of Manto2 at the small size, in ms

  void Anotar(const QString& que, double ms, bool grande) {
    auto it =
        std::find_if(medidas.begin(), medidas.end(), [&](const Medida& m) { return m.que == que; });
    if (it == medidas.end()) it = medidas.insert(medidas.end(), Medida{que});
    (grande ? it->grande : it->chica) = ms;
  }
};

void Fallo(const char* que, const QString& error) {
  std::fprintf(stderr, "%s: %s\n", que, qPrintable(error));
}

// Median of several runs of `paso`, each in its own transaction so that it costs what it
// costs inside a save; the commit is not timed.
bool Mediana(Banco& b, Connection& c, const QString& que, bool grande,
             const std::function<Outcome()>& paso) {
  std::vector<double> ms;
  for (int i = 0; i < kRepeticiones; ++i) {
    Transaction t(c);
    QElapsedTimer reloj;
    reloj.start();
    const Outcome hecho = paso();
    ms.push_back(reloj.nsecsElapsed() / 1e6);
    if (!hecho) {
      Fallo(qPrintable(que), hecho.message);
      return false;
    }
    t.Commit();
  }
  std::sort(ms.begin(), ms.end());
  const double mediana = ms[ms.size() / 2];
  std::printf("  %-58s median %9.2f ms  min %9.2f ms\n", qPrintable(que), mediana, ms.front());
  b.Anotar(que, mediana, grande);
  return true;
}

Outcome DeBool(bool ok, const QString& error) { return ok ? Outcome::Ok() : Outcome::Stop(error); }

// Documents in the middle of the company, and what one saved delivery note's save touches.
struct Documentos {
  QString factura, remision, pedido, compra, orden;
  qint32 cliente = 0;
  QStringList codigos;
};

Documentos Elegir(Connection& c, int facturas) {
  Documentos d;
  d.factura = u"F-%1"_s.arg(facturas / 2 / 2 * 2);       // a product invoice
  d.remision = d.factura.sliced(2).prepend(u"R-"_s);     // held by that invoice
  d.pedido = u"P-%1"_s.arg(std::max(1, facturas / 10));  // delivered by two notes
  d.compra = u"C-%1"_s.arg(std::max(1, facturas / 10));
  d.orden = u"O-%1"_s.arg(std::max(1, facturas / 40));
  d.cliente = c.Scalar(u"select cliente from facturas where factura = ?"_s, {d.factura}).toInt();
  d.codigos = mInventario::ListaCodigosDocumento(c, u"remisiones"_s, u"remision"_s, d.remision);
  return d;
}

// The invoice's client balance as RecalcularSaldosFacturas refreshes it on PostgreSQL: every
// client, whatever the scope (the routine's last statement, repeated here to time it alone).
constexpr auto kSaldoDeTodosLosClientes =
    u"update clientes as e set saldo = (select coalesce(sum(f.saldo),0) from facturas f, "
    u"clientes l where f.cliente = e.numero and f.cliente = l.numero)";

// The recomputations of one saved document.
bool Puntuales(Banco& b, Connection& c, const Documentos& d, bool grande) {
  const Session& s = b.session;
  return Mediana(b, c, u"TotalizarFactura (10 rows)"_s, grande,
                 [&] { return mSaldos::TotalizarFactura(c, s, d.factura); }) &&
         Mediana(b, c, u"RecalcularSaldosFacturas (1 invoice)"_s, grande,
                 [&] { return mSaldos::RecalcularSaldosFacturas(c, {d.factura}); }) &&
         (!c.sql() || Mediana(b, c, u"  of which every client's balance"_s, grande,
                              [&] {
                                QString error;
                                return DeBool(
                                    c.Run(QString::fromUtf16(kSaldoDeTodosLosClientes), {}, &error),
                                    error);
                              })) &&
         Mediana(b, c, u"RecalcularSaldoClientes (1 client)"_s, grande,
                 [&] { return mSaldos::RecalcularSaldoClientes(c, d.cliente); }) &&
         Mediana(b, c, u"RecalcularSaldosCompras (1 purchase)"_s, grande,
                 [&] { return mSaldos::RecalcularSaldosCompras(c, {d.compra}); }) &&
         Mediana(b, c, u"RecalcularSurtirOrdenes (1 purchase order)"_s, grande,
                 [&] { return mSaldos::RecalcularSurtirOrdenes(c, {d.orden}); }) &&
         Mediana(b, c, u"RecalcularExistencias (one note's %1 codes)"_s.arg(d.codigos.size()),
                 grande, [&] {
                   QString error;
                   const bool ok = mInventario::RecalcularExistencias(c, 0, d.codigos, &error);
                   return DeBool(ok, error);
                 });
}

// The two whose joins go through rows by a column no index of the schema covers.
bool SinIndice(Banco& b, Connection& c, const Documentos& d, bool grande, const QString& cual) {
  return Mediana(b, c, u"RecalcularStatusRemisiones (1 delivery note)"_s + cual, grande,
                 [&] { return mSaldos::RecalcularStatusRemisiones(c, b.session, {d.remision}); }) &&
         Mediana(b, c, u"RecalcularSurtirPedidos (1 order)"_s + cual, grande,
                 [&] { return mSaldos::RecalcularSurtirPedidos(c, {d.pedido}); });
}

// A sweep over the whole company, with the steps that took a noticeable share of it.
bool Barrer(Banco& b, const char* que, bool grande,
            Outcome (*sweep)(const Session&, const mantenimiento::Avance&)) {
  std::vector<std::pair<QString, qint64>> pasos;
  mantenimiento::Avance avance;
  avance.terminado = [&](const QString& paso, qint64 ms) { pasos.emplace_back(paso, ms); };
  QElapsedTimer reloj;
  reloj.start();
  const Outcome hecho = sweep(b.session, avance);
  const double ms = reloj.nsecsElapsed() / 1e6;
  if (!hecho) {
    Fallo(que, hecho.message);
    return false;
  }
  std::printf("  %-58s %12.0f ms  %9.0f rows/s\n", que, ms, b.filas / (ms / 1000));
  for (const auto& [paso, ms_paso] : pasos) {
    if (ms_paso * 20 >= ms) std::printf("      %-54s %12lld ms\n", qPrintable(paso), ms_paso);
    if (!grande) b.paso_mas_largo = std::max(b.paso_mas_largo, double(ms_paso));
  }
  b.Anotar(QString::fromUtf8(que), ms, grande);
  return true;
}

// Statistics of the company's own tables; the server's shared catalogues are not ours to
// analyze, and it says so once per catalogue unless told to keep quiet.
bool Analizar(Connection& c) {
  QString error;
  if (c.Run(u"set client_min_messages = error"_s, {}, &error) && c.Run(u"analyze"_s, {}, &error)) {
    return true;
  }
  Fallo("analyze", error);
  return false;
}

bool Crecer(Banco& b, Connection& c, int desde, int hasta) {
  QElapsedTimer reloj;
  reloj.start();
  qint64 filas = 0;
  QString error;
  {
    Transaction t(c);
    if ((desde == 1 && !bench::GenerarCatalogos(c, &error)) ||
        !bench::GenerarDocumentos(c, desde, hasta, &filas, &error) || !t.Commit()) {
      Fallo("generation", error);
      return false;
    }
  }
  // On PostgreSQL the autovacuum daemon would gather the statistics after a load this size;
  // the bench does not wait for it.
  if (c.sql() && !Analizar(c)) return false;
  const double s = reloj.nsecsElapsed() / 1e9;
  b.filas += filas;
  std::printf("%s: invoices %d..%d, %lld rows written in %.1f s (%.0f rows/s); %lld in all\n",
              b.motor, desde, hasta, filas, s, filas / s, b.filas);
  return true;
}

// Indexes the recomputations above would need to stay within one document's rows.
struct Indice {
  const char* nombre;
  const char* tabla;
  const char* columna;
};
constexpr Indice kCandidatos[] = {{"facturas3d", "facturas detalles", "remision"},
                                  {"remisiones3d", "remisiones detalles", "pedido"}};

std::vector<Indice> Faltantes() {
  std::vector<Indice> faltan;
  for (const Indice& candidato : kCandidatos) {
    bool hay = false;
    for (const schema::Index& i : schema::Indexes()) {
      hay = hay || (QLatin1String(i.table) == QLatin1String(candidato.tabla) &&
                    QLatin1String(i.columns.front()) == QLatin1String(candidato.columna));
    }
    if (!hay) faltan.push_back(candidato);
  }
  return faltan;
}

bool Indices(Connection& c, const std::vector<Indice>& indices, bool crear) {
  QString error;
  for (const Indice& i : indices) {
    const QString text =
        crear ? u"create index %1 on \"%2\" (%3)"_s.arg(
                    QLatin1String(i.nombre), QLatin1String(i.tabla), QLatin1String(i.columna))
              : u"drop index %1"_s.arg(QLatin1String(i.nombre));
    if (!c.Run(text, {}, &error)) {
      Fallo(i.nombre, error);
      return false;
    }
  }
  return !c.sql() || Analizar(c);
}

// Without the missing indexes a sweep whose longest step grows with the square of the company
// would take too long at full size to be worth waiting for.
bool Manto2SinIndices(Banco& b, bool grande, double crecimiento) {
  const double estimado = b.paso_mas_largo * crecimiento * crecimiento / 1000;
  if (grande && estimado > 600) {
    std::printf(
        "  %-58s skipped: its longest step took %.0f ms at a tenth of the size and\n"
        "  grows with the square of the rows without the indexes: about %.0f s\n",
        "Manto2 (balances and statuses)", b.paso_mas_largo, estimado);
    return true;
  }
  return Barrer(b, "Manto2 (balances and statuses)", grande, &mantenimiento::Manto2);
}

bool Medir(Banco& b, int facturas, bool grande, double crecimiento) {
  Connection c(b.session.Cadena);
  const Documentos d = Elegir(c, facturas);
  const std::vector<Indice> faltan = Faltantes();
  if (!c.ok() || !Puntuales(b, c, d, grande) || !SinIndice(b, c, d, grande, {}) ||
      !Barrer(b, "Manto1 (periods and stock)", grande, &mantenimiento::Manto1) ||
      !Manto2SinIndices(b, grande, crecimiento)) {
    return false;
  }
  if (faltan.empty()) return true;
  QStringList nombres;
  for (const Indice& i : faltan) nombres << QLatin1String(i.nombre);
  const QString cual = u" + "_s + nombres.join(u", "_s);
  std::printf("  with the indexes%s:\n", qPrintable(cual.sliced(2)));
  return Indices(c, faltan, true) && SinIndice(b, c, d, grande, cual) &&
         Barrer(b, qPrintable(u"Manto2 (balances and statuses)"_s + cual), grande,
                &mantenimiento::Manto2) &&
         Indices(c, faltan, false);
}

bool Correr(Banco& b, int chica, int grande) {
  {
    Connection c(b.session.Cadena);
    if (!c.ok() || !Crecer(b, c, 1, chica)) return false;
  }
  const double crecimiento = double(grande) / chica;
  std::printf("%s at %d invoices:\n", b.motor, chica);
  if (!Medir(b, chica, false, crecimiento)) return false;
  {
    Connection c(b.session.Cadena);
    if (!c.ok() || !Crecer(b, c, chica + 1, grande)) return false;
  }
  std::printf("%s at %d invoices:\n", b.motor, grande);
  return Medir(b, grande, true, crecimiento);
}

Session Sesion(const QString& path, bool sql) {
  Session s = bench::SesionDeBanco(path, sql);
  return s;
}

QString Cifra(double ms) {
  if (ms < 0) return u"not run"_s;
  return ms >= 1000 ? u"%1 s"_s.arg(ms / 1000, 0, 'f', 1) : u"%1 ms"_s.arg(ms, 0, 'f', 2);
}

void Tabla(const std::vector<Banco>& bancos, int chica, int grande) {
  std::printf("\n| step | engine | %d invoices | %d invoices |\n|---|---|---:|---:|\n", chica,
              grande);
  for (const Banco& b : bancos) {
    for (const Medida& m : b.medidas) {
      std::printf("| %s | %s | %s | %s |\n", qPrintable(m.que.trimmed()), b.motor,
                  qPrintable(Cifra(m.chica)), qPrintable(Cifra(m.grande)));
    }
  }
}

bool Postgres(const QString& admin, const QTemporaryDir& dir, std::vector<Banco>& bancos, int chica,
              int grande) {
  const QString catalog = u"vtx_bench_engine_%1"_s.arg(QCoreApplication::applicationPid());
  {
    Connection server(admin);
    if (!server.Run(u"create database "_s + catalog)) return false;
  }
  std::optional<ConnectionTarget> target = ParseCadena(admin);
  target->catalog = catalog;
  const QString path = dir.filePath(u"engine.txt"_s);
  QFile txt(path);
  if (!txt.open(QIODevice::WriteOnly | QIODevice::Text)) return false;
  QTextStream(&txt) << PostgresCadena(*target) << '\n' << PostgresCadena(*target) << '\n';
  txt.close();
  bancos.push_back({"postgres", Sesion(path, true)});
  const bool ok = CrearEmpresa(path).ok && Correr(bancos.back(), chica, grande);
  Connection server(admin);
  server.Run(u"drop database if exists "_s + catalog + u" with (force)"_s);
  return ok;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const QStringList args = app.arguments();
  const double escala = args.size() > 1 ? args[1].toDouble() : 1.0;
  const QString solo = args.size() > 2 ? args[2] : QString();
  if (escala <= 0 || escala > 10) {
    std::fprintf(stderr,
                 "usage: bench_engine [scale 0..10, 1 = 100000 invoices] [sqlite|postgres]\n");
    return 2;
  }
  const int grande = std::max(100, int(100000 * escala));
  const int chica = grande / 10;
  QTemporaryDir dir;
  // VENTARIX_BENCH_KEEP keeps the SQLite company for a look at the statements' plans.
  if (qEnvironmentVariableIsSet("VENTARIX_BENCH_KEEP")) {
    dir.setAutoRemove(false);
    std::printf("company folder: %s\n", qPrintable(dir.path()));
  }
  std::vector<Banco> bancos;
  bancos.reserve(2);
  if (solo.isEmpty() || solo == u"sqlite") {
    const QString file = dir.filePath(u"engine.mdb"_s);
    bancos.push_back({"sqlite", Sesion(file, false)});
    if (!CrearEmpresa(file).ok || !Correr(bancos.back(), chica, grande)) return 1;
  }
  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  if ((solo.isEmpty() || solo == u"postgres") && !admin.isEmpty() &&
      !Postgres(admin, dir, bancos, chica, grande)) {
    return 1;
  }
  Tabla(bancos, chica, grande);
  return 0;
}
