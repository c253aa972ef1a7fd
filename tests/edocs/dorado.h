#pragma once

// Known-answer files: a document compared byte for byte with its committed golden file under
// tests/edocs/golden. A missing golden fails; VENTARIX_REWRITE_GOLDEN=1 writes it from the run.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTest>

namespace ventarix::testing {

inline void CompararConDorado(const QString& nombre, const QByteArray& contenido) {
  const QString path = QStringLiteral(VENTARIX_SOURCE_DIR "/tests/edocs/golden/") + nombre;
  if (qEnvironmentVariableIntValue("VENTARIX_REWRITE_GOLDEN") == 1) {
    QDir().mkpath(QFileInfo(path).path());
    QFile nuevo(path);
    QVERIFY(nuevo.open(QIODevice::WriteOnly) && nuevo.write(contenido) == contenido.size());
  }
  QFile golden(path);
  QVERIFY2(golden.open(QIODevice::ReadOnly), qPrintable(QStringLiteral("golden missing: ") + path));
  QCOMPARE(contenido, golden.readAll());
}

}  // namespace ventarix::testing
