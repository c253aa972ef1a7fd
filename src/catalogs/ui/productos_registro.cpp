#include "catalogs/ui/productos_registro.h"

#include <QTableView>

#include "catalogs/ui/frm_lineas.h"
#include "catalogs/ui/frm_marcas.h"
#include "catalogs/ui/frm_productos_a.h"
#include "catalogs/ui/frm_productos_c.h"
#include "catalogs/ui/frm_productos_g.h"
#include "catalogs/ui/frm_productos_p.h"
#include "core/ui/form_registry.h"
#include "core/ui/message_box.h"
#include "core/ui/navegador.h"

namespace ventarix {

namespace {

template <typename Forma>
void Alta(FormRegistry& registry, const QString& nombre) {
  registry.Add(nombre, [](Session& session, const QString&) { return new Forma(session); });
}

template <typename Forma>
void Cambio(FormRegistry& registry, const QString& nombre) {
  registry.Add(nombre,
               [](Session& session, const QString& llave) { return new Forma(session, llave); });
}

// F12: Enter opens the quick price screen instead of the whole product, until F12 again.
void ModoPrecios(Navegador& navegador) {
  const bool activo = navegador.pantallaDeCambio().isEmpty();
  navegador.setPantallaDeCambio(activo ? QStringLiteral("FrmProductosP") : QString());
  ui::Inform(&navegador, QStringLiteral("Pantalla para modo precios ") +
                             (activo ? QStringLiteral("ACTIVADA") : QStringLiteral("DESACTIVADA")));
}

// Ctrl+G: the code change runs through every table, so the whole view is read again.
void CambiarCodigo(Navegador& navegador) {
  if (!navegador.grid()->currentIndex().isValid()) return;
  if (!navegador.Permitido(QStringLiteral("C"))) return;
  navegador.AbrirForma(QStringLiteral("FrmProductosG"), navegador.LlaveActual());
  navegador.Recargar();
}

}  // namespace

void RegistrarProductos(FormRegistry& registry) {
  registry.AddNavegador(
      QStringLiteral("FrmProductos"),
      {.acciones = {
           {.tecla = Qt::Key_F12, .accion = ModoPrecios},
           {.tecla = Qt::Key_G, .modificadores = Qt::ControlModifier, .accion = CambiarCodigo}}});
  // From a document's row, the code not found comes as the key.
  Cambio<FrmProductosA>(registry, QStringLiteral("FrmProductosA"));
  Cambio<FrmProductosC>(registry, QStringLiteral("FrmProductosC"));
  Cambio<FrmProductosP>(registry, QStringLiteral("FrmProductosP"));
  // The registry outlives every screen it makes; the code change opens MDIInicioCambiar
  // through it when it is not inside the main window.
  const FormRegistry* propio = &registry;
  registry.Add(QStringLiteral("FrmProductosG"), [propio](Session& session, const QString& llave) {
    return new FrmProductosG(session, propio, llave);
  });
  Alta<FrmMarcasA>(registry, QStringLiteral("FrmMarcasA"));
  Cambio<FrmMarcasC>(registry, QStringLiteral("FrmMarcasC"));
  Alta<FrmLineasA>(registry, QStringLiteral("FrmLineasA"));
  Cambio<FrmLineasC>(registry, QStringLiteral("FrmLineasC"));
}

}  // namespace ventarix
