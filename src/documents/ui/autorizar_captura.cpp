#include "documents/ui/autorizar_captura.h"

#include <algorithm>

#include "core/browse_families.h"
#include "core/mBrowse.h"
#include "core/ui/mdi_inicio_autorizacion.h"
#include "core/ui/message_box.h"

namespace ventarix {

bool AutorizarCaptura(Session& session, const char* alta, bool cambio, QWidget* forma) {
  const auto& familias = mBrowse::Familias();
  const auto familia = std::find_if(familias.begin(), familias.end(), [alta](const auto& f) {
    return f.alta != nullptr && qstrcmp(f.alta, alta) == 0;
  });
  if (familia == familias.end()) return true;
  const mBrowse::VistaCargada cargada =
      mBrowse::ObtenerVista(session, QString::fromUtf8(familia->titulo),
                            familia->sentencia ? QString::fromUtf8(familia->sentencia) : QString());
  if (!cargada.outcome) {
    ui::ShowOutcome(forma, session, cargada.outcome);
    return false;
  }
  for (const mBrowse::Prompt& prompt :
       mBrowse::PromptsDeBoton(session, cargada.vista.Seguridad, cambio ? 3 : 1)) {
    if (!MDIInicioAutorizacion::Autorizar(session, prompt.titulo, prompt.claves, forma)) {
      return false;
    }
  }
  return true;
}

}  // namespace ventarix
