// Times the monthly SAT report on a company that issued CFD documents for a year: 2,000
// invoices and 200 credit notes a month by default ("bench_informe_sat [invoices a month]").
// The figures are what the accountant waits for: the month listed, and the file written.
// PostgreSQL runs too when VENTARIX_TEST_PG names a server where catalogs may be created.
#include <cstdio>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include "core/company_database.h"
#include "core/database.h"
#include "core/dialect.h"
#include "core/session.h"
#include "edocs/informe_sat.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kClientes = 300;
constexpr int kMeses = 12;

bool Correr(Connection& c, const QString& texto, const QVariantList& valores) {
  QString error;
  if (c.Run(texto, valores, &error)) return true;
  std::fprintf(stderr, "%s\n", qPrintable(error));
  return false;
}

// A year of documents, each month's spread over its days and hours.
bool Llenar(Connection& c, int por_mes) {
  Transaction t(c);
  for (int n = 1; n <= kClientes; ++n) {
    if (!Correr(
            c,
            u"insert into clientes (numero, nombre, rfc, metodo, status) values (?, ?, ?, 1, 'ALTA')"_s,
            {n, u"CLIENTE %1"_s.arg(n), u"XAXX%1000"_s.arg(n, 5, 10, QLatin1Char('0'))})) {
      return false;
    }
  }
  const QString factura =
      u"insert into facturas (factura, serie, folio, fecha, hora, periodo, status, cliente, "
      "esquema, noaprobacion, total, iva, moneda, tipocambio, metodo, tienda, ingreso, equipo, "
      "usuario) "
      "values (?, 'A', ?, ?, ?, 2024, ?, ?, 'CFD', '12345', ?, ?, 'MXN', 1, 1, 1, 1, 'BENCH', "
      "'ADMINISTRADOR')"_s;
  const QString nota =
      u"insert into \"notas cliente\" (nota, serie, folio, fecha, hora, periodo, status, "
      "cliente, esquema, noaprobacion, total, iva, metodo, tienda, egreso, equipo, usuario) "
      "values (?, 'B', ?, ?, ?, 2024, 'ALTA', ?, 'CFD', '54321', ?, ?, 1, 1, 1, 'BENCH', "
      "'ADMINISTRADOR')"_s;
  int folio = 0;
  for (int mes = 1; mes <= kMeses; ++mes) {
    for (int i = 0; i < por_mes; ++i) {
      ++folio;
      const QDateTime hora(QDate(2024, mes, 1 + i % 28), QTime(8 + i % 12, i % 60, i % 59));
      const QVariant cuando = dialect::DateValue(hora, c.sql());
      const double total = 100.0 + folio % 977;
      if (!Correr(c, factura,
                  {u"A-%1"_s.arg(folio), folio, cuando, cuando,
                   folio % 50 == 0 ? u"BAJA"_s : u"POR COBRAR"_s, 1 + folio % kClientes, total,
                   total * 0.16}) ||
          (i % 10 == 0 && !Correr(c, nota,
                                  {u"B-%1"_s.arg(folio), folio, cuando, cuando,
                                   1 + folio % kClientes, total / 10, total * 0.016}))) {
        return false;
      }
    }
  }
  return t.Commit();
}

void Medir(const char* motor, const QString& cadena, const QString& carpeta) {
  Session session;
  session.Cadena = cadena;
  session.CarpetaBak = carpeta;
  session.empresa.Set(u"rfc"_s, u"EKU9003173C9"_s);
  QElapsedTimer reloj;
  reloj.start();
  Connection c(cadena);
  const edocs::ListadoInforme listado = edocs::ListarInforme(c, u"CFD"_s, QDate(2024, 6, 1));
  const qint64 listar = reloj.elapsed();
  reloj.restart();
  const QString path = edocs::ArchivoInforme(session, QDate(2024, 6, 1));
  const Outcome escrito = edocs::EscribirInforme(path, listado.renglones);
  const qint64 escribir = reloj.elapsed();
  std::printf("%-10s month listed %6lld ms, file written %6lld ms   %lld rows %s\n", motor,
              static_cast<long long>(listar), static_cast<long long>(escribir),
              static_cast<long long>(listado.renglones.size()),
              qPrintable(listado.ok && escrito.ok ? QString() : listado.error + escrito.message));
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const int por_mes = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 2000;
  QTemporaryDir dir;
  std::printf("%d invoices and %d credit notes a month, %d months\n", por_mes, por_mes / 10,
              kMeses);
  const QString ruta = dir.filePath(u"empresa.mdb"_s);
  if (const Outcome creada = CrearEmpresa(ruta); !creada) {
    std::fprintf(stderr, "%s\n", qPrintable(creada.message));
    return 1;
  }
  {
    Connection c(CadenaDeRuta(ruta));
    if (!Llenar(c, por_mes)) return 1;
  }
  Medir("SQLite", CadenaDeRuta(ruta), dir.path());

  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  std::optional<ConnectionTarget> target = ParseCadena(admin);
  if (admin.isEmpty() || !target) return 0;
  target->catalog = u"vtx_bench_informe_%1"_s.arg(QCoreApplication::applicationPid());
  {
    Connection server(admin);
    if (!server.Run(u"create database "_s + target->catalog)) return 1;
  }
  const QString archivo = dir.filePath(u"empresa.txt"_s);
  QFile txt(archivo);
  if (!txt.open(QIODevice::WriteOnly | QIODevice::Text)) return 1;
  txt.write(PostgresCadena(*target).toUtf8() + '\n' + PostgresCadena(*target).toUtf8() + '\n');
  txt.close();
  bool ok = CrearEmpresa(archivo).ok;
  if (ok) {
    Connection c(PostgresCadena(*target));
    ok = Llenar(c, por_mes) && c.Run(u"analyze facturas"_s) && c.Run(u"analyze clientes"_s) &&
         c.Run(u"analyze \"notas cliente\""_s);
  }
  if (ok) Medir("PostgreSQL", PostgresCadena(*target), dir.path());
  Connection server(admin);
  server.Run(u"drop database if exists "_s + target->catalog + u" with (force)"_s);
  return ok ? 0 : 1;
}
