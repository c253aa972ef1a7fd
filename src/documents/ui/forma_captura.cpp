#include "documents/ui/forma_captura.h"

#include <algorithm>

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/dialect.h"
#include "core/mFunciones.h"
#include "core/mFunciones_valores.h"
#include "core/ui/abrir_ayuda.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/message_box.h"
#include "core/ui/pestanas.h"
#include "core/ui/teclas_captura.h"
#include "documents/captura_partida.h"
#include "documents/ui/autorizar_captura.h"
#include "documents/ui/rejilla_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using captura_ui::Campo;
using captura_ui::Dato;

namespace {

QString Dinero(double valor) {
  static const QLocale kLocale(QLocale::English, QLocale::UnitedStates);
  return kLocale.toString(valor, 'f', 2);
}

QString NombreDato(int indice) { return u"Datos%1"_s.arg(indice); }

}  // namespace

FormaCaptura::FormaCaptura(Session& session, const captura_ui::Pantalla& pantalla, bool cambio,
                           const QString& llave, QWidget* parent)
    : QDialog(parent), session_(session), pantalla_(pantalla), cambio_(cambio) {
  setObjectName(QLatin1String(cambio ? pantalla.cambio : pantalla.alta));
  setWindowTitle(QString::fromUtf8(pantalla.titulo) + (cambio ? u" - CAMBIOS"_s : u" - ALTAS"_s));
  fg1_ = new RejillaCaptura({.con_surtir = pantalla.con_surtir,
                             .con_factura = pantalla.con_factura,
                             .fuente = pantalla.fuente,
                             .titulo_fuente = pantalla.titulo_fuente},
                            this);
  tabs_ = new Pestanas(this);
  tabs_->addTab(fg1_, u"Partidas"_s);
  if (std::any_of(pantalla.datos.begin(), pantalla.datos.end(),
                  [](const Dato& d) { return d.pagina == 1; })) {
    tabs_->addTab(PaginaDeDatos(1), u"Otros datos"_s);
  }
  msg1_ = new QLabel(this);
  msg1_->setObjectName(u"Msg1"_s);
  QFont grande = msg1_->font();
  grande.setBold(true);
  grande.setPointSizeF(grande.pointSizeF() * 1.3);
  msg1_->setFont(grande);
  timer_ = new QTimer(this);
  timer_->setObjectName(u"Timer"_s);
  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { Guardar(); });

  auto* pie = new QHBoxLayout;
  pie->addWidget(msg1_, 1);
  pie->addWidget(Botones());
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(Encabezado());
  if (QWidget* fiscales = DatosFiscales()) layout->addWidget(fiscales);
  layout->addWidget(tabs_, 1);
  layout->addWidget(Totales());
  layout->addLayout(pie);
  Conectar();
  PintarCamposAlEnfocar(this, session_);
  resize(1100, 640);
  if (cambio_) {
    Cargar(llave);
  } else {
    Nuevo();
    if (pantalla_.al_abrir != nullptr) pantalla_.al_abrir(*this);
  }
  vigente_ = fg1_->Partidas();
  if (QWidget* cliente = datos_.value(1)) cliente->setFocus();
}

// The fields lose the focus while the screen is taken down: nothing is recomputed then.
FormaCaptura::~FormaCaptura() {
  for (QObject* campo : findChildren<QObject*>()) campo->disconnect(this);
}

QWidget* FormaCaptura::CrearDato(const Dato& dato, QWidget* padre) {
  QWidget* widget = nullptr;
  CampoCaptura* campo = nullptr;
  if (dato.campo == Campo::kCliente || dato.campo == Campo::kProveedor ||
      dato.campo == Campo::kAgente || dato.campo == Campo::kMetodo) {
    const Catalogo catalogo = dato.campo == Campo::kCliente     ? Catalogo::kClientes
                              : dato.campo == Campo::kProveedor ? Catalogo::kProveedores
                              : dato.campo == Campo::kAgente    ? Catalogo::kAgentes
                                                                : Catalogo::kMetodos;
    auto* numero = new CampoCatalogo(session_, catalogo, padre);
    connect(numero, &CampoCatalogo::Ayuda, this, [this, numero] { AyudaDeCampo(numero); });
    campo = numero->campo();
    widget = numero;
  } else {
    campo = new CampoCaptura(session_, padre);
    if (dato.campo == Campo::kRetencion) {
      connect(campo, &CampoCaptura::Ayuda, this, [this, i = dato.indice] { PedirRetencion(i); });
      connect(campo, &CampoCaptura::Dejado, this, &FormaCaptura::RecalcularPantalla);
    } else if (dato.campo == Campo::kResumen) {
      campo->installEventFilter(this);
    }
    if (dato.campo == Campo::kNumero || dato.campo == Campo::kRetencion) {
      campo->setAlignment(Qt::AlignRight);
      campo->setMaximumWidth(campo->fontMetrics().horizontalAdvance(u"000000000000"_s));
    } else {
      campo->setMayusculas();
    }
    if (dato.longitud > 0) campo->setMaxLength(dato.longitud);
    widget = campo;
  }
  connect(campo, &CampoCaptura::Salir, this, [this] { salir_->setFocus(); });
  widget->setObjectName(NombreDato(dato.indice));
  datos_.insert(dato.indice, widget);
  return widget;
}

