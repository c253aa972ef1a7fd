// Stock by warehouse: the rebuild from documents and the moves of the capture screens.
#include <QRandomGenerator>
#include <QSqlError>
#include <QTest>

#include "core/database.h"
#include "documents/mInventario.h"
#include "stock_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::Doc;
using testing::Escribir;
using testing::Existencia;
using testing::Existencias;
using testing::Fila;
using testing::InsertarFila;
using testing::NuevoDoc;

Q_DECLARE_METATYPE(QList<testing::Doc>)

namespace {

bool Productos(Connection& c, const QStringList& codigos, double existencia = 0) {
  for (const QString& codigo : codigos) {
    QVariantMap v{{u"codigo"_s, codigo}};
    for (int n = 1; n <= 5; ++n) v.insert(u"almacen%1"_s.arg(n), existencia);
    if (!InsertarFila(c, u"productos"_s, v)) return false;
  }
  return true;
}

Doc Factura(const QString& depto, const QList<Fila>& filas = {}) {
  Doc d = NuevoDoc(u"facturas"_s, u"F-1"_s, 1, filas);
  d.cabecera = {{u"depto"_s, depto}};
  return d;
}

Doc Compra(const QString& movimiento, const QList<Fila>& filas) {
  Doc d = NuevoDoc(u"compras"_s, u"C-1"_s, 2, filas);
  d.cabecera = {{u"movimiento"_s, movimiento}};
  return d;
}

Doc Produccion(const QString& clave, const QString& producto, double cantidad, bool cerrada,
               const QList<Fila>& consumos) {
  Doc d = NuevoDoc(u"produccion"_s, clave, 1, consumos);
  d.producto = producto;
  d.cantidad = cantidad;
  d.cerrada = cerrada;
  return d;
}

Doc Traspaso(const QString& clave, int de, int a, const QList<Fila>& filas) {
  Doc d = NuevoDoc(u"traspasos"_s, clave, de, filas);
  d.destino = a;
  return d;
}

Doc Nota(const QString& tabla, const QString& origen, const QList<Fila>& filas, int almacen = 1) {
  Doc d = NuevoDoc(tabla, u"N-1"_s, almacen, filas);
  d.origen = origen;
  return d;
}

QList<double> Stock(Connection& c, const QString& codigo) {
  const std::array<double, 5> stock = Existencias(c, codigo);
  return {stock.begin(), stock.end()};
}

// What the family's screen does with its rows when it saves (factor 1) or undoes a save (-1).
bool Mover(Connection& c, const Doc& d, int factor) {
  QList<std::pair<int, int>> moves{{d.almacen, -1}};  // warehouse, sign
  if (d.tabla == u"compras" || d.tabla == u"ajustes de inventario" || d.tabla == u"notas cliente") {
    moves = {{d.almacen, 1}};
  }
  if (d.tabla == u"traspasos") moves << std::pair{d.destino, 1};
  for (const auto& [almacen, signo] : moves) {
    if (!mInventario::ActualizarExistencias(c, d.tabla, d.columna_clave, d.clave, almacen,
                                            signo * factor)) {
      return false;
    }
  }
  return true;
}

// Cancellation: quantities to zero, status BAJA, and the document's products rebuilt.
bool Cancelar(Connection& c, Doc& d) {
  QStringList codigos = mInventario::ListaCodigosDocumento(c, d.tabla, d.columna_clave, d.clave);
  QString zero = u"cantidad = 0"_s;
  if (d.tabla == u"ajustes de inventario") zero = u"entradas = 0, salidas = 0"_s;
  if (d.tabla == u"produccion") zero = u"consumo = 0"_s;
  if (d.tabla == u"notas cliente") zero += u", factura = 'BAJA'"_s;
  if (d.tabla == u"notas proveedor") zero += u", compra = 'BAJA'"_s;
  const QString where = u" where "_s + dialect::Name(d.columna_clave) + u" = ?"_s;
  const QString header =
      d.tabla == u"produccion" ? u"cantidad = 0, status = 'BAJA'"_s : u"status = 'BAJA'"_s;
  if (!testing::Escribir(
          c, u"update "_s + dialect::Name(d.tabla + u" detalles"_s) + u" set "_s + zero + where,
          {d.clave}) ||
      !testing::Escribir(c, u"update "_s + dialect::Name(d.tabla) + u" set "_s + header + where,
                         {d.clave})) {
    return false;
  }
  d.baja = true;
  if (d.tabla == u"produccion") codigos << d.producto;
  return mInventario::RecalcularExistencias(c, d.tabla == u"produccion" ? 1 : 0, codigos);
}

}  // namespace

