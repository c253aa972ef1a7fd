#include "documents/ui/bajas_registro.h"

#include "core/ui/form_registry.h"
#include "documents/bajas.h"
#include "documents/ui/mdi_inicio_bajas.h"

namespace ventarix {

namespace {

// The browse's table names the kind ("remisiones" cancels delivery notes); a table the engine
// does not know reaches the screen as it is, which says so.
template <typename Pantalla>
QStringList Actuar(Session& session, const QString& tabla, const QStringList& llaves,
                   QWidget* parent) {
  const QString clase = bajas::ClaseDe(tabla);
  Pantalla pantalla(session, clase.isEmpty() ? tabla : clase, llaves, parent);
  return pantalla.Ejecutar();
}

}  // namespace

void RegistrarBajas(FormRegistry& registry) {
  registry.AddAccion(QStringLiteral("MDIInicioBajas"), &Actuar<MDIInicioBajas>);
  registry.AddAccion(QStringLiteral("MDIInicioBorrar"), &Actuar<MDIInicioBorrar>);
}

}  // namespace ventarix
