// Times the mass maintenance of prices on a SQLite company of 20,000 products: a sheet of
// 5,000 new costs (financial formula, with Venta and Precio), the same sheet as final prices,
// 5,000 new products added from a sheet, and one code change carried through 200,000
// delivery-note rows. Each figure is what the person at the screen waits after Guardar.
// "bench_costos_masivos [productos]".
#include <cstdio>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include "catalogs/cambio_codigo.h"
#include "catalogs/costos_masivos.h"
#include "core/company_database.h"
#include "core/database.h"
#include "core/session.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kFilasDeHoja = 5000;
constexpr int kRenglonesDeRemision = 200000;

QString Codigo(int i) { return u"P%1"_s.arg(i, 6, 10, QLatin1Char('0')); }

bool Llenar(Connection& c, int productos) {
  Transaction t(c);
  QString error;
  for (int i = 0; i < productos; ++i) {
    if (!c.Run(u"insert into productos (codigo, producto, marca, linea, costo, impuesto, "
               "utilidad1, utilidad2, utilidad3, utilidad4, utilidad5) "
               "values (?, ?, 1, 1, 10, 16, 30, 25, 20, 15, 10)"_s,
               {Codigo(i), u"PRODUCTO "_s + Codigo(i)}, &error)) {
      std::fprintf(stderr, "%s\n", qPrintable(error));
      return false;
    }
  }
  for (int i = 0; i < kRenglonesDeRemision; ++i) {
    if (!c.Run(u"insert into \"remisiones detalles\" (remision, item, fecha, codigo, "
               "descripcion, unidad, cantidad, cliente, almacen) values (?, ?, "
               "'2024-03-15 00:00:00', ?, 'ARTICULO', 'PZA', 1, 1, 1)"_s,
               {u"A-%1"_s.arg(i / 10 + 1), i % 10 + 1, Codigo(i % productos)}, &error)) {
      std::fprintf(stderr, "%s\n", qPrintable(error));
      return false;
    }
  }
  return t.Commit();
}

QList<costos_masivos::Fila> Hoja(int desde, bool precios) {
  QList<costos_masivos::Fila> filas = {{u"CÓDIGO"_s, u"COSTO"_s}};
  for (int i = desde; i < desde + kFilasDeHoja; ++i) {
    filas.append({Codigo(i), u"12.5"_s, u"NUEVO "_s + Codigo(i), u"PZA"_s, u"1"_s, u"1"_s, u"16"_s,
                  precios ? u"20.30"_s : QString(), QString()});
  }
  return filas;
}

void Imprimir(const char* que, qint64 ms, const QString& nota) {
  std::printf("%-52s %8lld ms   %s\n", que, static_cast<long long>(ms), qPrintable(nota));
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);
  const int productos = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 20000;
  QTemporaryDir dir;
  const QString ruta = dir.filePath(u"empresa.mdb"_s);
  if (const Outcome creada = CrearEmpresa(ruta); !creada) {
    std::fprintf(stderr, "%s\n", qPrintable(creada.message));
    return 1;
  }
  Session session;
  session.Access = true;
  session.Cadena = CadenaDeRuta(ruta);
  session.empresa.Set(u"aplicar_utilidad_financiera"_s, u"S"_s);
  {
    Connection c(session.Cadena);
    if (!Llenar(c, productos)) return 1;
    c.Run(
        u"insert into empresa (numero, \"codigo actual\", \"codigo nuevo\") "
        "values (1, ?, 'CAMBIADO')"_s,
        {Codigo(7)});
  }
  std::printf("SQLite company: %d products, %d delivery-note rows\n", productos,
              kRenglonesDeRemision);

  QElapsedTimer reloj;
  reloj.start();
  auto r = costos_masivos::GuardarCostos(session, Hoja(0, false), costos_masivos::Modo::kActualizar,
                                         true);
  Imprimir("costs sheet, 5,000 rows, levels + venta + precio", reloj.restart(), r.outcome.message);
  r = costos_masivos::GuardarNetos(session, Hoja(0, true), costos_masivos::Modo::kActualizar);
  Imprimir("final prices sheet, 5,000 rows", reloj.restart(), r.outcome.message);
  r = costos_masivos::GuardarCostos(session, Hoja(productos, false), costos_masivos::Modo::kAgregar,
                                    false);
  Imprimir("5,000 new products from a sheet", reloj.restart(), r.outcome.message);
  int filas = 0;
  cambio_codigo::Avance avance;
  avance.hecho = [&filas](const QString&, int n) { filas += n; };
  const Outcome cambio = cambio_codigo::Cambiar(session, avance);
  Imprimir("code change through 13 tables", reloj.restart(),
           cambio.ok ? u"%1 rows changed"_s.arg(filas) : cambio.message);
  return 0;
}
