// `ventarix documento guardar` as a web store or a script feeds it: several processes at once
// on one serie, a save killed halfway, and files that are not what they should be; an invoice
// saved, stamped and its UUID cancelled from the command line.
#include <csignal>

#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

#include "support/empresa_demo.h"
#include "support/escribir.h"
#include "support/pac_local.h"
#include "ventarix_run.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

QStringList Codigos(Connection& c, int cuantos) {
  QStringList codigos;
  QSqlQuery q = c.Exec(u"select codigo from productos where status <> 'BAJA' order by codigo"_s);
  while (q.next() && codigos.size() < cuantos) codigos << q.value(0).toString();
  return codigos;
}

QJsonObject Nota(const QStringList& codigos, int desde, int renglones, double cantidad) {
  QJsonArray partidas;
  for (int i = 0; i < renglones; ++i) {
    partidas.append(QJsonObject{{u"codigo"_s, codigos[(desde + i) % codigos.size()]},
                                {u"cantidad"_s, cantidad}});
  }
  return {{u"familia"_s, u"remisiones"_s},  {u"cliente"_s, 1},         {u"plazo"_s, 0},
          {u"obs"_s, u"TIENDA EN LÍNEA"_s}, {u"tipo"_s, u"DIRECTA"_s}, {u"metodo"_s, 1},
          {u"partidas"_s, partidas}};
}

QString Archivo(const testing::TestCompany& company, const QString& nombre, const QJsonValue& v) {
  const QString ruta = company.folder() + u'/' + nombre;
  QFile f(ruta);
  f.open(QIODevice::WriteOnly);
  f.write(v.isArray() ? QJsonDocument(v.toArray()).toJson() : QJsonDocument(v.toObject()).toJson());
  return ruta;
}

// Stock and balances as they stand, to compare with what the sweeps rebuild.
QString Figuras(Connection& c) {
  QString texto;
  QSqlQuery q = c.Exec(u"select codigo, almacen1 from productos order by codigo"_s);
  while (q.next())
    texto += q.value(0).toString() + u'=' + QString::number(q.value(1).toDouble(), 'f', 4) + u' ';
  // In cents: the engine adds the clients' balances in whatever order it keeps the rows.
  texto += QString::number(c.Scalar(u"select sum(saldo) from clientes"_s).toDouble(), 'f', 2);
  return texto;
}

// Whether another process holds a write transaction on the company: SQLite refuses a second
// writer at once, and PostgreSQL shows a session that has written something not yet committed.
bool EscribeOtro(const testing::TestCompany& company, Connection& c) {
  if (company.sql()) {
    return c.Scalar(
                u"select count(*) from pg_stat_activity where datname = current_database() "
                u"and backend_xid is not null and pid <> pg_backend_pid()"_s)
               .toInt() > 0;
  }
  const QString nombre = u"sonda"_s;
  bool ocupada = false;
  {
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, nombre);
    db.setDatabaseName(company.path());
    db.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=0"_s);
    if (db.open()) {
      QSqlQuery q(db);
      ocupada = !q.exec(u"begin immediate"_s);
      if (!ocupada) q.exec(u"rollback"_s);
    }
    db.close();
  }
  QSqlDatabase::removeDatabase(nombre);
  return ocupada;
}

QProcess* Lanzar(const QStringList& args, QObject* padre) {
  auto* p = new QProcess(padre);
  p->start(QStringLiteral(VENTARIX_BUILD_DIR "/src/ventarix"), args);
  return p;
}

}  // namespace

