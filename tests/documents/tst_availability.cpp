// The availability check of documents that take stock out or bring it in.
#include <QTest>

#include "core/database.h"
#include "documents/mChecarExistencias.h"
#include "documents/mInventario.h"
#include "stock_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using mChecarExistencias::Partida;
using testing::Escribir;
using testing::InsertarFila;
using testing::NuevoDoc;

namespace {

bool AltaProducto(Connection& c, const QString& codigo, int almacen, double existencia) {
  return InsertarFila(c, u"productos"_s,
                      {{u"codigo"_s, codigo}, {u"almacen%1"_s.arg(almacen), existencia}});
}

Outcome Salida(const Session& s, Connection& c, const QString& clave, int almacen, bool guardada,
               const QList<Partida>& grid) {
  return mChecarExistencias::ChecarExistenciasSalida(s, c, u"remisiones"_s, u"remision"_s, clave,
                                                     u"ALMACEN%1"_s.arg(almacen), guardada, &grid);
}

Outcome Entrada(const Session& s, Connection& c, const QString& clave, int almacen, bool guardada,
                const QList<Partida>* grid) {
  return mChecarExistencias::ChecarExistenciasEntrada(s, c, u"compras"_s, u"compra"_s, clave,
                                                      u"ALMACEN%1"_s.arg(almacen), guardada, grid);
}

QString Negativas(const QString& columna, const QString& codigo, const QString& suma) {
  return u"No se permiten existencias negativas para "_s + columna + u" del código "_s + codigo +
         u"\n\nExistencias = "_s + suma;
}

}  // namespace

class TestAvailability : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void deliveryNote_data();
  void deliveryNote();
  void purchaseLoweredBelowWhatWasSold();
  void everyProductOfTheDocumentIsTested();
};

void TestAvailability::deliveryNote_data() {
  QTest::addColumn<double>("existencia");  // almacen1 of "A" now, after the stored note
  QTest::addColumn<double>("guardada");    // units of the stored note, 0 for a new one
  QTest::addColumn<QList<double>>("malla");
  QTest::addColumn<QString>("sin_existencias");
  QTest::addColumn<QString>("mensaje");  // empty: may be saved
  const QString menos_uno = Negativas(u"ALMACEN1"_s, u"A"_s, u"-1"_s);
  QTest::newRow("changed 3 to 5, stock 1") << 1.0 << 3.0 << QList<double>{5} << u"N"_s << menos_uno;
  QTest::newRow("changed 3 to 5, stock 1, saving without stock")
      << 1.0 << 3.0 << QList<double>{5} << u"S"_s << QString();
  QTest::newRow("changed 3 to 5, stock 2") << 2.0 << 3.0 << QList<double>{5} << u"N"_s << QString();
  QTest::newRow("changed 5 to 3, stock 0") << 0.0 << 5.0 << QList<double>{3} << u"N"_s << QString();
  QTest::newRow("new note of 4 on two rows, stock 3")
      << 3.0 << 0.0 << QList<double>{1, 3} << u"N"_s << menos_uno;
  QTest::newRow("new note of 3.5, stock 3")
      << 3.0 << 0.0 << QList<double>{3.5} << u"N"_s << Negativas(u"ALMACEN1"_s, u"A"_s, u"-0.5"_s);
  QTest::newRow("new note taking exactly the stock in tenths")
      << 0.3 << 0.0 << QList<double>{0.1, 0.2} << u"N"_s << QString();
}

void TestAvailability::deliveryNote() {
  QFETCH(double, existencia);
  QFETCH(double, guardada);
  QFETCH(QList<double>, malla);
  QFETCH(QString, sin_existencias);
  QFETCH(QString, mensaje);
  VENTARIX_COMPANY_CONNECTION(company, c);
  Session session = company.MakeSession();
  session.empresa.Set(u"Guardar_Sin_Existencias"_s, sin_existencias);
  QVERIFY(AltaProducto(c, u"A"_s, 1, existencia));
  if (guardada > 0) {
    QVERIFY(Escribir(c, NuevoDoc(u"remisiones"_s, u"R-1"_s, 1, {{u"A"_s, guardada}})));
  }
  QList<Partida> grid;
  for (double q : malla) grid.append({u"A"_s, q});
  grid.append({u"  "_s, 9});  // a row with no code is not counted

  const Outcome result = Salida(session, c, u"R-1"_s, 1, guardada > 0, grid);
  QCOMPARE(result.message, mensaje);
  QCOMPARE(result.ok, mensaje.isEmpty());
  if (!result.ok) QCOMPARE(result.icon, MessageIcon::kStop);
}

