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
using testing::Existencia;
using testing::Existencias;
using testing::Insertar;

namespace {

struct Fila {
  QString codigo;
  double cantidad = 0;
};

QVariant Fecha(Connection& c) { return dialect::DateValue(QDate(2024, 3, 15), c.sql()); }

bool AltaProducto(Connection& c, const QString& codigo, double existencia = 0) {
  QVariantMap v{{u"codigo"_s, codigo}};
  for (int n = 1; n <= 5; ++n) v.insert(u"almacen%1"_s.arg(n), existencia);
  return Insertar(c, u"productos"_s, v);
}

// Detail rows of a document; `extra` sets the family's own columns of every row.
bool Filas(Connection& c, const QString& tabla, const QString& columna_clave, const QString& clave,
           const QList<Fila>& filas, const QVariantMap& extra = {},
           const QString& columna_cantidad = u"cantidad"_s) {
  int item = 0;
  for (const Fila& f : filas) {
    QVariantMap v = extra;
    v.insert(columna_clave, clave);
    v.insert(u"item"_s, ++item);
    v.insert(u"codigo"_s, f.codigo);
    v.insert(columna_cantidad, f.cantidad);
    if (!Insertar(c, tabla + u" detalles"_s, v)) return false;
  }
  return true;
}

bool Remision(Connection& c, const QString& clave, int almacen, const QList<Fila>& filas) {
  return Insertar(c, u"remisiones"_s, {{u"remision"_s, clave}, {u"tienda"_s, almacen}}) &&
         Filas(c, u"remisiones"_s, u"remision"_s, clave, filas, {{u"almacen"_s, almacen}});
}

bool Compra(Connection& c, const QString& clave, int almacen, const QList<Fila>& filas,
            const QString& movimiento = {}) {
  const QString mov = movimiento.isEmpty() ? u"ALMACEN%1"_s.arg(almacen) : movimiento;
  return Insertar(c, u"compras"_s,
                  {{u"compra"_s, clave}, {u"tienda"_s, almacen}, {u"movimiento"_s, mov}}) &&
         Filas(c, u"compras"_s, u"compra"_s, clave, filas, {{u"almacen"_s, almacen}});
}

bool Ajuste(Connection& c, const QString& clave, int almacen, const QString& codigo,
            double entradas, double salidas) {
  return Insertar(c, u"ajustes de inventario"_s, {{u"ajuste"_s, clave}, {u"almacen"_s, almacen}}) &&
         Insertar(c, u"ajustes de inventario detalles"_s,
                  {{u"ajuste"_s, clave},
                   {u"codigo"_s, codigo},
                   {u"almacen"_s, almacen},
                   {u"entradas"_s, entradas},
                   {u"salidas"_s, salidas}});
}

bool Traspaso(Connection& c, const QString& clave, int de, int a, const QList<Fila>& filas) {
  const QVariantMap almacenes{{u"de"_s, QString::number(de)}, {u"a"_s, QString::number(a)}};
  QVariantMap cabecera = almacenes;
  cabecera.insert(u"traspaso"_s, clave);
  return Insertar(c, u"traspasos"_s, cabecera) &&
         Filas(c, u"traspasos"_s, u"traspaso"_s, clave, filas, almacenes);
}

bool Produccion(Connection& c, const QString& clave, const QString& producto, double cantidad,
                bool cerrada, const QList<Fila>& consumos) {
  QVariantMap v{{u"produccion"_s, clave}, {u"codigo"_s, producto}, {u"cantidad"_s, cantidad}};
  if (cerrada) v.insert(u"termino"_s, Fecha(c));
  return Insertar(c, u"produccion"_s, v) &&
         Filas(c, u"produccion"_s, u"produccion"_s, clave, consumos, {}, u"consumo"_s);
}

bool Factura(Connection& c, const QString& clave, const QString& depto) {
  return Insertar(c, u"facturas"_s, {{u"factura"_s, clave}, {u"depto"_s, depto}});
}

bool NotaCliente(Connection& c, const QString& clave, const QString& factura,
                 const QList<Fila>& filas) {
  return Insertar(c, u"notas cliente"_s, {{u"nota"_s, clave}}) &&
         Filas(c, u"notas cliente"_s, u"nota"_s, clave, filas, {{u"factura"_s, factura}});
}

bool NotaProveedor(Connection& c, const QString& clave, const QString& compra,
                   const QList<Fila>& filas) {
  return Insertar(c, u"notas proveedor"_s, {{u"nota"_s, clave}}) &&
         Filas(c, u"notas proveedor"_s, u"nota"_s, clave, filas, {{u"compra"_s, compra}});
}

using Stock = std::array<double, 5>;

QString Diferencias(const QString& codigo, const Stock& got, const Stock& want) {
  QString text;
  for (int i = 0; i < 5; ++i) {
    if (!qFuzzyCompare(1.0 + got[i], 1.0 + want[i])) {
      text += u"%1 almacen%2: %3, expected %4; "_s.arg(codigo).arg(i + 1).arg(got[i]).arg(want[i]);
    }
  }
  return text;
}

}  // namespace