// Serie, folio, date, kind and status, then the family's fields above the tabs.
QWidget* FormaCaptura::Encabezado() {
  auto* caja = new QWidget(this);
  auto* rejilla = new QGridLayout(caja);
  rejilla->setContentsMargins(0, 0, 0, 0);
  serie_ = new QLabel(caja);
  serie_->setObjectName(u"Serie"_s);
  fecha_ = new QDateEdit(caja);
  fecha_->setObjectName(u"Fecha"_s);
  fecha_->setCalendarPopup(true);
  fecha_->setDisplayFormat(u"dd/MM/yyyy"_s);
  tipo_ = new QComboBox(caja);
  tipo_->setObjectName(u"Tipo"_s);
  tipo_->addItems(pantalla_.tipos);
  status_ = new QLabel(caja);
  status_->setObjectName(u"Status"_s);
  QFont negrita = status_->font();
  negrita.setBold(true);
  status_->setFont(negrita);
  serie_->setFont(negrita);
  auto* primera = new QHBoxLayout;
  primera->addWidget(new QLabel(u"Serie"_s, caja));
  primera->addWidget(serie_);
  primera->addSpacing(12);
  primera->addWidget(new QLabel(u"Folio"_s, caja));
  int fila = 1;
  int columna = 0;
  for (const Dato& dato : pantalla_.datos) {
    if (dato.pagina != 0) continue;
    QWidget* widget = CrearDato(dato, caja);
    if (dato.indice == 0) {
      auto* folio = static_cast<CampoCaptura*>(widget);
      folio->setReadOnly(true);
      folio->setFocusPolicy(Qt::NoFocus);
      primera->addWidget(folio);
      continue;
    }
    rejilla->addWidget(new QLabel(QString::fromUtf8(dato.titulo), caja), fila, columna);
    rejilla->addWidget(widget, fila, columna + 1);
    columna = columna == 0 ? 2 : 0;
    if (columna == 0) ++fila;
  }
  primera->addSpacing(12);
  primera->addWidget(new QLabel(u"Fecha"_s, caja));
  primera->addWidget(fecha_);
  primera->addWidget(new QLabel(u"Tipo"_s, caja));
  primera->addWidget(tipo_);
  if (!pantalla_.movimientos.isEmpty()) primera->addLayout(ListaDeMovimientos(caja));
  primera->addStretch();
  primera->addWidget(new QLabel(u"Status"_s, caja));
  primera->addWidget(status_);
  rejilla->addLayout(primera, 0, 0, 1, 4);
  rejilla->setColumnStretch(1, 1);
  rejilla->setColumnStretch(3, 1);
  return caja;
}

// Where the goods go: a warehouse ("SI Afecta Inventario de:") or an expense ("Movimiento de:").
QHBoxLayout* FormaCaptura::ListaDeMovimientos(QWidget* caja) {
  movimiento_ = new QComboBox(caja);
  movimiento_->setObjectName(u"Movimiento"_s);
  movimiento_->addItems(pantalla_.movimientos);
  auto* titulo = new QLabel(caja);
  auto poner_titulo = [this, titulo] {
    titulo->setText(movimiento_->currentText().startsWith(u"ALMACEN"_s)
                        ? u"SI Afecta Inventario de:"_s
                        : u"Movimiento de:"_s);
  };
  connect(movimiento_, &QComboBox::currentTextChanged, titulo, poner_titulo);
  poner_titulo();
  auto* fila = new QHBoxLayout;
  fila->addWidget(titulo);
  fila->addWidget(movimiento_);
  return fila;
}

