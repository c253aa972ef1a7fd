#pragma once

// What the capture screen tests do as a clerk: type into the field that has the focus, write
// a grid cell, and read a value back from the company.
#include <QApplication>
#include <QTest>
#include <QTimer>

#include "core/database.h"
#include "core/session.h"
#include "documents/ui/rejilla_captura.h"

namespace ventarix::testing {

inline QWidget* Foco() { return QApplication::focusWidget(); }

// Types each value into the field that has the focus and presses Enter.
inline void Capturar(const QStringList& valores) {
  for (const QString& valor : valores) {
    QVERIFY2(Foco() != nullptr, qPrintable(valor));
    QTest::keyClicks(Foco(), valor);
    QTest::keyClick(Foco(), Qt::Key_Return);
  }
}

// The first key opens the cell, the rest go to its editor, Enter writes it and moves on.
inline void EnCelda(QWidget* grid, const QString& texto) {
  QTest::keyClicks(grid, texto.left(1));
  QVERIFY2(Foco() != nullptr, qPrintable(texto));
  QTest::keyClicks(Foco(), texto.mid(1));
  QTest::keyClick(Foco(), Qt::Key_Return);
  QCoreApplication::processEvents();
  QCoreApplication::processEvents();
}

inline QVariant Valor(const Session& s, const QString& sentencia,
                      const QVariantList& valores = {}) {
  Connection c(s.Cadena);
  return c.Scalar(sentencia, valores);
}

// Runs `paso` on the next modal window once it is up (a screen opened by a key).
template <typename Paso>
inline void AlAbrirse(Paso paso) {
  QTimer::singleShot(0, [paso] {
    QWidget* modal = QApplication::activeModalWidget();
    QVERIFY(modal != nullptr);
    QVERIFY(QTest::qWaitForWindowActive(modal));
    QTRY_VERIFY(QApplication::focusWidget() != nullptr && modal->isAncestorOf(Foco()));
    paso(modal);
    // A failed step leaves the screen: the key that opened it returns.
    if (QTest::currentTestFailed()) modal->close();
  });
}

}  // namespace ventarix::testing
