#include "catalogs/ui/productos_registro.h"

#include "catalogs/ui/frm_lineas.h"
#include "catalogs/ui/frm_marcas.h"
#include "catalogs/ui/frm_productos_a.h"
#include "catalogs/ui/frm_productos_c.h"
#include "catalogs/ui/frm_productos_g.h"
#include "catalogs/ui/frm_productos_p.h"
#include "core/ui/form_registry.h"

namespace ventarix {

void RegistrarProductos(FormRegistry& registry) {
  registry.Add(QStringLiteral("FrmProductosA"),
               [](Session& session) { return new FrmProductosA(session); });
  registry.Add(QStringLiteral("FrmProductosC"),
               [](Session& session) { return new FrmProductosC(session); });
  registry.Add(QStringLiteral("FrmProductosP"),
               [](Session& session) { return new FrmProductosP(session); });
  // The registry outlives every screen it makes; the code change opens MDIInicioCambiar
  // through it when it is not inside the main window.
  const FormRegistry* propio = &registry;
  registry.Add(QStringLiteral("FrmProductosG"),
               [propio](Session& session) { return new FrmProductosG(session, propio); });
  registry.Add(QStringLiteral("FrmMarcasA"),
               [](Session& session) { return new FrmMarcasA(session); });
  registry.Add(QStringLiteral("FrmMarcasC"),
               [](Session& session) { return new FrmMarcasC(session); });
  registry.Add(QStringLiteral("FrmLineasA"),
               [](Session& session) { return new FrmLineasA(session); });
  registry.Add(QStringLiteral("FrmLineasC"),
               [](Session& session) { return new FrmLineasC(session); });
}

}  // namespace ventarix