void TestAvailability::purchaseLoweredBelowWhatWasSold() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  const Session session = company.MakeSession();
  // A purchase of 10 units into store 2, of which a delivery note has sold 7.
  QVERIFY(AltaProducto(c, u"A"_s, 2, 0));
  QVERIFY(Escribir(c, NuevoDoc(u"compras"_s, u"C-1"_s, 2, {{u"A"_s, 10}})));
  QVERIFY(mInventario::ActualizarExistencias(c, u"compras"_s, u"compra"_s, u"C-1"_s, 2, 1));
  QVERIFY(Escribir(c, NuevoDoc(u"remisiones"_s, u"R-1"_s, 2, {{u"A"_s, 7}})));
  QVERIFY(mInventario::ActualizarExistencias(c, u"remisiones"_s, u"remision"_s, u"R-1"_s, 2, -1));
  QCOMPARE(testing::Existencia(c, u"A"_s, 2), 3.0);

  const QList<Partida> cinco{{u"A"_s, 5}}, ocho{{u"A"_s, 8}}, uno{{u"A"_s, 1}};
  QCOMPARE(Entrada(session, c, u"C-1"_s, 2, true, &cinco).message,
           Negativas(u"ALMACEN2"_s, u"A"_s, u"-2"_s));
  QVERIFY(Entrada(session, c, u"C-1"_s, 2, true, &ocho).ok);
  // Cancelling or deleting the purchase takes all of it away.
  QCOMPARE(Entrada(session, c, u"C-1"_s, 2, true, nullptr).message,
           Negativas(u"ALMACEN2"_s, u"A"_s, u"-7"_s));
  // A new purchase only brings stock in.
  QVERIFY(Entrada(session, c, u"C-2"_s, 2, false, &uno).ok);
}

void TestAvailability::everyProductOfTheDocumentIsTested() {
  VENTARIX_COMPANY_CONNECTION(company, c);
  const Session session = company.MakeSession();
  // B is already short and stays on the note unchanged; C is short but not on the note.
  QVERIFY(AltaProducto(c, u"A"_s, 3, 10));
  QVERIFY(AltaProducto(c, u"B"_s, 3, -2));
  QVERIFY(AltaProducto(c, u"C"_s, 3, -4));
  QVERIFY(Escribir(c, NuevoDoc(u"remisiones"_s, u"R-1"_s, 3, {{u"A"_s, 1}, {u"B"_s, 1}})));
  QCOMPARE(Salida(session, c, u"R-1"_s, 3, true, {{u"A"_s, 2}, {u"B"_s, 1}}).message,
           Negativas(u"ALMACEN3"_s, u"B"_s, u"-2"_s));
  QVERIFY(!Salida(session, c, u"R-2"_s, 3, false, {{u"A"_s, 2}, {u"C"_s, 0}}).ok);
  QVERIFY(Salida(session, c, u"R-2"_s, 3, false, {{u"A"_s, 10}}).ok);

  // Codes are compared as text entry stores them: trimmed and without quotes.
  QVERIFY(Salida(session, c, u"R-3"_s, 3, false, {{u" A' "_s, 10}}).ok);
  const QList<Partida> grid{{u"A"_s, 1}, {u"ZZ9"_s, 1}};
  Outcome result = Salida(session, c, u"R-3"_s, 3, false, grid);
  QCOMPARE(result.message, u"No existe en productos el código ZZ9"_s);
  QCOMPARE(result.icon, MessageIcon::kStop);
  // A purchase into a warehouse the products don't have is refused, not saved.
  result = Entrada(session, c, u"C-1"_s, 6, false, &grid);
  QVERIFY(!result.ok);
  QCOMPARE(result.icon, MessageIcon::kStop);
}

QTEST_GUILESS_MAIN(TestAvailability)
#include "tst_availability.moc"
