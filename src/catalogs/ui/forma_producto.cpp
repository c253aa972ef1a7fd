#include "catalogs/ui/forma_producto.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "catalogs/productos.h"
#include "catalogs/productos_codigos.h"
#include "catalogs/ui/grid_lista.h"
#include "catalogs/ui/grid_niveles.h"
#include "catalogs/ui/productos_campos.h"
#include "core/mFunciones_valores.h"
#include "core/round_half_even.h"
#include "core/ui/abrir_ayuda.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using Dato = CamposDeProducto::Dato;

FormaProducto::FormaProducto(Session& session, bool alta, QWidget* parent)
    : QDialog(parent),
      session_(session),
      alta_(alta),
      formula_(catalogs::FormulaDeEmpresa(session.empresa)),
      campos_(std::make_unique<CamposDeProducto>(this, session, alta)) {
  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { Guardar(); });
  auto* botones = FilaDeBotones(guardar_, salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(campos_->layout);
  layout->addLayout(botones);
  EncadenarFoco({campos_->fg3, guardar_, salir_});
  PintarCamposAlEnfocar(this, session_);
  Conectar();
}

FormaProducto::~FormaProducto() {
  // Hiding the dialog commits a cell still being typed; by then this screen is half gone and
  // must not hear of it.
  for (QObject* grid : {static_cast<QObject*>(campos_->fg1), static_cast<QObject*>(campos_->fg2),
                        static_cast<QObject*>(campos_->fg3)}) {
    disconnect(grid, nullptr, this, nullptr);
  }
}

void FormaProducto::Conectar() {
  CamposDeProducto& c = *campos_;
  for (int i = 0; i < CamposDeProducto::kDatos; ++i) {
    connect(c.Datos[i], &CampoCaptura::Salir, this, &QDialog::reject);
    connect(c.Datos[i], &CampoCaptura::Ayuda, this, [this, i] { AyudaDe(i); });
  }
  for (int i : {Dato::kPrecio, Dato::kImpuesto, Dato::kCosto}) {
    connect(c.Datos[i], &QLineEdit::textEdited, this, &FormaProducto::Recalcular);
  }
  connect(c.fg1, &GridNiveles::UtilidadCambiada, this, &FormaProducto::Recalcular);
  connect(c.Datos[Dato::kCodigo], &CampoCaptura::Dejado, this, &FormaProducto::DejarCodigo);
  connect(c.Datos[Dato::kMarca], &CampoCaptura::Dejado, this, &FormaProducto::DejarMarca);
  for (int i : {Dato::kCodigo1, Dato::kCodigo2, Dato::kCodigo3}) {
    connect(c.Datos[i], &CampoCaptura::Dejado, this, [this, i] { DejarAlterno(i); });
  }
  connect(c.Datos[Dato::kZona], &CampoCaptura::Dejado, this, [this] {
    QLineEdit* zona = campos_->Datos[Dato::kZona];
    zona->setText(productos::FormatoZona(zona->text()));
  });
  connect(c.fg2, &GridLista::Cambiado, this,
          [this] { campos_->lbl_precios->setText(u"Modificado"_s); });
  connect(c.fg3, &GridLista::Cambiado, this,
          [this] { campos_->lbl_consumos->setText(u"Modificado"_s); });
  connect(c.fg2, &GridLista::Ayuda, this, [this](int fila) {
    const QString clave = AbrirAyuda(session_, u"CLIENTES"_s, this);
    if (!clave.isEmpty()) campos_->fg2->setClave(fila, clave);
  });
  connect(c.fg3, &GridLista::Ayuda, this, [this](int fila) {
    const QString clave = AbrirAyuda(session_, u"PRODUCTOS"_s, this);
    if (!clave.isEmpty()) campos_->fg3->setClave(fila, clave);
  });
}

void FormaProducto::Recalcular() { Cifras(true); }