class TestDocumentos : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase_data() { testing::AddEngineRows(); }

  // Eight processes save 25 notes each of one serie at the same time: 200 notes, no key
  // twice, the next 200 folios without a gap, and the stock and balances the sweeps rebuild.
  void OchoProcesosALaVez() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Connection c(company->cadena());
    const QStringList codigos = Codigos(c, 40);
    // The demo's own history comes before them.
    const int folio = c.Scalar(u"select coalesce(max(folio), 0) from remisiones"_s).toInt();
    std::vector<QProcess*> procesos;
    for (int p = 0; p < 8; ++p) {
      QJsonArray notas;
      for (int k = 0; k < 25; ++k) notas.append(Nota(codigos, p * 25 + k, 2, 1));
      procesos.push_back(Lanzar({u"documento"_s, u"guardar"_s, u"--empresa"_s, company->path(),
                                 Archivo(*company, u"p%1.json"_s.arg(p), notas)},
                                this));
    }
    QSet<QString> llaves;
    for (QProcess* p : procesos) {
      QVERIFY(p->waitForFinished(300000));
      QVERIFY2(p->exitCode() == 0, p->readAllStandardError().constData());
      for (const QByteArray& linea : p->readAllStandardOutput().split('\n')) {
        if (!linea.isEmpty()) llaves.insert(QString::fromUtf8(linea));
      }
    }
    QCOMPARE(llaves.size(), 200);
    QSqlQuery q = c.Exec(
        u"select count(*), count(distinct remision), min(folio), max(folio) "
        u"from remisiones where folio > ?"_s,
        {folio});
    QVERIFY(q.next());
    QCOMPARE(q.value(0).toInt(), 200);
    QCOMPARE(q.value(1).toInt(), 200);
    QCOMPARE(q.value(2).toInt(), folio + 1);
    QCOMPARE(q.value(3).toInt(), folio + 200);
    q.finish();
    const QString antes = Figuras(c);
    for (const QString& manto : {u"manto1"_s, u"manto2"_s}) {
      const testing::Run r =
          testing::Ventarix({u"mantenimiento"_s, manto, u"--empresa"_s, company->path()});
      QVERIFY2(r.code == 0, qPrintable(testing::Describe(r)));
    }
    QCOMPARE(Figuras(c), antes);
  }

  // A save killed with SIGKILL while its transaction is open leaves the whole note or nothing
  // of it: the test waits until the child holds the write transaction, then strikes.
  void GuardadoInterrumpido() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Connection c(company->cadena());
    const QString antes = Figuras(c);
    const int notas_antes = c.Scalar(u"select count(*) from remisiones"_s).toInt();
    const int renglones_antes = c.Scalar(u"select count(*) from \"remisiones detalles\""_s).toInt();
    QProcess* p = Lanzar({u"documento"_s, u"guardar"_s, u"--empresa"_s, company->path(),
                          Archivo(*company, u"grande.json"_s, Nota(Codigos(c, 300), 0, 3000, 0.5))},
                         this);
    QVERIFY(p->waitForStarted());
    bool escribiendo = false;
    while (p->state() == QProcess::Running && !escribiendo) {
      escribiendo = EscribeOtro(*company, c);
      if (!escribiendo) QTest::qWait(1);
    }
    // A finished process has no pid, and kill(0) would strike this whole process group.
    const qint64 pid = p->processId();
    QVERIFY2(escribiendo && pid > 0, "the save ended before its transaction was seen open");
    ::kill(static_cast<pid_t>(pid), SIGKILL);
    p->waitForFinished();
    const int notas = c.Scalar(u"select count(*) from remisiones"_s).toInt() - notas_antes;
    const int renglones =
        c.Scalar(u"select count(*) from \"remisiones detalles\""_s).toInt() - renglones_antes;
    if (notas == 0) {
      QCOMPARE(renglones, 0);
      QCOMPARE(Figuras(c), antes);
    } else {
      QCOMPARE(renglones, 3000);
      QVERIFY(Figuras(c) != antes);
    }
  }

  // What does not belong gets a clear word and nothing of that document is written; the
  // documents before it stay saved.
  void ArchivoQueNoSirve_data() {
    QTest::addColumn<QString>("contenido");
    QTest::addColumn<QString>("dice");
    QTest::newRow("not JSON") << u"{familia: remisiones"_s << u"no es un documento JSON"_s;
    QTest::newRow("unknown family") << u"{\"familia\":\"vales\"}"_s << u"Familia desconocida"_s;
    QTest::newRow("unknown column") << u"{\"familia\":\"remisiones\",\"color\":1}"_s
                                    << u"Columna desconocida en remisiones: color"_s;
    QTest::newRow("refused second")
        << u"[{\"familia\":\"remisiones\",\"cliente\":1,\"obs\":\"X\",\"tipo\":\"D\","
           u"\"metodo\":1,\"partidas\":[{\"codigo\":\"1-00001\"}]},"
           u"{\"familia\":\"remisiones\",\"cliente\":1,\"tipo\":\"D\",\"metodo\":1,"
           u"\"partidas\":[{\"codigo\":\"1-00001\"}]}]"_s
        << u"Documento 2: Se requiere la entrada de una observación"_s;
  }
  void ArchivoQueNoSirve() {
    QFETCH(QString, contenido);
    QFETCH(QString, dice);
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    const int antes =
        Connection(company->cadena()).Scalar(u"select count(*) from remisiones"_s).toInt();
    const QString ruta = company->folder() + u"/malo.json"_s;
    QFile f(ruta);
    QVERIFY(f.open(QIODevice::WriteOnly) && f.write(contenido.toUtf8()) > 0);
    f.close();
    const testing::Run r =
        testing::Ventarix({u"documento"_s, u"guardar"_s, u"--empresa"_s, company->path(), ruta});
    QCOMPARE(r.code, 1);
    QVERIFY2(r.err.contains(dice), qPrintable(testing::Describe(r)));
    Connection c(company->cadena());
    QCOMPARE(c.Scalar(u"select count(*) from remisiones"_s).toInt(),
             antes + (dice.startsWith(u"Documento 2"_s) ? 1 : 0));
  }

  // Two notes invoiced from the command line: the key printed, the sealed file in the
  // company's xml folder, the notes holding the key.
  void FacturaDeDosRemisiones() {
    const auto company = testing::EmpresaDemo();
    if (!company) return;
    Connection c(company->cadena());
    const QStringList codigos = Codigos(c, 2);
    const testing::Run notas =
        testing::Ventarix({u"documento"_s, u"guardar"_s, u"--empresa"_s, company->path(),
                           Archivo(*company, u"notas.json"_s,
                                   QJsonArray{Nota(codigos, 0, 1, 2), Nota(codigos, 1, 1, 3)})});
    QVERIFY2(notas.code == 0, qPrintable(testing::Describe(notas)));
    const QStringList remisiones = notas.out.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(remisiones.size(), 2);
    const QJsonObject factura{{u"familia"_s, u"facturas"_s},
                              {u"remisiones"_s, QJsonArray::fromStringList(remisiones)}};
    const testing::Run r =
        testing::Ventarix({u"documento"_s, u"guardar"_s, u"--empresa"_s, company->path(),
                           Archivo(*company, u"factura.json"_s, factura)});
    QVERIFY2(r.code == 0, qPrintable(testing::Describe(r)));
    const QString llave = r.out.trimmed();
    QCOMPARE(c.Scalar(u"select count(*) from remisiones where status = ?"_s, {llave}).toInt(), 2);
    QDirIterator archivos(company->folder(), {llave + u".xml"_s}, QDir::Files,
                          QDirIterator::Subdirectories);
    QVERIFY2(archivos.hasNext(), qPrintable(llave));
    QFile xml(archivos.next());
    QVERIFY(xml.open(QIODevice::ReadOnly));
    const QByteArray sellado = xml.readAll();
    QVERIFY(sellado.contains(" sello=\"") && !sellado.contains(" sello=\"\""));

    // Stamped and its UUID cancelled at the stand-in PAC, the password typed on stdin.
    testing::PacLocal pac;
    QVERIFY2(pac.ok(), qPrintable(pac.error()));
    QVERIFY(testing::Escribir(
        c, u"update empresa set pacurlpruebas = ?, pacurlproduccion = ? where numero = 1"_s,
        {pac.url(), pac.url()}));
    const QStringList empresa = {u"--empresa"_s, company->path()};
    const testing::Run timbrado = testing::Ventarix(QStringList{u"timbrar"_s, llave} + empresa);
    QVERIFY2(timbrado.code == 0, qPrintable(testing::Describe(timbrado)));
    const QString uuid = timbrado.out.trimmed();
    QCOMPARE(c.Scalar(u"select uuid from facturas where factura = ?"_s, {llave}).toString(), uuid);
    QFile timbrada(xml.fileName());  // a new file took the old one's place
    QVERIFY(timbrada.open(QIODevice::ReadOnly));
    QVERIFY(timbrada.readAll().contains(u"UUID=\"%1\""_s.arg(uuid).toUtf8()));
    const QString csd = QStringLiteral(VENTARIX_SOURCE_DIR "/data/sat/demo/") +
                        u"EKU9003173C9_30001000000500003416"_s;
    const QStringList cancelar =
        QStringList{u"cancelar"_s, uuid, u"--cer"_s, csd + u".cer"_s, u"--key"_s, csd + u".key"_s} +
        empresa;
    testing::Run r2 = testing::Ventarix(cancelar, "12345678a\n");
    QVERIFY2(r2.code == 0 && r2.out.contains(u"201"_s), qPrintable(testing::Describe(r2)));
    r2 = testing::Ventarix(cancelar, "contraseña equivocada\n");
    QVERIFY2(r2.code != 0, qPrintable(testing::Describe(r2)));
    QCOMPARE(pac.Cancelados(), 1);
  }
};

QTEST_GUILESS_MAIN(TestDocumentos)
#include "tst_documentos.moc"
