#include "core/ui/usuarios_registro.h"

#include "core/ui/form_registry.h"
#include "core/ui/frm_usuarios_a.h"
#include "core/ui/frm_usuarios_b.h"
#include "core/ui/frm_usuarios_c.h"
#include "core/ui/frm_usuarios_p.h"

namespace ventarix {

void RegistrarUsuarios(FormRegistry& registry) {
  registry.Add(QStringLiteral("FrmUsuariosA"),
               [](Session& session) { return new FrmUsuariosA(session); });
  registry.Add(QStringLiteral("FrmUsuariosB"),
               [](Session& session) { return new FrmUsuariosB(session); });
  registry.Add(QStringLiteral("FrmUsuariosC"),
               [](Session& session) { return new FrmUsuariosC(session); });
  registry.Add(QStringLiteral("FrmUsuariosP"),
               [](Session& session) { return new FrmUsuariosP(session); });
}

}  // namespace ventarix
