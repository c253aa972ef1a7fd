#include "catalogs/ui/frm_productos_c.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QTimer>

#include "catalogs/productos.h"
#include "catalogs/ui/productos_campos.h"
#include "core/mFunciones_valores.h"
#include "core/ui/campo_captura.h"
#include "core/ui/message_box.h"
#include "core/usuarios.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {

QLabel* Dato(QWidget* padre, const QString& nombre, const QString& texto) {
  auto* etiqueta = new QLabel(texto, padre);
  etiqueta->setObjectName(nombre);
  etiqueta->setFrameShape(QFrame::Panel);
  etiqueta->setFrameShadow(QFrame::Sunken);
  etiqueta->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return etiqueta;
}

QString Fecha(const QDateTime& fecha) {
  return fecha.isValid() ? QLocale::c().toString(fecha.date(), u"dd/MM/yyyy"_s) : QString();
}

QGroupBox* Historial(QWidget* padre, const productos::Historial& h) {
  auto* grupo = new QGroupBox(u"Historial"_s, padre);
  auto* filas = new QFormLayout(grupo);
  filas->addRow(u"Último costo:"_s,
                Dato(grupo, u"UltimoCosto"_s, mFunciones::FormatoNumero(h.ultimo_costo, 4)));
  filas->addRow(u"Última venta:"_s,
                Dato(grupo, u"UltimaVenta"_s, mFunciones::FormatoNumero(h.ultima_venta, 4)));
  filas->addRow(u"Fecha última compra:"_s,
                Dato(grupo, u"FechaUltimaCompra"_s, Fecha(h.fecha_ultima_compra)));
  filas->addRow(u"Fecha última venta:"_s,
                Dato(grupo, u"FechaUltimaVenta"_s, Fecha(h.fecha_ultima_venta)));
  for (int k = 0; k < productos::kAlmacenes; ++k) {
    const QString almacen = u"Almacen"_s + QString::number(k + 1);
    filas->addRow(u"Almacén %1:"_s.arg(k + 1),
                  Dato(grupo, almacen, mFunciones::FormatoNumero(h.almacenes[k], 2)));
  }
  return grupo;
}

}  // namespace

FrmProductosC::FrmProductosC(Session& session, const QString& llave, QWidget* parent)
    : FormaProducto(session, false, parent) {
  setObjectName(u"FrmProductosC"_s);
  setWindowTitle(u"Productos - Cambios"_s);
  CamposDeProducto& c = campos();
  productos::Leido leido;
  const Outcome lectura = productos::LeerProducto(session, llave, &leido);
  if (!lectura) {
    // Nothing to change: the message, then the screen closes as if left with Esc.
    QTimer::singleShot(0, this, [this, lectura] {
      ui::ShowOutcome(this, session_, lectura);
      reject();
    });
    return;
  }
  c.Mostrar(leido.producto, leido.nombres_clientes, leido.nombres_consumos);
  setMarcaLeida(leido.producto.marca);
  c.Datos[CamposDeProducto::kCodigo]->setReadOnly(true);
  c.Datos[CamposDeProducto::kCodigo]->setFocusPolicy(Qt::NoFocus);
  c.Datos[CamposDeProducto::kCosto]->setReadOnly(
      !usuarios::PuedeModificar(session, u"ModificarCosto"_s));
  c.layout->addWidget(Historial(this, leido.historial), 0, 2);
  Cifras(false);
  c.Datos[CamposDeProducto::kProducto]->setFocus();
}

}  // namespace ventarix
