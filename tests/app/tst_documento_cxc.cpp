// A payment fed to "ventarix documento guardar" and then cancelled and deleted from the command
// line, on both engines and both sides (a client's receipt, a payment to a supplier): what the
// document paid owes after each step.
#include <QFile>
#include <QSqlQuery>
#include <QTest>

#include "app/ventarix_run.h"
#include "purchasing/compras_por_pagar.h"
#include "sales/facturas_por_cobrar.h"
#include "support/empresa_demo.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::Describe;

namespace {

// "status saldo" of T-1 in `tabla` (invoices or purchases).
QString Documento(Connection& c, const QString& tabla) {
  QSqlQuery q = c.Exec(u"select status, saldo from "_s + tabla + u" where "_s + tabla.chopped(1) +
                       u" = 'T-1'"_s);
  return q.next() ? u"%1 %2"_s.arg(q.value(0).toString()).arg(q.value(1).toDouble()) : QString();
}

}  // namespace

class TestDocumentoCxC : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void PagoPorLineaDeComandos_data() {
    QTest::addColumn<QString>("familia");
    QTest::addColumn<QString>("tabla");
    QTest::addColumn<QString>("pagada");
    QTest::addColumn<QString>("abierta");
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("client's receipt")
        << u"cxc"_s << u"facturas"_s << u"LIQUIDADO 0"_s << u"POR COBRAR 100"_s
        << QByteArray(R"({"familia": "cxc", "cliente": 9001, "metodo": 1, "banco": 1,
                          "anotacion": "TRANSFERENCIA 88120",
                          "partidas": [{"factura": "T-1", "abono": 100}]})");
    QTest::newRow("payment to a supplier")
        << u"cxp"_s << u"compras"_s << u"LIQUIDADA 0"_s << u"POR PAGAR 100"_s
        << QByteArray(R"({"familia": "cxp", "proveedor": 9001, "banco": 1, "cheque": "412",
                          "beneficiario": "FERRETERA DEL NORTE", "anotacion": "FACTURA 88",
                          "partidas": [{"compra": "T-1", "abono": 100}]})");
  }
  void PagoPorLineaDeComandos() {
    QFETCH(QString, familia);
    QFETCH(QString, tabla);
    QFETCH(QString, pagada);
    QFETCH(QString, abierta);
    QFETCH(QByteArray, json);
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Connection c(company->cadena());
    const QDate fecha(2026, 10, 5);
    QVERIFY(familia == u"cxc"_s
                ? testing::InsertarFacturas(c, {9001}, {{u"T-1"_s, 9001, 100, fecha}})
                : testing::InsertarCompras(c, {9001}, {{u"T-1"_s, 9001, 100, fecha}}));
    const QString ruta = company->folder() + u"/pago.json"_s;
    QFile archivo(ruta);
    QVERIFY(archivo.open(QIODevice::WriteOnly));
    archivo.write(json);
    archivo.close();
    const QStringList empresa = {u"--empresa"_s, company->path(), u"--familia"_s, familia};

    testing::Run run =
        testing::Ventarix({u"documento"_s, u"guardar"_s, u"--empresa"_s, company->path(), ruta});
    QVERIFY2(run.code == 0, qPrintable(Describe(run)));
    const QString llave = run.out.trimmed();
    QCOMPARE(Documento(c, tabla), pagada);

    run = testing::Ventarix(
        QStringList{u"documento"_s, u"cancelar"_s, llave, u"--motivo"_s, u"CHEQUE DEVUELTO"_s} +
        empresa);
    QVERIFY2(run.code == 0, qPrintable(Describe(run)));
    QCOMPARE(Documento(c, tabla), abierta);
    run = testing::Ventarix(QStringList{u"documento"_s, u"borrar"_s, llave} + empresa);
    QVERIFY2(run.code == 0, qPrintable(Describe(run)));
    QCOMPARE(c.Scalar(u"select count(*) from "_s + familia + u" where pago = ?"_s, {llave}).toInt(),
             0);
  }
};

QTEST_GUILESS_MAIN(TestDocumentoCxC)
#include "tst_documento_cxc.moc"