QWidget* FormaCaptura::PaginaDeDatos(int pagina) {
  auto* caja = new QWidget(this);
  auto* rejilla = new QGridLayout(caja);
  int fila = 0;
  for (const Dato& dato : pantalla_.datos) {
    if (dato.pagina != pagina) continue;
    rejilla->addWidget(new QLabel(QString::fromUtf8(dato.titulo), caja), fila, 0);
    rejilla->addWidget(CrearDato(dato, caja), fila, 1);
    ++fila;
  }
  rejilla->setRowStretch(fila, 1);
  rejilla->setColumnStretch(1, 1);
  return caja;
}

// The running sums; the client's balance and limit beside them where the family shows them.
QWidget* FormaCaptura::Totales() {
  auto* caja = new QWidget(this);
  auto* rejilla = new QGridLayout(caja);
  rejilla->setContentsMargins(0, 0, 0, 0);
  const char* const kNombres[] = {"Importe", "Descuento", "SubTotal", "Iva",   "Total",
                                  "Costo",   "Comision",  "Utilidad", "Saldo", "Credito"};
  const char* const kTitulos[] = {"Importe", "Descuento", "SubTotal", "Iva",   "Total",
                                  "Costo",   "Comisión",  "Utilidad", "Saldo", "Crédito"};
  for (int i = 0; i < 10; ++i) {
    if (i >= 8 && pantalla_.credito == nullptr) break;
    auto* valor = new QLabel(u"0.00"_s, caja);
    valor->setObjectName(QLatin1String(kNombres[i]));
    valor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    valor->setFrameShape(QFrame::Panel);
    valor->setFrameShadow(QFrame::Sunken);
    valor->setMinimumWidth(valor->fontMetrics().horizontalAdvance(u"000,000,000.00"_s));
    totales_.insert(QLatin1String(kNombres[i]), valor);
    const int fila = i < 5 ? 0 : 1;
    const int col = (i < 5 ? i : i - 5) * 2;
    rejilla->addWidget(new QLabel(QString::fromUtf8(kTitulos[i]), caja), fila, col, Qt::AlignRight);
    rejilla->addWidget(valor, fila, col + 1);
  }
  return caja;
}

QWidget* FormaCaptura::Botones() {
  auto* caja = new QWidget(this);
  auto* fila = new QHBoxLayout(caja);
  fila->setContentsMargins(0, 0, 0, 0);
  for (const captura_ui::Accion& accion : pantalla_.acciones) {
    if (!(cambio_ ? accion.en_cambio : accion.en_alta)) continue;
    QPushButton* boton = BotonDeCaptura(accion.texto, accion.nombre, this);
    connect(boton, &QPushButton::clicked, this, [this, hacer = accion.hacer] { hacer(*this); });
    fila->addWidget(boton);
  }
  if (pantalla_.deshacer && cambio_) {
    QPushButton* deshacer = BotonDeCaptura("Des&hacer", "Deshacer", this);
    QPushButton* rehacer = BotonDeCaptura("Re&hacer", "Rehacer", this);
    connect(deshacer, &QPushButton::clicked, this, &FormaCaptura::Deshacer);
    connect(rehacer, &QPushButton::clicked, this, &FormaCaptura::Rehacer);
    fila->addWidget(deshacer);
    fila->addWidget(rehacer);
  }
  fila->addSpacing(16);
  fila->addWidget(guardar_);
  fila->addWidget(salir_);
  return caja;
}

