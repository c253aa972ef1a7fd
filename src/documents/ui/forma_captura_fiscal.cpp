// What the electronic documents' screens (invoices, credit notes) add to the capture screen:
// the folio range with its serie and scheme, Depto, the currency with its exchange rate, the
// form of payment, the amounts withheld and the summary text.
#include <QComboBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>

#include "core/ayuda.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/ui/abrir_ayuda.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/message_box.h"
#include "documents/ui/forma_captura.h"
#include "documents/ui/rejilla_captura.h"
#include "documents/ui/texto_largo.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using captura_ui::Campo;
using captura_ui::Dato;

namespace {

constexpr int kCliente = 1;

QLabel* Etiqueta(const QString& nombre, QWidget* padre) {
  auto* etiqueta = new QLabel(padre);
  etiqueta->setObjectName(nombre);
  etiqueta->setFrameShape(QFrame::Panel);
  etiqueta->setFrameShadow(QFrame::Sunken);
  QFont negrita = etiqueta->font();
  negrita.setBold(true);
  etiqueta->setFont(negrita);
  etiqueta->setMinimumWidth(etiqueta->fontMetrics().horizontalAdvance(u"PRODUCTOS"_s) + 16);
  return etiqueta;
}

}  // namespace

// One line under the header: Ingreso, Esquema, Depto, Moneda with its rate, FormaDePago;
// nothing for the families that have none of them.
QWidget* FormaCaptura::DatosFiscales() {
  if (pantalla_.rango == nullptr && !pantalla_.con_moneda && !pantalla_.con_depto) return nullptr;
  auto* caja = new QWidget(this);
  auto* fila = new QHBoxLayout(caja);
  fila->setContentsMargins(0, 0, 0, 0);
  if (pantalla_.rango != nullptr) {
    ingreso_ = Etiqueta(u"Ingreso"_s, caja);
    // A double click on the number chooses another range.
    ingreso_->installEventFilter(this);
    ingreso_->setToolTip(QString::fromUtf8(pantalla_.rango->ayuda));
    esquema_ = Etiqueta(u"Esquema"_s, caja);
    fila->addWidget(new QLabel(u"Folios"_s, caja));
    fila->addWidget(ingreso_);
    fila->addWidget(new QLabel(u"Esquema"_s, caja));
    fila->addWidget(esquema_);
  }
  if (pantalla_.con_depto) {
    depto_ = Etiqueta(u"Depto"_s, caja);
    depto_->setText(u"LIBRE"_s);
    fila->addWidget(new QLabel(u"Depto"_s, caja));
    fila->addWidget(depto_);
  }
  if (pantalla_.con_moneda) {
    moneda_ = new QComboBox(caja);
    moneda_->setObjectName(u"Moneda"_s);
    moneda_->addItems({u"MXN"_s, u"USD"_s, u"EUR"_s});
    etiqueta_cambio_ = new QLabel(u"Tipo de cambio"_s, caja);
    tipo_cambio_ = new CampoCaptura(session_, caja);
    tipo_cambio_->setObjectName(u"TipoCambio"_s);
    tipo_cambio_->setAlignment(Qt::AlignRight);
    tipo_cambio_->setMaximumWidth(tipo_cambio_->fontMetrics().horizontalAdvance(u"0000000000"_s));
    tipo_cambio_->setText(u"1.0000"_s);
    forma_de_pago_ = new QComboBox(caja);
    forma_de_pago_->setObjectName(u"FormaDePago"_s);
    forma_de_pago_->addItems({u"PAGO EN UNA SOLA EXHIBICION"_s, u"PAGO EN PARCIALIDADES"_s});
    connect(moneda_, &QComboBox::currentTextChanged, this, &FormaCaptura::MonedaElegida);
    fila->addWidget(new QLabel(u"Moneda"_s, caja));
    fila->addWidget(moneda_);
    fila->addWidget(etiqueta_cambio_);
    fila->addWidget(tipo_cambio_);
    fila->addWidget(new QLabel(u"Forma de pago"_s, caja));
    fila->addWidget(forma_de_pago_);
    MonedaElegida();
  }
  fila->addStretch();
  return caja;
}

