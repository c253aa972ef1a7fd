// Times the grid browser on a big table: the invoice rows of a company with 1,000,000 of them
// (ten per invoice, 2,000 product codes, dates over two years) and its 100,000 invoices. Each
// figure is what a person waits for at the grid: opening the view (the count and the first
// page), a search, a sort, scrolling page by page, jumping deep into the rows and Ctrl+End.
// "bench_browse [rows] [sqlite|postgres]"; PostgreSQL runs when VENTARIX_TEST_PG names a
// server where catalogs may be created. VENTARIX_BENCH_KEEP keeps both companies for a look
// at the statements' plans.
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
#include "core/browse_filter.h"
#include "core/browse_query.h"
#include "core/company_database.h"
#include "core/database.h"
#include "core/mBrowse.h"
#include "core/mFunciones.h"
#include "core/session.h"
#include "core/ui/browse_model.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kFilasPorFactura = 10;
constexpr int kCodigos = 2000;
constexpr int kDias = 730;
constexpr int kRepeticiones = 3;
constexpr int kPaginasDeScroll = 40;
constexpr int kFilaProfunda = 100000;

// One printed line: what, its figure on each engine and a note (rows found, pages read).
struct Medida {
  QString que;
  double ms[2] = {-1, -1};
  QString nota[2];
};

struct Banco {
  int motor;  // 0 SQLite, 1 PostgreSQL
  Session session;
  std::vector<Medida>* medidas;

  void Anotar(const QString& que, double ms, const QString& nota = {}) {
    auto it = std::find_if(medidas->begin(), medidas->end(),
                           [&](const Medida& m) { return m.que == que; });
    if (it == medidas->end()) it = medidas->insert(medidas->end(), Medida{que});
    it->ms[motor] = ms;
    it->nota[motor] = nota;
    std::printf("  %-46s %10.1f ms  %s\n", qPrintable(que), ms, qPrintable(nota));
    std::fflush(stdout);
  }
};

double Ms(const QElapsedTimer& reloj) { return reloj.nsecsElapsed() / 1e6; }

double Mediana(std::vector<double> ms) {
  std::sort(ms.begin(), ms.end());
  return ms[ms.size() / 2];
}

// The numbers 1..? as n, with the invoice d and its row i.
QString Numeros(bool sql) {
  const QString r = u"r as (select n, (n - 1) / %1 + 1 as d, (n - 1) % %1 + 1 as i from %2)"_s;
  if (sql) {
    return u"with "_s +
           r.arg(kFilasPorFactura).arg(u"generate_series(1, cast(? as integer)) as s(n)"_s) + u' ';
  }
  return u"with recursive s(n) as (select 1 union all select n + 1 from s where n < ?), "_s +
         r.arg(kFilasPorFactura).arg(u"s"_s) + u' ';
}

// Invoice d's day: the invoices follow each other over two years, at nine in the morning.
QString Fecha(bool sql, int facturas) {
  const QString dias = u"((d - 1) * %1 / %2)"_s.arg(kDias).arg(facturas);
  return sql ? u"(timestamp '2023-01-01 09:00:00' + %1 * interval '1 day')"_s.arg(dias)
             : u"datetime('2023-01-01 09:00:00', '+' || %1 || ' days')"_s.arg(dias);
}

// A product code spread over the catalogue by invoice and row, its words and its price.
constexpr auto kCodigo = u"(1 + (d * 31 + i * 577) % 2000)";
QString Descripcion() {
  return u"(case %1 % 8 when 0 then 'TORNILLO' when 1 then 'TUERCA' when 2 then 'ARANDELA' "
         u"when 3 then 'CLAVO' when 4 then 'BROCA' when 5 then 'PINZA' when 6 then 'MARTILLO' "
         u"else 'LIJA' end || ' NO. ' || (%1 % 50 + 1))"_s.arg(kCodigo);
}
QString Precio() { return u"(5 + (%1 * 37 % 1000) / 4.0)"_s.arg(kCodigo); }

bool LlenarDetalles(Connection& c, int filas, QString* error) {
  const QString cantidad = u"(1 + n % 5)"_s;
  const QString importe = cantidad + u" * "_s + Precio();
  const QString texto =
      Numeros(c.sql()) +
      u"insert into \"facturas detalles\" (factura, item, fecha, codigo, descripcion, unidad, "
      u"cantidad, precio, importe, dcto, descuento, subtotal, impuesto, iva, total, costo, "
      u"costototal, tienda, remision, facturar) select 'A-' || d, i, %1, 'P' || %2, %3, 'PZA', "
      u"%4, %5, %6, 0, 0, %6, 16, %6 * 0.16, %6 * 1.16, %5 * 0.7, %6 * 0.7, 1, '', 'LIBRE' "
      u"from r"_s.arg(Fecha(c.sql(), filas / kFilasPorFactura), QString::fromUtf16(kCodigo),
                      Descripcion(), cantidad, Precio(), importe);
  return c.Run(texto, {filas}, error);
}