class TestStock : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void eachFamilyCountsWithItsSign_data();
  void eachFamilyCountsWithItsSign();
  void oneWarehouseLeavesTheOthers();
  void productionCountsByEngine();
  void incrementalMoveKeepsToItsWarehouse();
  void incrementalMovesMatchRebuild();
};

void TestStock::eachFamilyCountsWithItsSign_data() {
  QTest::addColumn<QList<Doc>>("docs");
  QTest::addColumn<QList<double>>("esperado");  // almacen1..5 of product "A"
  const QList<Fila> a2{{u"A"_s, 2}};
  const Doc devolucion = Nota(u"notas cliente"_s, u"F-1"_s, a2);
  // The purchase holds another product, so only the supplier's note can move "A".
  const Doc nota_proveedor = Nota(u"notas proveedor"_s, u"C-1"_s, {{u"A"_s, 1}}, 2);
  QTest::newRow("purchase into 2") << QList<Doc>{NuevoDoc(u"compras"_s, u"C-1"_s, 2, {{u"A"_s, 5}})}
                                   << QList<double>{0, 5, 0, 0, 0};
  QTest::newRow("adjustment in 3")
      << QList<Doc>{NuevoDoc(u"ajustes de inventario"_s, u"J-1"_s, 3, {{u"A"_s, 4}, {u"A"_s, -1}})}
      << QList<double>{0, 0, 3, 0, 0};
  QTest::newRow("delivery note from 4")
      << QList<Doc>{NuevoDoc(u"remisiones"_s, u"R-1"_s, 4, a2)} << QList<double>{0, 0, 0, -2, 0};
  QTest::newRow("transfer 1 to 5")
      << QList<Doc>{Traspaso(u"T-1"_s, 1, 5, {{u"A"_s, 3}})} << QList<double>{-3, 0, 0, 0, 3};
  QTest::newRow("return on a product invoice")
      << QList<Doc>{Factura(u"PRODUCTOS"_s), devolucion} << QList<double>{2, 0, 0, 0, 0};
  QTest::newRow("return on a LIBRE invoice")
      << QList<Doc>{Factura(u"LIBRE"_s), devolucion} << QList<double>{0, 0, 0, 0, 0};
  QTest::newRow("supplier note of a purchase into 2")
      << QList<Doc>{Compra(u"ALMACEN2"_s, {{u"B"_s, 9}}), nota_proveedor}
      << QList<double>{0, -1, 0, 0, 0};
  QTest::newRow("supplier note of an expense")
      << QList<Doc>{Compra(u"GASTOS"_s, {{u"B"_s, 9}}), nota_proveedor}
      << QList<double>{0, 0, 0, 0, 0};
  QTest::newRow("production consumes")
      << QList<Doc>{Produccion(u"O-1"_s, u"B"_s, 1, true, {{u"A"_s, 2.5}})}
      << QList<double>{-2.5, 0, 0, 0, 0};
  QTest::newRow("closed production yields")
      << QList<Doc>{Produccion(u"O-1"_s, u"A"_s, 4, true, {{u"B"_s, 1}})}
      << QList<double>{4, 0, 0, 0, 0};
  QTest::newRow("invoices and orders move nothing")
      << QList<Doc>{Factura(u"PRODUCTOS"_s, {{u"A"_s, 6}}),
                    NuevoDoc(u"pedidos"_s, u"P-1"_s, 1, {{u"A"_s, 6}})}
      << QList<double>{0, 0, 0, 0, 0};
}

void TestStock::eachFamilyCountsWithItsSign() {
  QFETCH(QList<Doc>, docs);
  QFETCH(QList<double>, esperado);
  VENTARIX_COMPANY_CONNECTION(company, c);
  QVERIFY(Productos(c, {u"A"_s, u"B"_s}, 77));
  for (const Doc& d : docs) QVERIFY2(Escribir(c, d), qPrintable(c.db().lastError().text()));
  QString error;
  QVERIFY2(mInventario::RecalcularExistencias(c, 0, std::nullopt, &error), qPrintable(error));
  QCOMPARE(Stock(c, u"A"_s), esperado);
}

