#include "core/ui/frm_usuarios_c.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"
#include "core/ui/usuarios_campos.h"
#include "core/usuarios.h"

namespace ventarix {

FrmUsuariosC::FrmUsuariosC(Session& session, const QString& usuario, QWidget* parent)
    : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("FrmUsuariosC"));
  setWindowTitle(QStringLiteral("Usuarios - Cambios"));
  mostrar_ = new QToolButton(this);
  mostrar_->setObjectName(QStringLiteral("Mostrar"));
  mostrar_->setText(QStringLiteral("+"));
  mostrar_->setToolTip(QStringLiteral("Mostrar la contraseña mientras se mantiene presionado"));
  mostrar_->setFocusPolicy(Qt::NoFocus);
  campos_ = std::make_unique<CamposDeUsuario>(this, session_, mostrar_);
  campos_->usuario->setReadOnly(true);
  campos_->contrasena->setPlaceholderText(QStringLiteral("(sin cambio)"));
  campos_->administrador->setEnabled(false);
  campos_->gerente->setEnabled(session_.Administrador);
  connect(mostrar_, &QToolButton::pressed, this,
          [this] { campos_->contrasena->setEchoMode(QLineEdit::Normal); });
  connect(mostrar_, &QToolButton::released, this,
          [this] { campos_->contrasena->setEchoMode(QLineEdit::Password); });

  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { GuardarClicked(); });
  auto* botones = FilaDeBotones(guardar_, salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(campos_->layout);
  layout->addLayout(botones);
  setMinimumWidth(360);

  if (!usuarios::PuedeCambiar(session_, usuario)) {
    problema_ = Outcome::Warning(
        QStringLiteral("Este usuario no tiene permisos para cambios de registros"));
  } else {
    usuarios::DatosUsuario datos;
    problema_ = usuarios::LeerUsuario(session_, usuario, &datos);
    if (problema_) campos_->Mostrar(datos);
  }
  guardar_->setEnabled(problema_.ok);
  campos_->contrasena->setFocus();
}

FrmUsuariosC::~FrmUsuariosC() = default;

void FrmUsuariosC::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!problema_) QTimer::singleShot(0, this, &FrmUsuariosC::Rechazar);
}

void FrmUsuariosC::Rechazar() {
  ui::ShowOutcome(this, session_, problema_);
  reject();
}

void FrmUsuariosC::GuardarClicked() {
  const usuarios::DatosUsuario datos = campos_->Datos();
  const Outcome outcome = usuarios::CambioUsuario(session_, datos);
  if (!outcome) {
    ui::ShowOutcome(this, session_, outcome);
    return;
  }
  guardada_ = datos.usuario.trimmed();
  accept();
}

void FrmUsuariosC::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