bool LlenarFacturas(Connection& c, int facturas, QString* error) {
  const QString fecha = Fecha(c.sql(), facturas);
  const QString texto =
      (c.sql()
           ? u"with r as (select d from generate_series(1, cast(? as integer)) as s(d)) "_s
           : u"with recursive r(d) as (select 1 union all select d + 1 from r where d < ?) "_s) +
      u"insert into facturas (factura, serie, folio, fecha, hora, periodo, status, usuario, "
      u"equipo, esquema, metodo, ingreso, cliente, agente, depto, tipo, tienda, importe, subtotal, "
      u"iva, total, saldo) select "
      u"'A-' || d, 'A', d, %1, %1, %2, case when d % 97 = 0 then 'BAJA' else 'POR COBRAR' end, "
      u"'BENCH', 'BENCH', 'CFDI', 1, 1, 1 + d % 2000, 1, 'LIBRE', 'CREDITO', 1, 100 + d % 900, 100 "
      u"+ d % 900, "
      u"(100 + d % 900) * 0.16, (100 + d % 900) * 1.16, (100 + d % 900) * 1.16 from r"_s.arg(
          fecha, c.sql() ? u"cast(extract(year from %1) as integer)"_s.arg(fecha)
                         : u"cast(substr(%1, 1, 4) as integer)"_s.arg(fecha));
  return c.Run(texto, {facturas}, error);
}

// The rows in one transaction; on PostgreSQL the statistics the autovacuum daemon would
// gather after a load this size, so that the plans are the ones a running company gets.
bool Llenar(Banco& b, int filas) {
  QElapsedTimer reloj;
  reloj.start();
  Connection c(b.session.Cadena);
  QString error;
  {
    Transaction t(c);
    if (!c.ok() || !LlenarDetalles(c, filas, &error) ||
        !LlenarFacturas(c, filas / kFilasPorFactura, &error) || !t.Commit()) {
      std::fprintf(stderr, "fill: %s\n", qPrintable(c.ok() ? error : c.error()));
      return false;
    }
  }
  if (c.sql() && (!c.Run(u"set client_min_messages = error"_s, {}, &error) ||
                  !c.Run(u"vacuum analyze"_s, {}, &error))) {
    std::fprintf(stderr, "analyze: %s\n", qPrintable(error));
    return false;
  }
  b.Anotar(u"fill (rows and invoices, one transaction)"_s, Ms(reloj),
           u"%1 rows, %2 invoices"_s.arg(filas).arg(filas / kFilasPorFactura));
  return true;
}

// What the browser asks for a view: its statement, its columns as a new view lays them out,
// and the family's key.
struct Vista {
  mBrowse::Consulta consulta;
  std::vector<mBrowse::ColumnaVista> columnas;
};

std::optional<Vista> AbrirVista(const Banco& b, const QString& sentencia, const QStringList& llave,
                                bool unica) {
  Connection lectura(b.session.Cadena, Connection::Acceso::kVista);
  const mBrowse::Campos campos = mBrowse::CamposDeSentencia(lectura, sentencia);
  if (!campos.outcome) {
    std::fprintf(stderr, "%s: %s\n", qPrintable(sentencia), qPrintable(campos.outcome.message));
    return std::nullopt;
  }
  Vista v;
  v.consulta.sentencia = sentencia;
  v.consulta.llave = llave;
  v.consulta.llave_unica = unica;
  v.columnas = mBrowse::DefinicionInicial(campos.campos);
  return v;
}

// Opening the view as it stands: the median of a few loads, the count alone beside it.
bool Cargar(Banco& b, ModeloVista& modelo, const Vista& v, const QString& que) {
  std::vector<double> total;
  std::vector<double> cuenta;
  for (int r = 0; r < kRepeticiones; ++r) {
    QElapsedTimer reloj;
    reloj.start();
    const Outcome hecho = modelo.Cargar(v.consulta, v.columnas);
    total.push_back(Ms(reloj));
    if (!hecho || modelo.rowCount() == 0) {
      std::fprintf(stderr, "%s: %s\n", qPrintable(que), qPrintable(hecho.message));
      return false;
    }
    reloj.restart();
    Connection lectura(b.session.Cadena, Connection::Acceso::kVista);
    mBrowse::ContarFilas(lectura, v.consulta);
    cuenta.push_back(Ms(reloj));
  }
  b.Anotar(
      que, Mediana(total),
      u"%1 rows, count alone %2 ms"_s.arg(modelo.filas_totales()).arg(Mediana(cuenta), 0, 'f', 1));
  return true;
}

