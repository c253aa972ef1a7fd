// Cancelling and deleting records of every kind, on both engines: who may, what blocks it,
// which folio may go, and what a cancelled delivery note or purchase gives back.
#include <QTest>

#include "documents/bajas.h"
#include "stock_rows.h"
#include "stored_figures.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::InsertarFila;

namespace {

// A record of the kind: a document "A-3" (serie A, folio 3), a catalogue number or a product
// code; with `fila`, a row of the document.
bool Registro(Connection& c, const QString& clase, const QString& llave, QVariantMap v = {},
              bool fila = false) {
  const QString columna = bajas::ColumnaLlave(clase);
  v.insert(columna, columna == u"numero" ? QVariant(llave.toInt()) : QVariant(llave));
  if (llave.contains(u'-') && !fila) {
    v.insert(
        {{u"serie"_s, llave.section(u'-', 0, 0)}, {u"folio"_s, llave.section(u'-', 1).toInt()}});
  }
  return InsertarFila(c, bajas::TablaDe(clase) + (fila ? u" detalles"_s : QString()), v);
}

qint64 Cuantos(Connection& c, const QString& tabla) {
  return c.Scalar(u"select count(*) from "_s + dialect::Name(tabla)).toLongLong();
}

}  // namespace

#define VERIFY_OK(outcome)                   \
  do {                                       \
    const Outcome o_ = (outcome);            \
    QVERIFY2(o_.ok, qPrintable(o_.message)); \
  } while (false)