void FormaCaptura::Conectar() {
  QList<QWidget*> orden{fecha_, tipo_};
  if (movimiento_ != nullptr) orden << movimiento_;
  for (int pagina : {0, 1}) {
    for (const Dato& dato : pantalla_.datos) {
      if (dato.pagina != pagina || dato.indice == 0) continue;
      QWidget* widget = datos_.value(dato.indice);
      if (auto* numero = qobject_cast<CampoCatalogo*>(widget)) widget = numero->campo();
      orden << widget;
    }
    if (pagina == 0) orden << fg1_;
  }
  orden << guardar_ << salir_;
  EncadenarFoco(orden);

  if (auto* cliente = qobject_cast<CampoCatalogo*>(datos_.value(1))) {
    connect(cliente, &CampoCatalogo::ClienteLeido, this, &FormaCaptura::ClienteLeido);
    connect(cliente->campo(), &CampoCaptura::Dejado, this, [this] {
      RecalcularPantalla();
      CondicionesDePago();
    });
  }
  if (auto* plazo = qobject_cast<CampoCaptura*>(datos_.value(3))) {
    connect(plazo, &CampoCaptura::Dejado, this, [this] {
      RecalcularPantalla();
      CondicionesDePago();
    });
  }
  if (auto* cuenta = qobject_cast<CampoCaptura*>(datos_.value(31))) {
    // Fewer than the last four digits says nothing of the account.
    connect(cuenta, &CampoCaptura::Dejado, this, [cuenta] {
      if (cuenta->text().trimmed().size() < 4) cuenta->clear();
    });
  }
  connect(fg1_, &RejillaCaptura::Escrita, this, &FormaCaptura::CeldaEscrita);
  connect(fg1_, &RejillaCaptura::Confirmada, fg1_, &RejillaCaptura::Avanzar);
  connect(fg1_, &RejillaCaptura::Ayuda, this, &FormaCaptura::AyudaDeRejilla);
  connect(fg1_, &RejillaCaptura::Pegadas, this, &FormaCaptura::Pegar);
  connect(fg1_, &RejillaCaptura::Salir, this, [this] { salir_->setFocus(); });
  connect(fg1_, &RejillaCaptura::Modificada, this, [this] {
    RecalcularPantalla();
    Recordar();
  });
  // Msg1 blinks while the warning stands.
  connect(timer_, &QTimer::timeout, this,
          [this] { msg1_->setText(msg1_->text().isEmpty() ? aviso_ : QString()); });
}

void FormaCaptura::Nuevo() {
  fecha_->setDate(QDate::currentDate());
  status_->setText(QString::fromUtf8(pantalla_.familia.status_inicial));
  almacen_ = qBound(1, session_.Tienda, 5);
  if (pantalla_.rango != nullptr) return PonerRango(0);
  const QString serie = (session_.*pantalla_.familia.serie).trimmed().toUpper();
  serie_->setText(serie.isEmpty() ? u"A"_s : serie);
  const qint32 folio =
      mFunciones::NumeroSiguiente(session_, u"folio"_s, QString::fromUtf8(pantalla_.familia.tabla),
                                  u"where serie = ?"_s, {serie_->text()});
  PonerTexto(0, QString::number(folio));
}

void FormaCaptura::Cargar(const QString& llave) {
  llave_ = llave;
  const captura::Leido leido = captura::LeerDocumento(session_, pantalla_.familia, llave);
  if (!leido.outcome) {
    guardar_->setEnabled(false);
    QTimer::singleShot(0, this, [this, o = leido.outcome] {
      Avisar(o);
      reject();
    });
    return;
  }
  const QVariantMap& e = leido.documento.encabezado;
  leido_ = e;
  cargando_ = true;
  serie_->setText(e.value(u"serie"_s).toString());
  fecha_->setDate(dialect::ReadDate(e.value(u"fecha"_s)).date());
  const QString tipo = e.value(u"tipo"_s).toString();
  if (tipo_->findText(tipo) < 0) tipo_->addItem(tipo);
  tipo_->setCurrentIndex(tipo_->findText(tipo));
  if (movimiento_ != nullptr) {
    const QString movimiento = e.value(u"movimiento"_s).toString().trimmed();
    if (movimiento_->findText(movimiento) < 0) movimiento_->addItem(movimiento);
    movimiento_->setCurrentIndex(movimiento_->findText(movimiento));
  }
  status_->setText(e.value(u"status"_s).toString());
  for (const Dato& dato : pantalla_.datos) {
    const QVariant valor = e.value(QString::fromUtf8(dato.columna));
    if (auto* numero = qobject_cast<CampoCatalogo*>(datos_.value(dato.indice))) {
      numero->setNumero(valor.toInt());
    } else if (dato.campo == Campo::kNumero || dato.campo == Campo::kRetencion) {
      PonerTexto(dato.indice, QString::number(valor.toDouble()));
    } else {
      PonerTexto(dato.indice, valor.toString().trimmed());
    }
  }
  CargarFiscales(e);
  cargando_ = false;
  almacen_ = e.value(u"tienda"_s).toInt() > 0 ? e.value(u"tienda"_s).toInt() : session_.Tienda;
  std::vector<QVariantMap> partidas = leido.documento.partidas;
  captura::PonerExistencias(session_, almacen_, partidas, pantalla_.avisar_existencias);
  fg1_->PonerPartidas(partidas);
  RecalcularPantalla();
  // An invoiced or cancelled document opens for viewing.
  const bool modificable = leido.modificable && Texto(0).toInt() > 0 && Cliente() > 0;
  guardar_->setEnabled(modificable);
  fg1_->setSoloLectura(!modificable || Depto() == u"PRODUCTOS"_s);
}