class TestStock : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void eachFamilyCountsWithItsSign_data();
  void eachFamilyCountsWithItsSign();
  void oneWarehouseLeavesTheOthers();
  void cancelledDocumentsDontCount();
  void productionCountsByEngine();
  void incrementalMoveSumsRepeatedCodes();
  void incrementalMovesMatchRebuild();

 private:
  struct Doc;
  bool Escribir(Connection& c, const Doc& doc, bool cabecera);
  bool Mover(Connection& c, const Doc& doc, int factor);
  bool Cancelar(Connection& c, Doc& doc);
};

void TestStock::eachFamilyCountsWithItsSign_data() {
  QTest::addColumn<QString>("caso");
  QTest::addColumn<QList<double>>("esperado");  // almacen1..5 of product "A"
  QTest::newRow("purchase into 2") << u"compra"_s << QList<double>{0, 5, 0, 0, 0};
  QTest::newRow("adjustment in 3") << u"ajuste"_s << QList<double>{0, 0, 3, 0, 0};
  QTest::newRow("delivery note from 4") << u"remision"_s << QList<double>{0, 0, 0, -2, 0};
  QTest::newRow("transfer 1 to 5") << u"traspaso"_s << QList<double>{-3, 0, 0, 0, 3};
  QTest::newRow("return on a product invoice")
      << u"nota cliente productos"_s << QList<double>{2, 0, 0, 0, 0};
  QTest::newRow("return on a LIBRE invoice")
      << u"nota cliente libre"_s << QList<double>{0, 0, 0, 0, 0};
  QTest::newRow("supplier note of a purchase into 2")
      << u"nota proveedor almacen"_s << QList<double>{0, -1, 0, 0, 0};
  QTest::newRow("supplier note of an expense")
      << u"nota proveedor gastos"_s << QList<double>{0, 0, 0, 0, 0};
  QTest::newRow("production consumes") << u"consumo"_s << QList<double>{-2.5, 0, 0, 0, 0};
  QTest::newRow("closed production yields") << u"terminado"_s << QList<double>{4, 0, 0, 0, 0};
  QTest::newRow("invoices and orders move nothing") << u"factura"_s << QList<double>{0, 0, 0, 0, 0};
}

