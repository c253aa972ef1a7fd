#include "edocs/ui/folios_registro.h"

#include <QTableView>

#include "core/ui/form_registry.h"
#include "core/ui/message_box.h"
#include "core/ui/navegador.h"
#include "edocs/folios_rangos.h"
#include "edocs/ui/frm_folios.h"

namespace ventarix {

namespace {

template <typename Forma>
void Alta(FormRegistry& registry, const char* nombre) {
  registry.Add(QLatin1String(nombre), [](Session& session) { return new Forma(session); });
}

template <typename Forma>
void Cambio(FormRegistry& registry, const char* nombre) {
  registry.Add(QLatin1String(nombre),
               [](Session& session, const QString& llave) { return new Forma(session, llave); });
}

// The current range becomes the one the invoice or credit-note screens start with; every row's
// mark changes, so the whole view is read again.
void Predeterminar(Navegador& navegador, edocs::FamiliaFolios folios) {
  if (!navegador.grid()->currentIndex().isValid() || !navegador.Autorizar(8)) return;
  Session& session = navegador.session();
  const Outcome hecho = edocs::Predeterminar(session, folios, navegador.LlaveActual().toInt());
  if (!hecho) return ui::ShowOutcome(&navegador, session, hecho);
  navegador.Recargar();
}

ExtrasNavegador NavegadorDeFolios(edocs::FamiliaFolios folios) {
  return {.acciones = {{.boton = 8,
                        .texto = QStringLiteral("Predeterminar"),
                        .icono = QStyle::SP_DialogYesButton,
                        .tecla = Qt::Key_D,
                        .modificadores = Qt::ControlModifier,
                        .accion = [folios](Navegador& n) { Predeterminar(n, folios); }}}};
}

}  // namespace

void RegistrarFolios(FormRegistry& registry) {
  registry.AddNavegador(QStringLiteral("FrmFoliosFacturas"),
                        NavegadorDeFolios(edocs::FamiliaFolios::kFacturas));
  registry.AddNavegador(QStringLiteral("FrmFoliosNotas"),
                        NavegadorDeFolios(edocs::FamiliaFolios::kNotas));
  Alta<FrmFoliosFacturasA>(registry, "FrmFoliosFacturasA");
  Cambio<FrmFoliosFacturasC>(registry, "FrmFoliosFacturasC");
  Alta<FrmFoliosNotasA>(registry, "FrmFoliosNotasA");
  Cambio<FrmFoliosNotasC>(registry, "FrmFoliosNotasC");
}

}  // namespace ventarix