// The range's serie and scheme, and the next folio of that serie; a range that isn't in force
// leaves both empty, and the save refuses the missing scheme.
void FormaCaptura::PonerRango(qint32 numero) {
  const captura::RangoDeFolios& r = pantalla_.familia.rango;
  captura::Documento d;
  d.encabezado.insert(QString::fromUtf8(r.columna), numero);
  captura::SerieDelDocumento serie;
  {
    Connection c(session_.Cadena, Connection::Acceso::kLectura);
    if (c.ok()) serie = captura::SerieDe(session_, c, pantalla_.familia, d);
  }
  ingreso_->setText(QString::number(serie.rango));
  serie_->setText(serie.serie);
  esquema_->setText(serie.esquema);
  const qint32 folio =
      mFunciones::NumeroSiguiente(session_, u"folio"_s, QString::fromUtf8(pantalla_.familia.tabla),
                                  u"where serie = ?"_s, {serie.serie});
  PonerTexto(0, QString::number(folio));
}

void FormaCaptura::ElegirRango() {
  if (cambio_) return;
  const QString elegido = AbrirAyuda(session_, QString::fromUtf8(pantalla_.rango->ayuda), this);
  activateWindow();
  if (!elegido.isEmpty()) PonerRango(elegido.toInt());
}

// "MXN" needs no rate: the field and its label hide.
void FormaCaptura::MonedaElegida() {
  const bool nacional = moneda_->currentText() == u"MXN"_s;
  etiqueta_cambio_->setVisible(!nacional);
  tipo_cambio_->setVisible(!nacional);
}

QString FormaCaptura::Depto() const { return depto_ != nullptr ? depto_->text() : QString(); }

// Rows brought from delivery notes are what was delivered: the client and the rows are locked.
void FormaCaptura::PonerDepto(const QString& depto) {
  if (depto_ == nullptr) return;
  depto_->setText(depto.isEmpty() ? u"LIBRE"_s : depto);
  const bool productos = Depto() == u"PRODUCTOS"_s;
  if (auto* cliente = qobject_cast<CampoCatalogo*>(datos_.value(kCliente))) {
    cliente->campo()->setReadOnly(productos);
  }
  if (productos) fg1_->setSoloLectura(true);
}

void FormaCaptura::PonerDocumento(const captura::Documento& documento) {
  const QVariantMap& e = documento.encabezado;
  // The client brings nothing of its own: the document says it all.
  cargando_ = true;
  for (const Dato& dato : pantalla_.datos) {
    const QString columna = QString::fromUtf8(dato.columna);
    if (dato.indice == 0 || !e.contains(columna)) continue;
    if (auto* numero = qobject_cast<CampoCatalogo*>(datos_.value(dato.indice))) {
      numero->setNumero(e.value(columna).toInt());
    } else {
      PonerTexto(dato.indice, e.value(columna).toString().trimmed());
    }
  }
  cargando_ = false;
  if (e.contains(u"tipo"_s)) {
    const QString tipo = e.value(u"tipo"_s).toString();
    if (tipo_->findText(tipo) < 0) tipo_->addItem(tipo);
    tipo_->setCurrentIndex(tipo_->findText(tipo));
  }
  fg1_->setSoloLectura(false);
  fg1_->PonerPartidas(documento.partidas);
  PonerDepto(e.value(u"depto"_s).toString());
  RecalcularPantalla();
  Recordar();
}

void FormaCaptura::Completar(const QVariantMap& encabezado) {
  for (const Dato& dato : pantalla_.datos) {
    const QString valor = encabezado.value(QString::fromUtf8(dato.columna)).toString().trimmed();
    if (dato.campo == Campo::kTexto && Texto(dato.indice).isEmpty() && !valor.isEmpty()) {
      PonerTexto(dato.indice, valor);
    }
  }
}