void TestStock::eachFamilyCountsWithItsSign() {
  QFETCH(QString, caso);
  QFETCH(QList<double>, esperado);
  VENTARIX_COMPANY(company);
  Connection c(company.cadena());
  QVERIFY(AltaProducto(c, u"A"_s, 77) && AltaProducto(c, u"B"_s, 77));
  const QList<Fila> a2{{u"A"_s, 2}};
  bool written = false;
  if (caso == u"compra") written = Compra(c, u"C-1"_s, 2, {{u"A"_s, 5}});
  if (caso == u"ajuste") written = Ajuste(c, u"J-1"_s, 3, u"A"_s, 4, 1);
  if (caso == u"remision") written = Remision(c, u"R-1"_s, 4, a2);
  if (caso == u"traspaso") written = Traspaso(c, u"T-1"_s, 1, 5, {{u"A"_s, 3}});
  if (caso.startsWith(u"nota cliente")) {
    written = Factura(c, u"F-1"_s, caso.endsWith(u"productos") ? u"PRODUCTOS"_s : u"LIBRE"_s) &&
              NotaCliente(c, u"N-1"_s, u"F-1"_s, a2);
  }
  if (caso.startsWith(u"nota proveedor")) {
    // The purchase holds another product, so only the note can move "A".
    written = Compra(c, u"C-1"_s, 2, {{u"B"_s, 9}},
                     caso.endsWith(u"gastos") ? u"GASTOS"_s : u"ALMACEN2"_s) &&
              NotaProveedor(c, u"P-1"_s, u"C-1"_s, {{u"A"_s, 1}});
  }
  if (caso == u"consumo") written = Produccion(c, u"O-1"_s, u"B"_s, 1, true, {{u"A"_s, 2.5}});
  if (caso == u"terminado") written = Produccion(c, u"O-1"_s, u"A"_s, 4, true, {{u"B"_s, 1}});
  if (caso == u"factura") {
    written = Factura(c, u"F-1"_s, u"PRODUCTOS"_s) &&
              Filas(c, u"facturas"_s, u"factura"_s, u"F-1"_s, {{u"A"_s, 6}}) &&
              Insertar(c, u"pedidos"_s, {{u"pedido"_s, u"P-1"_s}}) &&
              Filas(c, u"pedidos"_s, u"pedido"_s, u"P-1"_s, {{u"A"_s, 6}});
  }
  QVERIFY2(written, qPrintable(c.db().lastError().text()));

  QString error;
  QVERIFY2(mInventario::RecalcularExistencias(c, 0, std::nullopt, &error), qPrintable(error));
  const Stock want{esperado[0], esperado[1], esperado[2], esperado[3], esperado[4]};
  const QString diff = Diferencias(u"A"_s, Existencias(c, u"A"_s), want);
  QVERIFY2(diff.isEmpty(), qPrintable(diff));
}

void TestStock::oneWarehouseLeavesTheOthers() {
  VENTARIX_COMPANY(company);
  Connection c(company.cadena());
  QVERIFY(AltaProducto(c, u"A"_s, 50) && AltaProducto(c, u"B"_s, 50));
  QVERIFY(Remision(c, u"R-1"_s, 1, {{u"A"_s, 2}}));
  QVERIFY(Compra(c, u"C-1"_s, 3, {{u"A"_s, 5}, {u"B"_s, 6}}));
  QVERIFY(Factura(c, u"F-1"_s, u"PRODUCTOS"_s) &&
          NotaCliente(c, u"N-1"_s, u"F-1"_s, {{u"A"_s, 1}}));
  QVERIFY(Produccion(c, u"O-1"_s, u"B"_s, 1, true, {{u"A"_s, 4}}));

  QString error;
  QVERIFY2(mInventario::RecalcularExistencias(c, 3, QStringList{u"A"_s}, &error),
           qPrintable(error));
  // Returns and production belong to warehouse 1, which a rebuild of 3 doesn't touch; "B" is
  // not in the list.
  QVERIFY(Diferencias(u"A"_s, Existencias(c, u"A"_s), {50, 50, 5, 50, 50}).isEmpty());
  QVERIFY(Diferencias(u"B"_s, Existencias(c, u"B"_s), {50, 50, 50, 50, 50}).isEmpty());

  QVERIFY(mInventario::RecalcularExistencias(c, 1, QStringList{u"A"_s}, &error));
  QCOMPARE(Existencia(c, u"A"_s, 1), -2 + 1 - 4);
  QCOMPARE(Existencia(c, u"A"_s, 3), 5.0);

  // The list of nothing, as a document without rows gives, changes nothing.
  QVERIFY(mInventario::RecalcularExistencias(c, 0, QStringList{}, &error));
  QCOMPARE(Existencia(c, u"B"_s, 3), 50.0);
}