// Pages read one after the other from the first, as a person scrolling down.
bool Desplazar(Banco& b, ModeloVista& modelo, const Vista& v, const QString& que) {
  if (!modelo.Cargar(v.consulta, v.columnas)) return false;
  std::vector<double> paginas;
  QElapsedTimer total;
  total.start();
  for (int p = 0; p < kPaginasDeScroll && modelo.canFetchMore(); ++p) {
    QElapsedTimer reloj;
    reloj.start();
    modelo.fetchMore();
    paginas.push_back(Ms(reloj));
  }
  if (paginas.empty()) return false;
  b.Anotar(que, Ms(total),
           u"%1 pages to row %2: median %3 ms, worst %4 ms"_s.arg(paginas.size())
               .arg(modelo.rowCount())
               .arg(Mediana(paginas), 0, 'f', 1)
               .arg(*std::max_element(paginas.begin(), paginas.end()), 0, 'f', 1));
  return true;
}

// Straight to a row far down, as dragging the scroll bar does.
bool Saltar(Banco& b, ModeloVista& modelo, const Vista& v, const QString& que) {
  if (!modelo.Cargar(v.consulta, v.columnas)) return false;
  const int fila = static_cast<int>(std::min<qint64>(kFilaProfunda, modelo.limite() - 1));
  const qint64 leidas = modelo.leidas();
  QElapsedTimer reloj;
  reloj.start();
  modelo.AsegurarFila(fila);
  const double salto = Ms(reloj);
  b.Anotar(que, salto, u"to row %1 (%2 rows read)"_s.arg(fila).arg(modelo.leidas() - leidas));
  return true;
}

// Ctrl+End: the last row of the view, from a grid that has read its first page only.
bool AlFinal(Banco& b, ModeloVista& modelo, const Vista& v, const QString& que) {
  std::vector<double> ms;
  for (int r = 0; r < kRepeticiones; ++r) {
    if (!modelo.Cargar(v.consulta, v.columnas)) return false;
    const qint64 antes = modelo.leidas();
    QElapsedTimer reloj;
    reloj.start();
    modelo.IrAlFinal();
    ms.push_back(Ms(reloj));
    if (!modelo.Leida(modelo.rowCount() - 1)) return false;
    if (r == kRepeticiones - 1) {
      b.Anotar(que, Mediana(ms),
               u"row %1 of %2, %3 rows read"_s.arg(modelo.rowCount())
                   .arg(modelo.filas_totales())
                   .arg(modelo.leidas() - antes));
    }
  }
  return true;
}

// A browser's page opens and closes its own connection: what that costs alone.
void Conectar(Banco& b) {
  std::vector<double> ms;
  for (int i = 0; i < 20; ++i) {
    QElapsedTimer reloj;
    reloj.start();
    Connection lectura(b.session.Cadena, Connection::Acceso::kVista);
    ms.push_back(Ms(reloj));
  }
  b.Anotar(u"open a view connection"_s, Mediana(ms), u"median of 20"_s);
}

bool Medir(Banco& b) {
  const std::optional<Vista> detalles =
      AbrirVista(b, u"select * from \"facturas detalles\""_s, {u"factura"_s, u"item"_s}, false);
  const std::optional<Vista> facturas =
      AbrirVista(b, u"select * from facturas"_s, {u"factura"_s}, true);
  if (!detalles || !facturas) return false;
  ModeloVista modelo(b.session);
  Conectar(b);

  Vista por_codigo = *detalles;
  por_codigo.consulta.busqueda = {mBrowse::ColumnaDeVista(u"codigo"_s) + u" = ?"_s, {u"P1234"_s}};
  Vista por_texto = *detalles;
  por_texto.consulta.busqueda =
      mBrowse::CondicionDeFiltro(b.session.Sql ? Engine::kPostgres : Engine::kSqlite,
                                 mBrowse::TipoColumna::kTexto, u"descripcion"_s, u"martillo"_s)
          .condicion;
  Vista por_precio = *detalles;
  por_precio.consulta.orden = {{u"precio"_s, true}};
  Vista facturas_por_total = *facturas;
  facturas_por_total.consulta.orden = {{u"total"_s, true}};

  return Cargar(b, modelo, *detalles, u"rows: first rows (count + 256)"_s) &&
         Cargar(b, modelo, por_codigo, u"rows: codigo = P1234"_s) &&
         Cargar(b, modelo, por_texto, u"rows: descripcion contains \"martillo\""_s) &&
         Cargar(b, modelo, por_precio, u"rows: sorted by precio desc"_s) &&
         Desplazar(b, modelo, *detalles, u"rows: scroll 40 pages"_s) &&
         Desplazar(b, modelo, por_precio, u"rows by precio desc: scroll 40 pages"_s) &&
         Saltar(b, modelo, *detalles, u"rows: jump to row 100,000"_s) &&
         AlFinal(b, modelo, *detalles, u"rows: Ctrl+End"_s) &&
         AlFinal(b, modelo, por_precio, u"rows by precio desc: Ctrl+End"_s) &&
         Cargar(b, modelo, *facturas, u"invoices (unique key): first rows"_s) &&
         Desplazar(b, modelo, *facturas, u"invoices: scroll 40 pages (by key)"_s) &&
         Desplazar(b, modelo, facturas_por_total,
                   u"invoices by total desc: scroll 40 pages (by key)"_s) &&
         Saltar(b, modelo, *facturas, u"invoices: jump to the last row"_s) &&
         AlFinal(b, modelo, *facturas, u"invoices: Ctrl+End"_s) &&
         AlFinal(b, modelo, facturas_por_total, u"invoices by total desc: Ctrl+End"_s);
}

