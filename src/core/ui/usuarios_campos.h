#pragma once

#include "core/session.h"
#include "core/usuarios.h"

class QCheckBox;
class QDialog;
class QFormLayout;
class QLineEdit;
class QWidget;

namespace ventarix {

// The fields the add and change screens of a user share: user, password, store and the two
// role flags, laid out in a form.
struct CamposDeUsuario {
  QLineEdit* usuario = nullptr;
  QLineEdit* contrasena = nullptr;
  QLineEdit* tienda = nullptr;
  QCheckBox* administrador = nullptr;
  QCheckBox* gerente = nullptr;
  QFormLayout* layout = nullptr;

  // The user follows the company's upper-case setting; the password is always upper case,
  // as the prompts that verify it are. `junto_a_contrasena`, when given, sits beside the
  // password.
  CamposDeUsuario(QDialog* forma, const Session& session, QWidget* junto_a_contrasena = nullptr);
  usuarios::DatosUsuario Datos() const;
  void Mostrar(const usuarios::DatosUsuario& datos);
};

}  // namespace ventarix