void TestStock::cancelledDocumentsDontCount() {
  VENTARIX_COMPANY(company);
  Connection c(company.cadena());
  QVERIFY(AltaProducto(c, u"A"_s) && AltaProducto(c, u"B"_s));
  QVERIFY(Compra(c, u"C-1"_s, 1, {{u"A"_s, 10}, {u"B"_s, 10}}));
  QVERIFY(Remision(c, u"R-1"_s, 1, {{u"A"_s, 3}}));
  QVERIFY(Traspaso(c, u"T-1"_s, 1, 2, {{u"A"_s, 4}}));
  QVERIFY(Produccion(c, u"O-1"_s, u"B"_s, 2, true, {{u"A"_s, 1}}));
  QString error;
  QVERIFY(mInventario::RecalcularExistencias(c, 0, std::nullopt, &error));
  QVERIFY(Diferencias(u"A"_s, Existencias(c, u"A"_s), {2, 4, 0, 0, 0}).isEmpty());

  // Cancelling keeps the documents with status BAJA and their quantities at zero, then rebuilds
  // their products.
  QStringList codigos =
      mInventario::ListaCodigosDocumento(c, u"remisiones"_s, u"remision"_s, u"R-1"_s, &error);
  QCOMPARE(codigos, QStringList{u"A"_s});
  QVERIFY(c.Run(u"update \"remisiones detalles\" set cantidad = 0 where remision = 'R-1'"_s));
  QVERIFY(c.Run(u"update remisiones set status = 'BAJA' where remision = 'R-1'"_s));
  QVERIFY(c.Run(u"update \"traspasos detalles\" set cantidad = 0 where traspaso = 'T-1'"_s));
  QVERIFY(c.Run(u"update traspasos set status = 'BAJA' where traspaso = 'T-1'"_s));
  QVERIFY(c.Run(u"update \"produccion detalles\" set consumo = 0 where produccion = 'O-1'"_s));
  QVERIFY(c.Run(
      u"update produccion set cantidad = 0, costo = 0, status = 'BAJA' where produccion = 'O-1'"_s));
  codigos << u"B"_s;
  QVERIFY2(mInventario::RecalcularExistencias(c, 0, codigos, &error), qPrintable(error));
  QVERIFY(Diferencias(u"A"_s, Existencias(c, u"A"_s), {10, 0, 0, 0, 0}).isEmpty());
  QVERIFY(Diferencias(u"B"_s, Existencias(c, u"B"_s), {10, 0, 0, 0, 0}).isEmpty());
}

void TestStock::productionCountsByEngine() {
  VENTARIX_COMPANY(company);
  Connection c(company.cadena());
  QVERIFY(AltaProducto(c, u"A"_s) && AltaProducto(c, u"B"_s));
  QVERIFY(Produccion(c, u"O-1"_s, u"B"_s, 3, false, {{u"A"_s, 2}, {u"A"_s, 0.5}}));
  QString error;
  QVERIFY2(mInventario::RecalcularExistencias(c, 1, QStringList{u"A"_s, u"B"_s}, &error),
           qPrintable(error));
  // Components leave at the start on both engines; the open order's product counts only on
  // PostgreSQL.
  QCOMPARE(Existencia(c, u"A"_s, 1), -2.5);
  QCOMPARE(Existencia(c, u"B"_s, 1), company.sql() ? 3.0 : 0.0);

  QVERIFY(c.Run(u"update produccion set termino = ?, status = 'CERRADA' where produccion = ?"_s,
                {Fecha(c), u"O-1"_s}));
  QVERIFY(mInventario::RecalcularExistencias(c, 1, QStringList{u"A"_s, u"B"_s}, &error));
  QCOMPARE(Existencia(c, u"B"_s, 1), 3.0);
}

