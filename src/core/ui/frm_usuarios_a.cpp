#include "core/ui/frm_usuarios_a.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"
#include "core/ui/usuarios_campos.h"
#include "core/usuarios.h"

namespace ventarix {

FrmUsuariosA::FrmUsuariosA(Session& session, QWidget* parent) : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("FrmUsuariosA"));
  setWindowTitle(QStringLiteral("Usuarios - Alta"));
  campos_ = std::make_unique<CamposDeUsuario>(this, session_);
  campos_->tienda->setText(QStringLiteral("1"));

  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { GuardarClicked(); });

  auto* botones = FilaDeBotones(guardar_, salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(campos_->layout);
  layout->addLayout(botones);
  setMinimumWidth(360);
  campos_->usuario->setFocus();
}

FrmUsuariosA::~FrmUsuariosA() = default;

void FrmUsuariosA::GuardarClicked() {
  const usuarios::DatosUsuario datos = campos_->Datos();
  const Outcome outcome = usuarios::AltaUsuario(session_, datos);
  if (!outcome) {
    ui::ShowOutcome(this, session_, outcome);
    return;
  }
  guardada_ = datos.usuario.trimmed();
  accept();
}

void FrmUsuariosA::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
