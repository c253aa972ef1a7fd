#include "maintenance/ui/ventana_mantenimiento.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

#include "core/ui/message_box.h"

namespace ventarix {

VentanaDeMantenimiento::VentanaDeMantenimiento(Session& session, const QString& nombre,
                                               const QString& titulo, Barrido barrido,
                                               QWidget* parent)
    : QWidget(parent), session_(session), barrido_(std::move(barrido)) {
  setObjectName(nombre);
  setWindowTitle(titulo);
  layout_ = new QVBoxLayout(this);
  paso_ = new QLabel(this);
  paso_->setObjectName(QStringLiteral("Paso"));
  paso_->setMinimumWidth(360);
  barra_ = new QProgressBar(this);
  barra_->setObjectName(QStringLiteral("Avance"));
  barra_->setRange(0, 1);
  barra_->setValue(0);
  layout_->addWidget(paso_);
  layout_->addWidget(barra_);
  resize(420, 110);
}

// The sweep waits for the next turn of the event loop, so that the window is on screen first.
void VentanaDeMantenimiento::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (iniciado_) return;
  iniciado_ = true;
  QTimer::singleShot(0, this, &VentanaDeMantenimiento::Correr);
}

// Closing in the middle would leave the sweep's callbacks without a window.
void VentanaDeMantenimiento::closeEvent(QCloseEvent* event) {
  if (corriendo_) {
    event->ignore();
    return;
  }
  QWidget::closeEvent(event);
}

void VentanaDeMantenimiento::Correr() {
  mantenimiento::Avance avance;
  avance.paso = [this](const QString& paso, int numero, int pasos) {
    Iniciar(paso, numero, pasos);
  };
  avance.terminado = [this](const QString&, qint64) { Terminar(); };
  avance.detener = [this] {
    QCoreApplication::processEvents(eventos_);
    return Detener();
  };
  corriendo_ = true;
  const Outcome hecho = barrido_(session_, avance);
  corriendo_ = false;
  if (!hecho) MostrarError(this, session_, hecho.message);
  Cerrar();
}

void VentanaDeMantenimiento::Iniciar(const QString& paso, int numero, int pasos) {
  numero_ = numero;
  pasos_ = pasos;
  paso_->setText(paso);
  // A sweep of one long step has nothing to count: the bar just shows that it works.
  if (pasos == 1) {
    barra_->setRange(0, 0);
  } else {
    barra_->setRange(0, pasos);
    barra_->setValue(numero - 1);
    barra_->setFormat(QStringLiteral("%1 de %2").arg(numero).arg(pasos));
  }
  QCoreApplication::processEvents(eventos_);
}

void VentanaDeMantenimiento::Terminar() {
  if (pasos_ == 1) barra_->setRange(0, 1);
  barra_->setValue(numero_);
  QCoreApplication::processEvents(eventos_);
}

// Inside the main window the frame around the form is what closes.
void VentanaDeMantenimiento::Cerrar() {
  if (auto* marco = qobject_cast<QMdiSubWindow*>(parentWidget())) {
    marco->close();
    return;
  }
  close();
}

}  // namespace ventarix
