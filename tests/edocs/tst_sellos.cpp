#include <cstdlib>
#include <ctime>

#include <QLocale>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

#include "edocs/certificado.h"
#include "edocs/herramientas.h"
#include "edocs/llave_privada.h"

using namespace ventarix::edocs;
using namespace ventarix::testing;

namespace {

const QString kCsd = QStringLiteral(VENTARIX_SHARED_DIR "/sat/csd/");

// The openssl command line as an independent witness: its exit code and what it printed. The
// options are words of `comando`; paths, which may hold blanks, come apart in `archivos`.
int Openssl(const char* comando, const QStringList& archivos, QByteArray* salida = nullptr) {
  const Salida s = Ejecutar(QStringLiteral("openssl"),
                            QString::fromLatin1(comando).split(QLatin1Char(' ')) + archivos);
  if (salida) *salida = s.out;
  return s.codigo;
}

// "Jul 27 17:02:00 2012 GMT", as the index and openssl write a validity bound.
QDateTime FechaGmt(const QString& texto) {
  QDateTime fecha =
      QLocale::c().toDateTime(texto.simplified(), QStringLiteral("MMM d HH:mm:ss yyyy 'GMT'"));
  fecha.setTimeZone(QTimeZone::utc());
  return fecha;
}

// A CSD pair with what the SAT says of it.
struct Par {
  QString base, serie, password;
  QDateTime desde, hasta;
};

QList<Par> Pares() {
  QList<Par> pares;
  const QList<QByteArray> lineas = Leer(kCsd + QStringLiteral("index.tsv")).split('\n');
  for (const QByteArray& linea : lineas.mid(1)) {
    const QStringList c = QString::fromUtf8(linea).split(QLatin1Char('\t'));
    if (c.size() < 6) continue;
    pares.append({c[0], c[2], c[5], FechaGmt(c[3]), FechaGmt(c[4])});
  }
  // The pair valid today is not in the index: openssl tells its serial and dates.
  Par hoy{QStringLiteral("AAA010101AAA_emisor2021"), {}, QStringLiteral("12345678a"), {}, {}};
  QByteArray texto;
  Openssl("x509 -inform DER -noout -serial -startdate -enddate -in",
          {kCsd + hoy.base + QStringLiteral(".cer")}, &texto);
  for (const QByteArray& linea : texto.split('\n')) {
    const QString valor = QString::fromLatin1(linea.mid(linea.indexOf('=') + 1));
    if (linea.startsWith("serial=")) hoy.serie = NumeroDeSerie(valor);
    if (linea.startsWith("notBefore=")) hoy.desde = FechaGmt(valor);
    if (linea.startsWith("notAfter=")) hoy.hasta = FechaGmt(valor);
  }
  pares.append(hoy);
  return pares;
}

void FilasDePares() {
  QTest::addColumn<QString>("base");
  QTest::addColumn<QString>("serie");
  QTest::addColumn<QString>("password");
  QTest::addColumn<QDateTime>("desde");
  QTest::addColumn<QDateTime>("hasta");
  for (const Par& par : Pares())
    QTest::newRow(qPrintable(par.base))
        << par.base << par.serie << par.password << par.desde << par.hasta;
}

}  // namespace

