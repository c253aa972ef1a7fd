#include "core/ui/mayusculas.h"

#include <QLineEdit>

namespace ventarix {

void Mayusculas(QLineEdit* box, bool utilizar_mayusculas) {
  if (!utilizar_mayusculas) return;
  const QString upper = box->text().toUpper();
  if (upper == box->text()) return;
  const int cursor = box->cursorPosition();
  box->setText(upper);
  box->setCursorPosition(cursor);
}

void MantenerMayusculas(QLineEdit* box, const bool& utilizar_mayusculas) {
  // The flag is read at each change: the session may switch it after the company loads.
  const bool* flag = &utilizar_mayusculas;
  QObject::connect(box, &QLineEdit::textChanged, box, [box, flag] { Mayusculas(box, *flag); });
}

}  // namespace ventarix
