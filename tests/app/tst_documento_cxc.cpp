// A receipt fed to "ventarix documento guardar" and then cancelled and deleted from the command
// line, on both engines: what the invoice owes after each step.
#include <QFile>
#include <QSqlQuery>
#include <QTest>

#include "app/ventarix_run.h"
#include "sales/facturas_por_cobrar.h"
#include "support/empresa_demo.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::Describe;

namespace {

QString Factura(Connection& c) {
  QSqlQuery q = c.Exec(u"select status, saldo from facturas where factura = 'T-1'"_s);
  return q.next() ? u"%1 %2"_s.arg(q.value(0).toString()).arg(q.value(1).toDouble()) : QString();
}

}  // namespace

class TestDocumentoCxC : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void ReciboPorLineaDeComandos() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Connection c(company->cadena());
    QVERIFY(testing::InsertarFacturas(c, {9001}, {{u"T-1"_s, 9001, 100, QDate(2026, 10, 5)}}));
    const QString ruta = company->folder() + u"/recibo.json"_s;
    QFile archivo(ruta);
    QVERIFY(archivo.open(QIODevice::WriteOnly));
    archivo.write(R"({"familia": "cxc", "cliente": 9001, "metodo": 1, "banco": 1,
                      "anotacion": "TRANSFERENCIA 88120",
                      "partidas": [{"factura": "T-1", "abono": 100}]})");
    archivo.close();
    const QStringList empresa = {u"--empresa"_s, company->path(), u"--familia"_s, u"cxc"_s};

    testing::Run run =
        testing::Ventarix({u"documento"_s, u"guardar"_s, u"--empresa"_s, company->path(), ruta});
    QVERIFY2(run.code == 0, qPrintable(Describe(run)));
    const QString llave = run.out.trimmed();
    QCOMPARE(Factura(c), u"LIQUIDADO 0"_s);

    run = testing::Ventarix(
        QStringList{u"documento"_s, u"cancelar"_s, llave, u"--motivo"_s, u"CHEQUE DEVUELTO"_s} +
        empresa);
    QVERIFY2(run.code == 0, qPrintable(Describe(run)));
    QCOMPARE(Factura(c), u"POR COBRAR 100"_s);
    run = testing::Ventarix(QStringList{u"documento"_s, u"borrar"_s, llave} + empresa);
    QVERIFY2(run.code == 0, qPrintable(Describe(run)));
    QCOMPARE(c.Scalar(u"select count(*) from cxc where pago = ?"_s, {llave}).toInt(), 0);
  }
};

QTEST_GUILESS_MAIN(TestDocumentoCxC)
#include "tst_documento_cxc.moc"