void FormaCaptura::ClienteLeido(const RowValues& cliente) {
  saldo_cliente_ = cliente.Number(u"saldo"_s);
  credito_cliente_ = cliente.Number(u"credito"_s);
  if (cargando_) return;
  if (auto* agente = qobject_cast<CampoCatalogo*>(datos_.value(2))) {
    agente->setNumero(static_cast<qint32>(cliente.Number(u"agente"_s)));
  }
  PonerTexto(3, QString::number(cliente.Number(u"plazo"_s)));
  if (auto* metodo = qobject_cast<CampoCatalogo*>(datos_.value(30))) {
    metodo->setNumero(static_cast<qint32>(cliente.Number(u"metodo"_s)));
  }
  PonerTexto(31, cliente.Text(u"numctapago"_s));
}

// Cash or credit by the term; the clerk may write something else afterwards.
void FormaCaptura::CondicionesDePago() {
  if (!datos_.contains(32)) return;
  PonerTexto(32, Plazo() == 0 ? u"CONTADO"_s : u"CREDITO"_s);
}

void FormaCaptura::AyudaDeCampo(CampoCatalogo* campo) {
  const char* palabra = campo->catalogo() == Catalogo::kClientes      ? "CLIENTES"
                        : campo->catalogo() == Catalogo::kProveedores ? "PROVEEDORES"
                        : campo->catalogo() == Catalogo::kAgentes     ? "AGENTES"
                                                                      : "METODOS";
  const QString elegido = AbrirAyuda(session_, QLatin1String(palabra), this);
  if (elegido.isEmpty()) return;
  campo->setNumero(elegido.toInt());
  RecalcularPantalla();
  CondicionesDePago();
}

QString FormaCaptura::Texto(int indice) const {
  QWidget* widget = datos_.value(indice);
  if (auto* numero = qobject_cast<CampoCatalogo*>(widget)) return numero->campo()->text();
  if (auto* campo = qobject_cast<CampoCaptura*>(widget)) return campo->text();
  return {};
}

void FormaCaptura::PonerTexto(int indice, const QString& texto) {
  if (auto* campo = qobject_cast<CampoCaptura*>(datos_.value(indice))) campo->setText(texto);
}

qint32 FormaCaptura::Cliente() const {
  return static_cast<qint32>(mFunciones::ValorNumerico(Texto(1)));
}

int FormaCaptura::Plazo() const { return static_cast<int>(mFunciones::ValorNumerico(Texto(3))); }

captura::Documento FormaCaptura::Capturado() const {
  captura::Documento d;
  d.llave = cambio_ ? llave_ : QString();
  d.folio_previsto = Texto(0).toInt();
  for (const Dato& dato : pantalla_.datos) {
    if (dato.indice == 0) continue;
    const QString texto = Texto(dato.indice).trimmed();
    d.encabezado.insert(QString::fromUtf8(dato.columna),
                        dato.campo == Campo::kTexto || dato.campo == Campo::kResumen
                            ? QVariant(texto)
                            : QVariant(mFunciones::ValorNumerico(texto)));
  }
  CapturarFiscales(&d);
  d.encabezado.insert(u"fecha"_s, QDateTime(fecha_->date(), QTime(0, 0)));
  d.encabezado.insert(u"tipo"_s, tipo_->currentText());
  if (movimiento_ != nullptr) d.encabezado.insert(u"movimiento"_s, movimiento_->currentText());
  d.partidas = fg1_->Partidas();
  return d;
}

