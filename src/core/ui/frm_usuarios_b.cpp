#include "core/ui/frm_usuarios_b.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"
#include "core/usuarios.h"

namespace ventarix {

FrmUsuariosB::FrmUsuariosB(Session& session, const QString& usuario, QWidget* parent)
    : QDialog(parent), session_(session), usuario_(usuario) {
  setObjectName(QStringLiteral("FrmUsuariosB"));
  setWindowTitle(QStringLiteral("Usuarios - Borrar"));
  auto* pregunta = new QLabel(QStringLiteral("Borrar el usuario %1").arg(usuario_), this);
  pregunta->setObjectName(QStringLiteral("Pregunta"));
  borrar_ = BotonDeCaptura("&Borrar", "Borrar", this);
  salir_ = BotonDeCaptura("&Salir", "Salir", this);
  connect(borrar_, &QPushButton::clicked, this, &FrmUsuariosB::BorrarClicked);
  connect(salir_, &QPushButton::clicked, this, &QDialog::reject);
  auto* botones = new QHBoxLayout;
  botones->addStretch();
  botones->addWidget(borrar_);
  botones->addWidget(salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(pregunta);
  layout->addLayout(botones);
  setMinimumWidth(320);
  // Leaving is the safe answer.
  salir_->setFocus();
}

void FrmUsuariosB::BorrarClicked() {
  const Outcome outcome = usuarios::BorrarUsuario(session_, usuario_);
  if (!outcome) {
    ui::ShowOutcome(this, session_, outcome);
    return;
  }
  guardada_ = usuario_;
  accept();
}

void FrmUsuariosB::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
