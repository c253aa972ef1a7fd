#include "purchasing/ui/navegador_compras.h"

#include "core/ui/navegador.h"
#include "purchasing/ui/cuenta_proveedor_vista.h"
#include "purchasing/ui/frm_compras_e.h"

namespace ventarix::compras_ui {

using namespace Qt::StringLiterals;

namespace {

void EstadoDeCuenta(Navegador& navegador) {
  const QString compra = navegador.LlaveActual();
  if (compra.isEmpty()) return;
  qint32 proveedor = 0;
  {
    Connection c(navegador.session().Cadena, Connection::Acceso::kLectura);
    proveedor = c.Scalar(u"select proveedor from compras where compra = ?"_s, {compra}).toInt();
  }
  CuentaProveedor vista(navegador.session(), proveedor, &navegador);
  vista.exec();
}

void Etiquetas(Navegador& navegador) {
  const QString compra = navegador.LlaveActual();
  if (compra.isEmpty()) return;
  FrmComprasE etiquetas(navegador.session(), compra, &navegador);
  etiquetas.exec();
}

}  // namespace

ExtrasNavegador NavegadorDeCompras() {
  return {.acciones = {{.boton = 11,
                        .texto = u"Estado de cuenta"_s,
                        .icono = QStyle::SP_FileDialogDetailedView,
                        .accion = EstadoDeCuenta},
                       {.boton = 12,
                        .texto = u"Etiquetas"_s,
                        .icono = QStyle::SP_FileDialogListView,
                        .accion = Etiquetas}}};
}

}  // namespace ventarix::compras_ui
