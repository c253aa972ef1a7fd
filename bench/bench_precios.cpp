// Times the price routines on a SQLite company of 20,000 products in 10 brands with 200
// clients and 5,000 fixed client prices: a brand's margins pushed into its 2,000 products (what the
// person waits after Guardar on the brand), the price look-up of 5,000 document rows (half of them
// with a fixed client price, the rest by brand level) and 5,000 purchase rows carried into costs on
// one connection inside one save. "bench_precios [productos]".
#include <cstdio>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include "catalogs/mFunciones_precios.h"
#include "catalogs/marcas.h"
#include "core/company_database.h"
#include "core/database.h"
#include "core/session.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kMarcas = 10;
constexpr int kClientes = 200;
constexpr int kRenglones = 5000;
// Every 800th product has a fixed price for each client: 5,000 rows in [productos precios],
// a table without index, which each look-up reads whole.
constexpr int kPasoEspecial = 800;

QString Codigo(int i) { return u"%1-%2"_s.arg(i % kMarcas + 1).arg(i, 5, 10, QLatin1Char('0')); }

bool Correr(Connection& c, const QString& texto, const QVariantList& valores) {
  QString error;
  if (c.Run(texto, valores, &error)) return true;
  std::fprintf(stderr, "%s\n", qPrintable(error));
  return false;
}

bool Llenar(Connection& c, int productos) {
  Transaction t(c);
  for (int m = 1; m <= kMarcas; ++m) {
    if (!Correr(c, u"insert into marcas (numero, nombre, utilidad1) values (?, ?, 30)"_s,
                {m, u"MARCA %1"_s.arg(m)})) {
      return false;
    }
  }
  for (int i = 0; i < productos; ++i) {
    if (!Correr(c,
                u"insert into productos (codigo, producto, marca, linea, costo, impuesto, "
                "utilidad1, utilidad2, utilidad3, utilidad4, utilidad5, venta, precio) "
                "values (?, ?, ?, 1, ?, 16, 30, 25, 20, 15, 10, 0, 0)"_s,
                {Codigo(i), u"PRODUCTO %1"_s.arg(i), i % kMarcas + 1, 10.0 + i % 97})) {
      return false;
    }
  }
  for (int cliente = 1; cliente <= kClientes; ++cliente) {
    for (int m = 1; m <= kMarcas; ++m) {
      if (!Correr(c,
                  u"insert into \"clientes utilidades\" (cliente, marca, utilidad, dcto) "
                  "values (?, ?, ?, 5)"_s,
                  {cliente, m, cliente % 5 + 1})) {
        return false;
      }
    }
    for (int i = cliente; i < productos; i += kPasoEspecial) {
      if (!Correr(c,
                  u"insert into \"productos precios\" (codigo, cliente, precio, item) "
                  "values (?, ?, 99.5, 1)"_s,
                  {Codigo(i), cliente})) {
        return false;
      }
    }
  }
  return t.Commit();
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
  session.usuario.Set(u"marcas"_s, u"SSS"_s);
  for (const QString& bandera :
       {u"aplicar_utilidad_aritmetica"_s, u"aplicar_utilidades_de_marcas_en_productos"_s,
        u"encompras_modificar_costos_y_precios"_s, u"encompras_modificar_al_ultimo_costo"_s}) {
    session.empresa.Set(bandera, u"S"_s);
  }
  {
    Connection c(session.Cadena);
    if (!Llenar(c, productos)) return 1;
  }
  QElapsedTimer reloj;

  reloj.start();
  const Outcome empujada =
      marcas::CambioMarca(session, {3, u"MARCA 3"_s, {35, 30, 25, 20, 15}, u"ALTA"_s});
  Imprimir("margins of one brand pushed into its products", reloj.elapsed(),
           empujada ? u"%1 products"_s.arg(productos / kMarcas) : empujada.message);

  Connection c(session.Cadena);
  reloj.restart();
  int especiales = 0;
  for (int i = 0; i < kRenglones; ++i) {
    const qint32 cliente = i % kClientes + 1;
    const int producto =
        i % 2 == 0 ? (cliente + kPasoEspecial * (i % 25)) % productos : i * 7 % productos;
    const auto hallado = mFunciones::BuscarPrecio(c, cliente, Codigo(producto));
    if (hallado && hallado->PrecioEncontrado == 99.5) ++especiales;
  }
  Imprimir("price look-ups of document rows", reloj.elapsed(),
           u"%1 rows, %2 with a client's price"_s.arg(kRenglones).arg(especiales));

  reloj.restart();
  {
    Transaction t(c);
    for (int i = 0; i < kRenglones; ++i) {
      mFunciones::ActualizarCostoDesdeCompra(c, session.empresa, Codigo(i * 3 % productos),
                                             12.5 + i % 13);
    }
    t.Commit();
  }
  Imprimir("purchase rows carried into costs", reloj.elapsed(), u"%1 rows"_s.arg(kRenglones));
  return 0;
}