void FormaCaptura::RecalcularPantalla() {
  sumas_ = fg1_->Recalcular();
  const std::pair<const char*, double> valores[] = {
      {"Importe", sumas_.importe},   {"Descuento", sumas_.descuento}, {"SubTotal", sumas_.subtotal},
      {"Iva", sumas_.iva},           {"Total", sumas_.total},         {"Costo", sumas_.costo},
      {"Comision", sumas_.comision}, {"Utilidad", sumas_.utilidad}};
  for (const auto& [nombre, valor] : valores) {
    totales_.value(QLatin1String(nombre))->setText(Dinero(valor));
  }
  // What is withheld comes off the total.
  totales_.value(u"Total"_s)->setText(Dinero(sumas_.total - Retenciones()));
  if (pantalla_.credito != nullptr) pantalla_.credito(*this);
}

void FormaCaptura::MostrarCredito(double saldo, double credito, const QString& aviso) {
  totales_.value(u"Saldo"_s)->setText(Dinero(saldo));
  totales_.value(u"Credito"_s)->setText(Dinero(credito));
  // 500 milliseconds to flash, 0 to stop.
  Destellar(aviso);
}

bool FormaCaptura::Destellando() const { return timer_->isActive(); }

void FormaCaptura::Destellar(const QString& aviso) {
  aviso_ = aviso;
  msg1_->setStyleSheet(u"color: rgb(255, 0, 0);"_s);
  msg1_->setText(aviso);
  if (aviso.isEmpty()) {
    timer_->stop();
  } else if (!timer_->isActive()) {
    timer_->start(500);
  }
}

void FormaCaptura::Avisar(const Outcome& outcome) {
  QWidget* campo = findChild<QWidget*>(outcome.field);
  if (campo != nullptr) {
    for (int i = 0; i < tabs_->count(); ++i) {
      if (tabs_->widget(i)->isAncestorOf(campo) || tabs_->widget(i) == campo) {
        tabs_->setCurrentIndex(i);
      }
    }
  }
  ui::ShowOutcome(this, session_, outcome);
}

void FormaCaptura::Guardar() {
  tabs_->setCurrentIndex(0);
  fg1_->TerminarEdicion();
  // While the credit warning flashes the document can't be saved.
  if (pantalla_.credito != nullptr && Destellando()) {
    return Avisar(Outcome::Warning(aviso_, u"Msg1"_s));
  }
  // A message of the pipeline stands until the next try.
  if (pantalla_.credito == nullptr) Destellar(QString());
  const captura::Documento documento = Capturado();
  if (Outcome revisado = captura::RevisarDocumento(session_, pantalla_.familia, documento);
      !revisado) {
    int fila = 0;
    if (revisado.field == u"Fg1"_s &&
        !captura::ChecarPartidas(documento.partidas, pantalla_.familia.checar_utilidad, false,
                                 &fila) &&
        fila > 0) {
      fg1_->setCurrentCell(fila - 1, fg1_->Col(RejillaCaptura::kCodigo));
    }
    return Avisar(revisado);
  }
  if (!Autorizado()) return;
  const captura::Guardado guardado =
      captura::GuardarDocumento(session_, pantalla_.familia, documento);
  if (!guardado.outcome) {
    if (guardado.outcome.field == u"Msg1"_s) Destellar(guardado.outcome.message);
    return Avisar(guardado.outcome);
  }
  guardada_ = guardado.llave;
  accept();
}

// The last check before writing: the security lines of the family's view for adding (1) or
// changing (3) may ask the user's or the manager's password.
bool FormaCaptura::Autorizado() {
  return AutorizarCaptura(session_, pantalla_.alta, cambio_, this);
}

// The clerk starts on the client, also when the screen opens over another window.
void FormaCaptura::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  QTimer::singleShot(0, this, [this] {
    activateWindow();
    if (QWidget* cliente = datos_.value(1); cliente != nullptr && focusWidget() == nullptr) {
      cliente->setFocus();
    }
  });
}

void FormaCaptura::keyPressEvent(QKeyEvent* event) {
  if (pantalla_.deshacer && cambio_ && event->matches(QKeySequence::Undo)) return Deshacer();
  if (pantalla_.deshacer && cambio_ && event->matches(QKeySequence::Redo)) return Rehacer();
  if (event->key() == Qt::Key_Escape) {
    salir_->setFocus();
    return;
  }
  // F8 unlocks the folio of a new document; the save still gives it the serie's next one.
  if (event->key() == Qt::Key_F8 && !cambio_) {
    if (auto* folio = qobject_cast<CampoCaptura*>(datos_.value(0))) {
      folio->setReadOnly(false);
      folio->setFocusPolicy(Qt::StrongFocus);
      folio->setFocus();
    }
    return;
  }
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
