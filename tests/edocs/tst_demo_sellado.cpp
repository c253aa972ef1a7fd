// The demo company seals out of the box: its default CFDi ranges, the certificate stored with
// them and the SAT files a new folder tree receives are enough for an invoice and a credit note
// that the SAT's schema accepts and the certificate's public key verifies.
#include <QFile>
#include <QSqlQuery>
#include <QTest>

#include "core/database.h"
#include "core/session_load.h"
#include "demo/demo_company.h"
#include "edocs/empresa_sellado.h"
#include "edocs/herramientas.h"
#include "edocs/mDigital.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::edocs;
using namespace Qt::StringLiterals;

namespace {

// Two of the shop's products at 16 %, in the columns of the capture grid.
QVector<QStringList> Renglones(Connection& c, bool nota) {
  QVector<QStringList> filas;
  QSqlQuery q = c.Exec(
      u"select codigo, producto, unidad, precio1 from productos "
      "where status = 'ALTA' and impuesto = 16 order by codigo"_s);
  while (q.next() && filas.size() < 2) {
    filas.append((nota ? testing::FilaNota : testing::FilaFactura)(
        q.value(0).toString(), q.value(1).toString(), q.value(2).toString(), filas.size() + 2,
        q.value(3).toDouble()));
  }
  return filas;
}

}  // namespace

class TestDemoSellado : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void FacturaYNotaSelladas_data() {
    QTest::addColumn<bool>("nota");
    QTest::addColumn<bool>("sin_carpeta");
    QTest::addColumn<bool>("ya_guardada");
    QTest::newRow("factura") << false << false << false;
    QTest::newRow("nota de crédito") << true << false << false;
    QTest::newRow("carpeta xml perdida") << false << true << false;
    QTest::newRow("folio de otra factura guardada") << false << false << true;
  }
  void FacturaYNotaSelladas() {
    QFETCH(bool, nota);
    QFETCH(bool, sin_carpeta);
    QFETCH(bool, ya_guardada);
    QFETCH_GLOBAL(QString, engine);
    testing::TestCompany company(engine, testing::TestCompany::Contenido::kDemo);
    if (company.skipped()) QSKIP("VENTARIX_TEST_PG is not set");
    QVERIFY2(company.ok(), qPrintable(company.error()));
    Session session = company.MakeSession();
    CargarSesion(session);
    QVERIFY(session.FolioFacturas > 0 && session.FolioNotas > 0);

    Connection c(session.Cadena);
    DocumentoCaptura forma = testing::Documento(nota ? session.FolioNotas : session.FolioFacturas,
                                                nota ? u"NC"_s : u"A"_s, nota);
    // Inside the demo certificate's validity (to May 2027), whatever day the test runs.
    forma.Fecha = QDateTime(QDate(2026, 11, 23), QTime(11, 15));
    forma.Datos.insert(1, u"2"_s);  // a client of the demo company
    forma.Fg1 = Renglones(c, nota);
    QCOMPARE(forma.Fg1.size(), 2);

    if (sin_carpeta) session.CarpetaXml = company.folder() + u"/no-existe/xml"_s;
    const ResultadoSellado r = (nota ? SellarEgresoCFDi : SellarIngresoCFDi)(session, forma, {});
    QVERIFY2(r.ok(), qPrintable(r.Msg1));
    if (sin_carpeta) {
      // The file could not be written: no message of the checks, but the screen is told.
      QVERIFY(r.archivo.isEmpty());
      QVERIFY(r.error_interno.contains(u"no-existe"_s));
      return;
    }
    QVERIFY(r.error_interno.isEmpty());
    QVERIFY2(QFile::exists(r.archivo), qPrintable(r.archivo));
    if (ya_guardada) {
      // Another workstation saved this folio first: its file stays as it is.
      QVERIFY(testing::InsertarFila(c, u"facturas"_s,
                                    {{u"factura"_s, u"OTRA"_s},
                                     {u"serie"_s, r.comprobante.Serie},
                                     {u"folio"_s, r.comprobante.Folio.toInt()}}));
      QFile otra(r.archivo);
      QVERIFY(otra.open(QIODevice::WriteOnly) && otra.write("OTRA") == 4);
      otra.close();
      const ResultadoSellado segunda = SellarIngresoCFDi(session, forma, {});
      QVERIFY(!segunda.ok());
      QVERIFY2(segunda.Msg1.contains(u"otro documento"_s), qPrintable(segunda.Msg1));
      QVERIFY(otra.open(QIODevice::ReadOnly));
      QCOMPARE(otra.readAll(), QByteArray("OTRA"));
      return;
    }
    QCOMPARE(r.comprobante.NoCertificado, u"30001000000500003416"_s);
    QCOMPARE(r.comprobante.emisor.rfc, u"EKU9003173C9"_s);

    const QString esquema = session.CarpetaEsquemasCFDi + u"/cfdv32.xsd"_s;
    const testing::Salida xsd = testing::Ejecutar(
        u"xmllint"_s, {u"--noout"_s, u"--nonet"_s, u"--schema"_s, esquema, r.archivo});
    QVERIFY2(xsd.codigo == 0, xsd.Todo().constData());
    QByteArray detalle;
    QVERIFY2(testing::SelloVerifica(r.comprobante, &detalle), detalle.constData());
  }
};

QTEST_GUILESS_MAIN(TestDemoSellado)
#include "tst_demo_sellado.moc"
