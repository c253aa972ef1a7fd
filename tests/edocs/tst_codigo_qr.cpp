// The QR picture of a stamped document: a 129 x 129 bitmap at <CarpetaTmp>/cbb.tmp, black on
// white, that a reader decodes back to the text (zbarimg as the independent reader); and a
// failure that leaves no path and a line in the error log.
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include "core/mFunciones.h"
#include "core/session.h"
#include "edocs/codigo_qr.h"
#include "edocs/herramientas.h"

using namespace ventarix;
using namespace Qt::StringLiterals;
using testing::Leer;

namespace {

Session Sesion(const QTemporaryDir& dir) {
  Session session;
  session.BaseCarpeta = dir.path();
  session.empresa.Set(u"rfc"_s, u"EKU9003173C9"_s);
  mFunciones::CrearCarpetas(session);
  return session;
}

// What zbarimg reads in the picture, or a note when it can't run.
QString Decodificar(const QString& path, bool* disponible) {
  const QString zbarimg = QStandardPaths::findExecutable(u"zbarimg"_s);
  *disponible = !zbarimg.isEmpty();
  if (!*disponible) return {};
  // zbarimg identifies files by content, but wants a known extension to pick its loader.
  const QString png = path + u".png"_s;
  QImage(path, "BMP").save(png);
  QProcess zbar;
  zbar.start(zbarimg, {u"--raw"_s, u"-q"_s, png});
  zbar.waitForFinished(30000);
  return QString::fromUtf8(zbar.readAllStandardOutput()).trimmed();
}

}  // namespace

class TestCodigoQR : public QObject {
  Q_OBJECT

 private slots:
  void Imagen_data() {
    QTest::addColumn<QString>("texto");
    QTest::newRow("cfdi") << u"?re=EKU9003173C9&rr=XAXX010101000&tt=0000001160.000000"
                             "&id=6F3A1C2B-0D4E-4F5A-9B8C-7D6E5F4A3B2C"_s;
    QTest::newRow("rfc de 12") << u"?re=XEKU9003173C9&rr=XMOP750312AB1&tt=0000000000.010000"
                                  "&id=00000000-0000-0000-0000-000000000001"_s;
    QTest::newRow("corto") << u"A-1"_s;
    QTest::newRow("acentos") << u"FERRETERÍA ÑANDÚ"_s;
  }
  void Imagen() {
    QFETCH(QString, texto);
    QTemporaryDir dir;
    const Session session = Sesion(dir);
    // A second picture replaces the first one in the same file.
    const QString primero = edocs::CrearCodigoQR(session, u"PRIMERO"_s);
    const QByteArray antes = Leer(primero);
    const QString path = edocs::CrearCodigoQR(session, texto);
    QCOMPARE(path, session.CarpetaTmp + u"/cbb.tmp"_s);
    QCOMPARE(path, primero);
    QVERIFY(Leer(path) != antes);

    QCOMPARE(Leer(path).left(2), QByteArray("BM"));
    const QImage image(path, "BMP");
    QVERIFY(!image.isNull());
    QCOMPARE(image.size(), QSize(129, 129));
    // Only black and white, white all round the symbol (the quiet zone), black inside.
    int negros = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QRgb p = image.pixel(x, y);
        QVERIFY(p == qRgb(0, 0, 0) || p == qRgb(255, 255, 255));
        if (p == qRgb(0, 0, 0)) ++negros;
      }
    }
    for (int i = 0; i < 129; ++i) {
      QCOMPARE(image.pixel(i, 0), qRgb(255, 255, 255));
      QCOMPARE(image.pixel(0, i), qRgb(255, 255, 255));
      QCOMPARE(image.pixel(i, 128), qRgb(255, 255, 255));
      QCOMPARE(image.pixel(128, i), qRgb(255, 255, 255));
    }
    QVERIFY(negros > 129 * 129 / 5);
    QDir().mkpath(QStringLiteral(VENTARIX_BUILD_DIR "/screenshots"));
    image.save(QStringLiteral(VENTARIX_BUILD_DIR "/screenshots/codigo_qr_") +
               QString::fromLatin1(QTest::currentDataTag()).replace(u' ', u'_') + u".png"_s);

    bool disponible = false;
    const QString leido = Decodificar(path, &disponible);
    if (!disponible) QSKIP("zbarimg is not installed (tools/packages.sh test packages)");
    QCOMPARE(leido, texto);
  }

  // Nothing to encode, a text whose symbol has more modules than the picture has points, one
  // beyond any QR symbol, or a folder that can't take the file:
  // no path, and the reason in the month's error log.
  void Fallas_data() {
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("sin_carpeta");
    QTest::addColumn<QString>("en_bitacora");
    QTest::newRow("vacío") << QString() << false << u"vacío"_s;
    QTest::newRow("largo") << QString(1500, u'x') << false << u"no cabe en 129"_s;
    QTest::newRow("excesivo") << QString(3000, u'x') << false << u"CrearCodigoQR: "_s;
    QTest::newRow("sin carpeta") << u"A-1"_s << true << u"cbb.tmp"_s;
  }
  void Fallas() {
    QFETCH(QString, texto);
    QFETCH(bool, sin_carpeta);
    QFETCH(QString, en_bitacora);
    QTemporaryDir dir;
    Session session = Sesion(dir);
    if (sin_carpeta) session.CarpetaTmp = dir.path() + u"/no/existe"_s;
    QCOMPARE(edocs::CrearCodigoQR(session, texto), QString());
    QVERIFY(!QFile::exists(session.CarpetaTmp + u"/cbb.tmp"_s));
    const QByteArray log = Leer(mFunciones::ArchivoDeErrores(session, QDate::currentDate()));
    QVERIFY2(QString::fromUtf8(log).contains(en_bitacora), qPrintable(en_bitacora));
  }
};

QTEST_GUILESS_MAIN(TestCodigoQR)
#include "tst_codigo_qr.moc"
