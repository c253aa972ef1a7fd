// Times stock work on a shop of realistic size: the full rebuild of the five warehouses, the
// rebuild of one cancelled document's products, the move of a saved delivery note, and the
// availability check of a changed one. SQLite always; PostgreSQL too when VENTARIX_TEST_PG
// names a server where catalogs may be created.
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextStream>

#include "core/company_database.h"
#include "core/database.h"
#include "core/dialect.h"
#include "core/session.h"
#include "documents/mChecarExistencias.h"
#include "documents/mInventario.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kProductos = 5000;
constexpr int kNotas = 4000;  // delivery notes of 5 rows
constexpr int kCompras = 1000;
constexpr int kTraspasos = 500;
constexpr int kAjustes = 500;
constexpr int kRepeats = 5;

QString Codigo(int n) { return u"C%1"_s.arg(n, 5, 10, QLatin1Char('0')); }

bool Insert(Connection& c, const QString& table, const QStringList& columns,
            const QVariantList& values) {
  QString error;
  const QString text = u"insert into "_s + dialect::Name(table) + u" ("_s + columns.join(u',') +
                       u") values ("_s + QStringList(columns.size(), u"?"_s).join(u',') + u')';
  if (c.Run(text, values, &error)) return true;
  std::fprintf(stderr, "%s: %s\n", qPrintable(table), qPrintable(error));
  return false;
}

// Detail rows of one document, `per_doc` random products each.
bool Rows(Connection& c, const QString& table, const QString& key, const QString& doc, int per_doc,
          const QStringList& extra_columns, const QVariantList& extra_values,
          QRandomGenerator& gen) {
  const QVariant fecha = dialect::DateValue(QDate(2024, 3, 15), c.sql());
  QStringList columns{key,         u"item"_s,    u"fecha"_s, u"codigo"_s, u"descripcion"_s,
                      u"unidad"_s, u"cantidad"_s};
  columns += extra_columns;
  for (int item = 1; item <= per_doc; ++item) {
    QVariantList values{doc,
                        item,
                        fecha,
                        Codigo(gen.bounded(kProductos)),
                        u"ARTICULO"_s,
                        u"PZA"_s,
                        double(1 + gen.bounded(10))};
    values += extra_values;
    if (!Insert(c, table, columns, values)) return false;
  }
  return true;
}

bool Fill(Connection& c) {
  QRandomGenerator gen(7);
  Transaction t(c);
  for (int n = 0; n < kProductos; ++n) {
    if (!Insert(c, u"productos"_s,
                {u"codigo"_s, u"producto"_s, u"unidad"_s, u"marca"_s, u"linea"_s, u"status"_s},
                {Codigo(n), u"ARTICULO"_s, u"PZA"_s, 1, 1, u"ALTA"_s})) {
      return false;
    }
  }
  for (int n = 1; n <= kNotas; ++n) {
    const int store = 1 + n % 5;
    if (!Rows(c, u"remisiones detalles"_s, u"remision"_s, u"R-%1"_s.arg(n), 5,
              {u"almacen"_s, u"cliente"_s}, {store, 1}, gen)) {
      return false;
    }
  }
  for (int n = 1; n <= kCompras; ++n) {
    const int store = 1 + n % 5;
    if (!Rows(c, u"compras detalles"_s, u"compra"_s, u"C-%1"_s.arg(n), 10,
              {u"almacen"_s, u"tienda"_s, u"proveedor"_s}, {store, store, 1}, gen)) {
      return false;
    }
  }
  for (int n = 1; n <= kTraspasos; ++n) {
    if (!Rows(c, u"traspasos detalles"_s, u"traspaso"_s, u"T-%1"_s.arg(n), 4,
              {u"de"_s, u"a"_s, u"tienda"_s}, {u"1"_s, QString::number(2 + n % 4), 1}, gen)) {
      return false;
    }
  }
  for (int n = 1; n <= kAjustes; ++n) {
    if (!Rows(c, u"ajustes de inventario detalles"_s, u"ajuste"_s, u"J-%1"_s.arg(n), 4,
              {u"almacen"_s, u"tienda"_s, u"entradas"_s}, {1 + n % 5, 1, 3.0}, gen)) {
      return false;
    }
  }
  return t.Commit();
}

bool Time(const char* what, const char* engine, const std::function<bool()>& step) {
  std::vector<double> ms;
  for (int i = 0; i < kRepeats; ++i) {
    QElapsedTimer timer;
    timer.start();
    if (!step()) {
      std::fprintf(stderr, "%s failed on %s\n", what, engine);
      return false;
    }
    ms.push_back(timer.nsecsElapsed() / 1e6);
  }
  std::sort(ms.begin(), ms.end());
  std::printf("%-48s %-9s median %9.2f ms  best %9.2f ms\n", what, engine, ms[ms.size() / 2],
              ms.front());
  return true;
}

bool Run(const QString& cadena, const char* engine) {
  Connection c(cadena);
  if (!c.ok() || !Fill(c)) return false;
  std::printf("%d products, %d rows\n", kProductos,
              kNotas * 5 + kCompras * 10 + kTraspasos * 4 + kAjustes * 4);
  const QStringList codigos =
      mInventario::ListaCodigosDocumento(c, u"compras"_s, u"compra"_s, u"C-7"_s);
  Session session;
  const QList<mChecarExistencias::Partida> grid{{Codigo(1), 2}, {Codigo(2), 3}, {Codigo(3), 1}};
  return Time("rebuild all warehouses, all products", engine,
              [&] { return mInventario::RecalcularExistencias(c, 0, std::nullopt); }) &&
         Time("rebuild all warehouses, one purchase's codes", engine,
              [&] { return mInventario::RecalcularExistencias(c, 0, codigos); }) &&
         Time("move a delivery note of 5 rows", engine,
              [&] {
                return mInventario::ActualizarExistencias(c, u"remisiones"_s, u"remision"_s,
                                                          u"R-11"_s, 2, -1);
              }) &&
         Time("check a changed delivery note", engine, [&] {
           mChecarExistencias::ChecarExistenciasSalida(session, c, u"remisiones"_s, u"remision"_s,
                                                       u"R-11"_s, u"ALMACEN2"_s, true, &grid);
           return true;
         });
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  QTemporaryDir dir;
  const QString file = dir.filePath(u"stock.mdb"_s);
  if (!CrearEmpresa(file).ok || !Run(CadenaDeRuta(file), "sqlite")) return 1;

  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  if (admin.isEmpty()) return 0;
  const QString catalog = u"vtx_bench_stock_%1"_s.arg(QCoreApplication::applicationPid());
  {
    Connection server(admin);
    if (!server.Run(u"create database "_s + catalog)) return 1;
  }
  std::optional<ConnectionTarget> target = ParseCadena(admin);
  target->catalog = catalog;
  const QString path = dir.filePath(u"stock.txt"_s);
  QFile txt(path);
  if (!txt.open(QIODevice::WriteOnly | QIODevice::Text)) return 1;
  QTextStream(&txt) << PostgresCadena(*target) << '\n' << PostgresCadena(*target) << '\n';
  txt.close();
  const bool ok = CrearEmpresa(path).ok && Run(CadenaDeRuta(path), "postgres");
  Connection server(admin);
  server.Run(u"drop database if exists "_s + catalog + u" with (force)"_s);
  return ok ? 0 : 1;
}
