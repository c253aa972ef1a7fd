#include "core/ui/mdi_inicio_entrada.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/startup.h"
#include "core/ui/mayusculas.h"
#include "core/ui/message_box.h"

namespace ventarix {

MDIInicioEntrada::MDIInicioEntrada(Session& session, QWidget* parent)
    : QDialog(parent), session_(session) {
  setObjectName(QStringLiteral("MDIInicioEntrada"));
  setWindowTitle(QStringLiteral("Ventarix - Entrada al sistema"));

  nombre_ = new QLabel(session.Equipo, this);
  nombre_->setObjectName(QStringLiteral("Nombre"));
  path_ = new QLabel(session.BaseDatos, this);
  path_->setObjectName(QStringLiteral("Path"));
  path_->setToolTip(QStringLiteral("Doble clic: quitar el acceso a esta base de datos"));
  path_->installEventFilter(this);

  const std::array<QString, 2> names = {QStringLiteral("usuario"), QStringLiteral("contrasena")};
  for (int i = 0; i < 2; ++i) {
    datos_[i] = new QLineEdit(this);
    datos_[i]->setObjectName(names[i]);
    datos_[i]->installEventFilter(this);
    MantenerMayusculas(datos_[i], session_.UtilizarMayusculas);
    connect(datos_[i], &QLineEdit::textChanged, this, &MDIInicioEntrada::Habilitar);
  }
  datos_[1]->setEchoMode(QLineEdit::Password);

  aceptar_ = new QPushButton(QStringLiteral("&Aceptar"), this);
  aceptar_->setObjectName(QStringLiteral("Aceptar"));
  salir_ = new QPushButton(QStringLiteral("&Salir"), this);
  salir_->setObjectName(QStringLiteral("Salir"));
  connect(aceptar_, &QPushButton::clicked, this, &MDIInicioEntrada::AceptarClicked);
  connect(salir_, &QPushButton::clicked, this, &QDialog::reject);

  auto* campos = new QFormLayout;
  campos->addRow(QStringLiteral("Equipo:"), nombre_);
  campos->addRow(QStringLiteral("Base de datos:"), path_);
  campos->addRow(QStringLiteral("&Usuario:"), datos_[0]);
  campos->addRow(QStringLiteral("&Contraseña:"), datos_[1]);
  auto* botones = new QHBoxLayout;
  botones->addStretch();
  botones->addWidget(aceptar_);
  botones->addWidget(salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(campos);
  layout->addLayout(botones);
  setMinimumWidth(460);
  Habilitar();
  datos_[0]->setFocus();
}

void MDIInicioEntrada::Habilitar() {
  aceptar_->setEnabled(!datos_[0]->text().isEmpty() && !datos_[1]->text().isEmpty());
}

void MDIInicioEntrada::AceptarClicked() {
  const Outcome outcome = startup::Entrar(session_, datos_[0]->text(), datos_[1]->text());
  if (outcome) {
    accept();
    return;
  }
  ui::ShowOutcome(this, session_, outcome);
}

void MDIInicioEntrada::OlvidarBaseDatos() {
  startup::OlvidarEleccion();
  ui::Inform(this, QStringLiteral("Se ha quitado el acceso a esta base de datos"));
  reject();
}

// Moving through the fields as at every capture screen: Enter accepts when it may, otherwise
// moves on; Down and Up move forward and back; Esc goes to Salir.
bool MDIInicioEntrada::TeclaDeCampo(QKeyEvent* key) {
  switch (key->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (aceptar_->isEnabled()) {
        aceptar_->click();
      } else {
        focusNextChild();
      }
      return true;
    case Qt::Key_Down:
      focusNextChild();
      return true;
    case Qt::Key_Up:
      focusPreviousChild();
      return true;
    case Qt::Key_Escape:
      salir_->setFocus(Qt::ShortcutFocusReason);
      return true;
    default:
      return false;
  }
}

bool MDIInicioEntrada::eventFilter(QObject* watched, QEvent* event) {
  if (watched == path_ && event->type() == QEvent::MouseButtonDblClick) {
    OlvidarBaseDatos();
    return true;
  }
  if ((watched == datos_[0] || watched == datos_[1]) && event->type() == QEvent::KeyPress) {
    return TeclaDeCampo(static_cast<QKeyEvent*>(event));
  }
  return QDialog::eventFilter(watched, event);
}

void MDIInicioEntrada::keyPressEvent(QKeyEvent* event) {
  // Esc never closes the login by itself: it only leads to Salir.
  if (event->key() == Qt::Key_Escape) {
    salir_->setFocus(Qt::ShortcutFocusReason);
    return;
  }
  QDialog::keyPressEvent(event);
}

}  // namespace ventarix
