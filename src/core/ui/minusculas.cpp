#include "core/ui/minusculas.h"

#include <QLineEdit>

namespace ventarix {

void Minusculas(QLineEdit* box) {
  const QString lower = box->text().toLower();
  if (lower == box->text()) return;
  const int cursor = box->cursorPosition();
  box->setText(lower);
  box->setCursorPosition(cursor);
}

void MantenerMinusculas(QLineEdit* box) {
  QObject::connect(box, &QLineEdit::textChanged, box, [box] { Minusculas(box); });
}

}  // namespace ventarix
