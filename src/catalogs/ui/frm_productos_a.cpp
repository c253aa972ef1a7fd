#include "catalogs/ui/frm_productos_a.h"

#include <QComboBox>

#include "catalogs/ui/grid_niveles.h"
#include "catalogs/ui/productos_campos.h"
#include "core/ui/campo_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FrmProductosA::FrmProductosA(Session& session, const QString& codigo, QWidget* parent)
    : FormaProducto(session, true, parent) {
  setObjectName(u"FrmProductosA"_s);
  setWindowTitle(u"Productos - Alta"_s);
  CamposDeProducto& c = campos();
  const double impuesto =
      session.empresa.Has(u"impuesto"_s) ? session.empresa.Number(u"impuesto"_s) : 16.0;
  for (int i : {CamposDeProducto::kPrecio, CamposDeProducto::kCosto, CamposDeProducto::kComision,
                CamposDeProducto::kDescuento, CamposDeProducto::kMin, CamposDeProducto::kMax}) {
    c.Datos[i]->setNumero(0);
  }
  c.Datos[CamposDeProducto::kImpuesto]->setNumero(impuesto);
  const QString moneda = session.empresa.Text(u"moneda"_s);
  c.moneda->setCurrentText(moneda.isEmpty() ? u"MXN"_s : moneda);
  Recalcular();
  c.Datos[CamposDeProducto::kCodigo]->setText(codigo);
  c.Datos[codigo.isEmpty() ? CamposDeProducto::kCodigo : CamposDeProducto::kProducto]->setFocus();
}

}  // namespace ventarix
