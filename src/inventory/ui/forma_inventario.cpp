#include "inventory/ui/forma_inventario.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/ui/campo_captura.h"
#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"
#include "documents/row_arithmetic.h"
#include "inventory/partidas_inventario.h"
#include "inventory/ui/rejilla_inventario.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using inventario_ui::Campo;

FormaInventario::FormaInventario(Session& session, const inventario_ui::Pantalla& pantalla,
                                 bool cambio, const QString& llave, QWidget* parent)
    : QDialog(parent), session_(session), pantalla_(pantalla), cambio_(cambio), llave_(llave) {
  setObjectName(QLatin1String(cambio ? pantalla.cambio : pantalla.alta));
  setWindowTitle(QString::fromUtf8(pantalla.titulo) + (cambio ? u" - CAMBIOS"_s : u" - ALTAS"_s));
  fg1_ = new RejillaInventario(pantalla.columnas, this);
  auto* caja = new QVBoxLayout(this);
  caja->addWidget(Encabezado());
  caja->addWidget(fg1_, 1);
  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { Guardar(); });
  auto* botones = FilaDeBotones(guardar_, salir_);
  if (pantalla.con_descuento) {
    QPushButton* descuento = BotonDeCaptura("Aplicar &descuento %", "AplicarDescuento", this);
    connect(descuento, &QPushButton::clicked, this, &FormaInventario::AplicarDescuento);
    botones->insertWidget(0, descuento);
  }
  if (pantalla.con_descuento) caja->addWidget(Totales());
  caja->addLayout(botones);
  connect(fg1_, &RejillaInventario::Escrita, this, &FormaInventario::CeldaEscrita);
  QList<QWidget*> orden;
  for (const inventario_ui::Dato& d : pantalla.datos)
    orden << datos_.value(QString::fromUtf8(d.columna));
  EncadenarFoco(orden << fg1_ << guardar_ << salir_);
  resize(1000, 560);
  serie_->setText(session_.*pantalla.familia.serie);
  status_->setText(QString::fromUtf8(pantalla.familia.status_inicial));
  fecha_->setDate(mFunciones::FechaServidor(session_, true).date());
  if (cambio_) {
    Cargar(llave);
  } else {
    folio_->setText(QString::number(
        mFunciones::NumeroSiguiente(session_, u"folio"_s, QString::fromUtf8(pantalla.familia.tabla),
                                    u"where serie = ?"_s, {serie_->text()})));
  }
  if (!orden.isEmpty()) orden.first()->setFocus();
}

FormaInventario::~FormaInventario() {
  for (QObject* campo : findChildren<QObject*>()) campo->disconnect(this);
}

// Serie, folio, date and status, then the family's fields two to a line.
QWidget* FormaInventario::Encabezado() {
  auto* caja = new QWidget(this);
  auto* rejilla = new QGridLayout(caja);
  rejilla->setContentsMargins(0, 0, 0, 0);
  serie_ = new QLabel(caja);
  serie_->setObjectName(u"Serie"_s);
  folio_ = new QLabel(caja);
  folio_->setObjectName(u"Datos0"_s);
  fecha_ = new QDateEdit(caja);
  fecha_->setObjectName(u"Fecha"_s);
  fecha_->setDisplayFormat(u"dd/MM/yyyy"_s);
  fecha_->setFocusPolicy(Qt::ClickFocus);
  status_ = new QLabel(caja);
  status_->setObjectName(u"Status"_s);
  motivo_ = new QLabel(caja);
  motivo_->setObjectName(u"Motivo de Baja"_s);
  QFont negrita = status_->font();
  negrita.setBold(true);
  for (QLabel* l : {serie_, folio_, status_}) l->setFont(negrita);
  auto* primera = new QHBoxLayout;
  for (const auto& [titulo, w] : std::initializer_list<std::pair<QString, QWidget*>>{
           {u"Serie"_s, serie_}, {u"Folio"_s, folio_}, {u"Fecha"_s, fecha_}}) {
    primera->addWidget(new QLabel(titulo, caja));
    primera->addWidget(w);
    primera->addSpacing(12);
  }
  primera->addStretch();
  primera->addWidget(motivo_);
  primera->addWidget(new QLabel(u"Status"_s, caja));
  primera->addWidget(status_);
  rejilla->addLayout(primera, 0, 0, 1, 4);
  int fila = 1, columna = 0;
  for (const inventario_ui::Dato& d : pantalla_.datos) {
    QWidget* w = nullptr;
    const QString columna_dato = QString::fromUtf8(d.columna);
    if (d.campo == Campo::kAlmacen) {
      auto* lista = new QComboBox(caja);
      for (int n = 1; n <= 5; ++n) lista->addItem(u"ALMACEN%1"_s.arg(n));
      connect(lista, &QComboBox::currentIndexChanged, this, [this, columna_dato] {
        if (pantalla_.dato_escrito) pantalla_.dato_escrito(*this, columna_dato);
      });
      w = lista;
    } else {
      auto* campo = new CampoCaptura(session_, caja);
      if (d.campo == Campo::kNumero) {
        campo->setDecimales(2);
      } else {
        campo->setMayusculas();
      }
      connect(campo, &CampoCaptura::Dejado, this, [this, columna_dato] {
        if (pantalla_.dato_escrito) pantalla_.dato_escrito(*this, columna_dato);
      });
      connect(campo, &CampoCaptura::Salir, this, [this] { salir_->setFocus(); });
      w = campo;
    }
    w->setObjectName(QLatin1String(d.nombre));
    datos_.insert(columna_dato, w);
    rejilla->addWidget(new QLabel(QString::fromUtf8(d.titulo), caja), fila, columna);
    rejilla->addWidget(w, fila, columna + 1);
    columna = columna == 0 ? 2 : 0;
    if (columna == 0) ++fila;
  }
  rejilla->setColumnStretch(1, 1);
  rejilla->setColumnStretch(3, 1);
  return caja;
}