void TestStock::oneWarehouseLeavesTheOthers() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  QVERIFY(Productos(c, {u"A"_s, u"B"_s}, 50));
  QVERIFY(Escribir(c, NuevoDoc(u"remisiones"_s, u"R-1"_s, 1, {{u"A"_s, 2}})));
  QVERIFY(Escribir(c, NuevoDoc(u"compras"_s, u"C-1"_s, 3, {{u"A"_s, 5}, {u"B"_s, 6}})));
  QVERIFY(Escribir(c, Factura(u"PRODUCTOS"_s)));
  QVERIFY(Escribir(c, Nota(u"notas cliente"_s, u"F-1"_s, {{u"A"_s, 1}})));
  QVERIFY(Escribir(c, Produccion(u"O-1"_s, u"B"_s, 1, true, {{u"A"_s, 4}})));

  QString error;
  QVERIFY2(mInventario::RecalcularExistencias(c, 3, QStringList{u"A"_s}, &error),
           qPrintable(error));
  // Returns and production belong to warehouse 1, which a rebuild of 3 doesn't touch; "B" is
  // not in the list.
  QCOMPARE(Stock(c, u"A"_s), (QList<double>{50, 50, 5, 50, 50}));
  QCOMPARE(Stock(c, u"B"_s), (QList<double>{50, 50, 50, 50, 50}));

  QVERIFY(mInventario::RecalcularExistencias(c, 1, QStringList{u"A"_s}, &error));
  QCOMPARE(Stock(c, u"A"_s), (QList<double>{-2 + 1 - 4, 50, 5, 50, 50}));

  // The list of nothing, as a document without rows gives, changes nothing.
  QVERIFY(mInventario::RecalcularExistencias(c, 0, QStringList{}, &error));
  QCOMPARE(Existencia(c, u"B"_s, 3), 50.0);
}

void TestStock::productionCountsByEngine() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  QVERIFY(Productos(c, {u"A"_s, u"B"_s}));
  QVERIFY(Escribir(c, Produccion(u"O-1"_s, u"B"_s, 3, false, {{u"A"_s, 2}, {u"A"_s, 0.5}})));
  QString error;
  QVERIFY2(mInventario::RecalcularExistencias(c, 1, QStringList{u"A"_s, u"B"_s}, &error),
           qPrintable(error));
  // Components leave at the start on both engines; the open order's product counts only on
  // PostgreSQL.
  QCOMPARE(Existencia(c, u"A"_s, 1), -2.5);
  QCOMPARE(Existencia(c, u"B"_s, 1), company.sql() ? 3.0 : 0.0);

  QVERIFY(testing::Escribir(
      c, u"update produccion set termino = ?, status = 'CERRADA' where produccion = ?"_s,
      {dialect::DateValue(testing::DiaDePrueba(), c.sql()), u"O-1"_s}));
  QVERIFY(mInventario::RecalcularExistencias(c, 1, QStringList{u"A"_s, u"B"_s}, &error));
  QCOMPARE(Existencia(c, u"B"_s, 1), 3.0);
}

// The random sequence below moves every row in the warehouse it was written for; here a purchase
// moved for another warehouse moves nothing, a warehouse outside 1..5 is refused, and the
// document's products are listed once each for the rebuild that follows a cancellation.
void TestStock::incrementalMoveKeepsToItsWarehouse() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  QVERIFY(Productos(c, {u"A"_s, u"B"_s}, 20));
  QVERIFY(
      Escribir(c, NuevoDoc(u"compras"_s, u"C-1"_s, 3, {{u"A"_s, 4}, {u"B"_s, 1}, {u"A"_s, 1}})));
  QVERIFY(mInventario::ActualizarExistencias(c, u"compras"_s, u"compra"_s, u"C-1"_s, 4, 1));
  QCOMPARE(Stock(c, u"A"_s), (QList<double>{20, 20, 20, 20, 20}));
  QVERIFY(mInventario::ActualizarExistencias(c, u"compras"_s, u"compra"_s, u"C-1"_s, 3, 1));
  QCOMPARE(Stock(c, u"A"_s), (QList<double>{20, 20, 25, 20, 20}));
  QCOMPARE(Stock(c, u"B"_s), (QList<double>{20, 20, 21, 20, 20}));
  QStringList codigos = mInventario::ListaCodigosDocumento(c, u"compras"_s, u"compra"_s, u"C-1"_s);
  codigos.sort();
  QCOMPARE(codigos, (QStringList{u"A"_s, u"B"_s}));
  QString error;
  QVERIFY(
      !mInventario::ActualizarExistencias(c, u"compras"_s, u"compra"_s, u"C-1"_s, 6, -1, &error));
  QVERIFY(!error.isEmpty());
}

