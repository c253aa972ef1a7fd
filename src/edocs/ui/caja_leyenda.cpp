#include "edocs/ui/caja_leyenda.h"

#include <QKeyEvent>

namespace ventarix {

CajaLeyenda::CajaLeyenda(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
  setFixedHeight(54);
}

void CajaLeyenda::InsertarEtiqueta(const QString& etiqueta) {
  insertPlainText(QLatin1Char('<') + etiqueta + QLatin1Char('>'));
  setFocus(Qt::OtherFocusReason);
}

void CajaLeyenda::keyPressEvent(QKeyEvent* event) {
  const bool intro = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (intro && (event->modifiers() & Qt::ControlModifier)) {
    insertPlainText(QStringLiteral("\n"));
    return;
  }
  if (intro) {
    focusNextChild();
    return;
  }
  QPlainTextEdit::keyPressEvent(event);
}

void CajaLeyenda::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  emit Enfocada(this);
}

}  // namespace ventarix