QWidget* FormaInventario::Totales() {
  auto* caja = new QWidget(this);
  auto* fila = new QHBoxLayout(caja);
  fila->addStretch();
  for (const QString& nombre : {u"Importe"_s, u"Descuento"_s, u"SubTotal"_s, u"Total"_s}) {
    auto* valor = new QLabel(u"0.00"_s, caja);
    valor->setObjectName(nombre);
    valor->setMinimumWidth(90);
    valor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    valor->setFrameShape(QFrame::StyledPanel);
    fila->addWidget(new QLabel(nombre, caja));
    fila->addWidget(valor);
    totales_.insert(nombre, valor);
  }
  return caja;
}

QVariant FormaInventario::Dato(const QString& columna) const {
  QWidget* w = datos_.value(columna);
  if (auto* lista = qobject_cast<QComboBox*>(w)) return lista->currentIndex() + 1;
  if (auto* campo = qobject_cast<CampoCaptura*>(w)) {
    return campo->decimales() > 0 ? QVariant(campo->Numero()) : QVariant(campo->text().trimmed());
  }
  return {};
}

captura::Documento FormaInventario::Capturado() const {
  captura::Documento d;
  d.llave = cambio_ ? llave_ : QString();
  d.folio_previsto = folio_->text().toInt();
  d.encabezado.insert(u"fecha"_s, fecha_->date().toString(Qt::ISODate));
  for (auto it = datos_.begin(); it != datos_.end(); ++it)
    d.encabezado.insert(it.key(), Dato(it.key()));
  d.partidas = fg1_->Partidas();
  return d;
}

void FormaInventario::PonerPartidas(const std::vector<QVariantMap>& partidas) {
  fg1_->PonerPartidas(partidas);
  Recalcular();
}

void FormaInventario::Cargar(const QString& llave) {
  const captura::Leido leido = captura::LeerDocumento(session_, pantalla_.familia, llave);
  if (!leido.outcome) return Avisar(leido.outcome);
  const QVariantMap& e = leido.documento.encabezado;
  serie_->setText(e.value(u"serie"_s).toString());
  folio_->setText(e.value(u"folio"_s).toString());
  status_->setText(e.value(u"status"_s).toString());
  motivo_->setText(e.value(u"motivo de baja"_s).toString());
  const QDate fecha = dialect::ReadDate(e.value(u"fecha"_s)).date();
  fecha_->setDate(fecha);
  for (auto it = datos_.begin(); it != datos_.end(); ++it) {
    const QVariant valor = e.value(it.key());
    if (auto* lista = qobject_cast<QComboBox*>(*it)) {
      const QSignalBlocker bloqueo(lista);
      lista->setCurrentIndex(qMax(0, inventario::Almacen(valor) - 1));
    } else if (auto* campo = qobject_cast<CampoCaptura*>(*it)) {
      campo->setText(campo->decimales() > 0 ? QString::number(valor.toDouble()) : valor.toString());
    }
  }
  PonerPartidas(leido.documento.partidas);
  const QDate hoy = mFunciones::FechaServidor(session_, true).date();
  const bool fuera = !session_.Administrador && !session_.Gerente &&
                     (fecha.year() != hoy.year() || fecha.month() != hoy.month());
  if (fuera && leido.modificable) {
    Avisar(Outcome::Warning(u"Este movimiento se encuentra fuera de fecha"_s));
  }
  if (fuera || !leido.modificable) {
    for (QWidget* w : datos_) w->setEnabled(false);
    fg1_->setSoloLectura(true);
    guardar_->setEnabled(false);
  }
}

