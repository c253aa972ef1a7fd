#include "maintenance/ui/mdi_inicio_manto.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ui/form_registry.h"
#include "core/ui/message_box.h"

namespace ventarix {

MDIInicioManto1::MDIInicioManto1(Session& session, QWidget* parent)
    : VentanaDeMantenimiento(session, QStringLiteral("MDIInicioManto1"),
                             QStringLiteral("Recalcular existencias y periodos"),
                             &mantenimiento::Manto1, parent) {}

MDIInicioManto2::MDIInicioManto2(Session& session, QWidget* parent)
    : VentanaDeMantenimiento(session, QStringLiteral("MDIInicioManto2"),
                             QStringLiteral("Recalcular saldos y status"), &mantenimiento::Manto2,
                             parent) {}

MDIInicioBarrido::MDIInicioBarrido(Session& session, QWidget* parent)
    : VentanaDeMantenimiento(session, QStringLiteral("MDIInicioBarrido"),
                             QStringLiteral("Imágenes de productos"), &mantenimiento::Barrido,
                             parent) {
  // The walk lets clicks through, so that Detener reaches it between rows.
  eventos_ = QEventLoop::AllEvents;
  auto* detener = new QPushButton(QStringLiteral("Detener"), this);
  detener->setObjectName(QStringLiteral("Detener"));
  auto* fila = new QHBoxLayout;
  fila->addStretch();
  fila->addWidget(detener);
  layout()->addLayout(fila);
  connect(detener, &QPushButton::clicked, this, &MDIInicioBarrido::ClicDetener);
}

void MDIInicioBarrido::ClicDetener() {
  if (ui::Ask(this, QStringLiteral("Detener éste módulo actual")) == QMessageBox::Yes) {
    detener_ = true;
  }
}

void RegistrarMantenimiento(FormRegistry& registry) {
  registry.Add(QStringLiteral("MDIInicioManto1"),
               [](Session& session) { return new MDIInicioManto1(session); });
  registry.Add(QStringLiteral("MDIInicioManto2"),
               [](Session& session) { return new MDIInicioManto2(session); });
  registry.Add(QStringLiteral("MDIInicioBarrido"),
               [](Session& session) { return new MDIInicioBarrido(session); });
}

}  // namespace ventarix
