// The monthly SAT report of self-sealed and CBB documents, on both engines: which documents of
// a month and scheme are listed and how, the file's name, and the file byte for byte.
#include <QFile>
#include <QTest>

#include "core/database.h"
#include "core/mFunciones.h"
#include "edocs/herramientas.h"
#include "edocs/informe_filas.h"
#include "edocs/informe_sat.h"
#include "support/test_company.h"

using namespace ventarix;
using namespace ventarix::edocs;
using namespace Qt::StringLiterals;
using testing::Leer;
using testing::PrepararMes;

namespace {

const QDate kMarzo(2024, 3, 1);

Session Sesion(const testing::TestCompany& company) {
  Session session = company.MakeSession();
  session.empresa.Set(u"rfc"_s, u"EKU9003173C9"_s);
  mFunciones::CrearCarpetas(session);
  return session;
}

QList<RenglonInforme> Listar(const Session& session, const QString& esquema, const QDate& mes) {
  Connection c(session.Cadena);
  const ListadoInforme listado = ListarInforme(c, esquema, mes);
  if (!listado.ok) qWarning("%s", qPrintable(listado.error));
  return listado.renglones;
}

}  // namespace

class TestInformeSat : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // The month's CFD documents in the order they were saved, each as the SAT reads it, and
  // its file byte for byte: CR LF between lines, none after the last. A cancelled invoice
  // keeps its amounts with status 0; a note in dollars is reported in pesos at rate 1, since
  // only invoices carry a currency.
  void MesDeMarzo() {
    VENTARIX_COMPANY(company);
    QString error;
    QVERIFY2(PrepararMes(company.cadena(), &error), qPrintable(error));
    const Session session = Sesion(company);
    const QList<RenglonInforme> r = Listar(session, u"CFD"_s, QDate(2024, 3, 17));
    QCOMPARE(r.size(), 4);
    QCOMPARE(r[0].serie, QString());  // series "0" is listed empty
    QCOMPARE(r[0].rfc, u"MOPR7503125H1"_s);
    QCOMPARE(r[1].serie, u"A"_s);
    QCOMPARE(r[2].rfc, u"GAHE6908107T2"_s);
    const QString path = ArchivoInforme(session, kMarzo);
    QCOMPARE(path, session.CarpetaBak + u"/1EKU9003173C9032024.txt"_s);
    QVERIFY(EscribirInforme(path, r).ok);
    const QByteArray esperado =
        "|7|202412345|02/03/2024 09:00:00|580.00|80.00|0|I|MXN|1|||||\r\n"
        "|1|202412345|05/03/2024 10:15:30|1160.50|160.07|1|I|USD|17.25|||||\r\n"
        "|3|202454321|20/03/2024 17:45:00|232.00|32.00|1|E|MXN|1|||||\r\n"
        "|9|202412345|31/03/2024 23:59:59|100.00|16.00|1|I|MXN|1|||||";
    QCOMPARE(Leer(path), esperado);

    // The other scheme has its own report; the note dated in February belongs to February's.
    const QList<RenglonInforme> cfdi = Listar(session, u"CFDI"_s, kMarzo);
    QCOMPARE(cfdi.size(), 1);
    QCOMPARE(cfdi[0].total, 999.0);
    const QList<RenglonInforme> febrero = Listar(session, u"CFD"_s, QDate(2024, 2, 1));
    QCOMPARE(febrero.size(), 1);
    QCOMPARE(febrero[0].folio, 4);
  }

  // A month without documents still gets its file, empty, and replaces an older one; a folder
  // that can't take the file gets a stop message naming it, and a line in the log.
  void ArchivoVacioOSinCarpeta() {
    VENTARIX_COMPANY(company);
    QString error;
    QVERIFY2(PrepararMes(company.cadena(), &error), qPrintable(error));
    Session session = Sesion(company);
    const QDate enero(2024, 1, 1);
    QString path = ArchivoInforme(session, enero);
    QVERIFY(testing::Escribir(path, "|viejo||||"));
    const QList<RenglonInforme> nada = Listar(session, u"CFD"_s, enero);
    QVERIFY(nada.isEmpty());
    QVERIFY(EscribirInforme(path, nada).ok);
    QVERIFY(QFile::exists(path));  // empty, not missing
    QCOMPARE(Leer(path), QByteArray());

    session.CarpetaBak = company.folder() + u"/no/existe"_s;
    path = ArchivoInforme(session, kMarzo);
    const Outcome escrito = EscribirInforme(path, {});
    QVERIFY(!escrito.ok);
    QCOMPARE(escrito.icon, MessageIcon::kStop);
    QVERIFY(escrito.message.endsWith(path));
    QVERIFY(!QFile::exists(path));
  }

  void Titulo_data() {
    QTest::addColumn<QDate>("mes");
    QTest::addColumn<QString>("titulo");
    QTest::newRow("enero") << QDate(2014, 1, 31) << u"INFORME MENSUAL SAT AL MES DE enero 2014"_s;
    QTest::newRow("diciembre") << QDate(2013, 12, 1)
                               << u"INFORME MENSUAL SAT AL MES DE diciembre 2013"_s;
  }
  void Titulo() {
    QFETCH(QDate, mes);
    QFETCH(QString, titulo);
    QCOMPARE(TituloInforme(mes), titulo);
  }
};

QTEST_GUILESS_MAIN(TestInformeSat)
#include "tst_informe_sat.moc"