Session Sesion(const QString& path, bool sql) {
  Session s = bench::SesionDeBanco(path, sql);
  return s;
}

bool Correr(Banco& b, const QString& path, int filas) {
  std::printf("%s:\n", b.motor == 0 ? "sqlite" : "postgres");
  const Outcome creada = CrearEmpresa(path);
  if (!creada) {
    std::fprintf(stderr, "company: %s\n", qPrintable(creada.message));
    return false;
  }
  return Llenar(b, filas) && Medir(b);
}

bool Postgres(const QString& admin, const QTemporaryDir& dir, std::vector<Medida>& medidas,
              int filas) {
  const QString catalog = u"vtx_bench_browse_%1"_s.arg(QCoreApplication::applicationPid());
  // The server's own statements, outside any transaction: the connection writes only inside
  // one unless told otherwise.
  const auto servidor = [&](const QString& sentencia) {
    Connection server(admin);
    QString error;
    const bool ok = server.Run(u"set default_transaction_read_only = off"_s) &&
                    server.Run(sentencia, {}, &error);
    if (!ok) std::fprintf(stderr, "%s: %s\n", qPrintable(sentencia), qPrintable(error));
    return ok;
  };
  if (!servidor(u"create database "_s + catalog)) return false;
  std::optional<ConnectionTarget> target = ParseCadena(admin);
  target->catalog = catalog;
  const QString path = dir.filePath(u"browse.txt"_s);
  QFile txt(path);
  if (!txt.open(QIODevice::WriteOnly | QIODevice::Text)) return false;
  QTextStream(&txt) << PostgresCadena(*target) << '\n' << PostgresCadena(*target) << '\n';
  txt.close();
  Banco b{1, Sesion(path, true), &medidas};
  const bool ok = Correr(b, path, filas);
  if (qEnvironmentVariableIsSet("VENTARIX_BENCH_KEEP")) {
    std::printf("catalog kept: %s\n", qPrintable(catalog));
  } else {
    servidor(u"drop database if exists "_s + catalog + u" with (force)"_s);
    servidor(u"drop role if exists "_s + catalog + u"_consulta"_s);
  }
  return ok;
}

QString Cifra(double ms) {
  if (ms < 0) return u"not run"_s;
  return ms >= 10000 ? u"%1 s"_s.arg(ms / 1000, 0, 'f', 1) : u"%1"_s.arg(ms, 0, 'f', 1);
}

void Tabla(const std::vector<Medida>& medidas) {
  std::printf("\n| step | sqlite ms | postgres ms |\n|---|---:|---:|\n");
  for (const Medida& m : medidas) {
    std::printf("| %s | %s | %s |\n", qPrintable(m.que), qPrintable(Cifra(m.ms[0])),
                qPrintable(Cifra(m.ms[1])));
  }
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const QStringList args = app.arguments();
  const int filas = args.size() > 1 ? args[1].toInt() : 1000000;
  const QString solo = args.size() > 2 ? args[2] : QString();
  if (filas < 1000 || filas > 20000000) {
    std::fprintf(stderr, "usage: bench_browse [rows 1000..20000000] [sqlite|postgres]\n");
    return 2;
  }
  QTemporaryDir dir;
  if (qEnvironmentVariableIsSet("VENTARIX_BENCH_KEEP")) {
    dir.setAutoRemove(false);
    std::printf("company folder: %s\n", qPrintable(dir.path()));
  }
  std::vector<Medida> medidas;
  if (solo.isEmpty() || solo == u"sqlite") {
    const QString file = dir.filePath(u"browse.mdb"_s);
    Banco b{0, Sesion(file, false), &medidas};
    if (!Correr(b, file, filas)) return 1;
  }
  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  if ((solo.isEmpty() || solo == u"postgres") && !admin.isEmpty() &&
      !Postgres(admin, dir, medidas, filas)) {
    return 1;
  }
  Tabla(medidas);
  return 0;
}
