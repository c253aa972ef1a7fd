#include "purchasing/ui/cxp_registro.h"

#include "core/ui/message_box.h"
#include "core/ui/navegador.h"
#include "documents/ui/pagos_registro.h"
#include "purchasing/ui/pantalla_cxp.h"

namespace ventarix {

namespace {

using namespace Qt::StringLiterals;

// The printed payment (PrnCxP0) is not built yet: the button names what it will print.
void Imprimir(Navegador& navegador) {
  const QString pago = navegador.LlaveActual();
  if (pago.isEmpty()) return;
  ui::Inform(&navegador,
             u"POLIZA DE EGRESO No. "_s + pago + u"\n\nEsta función aún no está disponible."_s);
}

}  // namespace

void RegistrarCuentasPorPagar(FormRegistry& registry) {
  RegistrarPantallasPagos(registry, PantallaCxP(), u"FrmCxP"_s,
                          {{.boton = 6,
                            .texto = u"Imprimir"_s,
                            .icono = QStyle::SP_FileDialogContentsView,
                            .accion = Imprimir}});
}

}  // namespace ventarix
