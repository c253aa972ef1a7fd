#include "core/ui/pantalla_pendiente.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMdiSubWindow>
#include <QVBoxLayout>

namespace ventarix {

PantallaPendiente::PantallaPendiente(const QString& forma, QWidget* parent)
    : QWidget(parent), forma_(forma) {
  setObjectName(forma);
  setWindowTitle(forma);
  auto* layout = new QVBoxLayout(this);
  auto* nombre = new QLabel(forma, this);
  nombre->setObjectName(QStringLiteral("Nombre"));
  QFont font = nombre->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.4);
  nombre->setFont(font);
  auto* aviso = new QLabel(QStringLiteral("Esta pantalla aún no está disponible."), this);
  aviso->setObjectName(QStringLiteral("Aviso"));
  layout->addWidget(nombre, 0, Qt::AlignCenter);
  layout->addWidget(aviso, 0, Qt::AlignCenter);
  resize(420, 160);
  // It holds no field, so it takes the keys itself.
  setFocusPolicy(Qt::StrongFocus);
}

void PantallaPendiente::keyPressEvent(QKeyEvent* event) {
  const bool cerrar = event->key() == Qt::Key_Escape ||
                      (event->key() == Qt::Key_F4 && event->modifiers() == Qt::ControlModifier);
  if (!cerrar) {
    QWidget::keyPressEvent(event);
    return;
  }
  // Inside the main window it is the window around the screen that closes.
  if (auto* ventana = qobject_cast<QMdiSubWindow*>(parentWidget())) {
    ventana->close();
  } else {
    close();
  }
}

}  // namespace ventarix
