#include "core/ui/abrir_ayuda.h"

#include <QDebug>

#include "core/ui/mdi_inicio_tablas.h"

namespace ventarix {

QString AbrirAyuda(Session& session, const QString& palabra, QWidget* parent,
                   const ayuda::ParametrosAyuda& parametros) {
  const std::optional<ayuda::PeticionAyuda> peticion =
      ayuda::Peticion(session, palabra, parametros);
  if (!peticion) {
    qWarning() << "look-up keyword unknown:" << palabra;
    return {};
  }
  if (peticion->inmediata) return peticion->resultado_inmediato;
  MDIInicioTablas dialogo(session, *peticion, parent);
  dialogo.exec();
  return dialogo.resultado();
}

}  // namespace ventarix