void TestStock::incrementalMoveSumsRepeatedCodes() {
  VENTARIX_COMPANY(company);
  Connection c(company.cadena());
  QVERIFY(AltaProducto(c, u"A"_s, 20) && AltaProducto(c, u"B"_s, 20) &&
          AltaProducto(c, u"Z"_s, 20));
  QString error;
  // A delivery note of 3 units of A on two rows, and 1 of B, out of store 2.
  QVERIFY(Remision(c, u"R-1"_s, 2, {{u"A"_s, 2}, {u"B"_s, 1}, {u"A"_s, 1}}));
  QVERIFY2(mInventario::ActualizarExistencias(c, u"remisiones"_s, u"remision"_s, u"R-1"_s, 2, -1,
                                              &error),
           qPrintable(error));
  QCOMPARE(Existencia(c, u"A"_s, 2), 17.0);
  QCOMPARE(Existencia(c, u"B"_s, 2), 19.0);
  QCOMPARE(Existencia(c, u"A"_s, 1), 20.0);
  QCOMPARE(Existencia(c, u"Z"_s, 2), 20.0);

  // Purchases move only their rows of the warehouse given.
  QVERIFY(Compra(c, u"C-1"_s, 3, {{u"A"_s, 4}, {u"A"_s, 1}}));
  QVERIFY(mInventario::ActualizarExistencias(c, u"compras"_s, u"compra"_s, u"C-1"_s, 4, 1));
  QCOMPARE(Existencia(c, u"A"_s, 4), 20.0);
  QVERIFY(mInventario::ActualizarExistencias(c, u"compras"_s, u"compra"_s, u"C-1"_s, 3, 1));
  QCOMPARE(Existencia(c, u"A"_s, 3), 25.0);

  // Adjustments move by entradas - salidas; a closed order brings its product into store 1.
  QVERIFY(Ajuste(c, u"J-1"_s, 5, u"B"_s, 1, 4));
  QVERIFY(mInventario::ActualizarExistencias(c, u"ajustes de inventario"_s, u"ajuste"_s, u"J-1"_s,
                                             5, 1));
  QCOMPARE(Existencia(c, u"B"_s, 5), 17.0);
  QVERIFY(Produccion(c, u"O-1"_s, u"Z"_s, 6, true, {{u"A"_s, 1}}));
  QVERIFY(mInventario::ActualizarExistenciasProduccion(c, u"O-1"_s, 1));
  QCOMPARE(Existencia(c, u"Z"_s, 1), 26.0);

  QVERIFY(!mInventario::ActualizarExistencias(c, u"remisiones"_s, u"remision"_s, u"R-1"_s, 6, -1,
                                              &error));
  QVERIFY(!error.isEmpty());
}

// A document as the capture screens leave it, for the random sequence below.
struct TestStock::Doc {
  QString tabla;  // family stem
  QString columna_clave;
  QString clave;
  int almacen = 1;
  int destino = 0;   // transfers: receiving warehouse
  QString compra;    // supplier notes: the purchase they return to
  QString producto;  // production: the product made
  double cantidad = 0;
  bool cerrada = false;
  bool baja = false;
  QList<Fila> filas;
};

bool TestStock::Escribir(Connection& c, const Doc& d, bool cabecera) {
  QVariantMap head{{d.columna_clave, d.clave}}, row;
  if (d.tabla == u"remisiones" || d.tabla == u"compras") {
    head.insert(u"tienda"_s, d.almacen);
    row.insert(u"almacen"_s, d.almacen);
  }
  if (d.tabla == u"compras") head.insert(u"movimiento"_s, u"ALMACEN%1"_s.arg(d.almacen));
  if (d.tabla == u"ajustes de inventario") {
    head.insert(u"almacen"_s, d.almacen);
    row.insert(u"almacen"_s, d.almacen);
  }
  if (d.tabla == u"traspasos") {
    row.insert(u"de"_s, QString::number(d.almacen));
    row.insert(u"a"_s, QString::number(d.destino));
    head.insert(u"de"_s, row.value(u"de"_s));
    head.insert(u"a"_s, row.value(u"a"_s));
  }
  if (d.tabla == u"produccion") {
    head.insert(u"codigo"_s, d.producto);
    head.insert(u"cantidad"_s, d.cantidad);
    if (d.cerrada) head.insert(u"termino"_s, Fecha(c));
  }
  if (d.tabla == u"notas cliente") row.insert(u"factura"_s, u"F-1"_s);
  if (d.tabla == u"notas proveedor") row.insert(u"compra"_s, d.compra);
  if (cabecera && !Insertar(c, d.tabla, head)) return false;
  int item = 0;
  for (const Fila& f : d.filas) {
    QVariantMap v = row;
    v.insert(d.columna_clave, d.clave);
    v.insert(u"item"_s, ++item);
    v.insert(u"codigo"_s, f.codigo);
    if (d.tabla == u"ajustes de inventario") {
      v.insert(f.cantidad >= 0 ? u"entradas"_s : u"salidas"_s, qAbs(f.cantidad));
    } else {
      v.insert(d.tabla == u"produccion" ? u"consumo"_s : u"cantidad"_s, f.cantidad);
    }
    if (!Insertar(c, d.tabla + u" detalles"_s, v)) return false;
  }
  return true;
}

