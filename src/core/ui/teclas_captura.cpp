#include "core/ui/teclas_captura.h"

#include <QAbstractButton>
#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

namespace ventarix {

namespace {

// The next (or previous) field that Tab would reach inside the screen.
void Mover(QDialog* forma, bool adelante) {
  QWidget* actual = forma->focusWidget() != nullptr ? forma->focusWidget() : forma;
  QWidget* siguiente = actual;
  do {
    siguiente = adelante ? siguiente->nextInFocusChain() : siguiente->previousInFocusChain();
    // A field's own parts (the text of a date picker) hand the focus back to the field.
    if (siguiente->isVisible() && siguiente->isEnabled() && forma->isAncestorOf(siguiente) &&
        !actual->isAncestorOf(siguiente) && (siguiente->focusPolicy() & Qt::TabFocus) != 0) {
      siguiente->setFocus(adelante ? Qt::TabFocusReason : Qt::BacktabFocusReason);
      return;
    }
  } while (siguiente != actual);
}

}  // namespace

bool TeclaDeCaptura(QDialog* forma, QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (auto* boton = qobject_cast<QPushButton*>(forma->focusWidget())) {
        boton->click();
      } else {
        Mover(forma, true);
      }
      return true;
    case Qt::Key_Down:
      Mover(forma, true);
      return true;
    case Qt::Key_Up:
      Mover(forma, false);
      return true;
    case Qt::Key_Escape:
      forma->reject();
      return true;
    default:
      return false;
  }
}

void EncadenarFoco(const QList<QWidget*>& orden) {
  for (qsizetype i = 1; i < orden.size(); ++i) QWidget::setTabOrder(orden[i - 1], orden[i]);
}

QPushButton* BotonDeCaptura(const char* texto, const char* nombre, QDialog* forma) {
  auto* boton = new QPushButton(QString::fromUtf8(texto), forma);
  boton->setObjectName(QString::fromLatin1(nombre));
  boton->setAutoDefault(false);
  boton->setDefault(false);
  return boton;
}

std::pair<QPushButton*, QPushButton*> BotonesGuardarSalir(QDialog* forma,
                                                          std::function<void()> guardar) {
  QPushButton* guardar_boton = BotonDeCaptura("&Guardar", "Guardar", forma);
  QPushButton* salir_boton = BotonDeCaptura("&Salir", "Salir", forma);
  QObject::connect(guardar_boton, &QPushButton::clicked, forma, std::move(guardar));
  QObject::connect(salir_boton, &QPushButton::clicked, forma, &QDialog::reject);
  return {guardar_boton, salir_boton};
}

QHBoxLayout* FilaDeBotones(QPushButton* guardar, QPushButton* salir) {
  auto* fila = new QHBoxLayout;
  fila->addStretch();
  fila->addWidget(guardar);
  fila->addWidget(salir);
  return fila;
}

}  // namespace ventarix
