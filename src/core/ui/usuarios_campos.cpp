#include "core/ui/usuarios_campos.h"

#include <QCheckBox>
#include <QDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include "core/ui/mayusculas.h"

namespace ventarix {

namespace {
const bool kSiempreMayusculas = true;

QLineEdit* Campo(QDialog* forma, const char* nombre) {
  auto* campo = new QLineEdit(forma);
  campo->setObjectName(QString::fromLatin1(nombre));
  return campo;
}
}  // namespace

CamposDeUsuario::CamposDeUsuario(QDialog* forma, const Session& session,
                                 QWidget* junto_a_contrasena) {
  usuario = Campo(forma, "Usuario");
  usuario->setMaxLength(30);
  MantenerMayusculas(usuario, session.UtilizarMayusculas);
  contrasena = Campo(forma, "Contrasena");
  contrasena->setEchoMode(QLineEdit::Password);
  contrasena->setMaxLength(30);
  MantenerMayusculas(contrasena, kSiempreMayusculas);
  tienda = Campo(forma, "Tienda");
  tienda->setMaxLength(2);
  administrador = new QCheckBox(QStringLiteral("A&dministrador"), forma);
  administrador->setObjectName(QStringLiteral("Administrador"));
  gerente = new QCheckBox(QStringLiteral("&Gerente"), forma);
  gerente->setObjectName(QStringLiteral("Gerente"));

  layout = new QFormLayout;
  layout->addRow(QStringLiteral("&Usuario:"), usuario);
  if (junto_a_contrasena != nullptr) {
    auto* fila = new QHBoxLayout;
    fila->addWidget(contrasena);
    fila->addWidget(junto_a_contrasena);
    layout->addRow(QStringLiteral("&Contraseña:"), fila);
    // The label's shortcut goes to the password, not to the button beside it.
    qobject_cast<QLabel*>(layout->labelForField(fila))->setBuddy(contrasena);
  } else {
    layout->addRow(QStringLiteral("&Contraseña:"), contrasena);
  }
  layout->addRow(QStringLiteral("&Tienda:"), tienda);
  layout->addRow(QString(), administrador);
  layout->addRow(QString(), gerente);
}

usuarios::DatosUsuario CamposDeUsuario::Datos() const {
  return {usuario->text(), contrasena->text(), tienda->text(), administrador->isChecked(),
          gerente->isChecked()};
}

void CamposDeUsuario::Mostrar(const usuarios::DatosUsuario& datos) {
  usuario->setText(datos.usuario);
  contrasena->setText(datos.contrasena);
  tienda->setText(datos.tienda);
  administrador->setChecked(datos.administrador);
  gerente->setChecked(datos.gerente);
}

}  // namespace ventarix