// What the family's screen does with its rows when it saves (factor 1) or undoes a save (-1).
bool TestStock::Mover(Connection& c, const Doc& d, int factor) {
  QList<std::pair<int, int>> moves;  // warehouse, sign
  if (d.tabla == u"remisiones" || d.tabla == u"produccion") moves = {{d.almacen, -1}};
  if (d.tabla == u"compras" || d.tabla == u"ajustes de inventario" || d.tabla == u"notas cliente") {
    moves = {{d.almacen, 1}};
  }
  if (d.tabla == u"notas proveedor") moves = {{d.almacen, -1}};
  if (d.tabla == u"traspasos") moves = {{d.almacen, -1}, {d.destino, 1}};
  for (const auto& [almacen, signo] : moves) {
    if (!mInventario::ActualizarExistencias(c, d.tabla, d.columna_clave, d.clave, almacen,
                                            signo * factor)) {
      return false;
    }
  }
  return true;
}

// Cancellation: quantities to zero, status BAJA, and the document's products rebuilt.
bool TestStock::Cancelar(Connection& c, Doc& d) {
  QStringList codigos = mInventario::ListaCodigosDocumento(c, d.tabla, d.columna_clave, d.clave);
  QString zero = u"cantidad = 0"_s;
  if (d.tabla == u"ajustes de inventario") zero = u"entradas = 0, salidas = 0"_s;
  if (d.tabla == u"produccion") zero = u"consumo = 0"_s;
  if (d.tabla == u"notas cliente") zero += u", factura = 'BAJA'"_s;
  if (d.tabla == u"notas proveedor") zero += u", compra = 'BAJA'"_s;
  const QString where = u" where "_s + dialect::Name(d.columna_clave) + u" = ?"_s;
  const QString header =
      d.tabla == u"produccion" ? u"cantidad = 0, status = 'BAJA'"_s : u"status = 'BAJA'"_s;
  if (!c.Run(u"update "_s + dialect::Name(d.tabla + u" detalles"_s) + u" set "_s + zero + where,
             {d.clave}) ||
      !c.Run(u"update "_s + dialect::Name(d.tabla) + u" set "_s + header + where, {d.clave})) {
    return false;
  }
  d.baja = true;
  if (d.tabla == u"produccion") {
    codigos << d.producto;
    return mInventario::RecalcularExistencias(c, 1, codigos);
  }
  return mInventario::RecalcularExistencias(c, 0, codigos);
}

