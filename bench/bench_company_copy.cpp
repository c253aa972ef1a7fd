// Times the structure upkeep and the copy of a company of a busy shop's size: 20,000 invoices
// with 100,000 rows, 5,000 products, 2,000 clients. SQLite always; PostgreSQL too when
// VENTARIX_TEST_PG names a server where catalogs may be created.
#include <cstdio>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTextStream>

#include "core/company_database.h"
#include "core/database.h"
#include "core/dialect.h"

using namespace ventarix;

namespace {

// Inserts COUNT rows made by ROW into TABLE with one prepared statement.
void Fill(Connection& c, const char* table, const QStringList& columns, int count,
          const std::function<QVariantList(int)>& row) {
  QStringList marks(columns.size(), QStringLiteral("?"));
  QSqlQuery q(c.db());
  q.prepare(QStringLiteral("insert into \"%1\" (%2) values (%3)")
                .arg(QString::fromUtf8(table), columns.join(QLatin1Char(',')),
                     marks.join(QLatin1Char(','))));
  for (int i = 1; i <= count; ++i) {
    const QVariantList values = row(i);
    for (int v = 0; v < values.size(); ++v) q.bindValue(v, values[v]);
    if (!q.exec()) {
      std::fprintf(stderr, "%s: %s\n", table, qPrintable(QueryError(q)));
      return;
    }
  }
}

bool MakeShop(const QString& path) {
  if (!CrearEmpresa(path)) return false;
  Connection c(CadenaDeRuta(path));
  Transaction t(c);
  const QDateTime day(QDate(2014, 1, 1), QTime(9, 30));
  Fill(c, "clientes",
       {QStringLiteral("numero"), QStringLiteral("nombre"), QStringLiteral("metodo")}, 2000,
       [](int i) {
         return QVariantList{i, QStringLiteral("CLIENTE Ñ %1").arg(i), 1};
       });
  Fill(c, "productos",
       {QStringLiteral("codigo"), QStringLiteral("producto"), QStringLiteral("precio"),
        QStringLiteral("marca"), QStringLiteral("linea")},
       5000, [](int i) {
         return QVariantList{QStringLiteral("P%1").arg(i), QStringLiteral("ARTÍCULO"), i / 3.0, 1,
                             1};
       });
  Fill(c, "facturas",
       {QStringLiteral("factura"), QStringLiteral("serie"), QStringLiteral("folio"),
        QStringLiteral("fecha"), QStringLiteral("periodo"), QStringLiteral("usuario"),
        QStringLiteral("equipo"), QStringLiteral("cliente"), QStringLiteral("tienda"),
        QStringLiteral("metodo"), QStringLiteral("esquema"), QStringLiteral("ingreso"),
        QStringLiteral("total")},
       20000, [&](int i) {
         return QVariantList{QStringLiteral("A-%1").arg(i),
                             QStringLiteral("A"),
                             i,
                             dialect::DateValue(day.addSecs(i * 600), false),
                             2014,
                             QStringLiteral("ANA"),
                             QStringLiteral("CAJA1"),
                             1 + i % 2000,
                             1,
                             1,
                             QStringLiteral("CFDI"),
                             1,
                             i * 1.16};
       });
  Fill(c, "facturas detalles",
       {QStringLiteral("factura"), QStringLiteral("item"), QStringLiteral("fecha"),
        QStringLiteral("codigo"), QStringLiteral("descripcion"), QStringLiteral("unidad"),
        QStringLiteral("tienda"), QStringLiteral("cantidad")},
       100000, [&](int i) {
         return QVariantList{QStringLiteral("A-%1").arg(1 + (i - 1) / 5),
                             1 + (i - 1) % 5,
                             dialect::DateValue(day.addSecs(i * 120), false),
                             QStringLiteral("P%1").arg(1 + i % 5000),
                             QStringLiteral("ARTÍCULO"),
                             QStringLiteral("PZA"),
                             1,
                             i / 7.0};
       });
  return t.Commit();
}

// A fresh PostgreSQL catalog behind a connection file in FOLDER; empty without a server.
QString NewCatalog(const QString& admin, const QString& folder, QString* catalog) {
  std::optional<ConnectionTarget> target = ParseCadena(admin);
  if (!target) return {};
  *catalog = QStringLiteral("vtx_bench_copy_%1").arg(QCoreApplication::applicationPid());
  Connection c(admin);
  if (!c.Run(QStringLiteral("create database ") + *catalog)) return {};
  target->catalog = *catalog;
  const QString path = QDir(folder).filePath(QStringLiteral("copia.txt"));
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) return {};
  QTextStream(&file) << PostgresCadena(*target) << '\n';
  return path;
}

void Time(const char* what, const std::function<Outcome()>& step) {
  QElapsedTimer timer;
  timer.start();
  const Outcome o = step();
  std::printf("%-42s %8.2f s %s\n", what, timer.elapsed() / 1000.0,
              o.ok ? "" : qPrintable(o.message));
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  QTemporaryDir dir;
  const QString shop = dir.filePath(QStringLiteral("tienda.mdb"));
  Time("fill SQLite (127,000 rows)",
       [&] { return MakeShop(shop) ? Outcome::Ok() : Outcome::Stop(QStringLiteral("fill")); });
  Time("repair, nothing to change (SQLite)", [&] {
    Connection c(CadenaDeRuta(shop));
    return RepararEstructura(c, {});
  });
  Time("copy SQLite -> SQLite",
       [&] { return CopiarEmpresa(shop, dir.filePath(QStringLiteral("copia.mdb")), {}); });
  const QString admin = qEnvironmentVariable("VENTARIX_TEST_PG");
  QString catalog;
  const QString target = admin.isEmpty() ? QString() : NewCatalog(admin, dir.path(), &catalog);
  if (target.isEmpty()) {
    std::printf("PostgreSQL: VENTARIX_TEST_PG not set or unusable, skipped\n");
    return 0;
  }
  Time("copy SQLite -> PostgreSQL", [&] { return CopiarEmpresa(shop, target, {}); });
  Time("repair, nothing to change (PostgreSQL)", [&] {
    Connection c(CadenaDeRuta(target));
    return RepararEstructura(c, {});
  });
  Time("copy PostgreSQL -> SQLite",
       [&] { return CopiarEmpresa(target, dir.filePath(QStringLiteral("vuelta.mdb")), {}); });
  Connection(admin).Run(QStringLiteral("drop database if exists ") + catalog +
                        QStringLiteral(" with (force)"));
  return 0;
}
