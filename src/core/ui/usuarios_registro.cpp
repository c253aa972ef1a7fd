#include "core/ui/usuarios_registro.h"

#include "core/ui/form_registry.h"
#include "core/ui/frm_usuarios_a.h"
#include "core/ui/frm_usuarios_b.h"
#include "core/ui/frm_usuarios_c.h"
#include "core/ui/frm_usuarios_p.h"
#include "core/ui/navegador.h"

namespace ventarix {

namespace {

// Permisos: the rights screen of the current user, for an administrator.
void Permisos(Navegador& navegador) {
  if (!navegador.session().Administrador) return;
  if (const QString llave = navegador.LlaveActual(); !llave.isEmpty()) {
    navegador.AbrirForma(QStringLiteral("FrmUsuariosP"), llave);
  }
}

}  // namespace

void RegistrarUsuarios(FormRegistry& registry) {
  registry.AddNavegador(QStringLiteral("FrmUsuarios"),
                        {.acciones = {{.boton = 7,
                                       .texto = QStringLiteral("Permisos"),
                                       .icono = QStyle::SP_DialogApplyButton,
                                       .accion = Permisos}},
                         .baja = QStringLiteral("FrmUsuariosB")});
  registry.Add(QStringLiteral("FrmUsuariosA"),
               [](Session& session) { return new FrmUsuariosA(session); });
  registry.Add(QStringLiteral("FrmUsuariosB"), [](Session& session, const QString& usuario) {
    return new FrmUsuariosB(session, usuario);
  });
  registry.Add(QStringLiteral("FrmUsuariosC"), [](Session& session, const QString& usuario) {
    return new FrmUsuariosC(session, usuario);
  });
  registry.Add(QStringLiteral("FrmUsuariosP"), [](Session& session, const QString& usuario) {
    return new FrmUsuariosP(session, usuario);
  });
}

}  // namespace ventarix