class TstBajas : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void everyKindCancelledOnceAndLastGoes_data() {
    QTest::addColumn<QString>("clase");
    for (const QString& clase : bajas::Clases()) QTest::newRow(qPrintable(clase)) << clase;
  }

  // Records 1, 2 and 3: the third is cancelled (a second time is a warning naming the table);
  // the second waits for the third to go, cancelled or not, except products and banks, which
  // have no numbering to keep.
  void everyKindCancelledOnceAndLastGoes() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QFETCH(QString, clase);
    const QString tabla = bajas::TablaDe(clase);
    const bool documento = bajas::AvisosDe(bajas::Accion::kBaja, clase)->pide_motivo;
    const bool numerado = clase != u"PRODUCTOS" && clase != u"BANCOS";
    auto llave = [&](int n) { return (documento ? u"A-"_s : QString()) + QString::number(n); };
    for (int n = 1; n <= 3; ++n) QVERIFY(Registro(c, clase, llave(n)));
    const Session s = company.MakeSession();
    VERIFY_OK(bajas::DarDeBaja(s, clase, llave(3), u"CAPTURA DUPLICADA"_s));
    QCOMPARE(bajas::DarDeBaja(s, clase, llave(3), u"OTRA"_s).message,
             u"Este registro de '"_s + tabla + u"' ya esta dado de baja"_s);
    const Outcome segundo = bajas::Borrar(s, clase, llave(2));
    QVERIFY2(segundo.ok != numerado && (segundo.ok || segundo.message.startsWith(u"Existe un "_s)),
             qPrintable(segundo.message));
    VERIFY_OK(bajas::Borrar(s, clase, llave(3)));
    if (numerado) VERIFY_OK(bajas::Borrar(s, clase, llave(2)));
    QCOMPARE(Cuantos(c, tabla), 1);
  }

  void refusedWithoutRightOrReason() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVERIFY(Registro(c, u"FACTURAS"_s, u"A-1"_s, {{u"total"_s, 116}, {u"saldo"_s, 116}}));
    Session cajero = company.MakeSession();
    cajero.usuario.Set(u"Facturas"_s, u"SNS"_s);
    const QString negado = u"Este usuario no tiene permisos para bajas de registros"_s;
    QCOMPARE(bajas::DarDeBaja(cajero, u"FACTURAS"_s, u"A-1"_s, u"ERROR"_s).message, negado);
    QCOMPARE(bajas::Borrar(cajero, u"FACTURAS"_s, u"A-1"_s).message, negado);
    QCOMPARE(bajas::DarDeBaja(company.MakeSession(), u"FACTURAS"_s, u"A-1"_s, u" "_s).field,
             u"Motivo"_s);
    COMPARE_ROW(c, u"facturas"_s, u"factura"_s, u"A-1"_s, u"status=POR COBRAR|saldo=116"_s);
  }

  void dependentBlocks_data() {
    for (const char* columna : {"clase", "dependiente", "enlace", "al_cancelar", "al_borrar"}) {
      QTest::addColumn<QString>(columna);
    }
    QTest::addColumn<bool>("cancelado_bloquea");  // its rows keep naming the target
    auto fila = [](const char* clase, const char* dependiente, const char* enlace, const char* baja,
                   const char* borrado, bool bloquea) {
      const QString existen = u"Existen registros de "_s;
      QTest::addRow("%s by %s", clase, dependiente)
          << QString::fromLatin1(clase) << QString::fromLatin1(dependiente)
          << QString::fromLatin1(enlace) << existen + QString::fromUtf8(baja)
          << existen + QString::fromUtf8(borrado ? borrado : baja) << bloquea;
    };
    fila("FACTURAS", "CXC", "factura", "facturas en cuentas por cobrar con el pago ", nullptr,
         true);
    fila("FACTURAS", "NOTASCLIENTE", "factura", "facturas en notas de cliente con la nota ",
         nullptr, false);
    fila("REMISIONES", "FACTURAS", "remision", "remisiones en la factura ",
         "remisiones en facturas con la factura ", false);
    fila("ORDENESCOMPRA", "COMPRAS", "orden", "ordenes de compras con la compra ",
         "ordenes de compra con la compra ", false);
  }

  // A-1 is named by a row of B-1: neither cancelled nor deleted while B-1 is live; once B-1 is
  // cancelled A-1 may be cancelled, and deleted unless B-1's rows still name it.
  void dependentBlocks() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QFETCH(QString, clase);
    QFETCH(QString, dependiente);
    QFETCH(QString, enlace);
    QFETCH(QString, al_cancelar);
    QFETCH(QString, al_borrar);
    QFETCH(bool, cancelado_bloquea);
    QVERIFY(InsertarFila(c, u"productos"_s, {{u"codigo"_s, u"ARTICULO"_s}}));
    QVERIFY(Registro(c, clase, u"A-1"_s));
    QVERIFY(Registro(c, dependiente, u"B-1"_s));
    QVERIFY(Registro(c, dependiente, u"B-1"_s, {{enlace, u"A-1"_s}}, true));
    const Session s = company.MakeSession();
    QCOMPARE(bajas::DarDeBaja(s, clase, u"A-1"_s, u"ERROR"_s).message, al_cancelar + u"B-1"_s);
    QCOMPARE(bajas::Borrar(s, clase, u"A-1"_s).message, al_borrar + u"B-1"_s);
    VERIFY_OK(bajas::DarDeBaja(s, dependiente, u"B-1"_s, u"ERROR"_s));
    VERIFY_OK(bajas::DarDeBaja(s, clase, u"A-1"_s, u"ERROR"_s));
    QCOMPARE(bajas::Borrar(s, clase, u"A-1"_s).message,
             cancelado_bloquea ? al_borrar + u"B-1"_s : QString());
  }

  // Warehouse 1 got 10 screws and holds 7: note R-1 (total 348) took 3 of the 5 of order P-1.
  // Cancelling it is whole or nothing: with the transfers' table away the stock rebuild, last
  // step, fails and nothing changes; then the 3 screws come back and the order waits for 5.
  void deliveryNoteCancelledWholeOrNotAtAll() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVERIFY(InsertarFila(c, u"productos"_s, {{u"codigo"_s, u"TORNILLO"_s}, {u"almacen1"_s, 7}}));
    QVERIFY(
        testing::Escribir(c, testing::NuevoDoc(u"compras"_s, u"C-1"_s, 1, {{u"TORNILLO"_s, 10}})));
    QVERIFY(Registro(c, u"PEDIDOS"_s, u"P-1"_s, {{u"status"_s, u"BACKORDER"_s}}));
    QVERIFY(Registro(c, u"PEDIDOS"_s, u"P-1"_s,
                     {{u"codigo"_s, u"TORNILLO"_s}, {u"cantidad"_s, 5}, {u"surtir"_s, 2}}, true));
    QVERIFY(Registro(c, u"REMISIONES"_s, u"R-1"_s, {{u"total"_s, 348}}));
    QVERIFY(Registro(c, u"REMISIONES"_s, u"R-1"_s,
                     {{u"codigo"_s, u"TORNILLO"_s}, {u"cantidad"_s, 3}, {u"pedido"_s, u"P-1"_s}},
                     true));
    const Session s = company.MakeSession();
    QVERIFY(testing::Escribir(c, u"alter table \"traspasos detalles\" rename to apartados"_s));
    QVERIFY(bajas::DarDeBaja(s, u"REMISIONES"_s, u"R-1"_s, u"DEVOLUCION"_s).IsRunTimeError());
    COMPARE_ROW(c, u"remisiones"_s, u"remision"_s, u"R-1"_s, u"status=POR FACTURAR|total=348"_s);
    COMPARE_ROW(c, u"remisiones detalles"_s, u"remision"_s, u"R-1"_s, u"cantidad=3|pedido=P-1"_s);
    COMPARE_ROW(c, u"pedidos detalles"_s, u"pedido"_s, u"P-1"_s, u"surtir=2"_s);
    QCOMPARE(testing::Existencia(c, u"TORNILLO"_s, 1), 7.0);
    QVERIFY(testing::Escribir(c, u"alter table apartados rename to \"traspasos detalles\""_s));
    VERIFY_OK(bajas::DarDeBaja(s, u"REMISIONES"_s, u"R-1"_s, u"DEVOLUCION"_s));
    QCOMPARE(testing::Existencia(c, u"TORNILLO"_s, 1), 10.0);
    COMPARE_ROW(c, u"pedidos detalles"_s, u"pedido"_s, u"P-1"_s, u"surtir=5"_s);
    COMPARE_ROW(c, u"pedidos"_s, u"pedido"_s, u"P-1"_s, u"status=POR SURTIR"_s);
    COMPARE_ROW(c, u"remisiones"_s, u"remision"_s, u"R-1"_s,
                u"status=BAJA|motivo de baja=DEVOLUCION|total=0"_s);
  }

  // 10 screws bought into warehouse 1 and 4 sold: without the purchase it would hold -4. As
  // an expense the purchase moved no stock and goes.
  void purchaseWhoseGoodsAreSold() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVERIFY(InsertarFila(c, u"productos"_s, {{u"codigo"_s, u"TORNILLO"_s}, {u"almacen1"_s, 6}}));
    QVERIFY(
        testing::Escribir(c, testing::NuevoDoc(u"compras"_s, u"C-1"_s, 1, {{u"TORNILLO"_s, 10}})));
    const Session s = company.MakeSession();
    const QString negativas =
        u"No se permiten existencias negativas para ALMACEN1 del código TORNILLO\n\n"
        u"Existencias = -4"_s;
    QCOMPARE(bajas::DarDeBaja(s, u"COMPRAS"_s, u"C-1"_s, u"ERROR"_s).message, negativas);
    QCOMPARE(bajas::Borrar(s, u"COMPRAS"_s, u"C-1"_s).message, negativas);
    QVERIFY(testing::Escribir(c, u"update compras set movimiento = 'GASTOS'"_s));
    VERIFY_OK(bajas::Borrar(s, u"COMPRAS"_s, u"C-1"_s));
  }

  void stampedDocumentsStay_data() {
    QTest::addColumn<QString>("clase");
    QTest::addColumn<QString>("esquema");
    QTest::addColumn<QString>("mensaje");
    const QString uuid = u"Existe un folio fiscal digital / UUID"_s;
    QTest::newRow("CFDi invoice") << u"FACTURAS"_s << u"CFDI"_s << uuid + u"\n\n6F1E8A52"_s;
    QTest::newRow("CFD invoice") << u"FACTURAS"_s << u"CFD"_s << QString();
    QTest::newRow("CFDi credit note") << u"NOTASCLIENTE"_s << u"CFDI"_s << uuid;
  }

  // A stamped document exists at the SAT: cancelled, never deleted.
  void stampedDocumentsStay() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QFETCH(QString, clase);
    QFETCH(QString, esquema);
    QFETCH(QString, mensaje);
    QVERIFY(Registro(c, clase, u"A-1"_s, {{u"esquema"_s, esquema}, {u"uuid"_s, u"6F1E8A52"_s}}));
    const Session s = company.MakeSession();
    VERIFY_OK(bajas::DarDeBaja(s, clase, u"A-1"_s, u"ERROR"_s));
    QCOMPARE(bajas::Borrar(s, clase, u"A-1"_s).message, mensaje);
  }

  // Both families number their ranges from 1: invoice range 1 takes its own certificate and
  // CBB image only.
  void rangeTakesOnlyItsOwnSealingMaterial() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QVERIFY(Registro(c, u"FOLIOSFACTURAS"_s, u"1"_s));
    for (int documento : {0, 1}) {
      for (const QString& lado : {u"certificados"_s, u"cbb"_s}) {
        QVERIFY(InsertarFila(c, lado, {{u"numero"_s, 1}, {u"documento"_s, documento}}));
      }
    }
    VERIFY_OK(bajas::Borrar(company.MakeSession(), u"FOLIOSFACTURAS"_s, u"1"_s));
    QCOMPARE(c.Scalar(u"select count(*) from certificados, cbb where certificados.documento = 1 "
                      u"and cbb.documento = 1"_s)
                 .toInt(),
             1);
    QCOMPARE(Cuantos(c, u"certificados"_s) + Cuantos(c, u"cbb"_s), 2);
  }
};

QTEST_GUILESS_MAIN(TstBajas)
#include "tst_bajas.moc"
