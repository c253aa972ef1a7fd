#include "core/ui/abrir_ayuda.h"

#include <QDebug>

#include "core/ui/mdi_inicio_tablas.h"

namespace ventarix {

QString AbrirAyuda(Session& session, const QString& palabra, QWidget* parent,
                   const ayuda::ParametrosAyuda& parametros) {
  session.AyudaResultado.clear();
  const std::optional<ayuda::PeticionAyuda> peticion =
      ayuda::Peticion(session, palabra, parametros);
  if (!peticion) {
    qWarning() << "look-up keyword unknown:" << palabra;
    return {};
  }
  session.AyudaSql = peticion->sentencia;
  session.AyudaTitulo = peticion->titulo;
  if (peticion->inmediata) {
    session.AyudaResultado = peticion->resultado_inmediato;
    return session.AyudaResultado;
  }
  MDIInicioTablas dialogo(session, *peticion, parent);
  dialogo.exec();
  return session.AyudaResultado;
}

}  // namespace ventarix
