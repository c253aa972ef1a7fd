#pragma once

// What the document tests share with the world outside the system: files written and read
// whole, a command line run as an independent witness (xmllint, xsltproc, openssl), and
// known-answer files compared byte for byte with their golden copy under tests/edocs/golden
// (a missing golden fails; VENTARIX_REWRITE_GOLDEN=1 writes it from the run).
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QString>
#include <QTest>

namespace ventarix::testing {

struct Salida {
  int codigo = -1;
  QByteArray out, err;
  QByteArray Todo() const { return out + err; }
};

inline Salida Ejecutar(const QString& programa, const QStringList& argumentos) {
  QProcess p;
  p.start(programa, argumentos);
  Salida s;
  if (!p.waitForFinished(60000)) {
    s.err = p.errorString().toUtf8();
    return s;
  }
  s.codigo = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
  s.out = p.readAllStandardOutput();
  s.err = p.readAllStandardError();
  return s;
}

inline bool Escribir(const QString& path, const QByteArray& bytes) {
  QFile f(path);
  return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

inline QByteArray Leer(const QString& path) {
  QFile f(path);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline void CompararConDorado(const QString& nombre, const QByteArray& contenido) {
  const QString path = QStringLiteral(VENTARIX_SOURCE_DIR "/tests/edocs/golden/") + nombre;
  if (qEnvironmentVariableIntValue("VENTARIX_REWRITE_GOLDEN") == 1) {
    QDir().mkpath(QFileInfo(path).path());
    QVERIFY(Escribir(path, contenido));
  }
  QFile golden(path);
  QVERIFY2(golden.open(QIODevice::ReadOnly), qPrintable(QStringLiteral("golden missing: ") + path));
  QCOMPARE(contenido, golden.readAll());
}

}  // namespace ventarix::testing
