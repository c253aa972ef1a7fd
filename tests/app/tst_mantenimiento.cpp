// The night sweeps as an administrator schedules them: "ventarix mantenimiento", run by the
// built program without a display, on both engines (its misuse is in tst_commands).
#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include "app/ventarix_run.h"
#include "core/mFunciones.h"
#include "support/document_rows.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::Describe;
using testing::InsertarFila;
using testing::Run;
using testing::Ventarix;

namespace {

// "[####....]  3/17 Periodo de COMPRAS    12 ms": the bar, the step and its time.
const QRegularExpression kPaso(u"^\\[([#.]{20})\\] +(\\d+)/(\\d+) (\\S.*\\S) +(\\d+) ms$"_s);

}  // namespace

class TestMantenimiento : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  void sweepPrintsEachStepAndRepairs_data() {
    QTest::addColumn<QString>("accion");
    QTest::addColumn<QString>("lectura");
    QTest::addColumn<double>("esperado");
    QTest::addColumn<int>("pasos");
    QTest::newRow("manto1") << u"manto1"_s
                            << u"select almacen1 from productos where codigo = 'BROCA'"_s << 5.0
                            << 17;
    QTest::newRow("manto2") << u"manto2"_s << u"select saldo from facturas where factura = 'A-1'"_s
                            << 100.0 << 7;
    QTest::newRow("barrido") << u"barrido"_s
                             << u"select count(*) from productos where imagen = 'S'"_s << 1.0 << 1;
  }
  void sweepPrintsEachStepAndRepairs() {
    VENTARIX_COMPANY(company);
    QFETCH(QString, accion);
    QFETCH(QString, lectura);
    QFETCH(double, esperado);
    QFETCH(int, pasos);
    {
      // Stock that forgot a purchase of 5 drills, an unpaid invoice that shows as paid, and
      // the drills' picture in the company's folder tree.
      Connection c(company.cadena());
      QVERIFY(InsertarFila(c, u"productos"_s, {{u"codigo"_s, u"BROCA"_s}}));
      QVERIFY(
          InsertarFila(c, u"compras detalles"_s,
                       {{u"compra"_s, u"C-1"_s}, {u"codigo"_s, u"BROCA"_s}, {u"cantidad"_s, 5}}));
      QVERIFY(InsertarFila(c, u"facturas"_s,
                           {{u"factura"_s, u"A-1"_s}, {u"total"_s, 100}, {u"saldo"_s, 0}}));
      const QDir imagenes(company.folder() + u"/Inicio/Imagenes"_s);
      QVERIFY(imagenes.mkpath(u"."_s));
      QFile foto(imagenes.filePath(u"BROCA.jpg"_s));
      QVERIFY(foto.open(QIODevice::WriteOnly));
    }

    const Run run = Ventarix({u"mantenimiento"_s, accion, u"--empresa"_s, company.path()});
    QVERIFY2(run.code == 0, qPrintable(Describe(run)));
    const QStringList lineas = run.out.split(u'\n', Qt::SkipEmptyParts);
    int numero = 0;
    for (const QString& linea : lineas) {
      const QRegularExpressionMatch m = kPaso.match(linea);
      if (!m.hasMatch()) continue;
      ++numero;
      QCOMPARE(m.captured(2).toInt(), numero);
      QCOMPARE(m.captured(3).toInt(), pasos);
      QCOMPARE(m.captured(1).count(u'#'), numero * 20 / pasos);
    }
    QVERIFY2(numero == pasos, qPrintable(run.out));
    QVERIFY2(lineas.last().startsWith(u"Terminado en "_s), qPrintable(run.out));
    QCOMPARE(Connection(company.cadena()).Scalar(lectura).toDouble(), esperado);
  }

  void failureSaysWhyAndExitsNonZero() {
    VENTARIX_COMPANY(company);
    Connection c(company.cadena());
    QVERIFY(testing::Escribir(c, u"drop table \"traspasos detalles\""_s));
    const Run run = Ventarix({u"mantenimiento"_s, u"manto1"_s, u"--empresa="_s + company.path()});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.startsWith(u"El mantenimiento no terminó: "_s), qPrintable(Describe(run)));
    QVERIFY2(run.err.contains(u"traspasos detalles"_s), qPrintable(Describe(run)));
    // The month's error log of the company's folder tree keeps the engine's words.
    Session sesion;
    sesion.CarpetaErrores = company.folder() + u"/Inicio/Errores"_s;
    QFile log(mFunciones::ArchivoDeErrores(sesion, QDate::currentDate()));
    QVERIFY2(log.open(QIODevice::ReadOnly | QIODevice::Text), qPrintable(log.fileName()));
    QVERIFY(QString::fromUtf8(log.readAll()).contains(u"traspasos detalles"_s));
  }
};

QTEST_GUILESS_MAIN(TestMantenimiento)
#include "tst_mantenimiento.moc"