void FormaCaptura::CargarFiscales(const QVariantMap& e) {
  if (pantalla_.rango != nullptr) {
    ingreso_->setText(e.value(QString::fromUtf8(pantalla_.familia.rango.columna)).toString());
    esquema_->setText(e.value(u"esquema"_s).toString().trimmed().toUpper());
  }
  if (pantalla_.con_moneda) {
    const QString moneda = e.value(u"moneda"_s).toString().trimmed();
    if (!moneda.isEmpty() && moneda_->findText(moneda) < 0) moneda_->addItem(moneda);
    if (!moneda.isEmpty()) moneda_->setCurrentText(moneda);
    tipo_cambio_->setText(QString::number(e.value(u"tipocambio"_s).toDouble(), 'f', 4));
    const QString forma = e.value(u"formadepago"_s).toString().trimmed();
    if (forma_de_pago_->findText(forma) >= 0) forma_de_pago_->setCurrentText(forma);
  }
  PonerDepto(e.value(u"depto"_s).toString().trimmed());
}

void FormaCaptura::CapturarFiscales(captura::Documento* d) const {
  if (pantalla_.rango != nullptr) {
    d->encabezado.insert(QString::fromUtf8(pantalla_.familia.rango.columna),
                         ingreso_->text().toInt());
    d->encabezado.insert(u"serie"_s, serie_->text());
    d->encabezado.insert(u"esquema"_s, esquema_->text());
  }
  if (pantalla_.con_depto) d->encabezado.insert(u"depto"_s, Depto());
  if (pantalla_.con_moneda) {
    const bool nacional = moneda_->currentText() == u"MXN"_s;
    d->encabezado.insert(u"moneda"_s, moneda_->currentText());
    d->encabezado.insert(u"tipocambio"_s,
                         nacional ? 1.0 : mFunciones::ValorNumerico(tipo_cambio_->text()));
    d->encabezado.insert(u"formadepago"_s, forma_de_pago_->currentText());
  }
}

// F1 on an amount withheld: a percentage of the screen's subtotal.
void FormaCaptura::PedirRetencion(int indice) {
  bool ok = false;
  const QString respuesta = QInputDialog::getText(this, QLatin1String(ui::kTitulo),
                                                  u"Aplicar al subtotal una retención del  %"_s,
                                                  QLineEdit::Normal, {}, &ok);
  activateWindow();
  if (!ok || respuesta.trimmed().isEmpty()) return;
  const double retencion = sumas_.subtotal * ayuda::Numero(respuesta) / 100;
  PonerTexto(indice, QString::number(retencion, 'f', 2));
  RecalcularPantalla();
}

double FormaCaptura::Retenciones() const {
  double suma = 0;
  for (const Dato& dato : pantalla_.datos) {
    if (dato.campo == Campo::kRetencion) suma += mFunciones::ValorNumerico(Texto(dato.indice));
  }
  return suma;
}

void FormaCaptura::EditarResumen(int indice) {
  auto* campo = qobject_cast<CampoCaptura*>(datos_.value(indice));
  if (campo == nullptr) return;
  if (const auto texto = EditarTextoLargo(this, campo->text(), campo->maxLength())) {
    campo->setText(*texto);
  }
}

bool FormaCaptura::eventFilter(QObject* objeto, QEvent* event) {
  if (objeto == ingreso_ && event->type() == QEvent::MouseButtonDblClick) {
    ElegirRango();
    return true;
  }
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F2) {
    for (const Dato& dato : pantalla_.datos) {
      if (dato.campo == Campo::kResumen && datos_.value(dato.indice) == objeto) {
        EditarResumen(dato.indice);
        return true;
      }
    }
  }
  return QDialog::eventFilter(objeto, event);
}

}  // namespace ventarix
