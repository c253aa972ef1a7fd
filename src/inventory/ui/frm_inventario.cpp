#include "inventory/ui/frm_inventario.h"

#include "core/ui/form_registry.h"
#include "core/ui/navegador.h"
#include "inventory/ui/frm_produccion_t.h"
#include "inventory/ui/pantallas_inventario.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FrmAjustesA::FrmAjustesA(Session& session, const QString& llave, QWidget* parent)
    : FormaInventario(session, inventario_ui::Ajustes(), false, llave, parent) {}
FrmAjustesC::FrmAjustesC(Session& session, const QString& llave, QWidget* parent)
    : FormaInventario(session, inventario_ui::Ajustes(), true, llave, parent) {}
FrmTraspasosA::FrmTraspasosA(Session& session, const QString& llave, QWidget* parent)
    : FormaInventario(session, inventario_ui::Traspasos(), false, llave, parent) {}
FrmTraspasosC::FrmTraspasosC(Session& session, const QString& llave, QWidget* parent)
    : FormaInventario(session, inventario_ui::Traspasos(), true, llave, parent) {}
FrmProduccionA::FrmProduccionA(Session& session, const QString& llave, QWidget* parent)
    : FormaInventario(session, inventario_ui::Produccion(), false, llave, parent) {}
FrmProduccionC::FrmProduccionC(Session& session, const QString& llave, QWidget* parent)
    : FormaInventario(session, inventario_ui::Produccion(), true, llave, parent) {}

namespace {

template <typename Forma>
void Agregar(FormRegistry& registry, const QString& nombre) {
  registry.Add(nombre, [](Session& session, const QString& llave) -> QWidget* {
    return new Forma(session, llave);
  });
}

// The order of the current row closed (or reopened), and its row shown again.
void Terminar(Navegador& navegador) {
  const QString llave = navegador.LlaveActual();
  if (llave.isEmpty() || !navegador.Permitido(u"C"_s)) return;
  navegador.AbrirForma(u"FrmProduccionT"_s, llave);
}

}  // namespace

void RegistrarInventario(FormRegistry& registry) {
  Agregar<FrmAjustesA>(registry, u"FrmAjustesA"_s);
  Agregar<FrmAjustesC>(registry, u"FrmAjustesC"_s);
  Agregar<FrmTraspasosA>(registry, u"FrmTraspasosA"_s);
  Agregar<FrmTraspasosC>(registry, u"FrmTraspasosC"_s);
  Agregar<FrmProduccionA>(registry, u"FrmProduccionA"_s);
  Agregar<FrmProduccionC>(registry, u"FrmProduccionC"_s);
  Agregar<FrmProduccionT>(registry, u"FrmProduccionT"_s);
  registry.AddNavegador(u"FrmProduccion"_s, {.acciones = {{.boton = 8,
                                                           .texto = u"Terminar"_s,
                                                           .icono = QStyle::SP_DialogApplyButton,
                                                           .tecla = Qt::Key_F7,
                                                           .accion = Terminar}}});
}

}  // namespace ventarix