void FormaProducto::Cifras(bool venta_de_precio) {
  CamposDeProducto& c = *campos_;
  const double precio = c.Datos[Dato::kPrecio]->Numero();
  const double impuesto = c.Datos[Dato::kImpuesto]->Numero();
  const double costo = c.Datos[Dato::kCosto]->Numero();
  catalogs::Desglose d = catalogs::DesgloseDePrecio(precio, impuesto, costo);
  if (venta_de_precio) {
    c.Datos[Dato::kVenta]->setNumero(d.venta);
  } else {
    // A product as stored: its own sale price, which need not follow its final price.
    const double venta = c.Datos[Dato::kVenta]->Numero();
    d = {venta, venta - RoundHalfEven(costo, 4), RoundHalfEven(impuesto, 2) * venta / 100};
  }
  c.utilidad->setText(mFunciones::FormatoNumero(d.margen, 4));
  QFont letra = c.utilidad->font();
  letra.setBold(d.margen < 0);
  c.utilidad->setFont(letra);
  c.impuesto->setText(mFunciones::FormatoNumero(d.impuesto, 4));
  c.fg1->Recalcular(formula_, costo, impuesto);
}

void FormaProducto::Avisar(const Outcome& outcome, bool vaciar) {
  if (outcome.ok || avisando_) return;
  avisando_ = true;
  // A message box opened while the focus is still leaving a field would take it in the
  // middle of the move; it waits for the event loop.
  QTimer::singleShot(0, this, [this, outcome, vaciar] {
    if (vaciar) {
      if (auto* campo = findChild<QLineEdit*>(outcome.field)) campo->clear();
    }
    ui::ShowOutcome(this, session_, outcome);
    avisando_ = false;
  });
}

void FormaProducto::DejarCodigo() {
  if (!alta_ || avisando_) return;
  const QString codigo = campos_->Datos[Dato::kCodigo]->text();
  if (codigo.trimmed().isEmpty()) return;
  Outcome revision = productos::RevisarCodigoReservado(codigo, u"Codigo"_s);
  if (revision) revision = productos::RevisarCodigoNuevo(session_, codigo);
  Avisar(revision);
}

void FormaProducto::DejarMarca() {
  const qint32 marca = campos_->marca->Numero();
  const bool otra_marca = marca != marca_leida_;
  marca_leida_ = marca;
  // A new brand numbers the code; the brand's margins come back every time the field is left.
  if (otra_marca && alta_ && session_.empresa.Flag(u"Utilizar_Consecutivo_En_Codigo"_s)) {
    campos_->Datos[Dato::kCodigo]->setText(productos::CodigoConsecutivo(session_, marca));
  }
  if (!session_.empresa.Flag(u"Aplicar_Utilidades_De_Marcas_En_Productos"_s)) return;
  if (const auto utilidades = productos::UtilidadesDeMarca(session_, marca)) {
    campos_->fg1->setUtilidades(*utilidades);
    Recalcular();
  }
}

void FormaProducto::DejarAlterno(int dato) {
  if (avisando_) return;
  CampoCaptura* campo = campos_->Datos[dato];
  if (campo->text().trimmed().isEmpty()) return;
  Avisar(productos::RevisarCodigoAlterno(session_, campos_->Datos[Dato::kCodigo]->text(),
                                         campo->text(), campo->objectName()),
         true);
}

void FormaProducto::AyudaDe(int dato) {
  QString palabra;
  if (dato == Dato::kMarca) palabra = u"MARCAS"_s;
  if (dato == Dato::kLinea) palabra = u"LINEAS"_s;
  if (dato == Dato::kUbicacion) palabra = u"UBICACIONES"_s;
  if (palabra.isEmpty()) return;
  const QString clave = AbrirAyuda(session_, palabra, this);
  if (clave.isEmpty()) return;
  CampoCaptura* campo = campos_->Datos[dato];
  campo->setText(clave);
  if (dato == Dato::kMarca) {
    campos_->marca->Leer();
    DejarMarca();
  } else if (dato == Dato::kLinea) {
    campos_->linea->Leer();
  }
  campo->setFocus();
}

void FormaProducto::Guardar() {
  // A click on Guardar right after a code that failed its check: that message comes first.
  if (avisando_) return;
  const productos::Producto producto = campos_->Leer();
  const Outcome guardado = alta_ ? productos::AltaProducto(session_, producto)
                                 : productos::CambioProducto(session_, producto);
  if (!guardado) {
    // A taken alternate code goes, as it does on leaving the field.
    if (guardado.field.startsWith(u"Codigo"_s) && guardado.field.size() == 7) {
      if (auto* campo = findChild<QLineEdit*>(guardado.field)) campo->clear();
    }
    ui::ShowOutcome(this, session_, guardado);
    return;
  }
  guardada_ = mFunciones::ValorTexto(producto.codigo);
  accept();
}

void FormaProducto::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
