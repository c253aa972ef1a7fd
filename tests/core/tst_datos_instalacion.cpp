// A new installation's schema folders: the folder tree's creation fills EsquemasCFDi and
// EsquemasCFD with every SAT file the sealing checks for, byte for byte the reference copies,
// restores one that went missing and leaves alone one the administrator replaced.
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "core/datos_instalacion.h"
#include "core/mFunciones.h"
#include "core/session.h"
#include "core/session_load.h"

using namespace ventarix;
using namespace Qt::StringLiterals;

namespace {

QByteArray Huella(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return "<missing " + path.toUtf8() + '>';
  return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256).toHex();
}

Session Sesion(const QTemporaryDir& dir) {
  Session session;
  session.BaseCarpeta = dir.path();
  session.empresa.Set(u"rfc"_s, u"EKU9003173C9"_s);
  CargarEsquemas(session);
  mFunciones::CrearCarpetas(session);
  return session;
}

}  // namespace

class TestDatosInstalacion : public QObject {
  Q_OBJECT

 private slots:
  // Every file each scheme's list names, and every sheet the main sheet includes, equal to
  // the SAT reference copies.
  void CarpetasNuevas_data() {
    QTest::addColumn<bool>("cfdi");
    QTest::addColumn<QString>("referencia");
    QTest::newRow("CFDi") << true << u"cfdi32"_s;
    QTest::newRow("CFD") << false << u"cfd22"_s;
  }
  void CarpetasNuevas() {
    QFETCH(bool, cfdi);
    QFETCH(QString, referencia);
    QTemporaryDir dir;
    const Session session = Sesion(dir);
    const QString carpeta = cfdi ? session.CarpetaEsquemasCFDi : session.CarpetaEsquemasCFD;
    const QStringList lista = cfdi ? session.EsquemasCFDi : session.EsquemasCFD;
    QCOMPARE(lista.size(), 10);
    const QDir sat(QStringLiteral(VENTARIX_SHARED_DIR "/sat/") + referencia);
    const QStringList todos = sat.entryList(QDir::Files);
    QVERIFY(todos.size() > 20);
    for (const QString& nombre : lista) QVERIFY2(todos.contains(nombre), qPrintable(nombre));
    for (const QString& nombre : todos) {
      QCOMPARE(Huella(carpeta + u'/' + nombre), Huella(sat.filePath(nombre)));
    }
  }

  void ArchivoFaltanteYArchivoPropio() {
    QTemporaryDir dir;
    Session session = Sesion(dir);
    const QString faltante = session.CarpetaEsquemasCFDi + u"/ecc.xsd"_s;
    const QString propio = session.CarpetaEsquemasCFD + u"/cadenaoriginal_2_2.xslt"_s;
    QVERIFY(QFile::remove(faltante));
    QFile archivo(propio);
    QVERIFY(archivo.open(QIODevice::WriteOnly | QIODevice::Truncate));
    archivo.write("<!-- hoja del administrador -->");
    archivo.close();

    mFunciones::CrearCarpetas(session);
    QCOMPARE(Huella(faltante), Huella(QStringLiteral(VENTARIX_SHARED_DIR "/sat/cfdi32/ecc.xsd")));
    QVERIFY(archivo.open(QIODevice::ReadOnly));
    QCOMPARE(archivo.readAll(), QByteArray("<!-- hoja del administrador -->"));
    // Nothing left to copy the next time.
    QCOMPARE(instalacion::CompletarEsquemas(session), 0);
  }

  // The shipped files are found from the build folder too, and the demo's test pair with them.
  void CarpetaDeDatos() {
    const QString demo = instalacion::CarpetaSat(u"demo"_s);
    QVERIFY(!demo.isEmpty());
    QCOMPARE(Huella(demo + u"/EKU9003173C9_30001000000500003416.cer"_s),
             Huella(QStringLiteral(VENTARIX_SHARED_DIR
                                   "/sat/csd/EKU9003173C9_30001000000500003416.cer")));
  }
};

QTEST_GUILESS_MAIN(TestDatosInstalacion)
#include "tst_datos_instalacion.moc"
