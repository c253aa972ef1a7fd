// The night sweeps of a hardware shop whose derived figures were spoiled by concurrent use:
// stock and periods, balances and statuses, product pictures, on both engines.
#include <QDir>
#include <QFile>
#include <QTest>

#include "core/column_rules.h"
#include "core/mFunciones.h"
#include "documents/stock_rows.h"
#include "documents/stored_figures.h"
#include "maintenance/sweeps.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::Existencias;
using testing::InsertarFila;
using testing::InsertarFilas;
using Stock = std::array<double, 5>;

namespace {

const QStringList kDocumentos = {u"ordenes de compra"_s,
                                 u"compras"_s,
                                 u"contrarecibos"_s,
                                 u"cotizaciones"_s,
                                 u"pedidos"_s,
                                 u"remisiones"_s,
                                 u"facturas"_s,
                                 u"produccion"_s,
                                 u"traspasos"_s,
                                 u"cxc"_s,
                                 u"cxp"_s,
                                 u"notas cliente"_s,
                                 u"notas proveedor"_s,
                                 u"ajustes de inventario"_s};

// Every document of the shop is dated in 2023, so its period must read 2023.
const QDate kFecha(2023, 11, 30);

bool Cabecera(Connection& c, const QString& tabla, const QString& clave, QVariantMap v = {}) {
  v.insert(column_rules::HeaderKey(tabla), clave);
  v.insert(u"fecha"_s, kFecha);
  v.insert(u"periodo"_s, 1999);
  return InsertarFila(c, tabla, v);
}

bool Fila(Connection& c, const QString& tabla, const QString& clave, const QString& codigo,
          QVariantMap v) {
  static int item = 0;
  v.insert(column_rules::HeaderKey(tabla), clave);
  v.insert(u"item"_s, ++item);
  v.insert(u"codigo"_s, codigo);
  return InsertarFila(c, tabla + u" detalles"_s, v);
}

// Purchases in warehouses 1, 2 and 3, a sale, a transfer, an adjustment, a closed production
// order and a client return; one bare header of every other family.
bool Tienda(Connection& c) {
  bool ok = true;
  for (const char* codigo : {"TORNILLO", "TUERCA", "TALADRO", "PINTURA"}) {
    ok = ok && InsertarFila(c, u"productos"_s, {{u"codigo"_s, QString::fromLatin1(codigo)}});
  }
  const auto compra = [&](const char* clave, int almacen, const char* codigo, double cantidad) {
    const QString k = QString::fromLatin1(clave);
    return Cabecera(c, u"compras"_s, k, {{u"movimiento"_s, u"ALMACEN%1"_s.arg(almacen)}}) &&
           Fila(c, u"compras"_s, k, QString::fromLatin1(codigo),
                {{u"almacen"_s, almacen}, {u"cantidad"_s, cantidad}});
  };
  ok = ok && compra("C-1", 1, "TORNILLO", 100) && compra("C-2", 1, "TUERCA", 50) &&
       compra("C-3", 2, "TALADRO", 4) && compra("C-4", 3, "PINTURA", 2.333333);
  ok = ok && Cabecera(c, u"remisiones"_s, u"R-1"_s) &&
       Fila(c, u"remisiones"_s, u"R-1"_s, u"TORNILLO"_s, {{u"almacen"_s, 1}, {u"cantidad"_s, 30}});
  const QVariantMap de1a4{{u"de"_s, u"1"_s}, {u"a"_s, u"4"_s}};
  ok = ok && Cabecera(c, u"traspasos"_s, u"T-1"_s, de1a4) &&
       Fila(c, u"traspasos"_s, u"T-1"_s, u"TORNILLO"_s,
            {{u"de"_s, u"1"_s}, {u"a"_s, u"4"_s}, {u"cantidad"_s, 20}});
  ok = ok && Cabecera(c, u"ajustes de inventario"_s, u"J-1"_s, {{u"almacen"_s, 5}}) &&
       Fila(c, u"ajustes de inventario"_s, u"J-1"_s, u"TALADRO"_s,
            {{u"almacen"_s, 5}, {u"entradas"_s, 3}, {u"salidas"_s, 1}});
  ok = ok &&
       Cabecera(c, u"produccion"_s, u"P-1"_s,
                {{u"codigo"_s, u"TALADRO"_s}, {u"cantidad"_s, 1}, {u"termino"_s, kFecha}}) &&
       Fila(c, u"produccion"_s, u"P-1"_s, u"TORNILLO"_s, {{u"consumo"_s, 4}});
  ok = ok && Cabecera(c, u"facturas"_s, u"F-1"_s, {{u"depto"_s, u"PRODUCTOS"_s}}) &&
       Cabecera(c, u"notas cliente"_s, u"N-1"_s) &&
       Fila(c, u"notas cliente"_s, u"N-1"_s, u"TORNILLO"_s,
            {{u"factura"_s, u"F-1"_s}, {u"cantidad"_s, 2}});
  for (const char* tabla : {"ordenes de compra", "contrarecibos", "cotizaciones", "pedidos", "cxc",
                            "cxp", "notas proveedor"}) {
    ok = ok && Cabecera(c, QString::fromLatin1(tabla), u"X-1"_s);
  }
  return ok;
}

// What a person counts on the shelves of the shop above, warehouses 1 to 5.
const QMap<QString, Stock> kEnAnaquel = {
    {u"TORNILLO"_s, {100 - 30 - 20 - 4 + 2, 0, 0, 20, 0}},
    {u"TUERCA"_s, {50, 0, 0, 0, 0}},
    {u"TALADRO"_s, {1, 4, 0, 0, 2}},
    {u"PINTURA"_s, {0, 0, 2.33, 0, 0}},  // rounded to two places
};

bool Estropear(Connection& c, double existencia) {
  return testing::Escribir(
      c,
      u"update productos set almacen1 = ?, almacen2 = ?, almacen3 = ?, almacen4 = ?, "
      u"almacen5 = ?"_s,
      {existencia, existencia, existencia, existencia, existencia});
}

// The periods found across all document families; a family the sweep missed shows 1999.
QSet<int> Periodos(Connection& c) {
  QSet<int> periodos;
  for (const QString& tabla : kDocumentos) {
    QSqlQuery q = c.Exec(u"select distinct periodo from "_s + dialect::Name(tabla));
    while (q.next()) periodos.insert(q.value(0).toInt());
  }
  return periodos;
}

QString Leer(Connection& c, const QString& tabla, const QString& clave, const QString& columna) {
  return testing::Leer(c, tabla, column_rules::HeaderKey(tabla), clave, columna).toString();
}

// The sweep's steps as it reported them: label of each begun step, and how many ended.
struct Pasos {
  QStringList begun;
  int ended = 0;
  mantenimiento::Avance avance() {
    return {[this](const QString& paso, int numero, int) {
              if (numero == begun.size() + 1) begun << paso;
            },
            [this](const QString&, qint64) { ++ended; },
            {}};
  }
};

}  // namespace