// A row is completed as the save completes it: a new code brings its product afresh, a figure
// typed keeps the row's snapshot and recomputes what follows from it.
void FormaInventario::CeldaEscrita(int fila, int columna) {
  if (fila < 0 || fg1_->Codigo(fila).isEmpty()) return Recalcular();
  Connection c(session_.Cadena, Connection::Acceso::kLectura);
  captura::Documento d = Capturado();
  const captura::FamiliaCaptura& f = pantalla_.familia;
  if (f.completar_encabezado) f.completar_encabezado(session_, c, &d);
  QVariantMap partida = fg1_->Partida(fila);
  if (columna == 0) {
    partida = {{u"codigo"_s, fg1_->Codigo(fila)}};
  } else {
    partida.remove(u"real"_s);
    partida.remove(u"total"_s);
  }
  if (Outcome o = f.completar(session_, c, d, &partida); !o) {
    Avisar(o);
    fg1_->PonerPartida(fila, {{u"codigo"_s, QString()}});
    fg1_->Quedarse();
    return;
  }
  fg1_->PonerPartida(fila, partida);
  Recalcular();
  if (columna > 0 && f.revisar_existencias) {
    d = Capturado();
    if (f.completar_encabezado) f.completar_encabezado(session_, c, &d);
    if (Outcome o = f.revisar_existencias(session_, c, d, !cambio_); !o) {
      Avisar(o);
      fg1_->Quedarse();
    }
  }
}

// "Aplicar descuento %": the percentage given goes to every row in use; no answer, no change.
void FormaInventario::AplicarDescuento() {
  bool ok = false;
  const QString texto = QInputDialog::getText(this, QString::fromUtf8(ui::kTitulo),
                                              u"Aplicar descuento %"_s, QLineEdit::Normal, {}, &ok);
  if (!ok || texto.trimmed().isEmpty()) return;
  const double dcto = mFunciones::ValorNumerico(texto);
  std::vector<QVariantMap> partidas = fg1_->Partidas();
  for (QVariantMap& p : partidas) p.insert(u"dcto"_s, dcto);
  PonerPartidas(partidas);
}

void FormaInventario::Recalcular() {
  if (totales_.isEmpty()) return;
  DocumentSums sumas;
  for (const QVariantMap& p : fg1_->Partidas()) {
    auto n = [&p](const char* c) { return inventario::Numero(p, c); };
    sumas.Add(ComputeRow(
        {n("cantidad"), n("precio"), n("dcto"), n("impuesto"), n("costo"), n("com")}, true));
  }
  const QLocale en(QLocale::English);
  totales_[u"Importe"_s]->setText(en.toString(sumas.importe, 'f', 2));
  totales_[u"Descuento"_s]->setText(en.toString(sumas.descuento, 'f', 2));
  totales_[u"SubTotal"_s]->setText(en.toString(sumas.subtotal, 'f', 2));
  totales_[u"Total"_s]->setText(en.toString(sumas.total, 'f', 2));
}

void FormaInventario::Guardar() {
  const captura::Guardado g = captura::GuardarDocumento(session_, pantalla_.familia, Capturado());
  if (!g.outcome) return Avisar(g.outcome);
  guardada_ = g.llave;
  accept();
}

void FormaInventario::Avisar(const Outcome& outcome) { ui::ShowOutcome(this, session_, outcome); }

void FormaInventario::keyPressEvent(QKeyEvent* event) {
  if (TeclaDeCaptura(this, event)) return;
  QDialog::keyPressEvent(event);
}

}  // namespace ventarix
