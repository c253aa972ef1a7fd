#include "catalogs/ui/frm_productos_p.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "catalogs/precios_rapidos.h"
#include "catalogs/productos_codigos.h"
#include "core/ui/campo_captura.h"
#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"
#include "core/usuarios.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FrmProductosP::FrmProductosP(Session& session, const QString& codigo, QWidget* parent)
    : QDialog(parent), session_(session), codigo_(codigo) {
  setObjectName(u"FrmProductosP"_s);
  setWindowTitle(u"Productos - Precios"_s);
  auto* producto =
      new QLabel(codigo_ + u"  "_s + productos::NombreDeProducto(session, codigo_), this);
  producto->setObjectName(u"Producto"_s);
  precio_ = Campo("Precio", 4);
  impuesto_ = Campo("Impuesto", 2);
  costo_ = Campo("Costo", 4);
  venta_ = Campo("Venta", 4);
  costo_->setReadOnly(!usuarios::PuedeModificar(session, u"ModificarCosto"_s));
  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { Guardar(); });

  auto* campos = new QFormLayout;
  campos->addRow(u"Producto:"_s, producto);
  campos->addRow(u"P&recio neto:"_s, precio_);
  campos->addRow(u"&Impuesto %:"_s, impuesto_);
  campos->addRow(u"C&osto:"_s, costo_);
  campos->addRow(u"&Venta:"_s, venta_);
  auto* botones = FilaDeBotones(guardar_, salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(campos);
  layout->addLayout(botones);
  setMinimumWidth(380);

  connect(precio_, &QLineEdit::textEdited, this, &FrmProductosP::VentaDesdePrecio);
  connect(impuesto_, &QLineEdit::textEdited, this, &FrmProductosP::VentaDesdePrecio);
  connect(venta_, &QLineEdit::textEdited, this, &FrmProductosP::PrecioDesdeVenta);

  productos::PreciosRapidos precios;
  const Outcome lectura = productos::LeerPreciosRapidos(session, codigo_, &precios);
  if (!lectura) {
    QTimer::singleShot(0, this, [this, lectura] {
      ui::ShowOutcome(this, session_, lectura);
      reject();
    });
    return;
  }
  precio_->setNumero(precios.precio);
  impuesto_->setNumero(precios.impuesto);
  costo_->setNumero(precios.costo);
  venta_->setNumero(precios.venta);
  precio_->setFocus();
}

CampoCaptura* FrmProductosP::Campo(const char* nombre, int decimales) {
  auto* campo = new CampoCaptura(session_, this);
  campo->setObjectName(QString::fromLatin1(nombre));
  campo->setDecimales(decimales);
  campo->setMaxLength(16);
  connect(campo, &CampoCaptura::Salir, this, &QDialog::reject);
  return campo;
}

void FrmProductosP::VentaDesdePrecio() {
  venta_->setNumero(productos::VentaDePrecio(precio_->Numero(), impuesto_->Numero()));
}

void FrmProductosP::PrecioDesdeVenta() {
  precio_->setNumero(productos::PrecioDeVenta(venta_->Numero(), impuesto_->Numero()));
}

void FrmProductosP::Guardar() {
  const productos::PreciosRapidos precios{precio_->Numero(), impuesto_->Numero(), costo_->Numero(),
                                          venta_->Numero()};
  const Outcome guardado = productos::GuardarPreciosRapidos(session_, codigo_, precios);
  if (!guardado) {
    ui::ShowOutcome(this, session_, guardado);
    return;
  }
  guardada_ = codigo_;
  accept();
}

void FrmProductosP::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
