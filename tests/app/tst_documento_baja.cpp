// "ventarix documento cancelar|borrar" run by the built program on both engines: its exit
// status, what it prints, and what it leaves in the company.
#include <QTest>

#include "app/ventarix_run.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::Describe;
using testing::InsertarFila;

class TestDocumentoBaja : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void exitStatusAndMessage_data() {
    QTest::addColumn<QString>("args");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("says");
    QTest::addColumn<int>("bajas");  // delivery notes cancelled afterwards
    QTest::newRow("cancelled") << u"cancelar R-5 --motivo ERROR"_s << 0
                               << u"Registro R-5 de 'remisiones' dado de baja"_s << 1;
    QTest::newRow("a higher folio exists") << u"borrar R-4 --familia=remisiones"_s << 1
                                           << u"Existe un folio mayor a esta remisión"_s << 0;
    QTest::newRow("key of two families")
        << u"borrar A-1"_s << 2
        << u"La llave A-1 está en remisiones, facturas: indique cuál con --familia"_s << 0;
    QTest::newRow("user without the right")
        << u"cancelar R-5 --motivo X --usuario CAJERO"_s << 1
        << u"Este usuario no tiene permisos para bajas de registros"_s << 0;
    QTest::newRow("no reason") << u"cancelar R-5"_s << 2 << u"Falta --motivo TEXTO"_s << 0;
  }

  // Delivery notes, invoice A-1, and a cashier who may not cancel delivery
  // notes.
  void exitStatusAndMessage() {
    VENTARIX_COMPANY_CONNECTION(company, c);
    QFETCH(QString, args);
    QFETCH(int, code);
    QFETCH(QString, says);
    QFETCH(int, bajas);
    for (const QString& fila : {u"remisiones remision R-4"_s, u"remisiones remision R-5"_s,
                                u"remisiones remision A-1"_s, u"facturas factura A-1"_s}) {
      const QStringList p = fila.split(u' ');
      QVERIFY(InsertarFila(c, p[0],
                           {{p[1], p[2]},
                            {u"serie"_s, p[2].section(u'-', 0, 0)},
                            {u"folio"_s, p[2].section(u'-', 1).toInt()}}));
    }
    QVERIFY(
        InsertarFila(c, u"usuarios"_s, {{u"usuario"_s, u"CAJERO"_s}, {u"remisiones"_s, u"SNS"_s}}));
    const testing::Run run = testing::Ventarix(QStringList{u"documento"_s} + args.split(u' ') +
                                               QStringList{u"--empresa"_s, company.path()});
    QVERIFY2(run.code == code, qPrintable(Describe(run)));
    QVERIFY2((code == 0 ? run.out : run.err).contains(says), qPrintable(Describe(run)));
    QCOMPARE(c.Scalar(u"select count(*) from remisiones where status = 'BAJA'"_s).toInt(), bajas);
  }
};

QTEST_GUILESS_MAIN(TestDocumentoBaja)
#include "tst_documento_baja.moc"
