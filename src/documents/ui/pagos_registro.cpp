#include "documents/ui/pagos_registro.h"

#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "documents/ui/forma_pago.h"
#include "documents/ui/forma_saldar.h"

namespace ventarix {

using namespace Qt::StringLiterals;

void RegistrarPantallasPagos(FormRegistry& registry, const PantallaPagos& pantalla,
                             const QString& navegador, std::vector<AccionExtra> extras) {
  const PantallaPagos* p = &pantalla;
  for (const bool cambio : {false, true}) {
    registry.Add(QString::fromUtf8(cambio ? p->cambio : p->alta),
                 [p, cambio](Session& session, const QString& llave) -> QWidget* {
                   return new FormaPago(session, *p, cambio, llave);
                 });
  }
  registry.Add(QString::fromUtf8(p->saldar),
               std::function<QWidget*(Session&)>(
                   [p](Session& session) -> QWidget* { return new FormaSaldar(session, *p); }));
  // The settle payment is saved from its own screen; the browser then shows it.
  extras.push_back({.boton = 8,
                    .texto = u"Saldar"_s,
                    .icono = QStyle::SP_DialogApplyButton,
                    .tecla = Qt::Key_S,
                    .modificadores = Qt::ControlModifier,
                    .accion = [p](Navegador& n) {
                      if (!n.Autorizar(1)) return;
                      const QString llave = EjecutarDialogo(new FormaSaldar(n.session(), *p), &n);
                      if (!llave.isEmpty()) n.RefrescarFila(llave);
                    }});
  registry.AddNavegador(navegador, {.acciones = std::move(extras)});
}

}  // namespace ventarix
