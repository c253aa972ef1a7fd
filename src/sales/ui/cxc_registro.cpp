#include "sales/ui/cxc_registro.h"

#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "sales/ui/frm_cxc.h"

namespace ventarix {

namespace {

using namespace Qt::StringLiterals;

// The settle receipt is saved from its own screen; the browser then shows it.
void Saldar(Navegador& navegador) {
  if (!navegador.Autorizar(1)) return;
  const QString llave = EjecutarDialogo(new FrmCxCs(navegador.session()), &navegador);
  if (!llave.isEmpty()) navegador.RefrescarFila(llave);
}

}  // namespace

void RegistrarCuentasPorCobrar(FormRegistry& registry) {
  registry.Add(u"FrmCxCa"_s, [](Session& session, const QString& llave) -> QWidget* {
    return new FrmCxCa(session, llave);
  });
  registry.Add(u"FrmCxCc"_s, [](Session& session, const QString& llave) -> QWidget* {
    return new FrmCxCc(session, llave);
  });
  registry.Add(u"FrmCxCs"_s, std::function<QWidget*(Session&)>([](Session& session) -> QWidget* {
                 return new FrmCxCs(session);
               }));
  registry.AddNavegador(u"FrmCxC"_s, {.acciones = {{.boton = 8,
                                                    .texto = u"Saldar"_s,
                                                    .icono = QStyle::SP_DialogApplyButton,
                                                    .tecla = Qt::Key_S,
                                                    .modificadores = Qt::ControlModifier,
                                                    .accion = Saldar}}});
}

}  // namespace ventarix
