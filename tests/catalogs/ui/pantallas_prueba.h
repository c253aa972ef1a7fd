#pragma once

// What every catalogue screen test does with a screen: show it and wait for it to take the
// keyboard, and press Guardar from the keyboard.
#include <QPushButton>
#include <QTest>
#include <QWidget>

namespace ventarix::testing {

inline bool Mostrar(QWidget& forma) {
  forma.show();
  forma.activateWindow();
  return QTest::qWaitForWindowActive(&forma);
}

inline void Guardar(QWidget& forma) {
  auto* guardar = forma.findChild<QPushButton*>(QStringLiteral("Guardar"));
  guardar->setFocus();
  QTest::keyClick(guardar, Qt::Key_Return);
}

}  // namespace ventarix::testing
