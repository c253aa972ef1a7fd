#include "catalogs/ui/mdi_inicio_cambiar.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

#include "catalogs/cambio_codigo.h"
#include "core/ui/message_box.h"

namespace ventarix {

MDIInicioCambiar::MDIInicioCambiar(Session& session, QWidget* parent)
    : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("MDIInicioCambiar"));
  setWindowTitle(QStringLiteral("Cambio de código"));
  codigos_ = new QLabel(this);
  codigos_->setObjectName(QStringLiteral("Codigos"));
  paso_ = new QLabel(this);
  paso_->setObjectName(QStringLiteral("Paso"));
  paso_->setMinimumWidth(360);
  barra_ = new QProgressBar(this);
  barra_->setObjectName(QStringLiteral("Avance"));
  barra_->setRange(0, static_cast<int>(cambio_codigo::Tablas().size()));
  barra_->setValue(0);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(codigos_);
  layout->addWidget(paso_);
  layout->addWidget(barra_);
  resize(440, 130);
}

// The change waits for the next turn of the event loop, so that the window is on screen first.
void MDIInicioCambiar::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (iniciado_) return;
  iniciado_ = true;
  QTimer::singleShot(0, this, &MDIInicioCambiar::Correr);
}

// Leaving half-way would only stop the change at a table's end; it is finished instead.
void MDIInicioCambiar::closeEvent(QCloseEvent* event) {
  if (corriendo_) {
    event->ignore();
    return;
  }
  QDialog::closeEvent(event);
}

void MDIInicioCambiar::reject() {
  if (!corriendo_) QDialog::reject();
}

void MDIInicioCambiar::Correr() {
  cambio_codigo::Avance avance;
  avance.cambio = [this](const cambio_codigo::Cambio& cambio) {
    nuevo_ = cambio.nuevo;
    codigos_->setText(QStringLiteral("Código %1 por %2").arg(cambio.actual, cambio.nuevo));
  };
  avance.tabla = [this](const QString& tabla, int numero, int tablas) {
    Tabla(tabla, numero, tablas);
  };
  avance.hecho = [this](const QString&, int) {
    barra_->setValue(barra_->value() + 1);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  };
  corriendo_ = true;
  const Outcome hecho = cambio_codigo::Cambiar(session_, avance);
  corriendo_ = false;
  if (!hecho) {
    MostrarError(this, session_, hecho.message);
    QDialog::reject();
    return;
  }
  if (!session_.CambioDeCodigoPendiente) guardada_ = nuevo_;
  accept();
}

void MDIInicioCambiar::Tabla(const QString& tabla, int numero, int tablas) {
  paso_->setText(tabla);
  barra_->setFormat(QStringLiteral("%1 de %2").arg(numero).arg(tablas));
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace ventarix