class TstSellos : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    // Local time away from UTC, so a bound read in the wrong zone shows.
    qputenv("TZ", "America/Mexico_City");
    tzset();
  }

  void certificadoYLlave_data() { FilasDePares(); }  // and the seal made with them
  void certificadoYLlave() {
    QFETCH(QString, base);
    QFETCH(QString, serie);
    QFETCH(QString, password);
    QFETCH(QDateTime, desde);
    QFETCH(QDateTime, hasta);
    QVERIFY(desde.isValid() && hasta.isValid() && serie.size() == 20);
    const QString archivo = kCsd + base;
    const QByteArray cer = Leer(archivo + QStringLiteral(".cer"));
    const QByteArray key = Leer(archivo + QStringLiteral(".key"));
    const Certificado certificado = LeerCertificadoDeArchivo(archivo + QStringLiteral(".cer"));
    QVERIFY2(certificado.ok, qPrintable(certificado.error));
    QCOMPARE(certificado.NoCertificado, serie);
    QCOMPARE(certificado.valido_desde.timeSpec(), Qt::LocalTime);
    QCOMPARE(certificado.valido_desde.toUTC(), desde);
    QCOMPARE(certificado.valido_hasta.toUTC(), hasta);
    QCOMPARE(QByteArray::fromBase64(certificado.base64.toLatin1()), cer);
    QVERIFY(!certificado.base64.contains(QLatin1Char('\n')));

    const LlavePrivada llave = LlavePrivada::Abrir(key, password);
    QCOMPARE(llave.estado(), LlavePrivada::Estado::kOk);
    QVERIFY(llave.CorrespondeA(cer));
    QCOMPARE(LlavePrivada::Abrir(key, password + QLatin1Char('x')).estado(),
             LlavePrivada::Estado::kContrasenaIncorrecta);
    QCOMPARE(LlavePrivada::Abrir(key, QString()).estado(),
             LlavePrivada::Estado::kContrasenaIncorrecta);
    QCOMPARE(LlavePrivada::Abrir(cer, password).estado(), LlavePrivada::Estado::kSinReferencia);
    QVERIFY(!LeerCertificado(key).ok);

    // The seal is the very signature openssl makes with the same key over the cadena's UTF-8
    // bytes (PKCS#1 v1.5 is deterministic); the sealing tests verify it with the public key.
    QTemporaryDir dir;
    const QByteArray cadena =
        QStringLiteral(
            "||3.2|2016-05-02T10:11:12|ingreso|Pago en una sola exhibición|1500.00|"
            "AAA010101AAA|Ferretería Ñandú, S.A. de C.V.|Av. Juárez|100||")
            .toUtf8();
    const QString sello = llave.FirmarSha1(cadena);
    QVERIFY(!sello.isEmpty() && !sello.contains(QLatin1Char('\n')));

    auto ruta = [&dir](const char* nombre) { return dir.filePath(QLatin1String(nombre)); };
    QVERIFY(Escribir(ruta("cadena.txt"), cadena));
    QCOMPARE(Openssl("pkcs8 -inform DER -passin",
                     {QStringLiteral("pass:") + password, QStringLiteral("-in"),
                      archivo + QStringLiteral(".key"), QStringLiteral("-out"), ruta("llave.pem")}),
             0);
    QByteArray firma;
    QCOMPARE(Openssl("dgst -sha1 -sign", {ruta("llave.pem"), ruta("cadena.txt")}, &firma), 0);
    QCOMPARE(sello, QString::fromLatin1(firma.toBase64()));
  }

  // Files that are no key material are refused, and a key never claims another pair's
  // certificate, even one of the same RFC.
  void materialAjenoORoto() {
    const LlavePrivada llave =
        LlavePrivada::AbrirArchivo(kCsd + QStringLiteral("AAA010101AAA_20001000000100005867.key"),
                                   QStringLiteral("12345678a"));
    QVERIFY(llave.ok());
    QVERIFY(
        !llave.CorrespondeA(Leer(kCsd + QStringLiteral("AAA010101AAA_20001000000100005868.cer"))));
    QVERIFY(!llave.CorrespondeA(QByteArray("no es un certificado")));
    QTemporaryDir dir;
    const QString basura = dir.filePath(QStringLiteral("basura.cer"));
    QVERIFY(Escribir(basura, QByteArray(300, '\x30')));
    const Certificado roto = LeerCertificadoDeArchivo(basura);
    QVERIFY(!roto.ok);
    QVERIFY(!roto.error.isEmpty());
    QVERIFY(!LeerCertificadoDeArchivo(dir.filePath(QStringLiteral("no.cer"))).ok);
    QVERIFY(!LeerCertificado(QByteArray()).ok);
    for (const QByteArray& bytes : {QByteArray(), QByteArray(2000, '\x30'), QByteArray("MII")})
      QCOMPARE(LlavePrivada::Abrir(bytes, QStringLiteral("12345678a")).estado(),
               LlavePrivada::Estado::kSinReferencia);
    const LlavePrivada sin_archivo =
        LlavePrivada::AbrirArchivo(dir.filePath(QStringLiteral("no.key")), QStringLiteral("x"));
    QCOMPARE(sin_archivo.estado(), LlavePrivada::Estado::kSinReferencia);
    QVERIFY(sin_archivo.FirmarSha1("||x||").isEmpty());
    QVERIFY(!sin_archivo.CorrespondeA(Leer(kCsd + QStringLiteral("AAA010101AAA_emisor2021.cer"))));
  }

  void numeroDeSerie_data() {
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("serie");
    QTest::newRow("pares") << QStringLiteral("3230303031") << QStringLiteral("20001");
    QTest::newRow("espacios alrededor")
        << QStringLiteral("  3330303031\n") << QStringLiteral("30001");
    QTest::newRow("impar") << QStringLiteral("32303") << QStringLiteral("20");
    QTest::newRow("vacío") << QString() << QString();
  }
  void numeroDeSerie() {
    QFETCH(QString, hex);
    QFETCH(QString, serie);
    QCOMPARE(NumeroDeSerie(hex), serie);
  }

  void fechaDeVigencia_data() {
    QTest::addColumn<QDateTime>("fecha");
    QTest::addColumn<QString>("texto");
    auto fila = [](const char* nombre, QDate dia, QTime hora, const char* texto) {
      QTest::newRow(nombre) << QDateTime(dia, hora) << QString::fromUtf8(texto);
    };
    fila("tarde", {2016, 7, 27}, {17, 2, 4}, "27/jul/2016 05:02:04 pm");
    fila("medianoche", {2012, 1, 5}, {0, 5, 9}, "05/ene/2012 12:05:09 am");
    fila("mediodía", {2013, 2, 28}, {12, 0, 0}, "28/feb/2013 12:00:00 pm");
    fila("antes del mediodía", {2019, 9, 10}, {11, 59, 59}, "10/sep/2019 11:59:59 am");
    const char* meses[] = {"ene", "feb", "mar", "abr", "may", "jun",
                           "jul", "ago", "sep", "oct", "nov", "dic"};
    for (int mes = 1; mes <= 12; ++mes)
      QTest::newRow(meses[mes - 1])
          << QDateTime(QDate(2024, mes, 15), QTime(8, 30, 0))
          << QStringLiteral("15/%1/2024 08:30:00 am").arg(QLatin1String(meses[mes - 1]));
    QTest::newRow("sin fecha") << QDateTime() << QString();
    // The bound a clerk reads is local: 17:02:04 GMT in July is noon in Mexico City.
    QTest::newRow("hora local")
        << LeerCertificadoDeArchivo(kCsd + QStringLiteral("AAA010101AAA_20001000000100005868.cer"))
               .valido_hasta
        << QStringLiteral("27/jul/2016 12:02:04 pm");
  }
  void fechaDeVigencia() {
    QFETCH(QDateTime, fecha);
    QFETCH(QString, texto);
    QCOMPARE(FechaDeVigencia(fecha), texto);
  }
};

QTEST_GUILESS_MAIN(TstSellos)
#include "tst_sellos.moc"