class TestSweeps : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void manto1RestoresStockAndPeriods_data() {
    QTest::addColumn<double>("existencia");
    QTest::newRow("figures left by concurrent saves") << -7.5;
    QTest::newRow("all at zero after a failure between steps") << 0.0;
  }
  void manto1RestoresStockAndPeriods() {
    VENTARIX_COMPANY(company);
    QFETCH(double, existencia);
    Connection c(company.cadena());
    QVERIFY(Tienda(c));
    QVERIFY(Estropear(c, existencia));

    Pasos pasos;
    const Outcome hecho = mantenimiento::Manto1(company.MakeSession(), pasos.avance());
    QVERIFY2(hecho.ok, qPrintable(hecho.message));
    for (auto it = kEnAnaquel.cbegin(); it != kEnAnaquel.cend(); ++it) {
      QCOMPARE(Existencias(c, it.key()), it.value());
    }
    QCOMPARE(Periodos(c), QSet<int>{2023});
    QCOMPARE(pasos.begun.size(), kDocumentos.size() + 3);
    QCOMPARE(pasos.ended, pasos.begun.size());
  }

  // The rebuild meets a table the engine no longer has: nothing of the sweep stays.
  void failingManto1LeavesEverythingAsItWas() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(Tienda(c));
    QVERIFY(Estropear(c, 7));
    QVERIFY(testing::Escribir(c, u"drop table \"produccion detalles\""_s));

    Pasos pasos;
    const Outcome hecho = mantenimiento::Manto1(company.MakeSession(), pasos.avance());
    QVERIFY(!hecho.ok);
    QVERIFY2(hecho.message.contains(u"produccion detalles"_s), qPrintable(hecho.message));
    QCOMPARE(pasos.begun.last(), u"Existencias de todos los almacenes"_s);
    QCOMPARE(pasos.ended, pasos.begun.size() - 1);
    for (const QString& codigo : kEnAnaquel.keys()) {
      QCOMPARE(Existencias(c, codigo), (Stock{7, 7, 7, 7, 7}));
    }
    QCOMPARE(Periodos(c), QSet<int>{1999});
  }

  void manto2RestoresBalancesAndStatuses() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    session.FechaFija = u"20240315"_s;  // the delivery notes are of the current year
    Connection c(company.cadena());
    const QStringList pago{u"pago"_s, u"item"_s, u"factura"_s, u"abono"_s};
    const QStringList cabecera{u"total"_s, u"saldo"_s, u"status"_s};
    QVERIFY(InsertarFilas(c, u"clientes"_s, {u"numero"_s, u"saldo"_s}, {{1, 999}}) &&
            InsertarFilas(c, u"proveedores"_s, {u"numero"_s, u"saldo"_s}, {{1, 55}}));
    // Payments and notes as they were saved; the headers' figures as a crossing save left them.
    QVERIFY(
        InsertarFilas(c, u"facturas"_s, QStringList{u"factura"_s} + cabecera,
                      {{u"A-1"_s, 100, 100, u"POR COBRAR"_s}, {u"A-2"_s, 250, 0, u"LIQUIDADO"_s}}));
    QVERIFY(InsertarFilas(c, u"cxc detalles"_s, pago,
                          {{u"P-1"_s, 1, u"A-1"_s, 60}, {u"P-1"_s, 2, u"A-2"_s, 50}}));
    QVERIFY(InsertarFilas(c, u"notas cliente detalles"_s,
                          {u"nota"_s, u"item"_s, u"factura"_s, u"total"_s},
                          {{u"N-1"_s, 1, u"A-1"_s, 40}}));
    QVERIFY(InsertarFilas(c, u"compras"_s, QStringList{u"compra"_s} + cabecera,
                          {{u"C-1"_s, 80, 80, u"POR PAGAR"_s}}));
    QVERIFY(InsertarFilas(c, u"cxp detalles"_s, {u"pago"_s, u"item"_s, u"compra"_s, u"abono"_s},
                          {{u"E-1"_s, 1, u"C-1"_s, 80}}));
    // A delivery note invoiced by A-2 that says it is not; an order half delivered that says it
    // is done.
    QVERIFY(InsertarFilas(c, u"remisiones"_s, {u"remision"_s}, {{u"R-1"_s}}));
    QVERIFY(InsertarFilas(c, u"facturas detalles"_s, {u"factura"_s, u"item"_s, u"remision"_s},
                          {{u"A-2"_s, 1, u"R-1"_s}}));
    QVERIFY(
        InsertarFilas(c, u"pedidos"_s, {u"pedido"_s, u"status"_s}, {{u"PE-1"_s, u"SURTIDO"_s}}));
    QVERIFY(InsertarFilas(c, u"pedidos detalles"_s,
                          {u"pedido"_s, u"item"_s, u"codigo"_s, u"cantidad"_s, u"surtir"_s},
                          {{u"PE-1"_s, 1, u"TORNILLO"_s, 10, 0}}));
    QVERIFY(InsertarFilas(c, u"remisiones detalles"_s,
                          {u"remision"_s, u"item"_s, u"pedido"_s, u"codigo"_s, u"cantidad"_s},
                          {{u"R-1"_s, 1, u"PE-1"_s, u"TORNILLO"_s, 4}}));

    Pasos pasos;
    const Outcome hecho = mantenimiento::Manto2(session, pasos.avance());
    QVERIFY2(hecho.ok, qPrintable(hecho.message));
    QCOMPARE(Leer(c, u"facturas"_s, u"A-1"_s, u"status"_s), u"LIQUIDADO"_s);
    QCOMPARE(Leer(c, u"facturas"_s, u"A-1"_s, u"saldo"_s).toDouble(), 0.0);
    QCOMPARE(Leer(c, u"facturas"_s, u"A-2"_s, u"status"_s), u"POR COBRAR"_s);
    QCOMPARE(Leer(c, u"facturas"_s, u"A-2"_s, u"saldo"_s).toDouble(), 200.0);
    QCOMPARE(c.Scalar(u"select saldo from clientes where numero = 1"_s).toDouble(), 200.0);
    QCOMPARE(Leer(c, u"compras"_s, u"C-1"_s, u"status"_s), u"LIQUIDADA"_s);
    QCOMPARE(c.Scalar(u"select saldo from proveedores where numero = 1"_s).toDouble(), 0.0);
    QCOMPARE(Leer(c, u"remisiones"_s, u"R-1"_s, u"status"_s), u"A-2"_s);
    QCOMPARE(Leer(c, u"pedidos"_s, u"PE-1"_s, u"status"_s), u"BACKORDER"_s);
    QCOMPARE(c.Scalar(u"select surtir from \"pedidos detalles\""_s).toDouble(), 6.0);
    QCOMPARE(pasos.begun, (QStringList{u"Saldos de FACTURAS"_s, u"Saldos de COMPRAS"_s,
                                       u"Status de ORDENES DE COMPRA"_s, u"Status de PEDIDOS"_s,
                                       u"Status de REMISIONES"_s, u"Saldos de CLIENTES"_s,
                                       u"Saldos de PROVEEDORES"_s}));
  }

  void barridoMarksProductsWithAPicture() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    mFunciones::CrearCarpetas(session);
    const QDir imagenes(session.CarpetaImagenes);
    QVERIFY(imagenes.mkpath(u"MARTILLO"_s));
    for (const char* archivo : {"BROCA.jpg", "MARTILLO/12.jpg", "LIJA.png"}) {
      QFile foto(imagenes.filePath(QString::fromLatin1(archivo)));
      QVERIFY(foto.open(QIODevice::WriteOnly));
    }
    Connection c(company.cadena());
    // Marks as an earlier walk left them, before pictures were added and removed.
    const QMap<QString, QString> antes = {
        {u"BROCA"_s, u""_s}, {u"CLAVO"_s, u"S"_s}, {u"MARTILLO/12"_s, u""_s}, {u"LIJA"_s, u"S"_s}};
    for (auto it = antes.cbegin(); it != antes.cend(); ++it) {
      QVERIFY(
          InsertarFila(c, u"productos"_s, {{u"codigo"_s, it.key()}, {u"imagen"_s, it.value()}}));
    }

    const Outcome hecho = mantenimiento::Barrido(session);
    QVERIFY2(hecho.ok, qPrintable(hecho.message));
    const auto imagen = [&c](const QString& codigo) {
      return c.Scalar(u"select imagen from productos where codigo = ?"_s, {codigo}).toString();
    };
    QCOMPARE(imagen(u"BROCA"_s), u"S"_s);
    QCOMPARE(imagen(u"CLAVO"_s), u""_s);
    QCOMPARE(imagen(u"LIJA"_s), u""_s);         // only .jpg counts
    QCOMPARE(imagen(u"MARTILLO/12"_s), u""_s);  // a slash never finds a file
  }

  // Asked to stop, the walk finishes the row in hand and keeps what it did.
  void barridoStopsAfterTheCurrentRow() {
    VENTARIX_COMPANY(company);
    Session session = company.MakeSession();
    mFunciones::CrearCarpetas(session);
    Connection c(company.cadena());
    for (const QString& codigo : {u"A"_s, u"B"_s, u"C"_s}) {
      QFile foto(QDir(session.CarpetaImagenes).filePath(codigo + u".jpg"_s));
      QVERIFY(foto.open(QIODevice::WriteOnly));
      QVERIFY(InsertarFila(c, u"productos"_s, {{u"codigo"_s, codigo}}));
    }
    int preguntas = 0;
    mantenimiento::Avance avance;
    avance.detener = [&preguntas] { return ++preguntas == 2; };
    QVERIFY(mantenimiento::Barrido(session, avance).ok);
    QCOMPARE(preguntas, 2);
    QCOMPARE(c.Scalar(u"select count(*) from productos where imagen = 'S'"_s).toInt(), 2);
    QCOMPARE(c.Scalar(u"select imagen from productos where codigo = 'C'"_s).toString(), u"N"_s);
  }
};

QTEST_GUILESS_MAIN(TestSweeps)
#include "tst_sweeps.moc"