void TestStock::incrementalMovesMatchRebuild() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  const QStringList productos{u"P1"_s, u"P2"_s, u"P3"_s, u"P4"_s, u"P5"_s};
  QVERIFY(Productos(c, productos));
  QVERIFY(Escribir(c, Factura(u"PRODUCTOS"_s)));
  const QStringList familias{u"remisiones"_s,     u"compras"_s,    u"ajustes de inventario"_s,
                             u"traspasos"_s,      u"produccion"_s, u"notas cliente"_s,
                             u"notas proveedor"_s};
  QRandomGenerator gen(20240315);
  auto filas = [&](const Doc& d) {
    QList<Fila> list;
    const int n = 1 + gen.bounded(4);
    for (int i = 0; i < n; ++i) {
      double q = 0.5 * (1 + gen.bounded(20));
      // Signed quantities reach only adjustments, as salidas.
      if (gen.bounded(2) && d.tabla == u"ajustes de inventario") q = -q;
      list.append({productos[gen.bounded(productos.size())], q});
    }
    return list;
  };
  QList<Doc> docs;
  QList<qsizetype> compras;  // indices into docs
  auto todas = [&] {
    QStringList out;
    for (const QString& p : productos) {
      out << p;
      for (double v : Stock(c, p)) out.last() += u' ' + QString::number(v);
    }
    return out;
  };
  for (int paso = 1; paso <= 90; ++paso) {
    Transaction t(c);
    const int accion = docs.isEmpty() ? 0 : gen.bounded(10);
    Doc* abierto = docs.isEmpty() ? nullptr : &docs[gen.bounded(docs.size())];
    if (abierto && abierto->baja) abierto = nullptr;
    if (accion >= 5 && accion <= 7 && abierto) {  // change: undo, rewrite the rows, apply
      QVERIFY(Mover(c, *abierto, -1));
      QVERIFY(testing::Escribir(c,
                                u"delete from "_s + dialect::Name(abierto->tabla + u" detalles"_s) +
                                    u" where "_s + dialect::Name(abierto->columna_clave) +
                                    u" = ?"_s,
                                {abierto->clave}));
      abierto->filas = filas(*abierto);
      QVERIFY(Escribir(c, *abierto, false));
      QVERIFY(Mover(c, *abierto, 1));
    } else if (accion == 8 && abierto) {
      QVERIFY(Cancelar(c, *abierto));
    } else if (accion == 9 && abierto && abierto->tabla == u"produccion" && !company.sql()) {
      // Closing brings the product in, reopening takes it out again.
      abierto->cerrada = !abierto->cerrada;
      QVERIFY(mInventario::ActualizarExistenciasProduccion(c, abierto->clave,
                                                           abierto->cerrada ? 1 : -1));
      QVERIFY(
          testing::Escribir(c, u"update produccion set termino = ? where produccion = ?"_s,
                            {abierto->cerrada ? dialect::DateValue(testing::DiaDePrueba(), c.sql())
                                              : dialect::DateValue(QDateTime(), c.sql()),
                             abierto->clave}));
    } else {
      Doc d = NuevoDoc(familias[gen.bounded(familias.size())], u"D-%1"_s.arg(paso),
                       1 + gen.bounded(5), {});
      d.filas = filas(d);
      if (d.tabla == u"traspasos") d.destino = 1 + (d.almacen + gen.bounded(4)) % 5;
      // Production and client returns live in warehouse 1; PostgreSQL counts every order, so
      // there an order is closed as it is saved.
      if (d.tabla == u"produccion" || d.tabla == u"notas cliente") d.almacen = 1;
      if (d.tabla == u"notas cliente") d.origen = u"F-1"_s;
      if (d.tabla == u"produccion") {
        d.producto = productos[gen.bounded(productos.size())];
        d.cantidad = 1 + gen.bounded(6);
        d.cerrada = company.sql() || gen.bounded(2);
      }
      if (d.tabla == u"notas proveedor") {
        if (compras.isEmpty()) continue;
        const Doc& compra = docs[compras[gen.bounded(compras.size())]];
        d.origen = compra.clave;
        d.almacen = compra.almacen;
      }
      QVERIFY2(Escribir(c, d), qPrintable(c.db().lastError().text()));
      QVERIFY(Mover(c, d, 1));
      if (d.cerrada) QVERIFY(mInventario::ActualizarExistenciasProduccion(c, d.clave, 1));
      if (d.tabla == u"compras") compras << docs.size();
      docs.append(d);
    }
    QVERIFY(t.Commit());
    if (paso % 15 == 0) {
      const QStringList movidas = todas();
      QVERIFY(mInventario::RecalcularExistencias(c, 0, std::nullopt));
      QCOMPARE(movidas, todas());
    }
  }
}

QTEST_GUILESS_MAIN(TestStock)
#include "tst_stock.moc"