void TestStock::incrementalMovesMatchRebuild() {
  VENTARIX_COMPANY(company);
  Connection c(company.cadena());
  const QStringList productos{u"P1"_s, u"P2"_s, u"P3"_s, u"P4"_s, u"P5"_s};
  for (const QString& p : productos) QVERIFY(AltaProducto(c, p));
  QVERIFY(Factura(c, u"F-1"_s, u"PRODUCTOS"_s));

  struct Familia {
    QString tabla, columna_clave;
  };
  const QList<Familia> familias{
      {u"remisiones"_s, u"remision"_s},          {u"compras"_s, u"compra"_s},
      {u"ajustes de inventario"_s, u"ajuste"_s}, {u"traspasos"_s, u"traspaso"_s},
      {u"produccion"_s, u"produccion"_s},        {u"notas cliente"_s, u"nota"_s},
      {u"notas proveedor"_s, u"nota"_s}};
  QRandomGenerator gen(20240315);
  auto filas = [&](bool con_signo) {
    QList<Fila> list;
    const int n = 1 + gen.bounded(4);
    for (int i = 0; i < n; ++i) {
      double q = 0.5 * (1 + gen.bounded(20));
      if (con_signo && gen.bounded(2)) q = -q;
      list.append({productos[gen.bounded(productos.size())], q});
    }
    return list;
  };
  QList<Doc> docs;
  QStringList compras;
  auto comparar = [&](int paso) {
    QHash<QString, Stock> movido;
    for (const QString& p : productos) movido[p] = Existencias(c, p);
    QString error;
    if (!mInventario::RecalcularExistencias(c, 0, std::nullopt, &error)) return error;
    QString diff;
    for (const QString& p : productos) diff += Diferencias(p, movido[p], Existencias(c, p));
    return diff.isEmpty() ? diff : u"after step %1: "_s.arg(paso) + diff;
  };

  for (int paso = 1; paso <= 90; ++paso) {
    Transaction t(c);
    const int accion = docs.isEmpty() ? 0 : gen.bounded(10);
    Doc* abierto = docs.isEmpty() ? nullptr : &docs[gen.bounded(docs.size())];
    if (abierto && abierto->baja) abierto = nullptr;
    if (accion >= 5 && accion <= 7 && abierto) {  // change: undo, rewrite the rows, apply
      QVERIFY(Mover(c, *abierto, -1));
      QVERIFY(c.Run(u"delete from "_s + dialect::Name(abierto->tabla + u" detalles"_s) +
                        u" where "_s + dialect::Name(abierto->columna_clave) + u" = ?"_s,
                    {abierto->clave}));
      abierto->filas = filas(abierto->tabla == u"ajustes de inventario");
      QVERIFY(Escribir(c, *abierto, false));
      QVERIFY(Mover(c, *abierto, 1));
    } else if (accion == 8 && abierto) {
      QVERIFY(Cancelar(c, *abierto));
    } else if (accion == 9 && abierto && abierto->tabla == u"produccion" && !company.sql()) {
      // Closing brings the product in, reopening takes it out again.
      abierto->cerrada = !abierto->cerrada;
      QVERIFY(mInventario::ActualizarExistenciasProduccion(c, abierto->clave,
                                                           abierto->cerrada ? 1 : -1));
      QVERIFY(c.Run(u"update produccion set termino = ? where produccion = ?"_s,
                    {abierto->cerrada ? Fecha(c) : dialect::DateValue(QDateTime(), c.sql()),
                     abierto->clave}));
    } else {
      const Familia& f = familias[gen.bounded(familias.size())];
      Doc d{f.tabla, f.columna_clave, u"D-%1"_s.arg(paso)};
      d.almacen = 1 + gen.bounded(5);
      d.filas = filas(f.tabla == u"ajustes de inventario");
      if (f.tabla == u"traspasos") d.destino = 1 + (d.almacen + gen.bounded(4)) % 5;
      // Production and client returns live in warehouse 1; PostgreSQL counts every order, so
      // there an order is closed as it is saved.
      if (f.tabla == u"produccion" || f.tabla == u"notas cliente") d.almacen = 1;
      if (f.tabla == u"produccion") {
        d.producto = productos[gen.bounded(productos.size())];
        d.cantidad = 1 + gen.bounded(6);
        d.cerrada = company.sql() || gen.bounded(2);
      }
      if (f.tabla == u"notas proveedor") {
        if (compras.isEmpty()) continue;
        const int i = gen.bounded(compras.size());
        d.compra = compras[i];
        d.almacen = compras[i].section(u'/', 1).toInt();
        d.compra = compras[i].section(u'/', 0, 0);
      }
      if (f.tabla == u"compras") compras << d.clave + u'/' + QString::number(d.almacen);
      QVERIFY2(Escribir(c, d, true), qPrintable(c.db().lastError().text()));
      QVERIFY(Mover(c, d, 1));
      if (d.cerrada) QVERIFY(mInventario::ActualizarExistenciasProduccion(c, d.clave, 1));
      docs.append(d);
    }
    QVERIFY(t.Commit());
    if (paso % 15 == 0) {
      const QString diff = comparar(paso);
      QVERIFY2(diff.isEmpty(), qPrintable(diff));
    }
  }
}

QTEST_GUILESS_MAIN(TestStock)
#include "tst_stock.moc"
