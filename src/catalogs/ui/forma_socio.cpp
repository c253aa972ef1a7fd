#include "catalogs/ui/forma_socio.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "catalogs/socios_campos.h"
#include "catalogs/socios_guardar.h"
#include "catalogs/ui/etiqueta_status.h"
#include "catalogs/ui/precios_del_cliente.h"
#include "core/mFunciones_valores.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/message_box.h"
#include "core/ui/pestanas.h"
#include "core/ui/teclas_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using socios::Tipo;

namespace {

// The screens move through their fields with Enter, so no button is the dialog's default:
// Enter presses a button only when it has the focus.
bool EsEnter(const QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const int tecla = static_cast<const QKeyEvent*>(event)->key();
  return tecla == Qt::Key_Return || tecla == Qt::Key_Enter;
}

}  // namespace

FormaSocio::FormaSocio(Session& session, socios::Socio socio, bool cambio, const QString& llave,
                       QWidget* parent)
    : QDialog(parent),
      session_(session),
      familia_(socios::FamiliaDe(socio)),
      cambio_(cambio),
      llave_(llave) {
  setObjectName(QLatin1String(cambio ? familia_.cambio : familia_.alta));
  setWindowTitle(QLatin1String(familia_.titulo) + (cambio ? u" - Cambios"_s : u" - Alta"_s));

  numero_campo_ = new CampoCaptura(session_, this);
  numero_campo_->setObjectName(u"Numero"_s);
  numero_campo_->setReadOnly(true);
  numero_campo_->setFocusPolicy(Qt::NoFocus);
  numero_campo_->setAlignment(Qt::AlignRight);
  numero_campo_->setMaximumWidth(numero_campo_->fontMetrics().horizontalAdvance(u"0000000000"_s));
  status_ = new EtiquetaStatus(cambio_, this);
  tabs_ = new Pestanas(this);
  tabs_->addTab(Pagina(), u"Datos generales"_s);
  if (cambio_ && socio == socios::Socio::kClientes) {
    precios_ = new PreciosDelCliente(session_, this);
    tabs_->addTab(precios_->marcas(), u"Precios por marca"_s);
    tabs_->addTab(precios_->productos(), u"Precios por producto"_s);
  }
  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { GuardarClicked(); });

  auto* cabeza = new QHBoxLayout;
  cabeza->addWidget(new QLabel(u"Número"_s, this));
  cabeza->addWidget(numero_campo_);
  cabeza->addStretch();
  cabeza->addWidget(status_);
  auto* botones = FilaDeBotones(guardar_, salir_);
  if (precios_ != nullptr) botones->insertWidget(0, precios_->etiqueta());
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(cabeza);
  layout->addWidget(tabs_, 1);
  layout->addLayout(botones);

  if (auto* rfc = qobject_cast<CampoCaptura*>(Campo(u"Rfc"_s)); rfc && familia_.fiscal) {
    rfc->installEventFilter(this);
    connect(rfc, &CampoCaptura::Dejado, this, [this] { RevisarRfc(true); });
  }
  if (auto* cuenta = qobject_cast<CampoCaptura*>(Campo(u"NumCtaPago"_s))) {
    connect(cuenta, &CampoCaptura::Dejado, this,
            [cuenta] { cuenta->setText(socios::NumCtaPagoAlDejar(cuenta->text())); });
  }
  if (auto* nombre = qobject_cast<CampoCaptura*>(Campo(u"Nombre"_s));
      nombre && familia_.nombre_requerido) {
    connect(nombre, &QLineEdit::textChanged, this,
            [this](const QString& texto) { guardar_->setEnabled(!texto.trimmed().isEmpty()); });
    guardar_->setEnabled(false);
  }
  for (const QString& columna : socios::CamposBloqueados(session_, socio, cambio_)) {
    if (QWidget* campo = Campo(columna)) campo->setEnabled(false);
  }
  OrdenDeCaptura();
  PintarCamposAlEnfocar(this, session_);
  Cargar();
  if (QWidget* nombre = Campo(u"Nombre"_s)) nombre->setFocus();
}

// Enter walks the fields in the order they are saved, then the price grids and the buttons.
void FormaSocio::OrdenDeCaptura() {
  QList<QWidget*> orden;
  for (const socios::Campo* campo : socios::Campos(familia_, cambio_)) {
    QWidget* widget = Campo(QLatin1String(campo->columna));
    if (auto* numero = qobject_cast<CampoCatalogo*>(widget)) widget = numero->campo();
    orden << widget;
  }
  if (precios_ != nullptr) orden << precios_->marcas() << precios_->productos();
  orden << guardar_ << salir_;
  EncadenarFoco(orden);
}

void FormaSocio::Cargar() {
  if (!cambio_) {
    numero_ = socios::NumeroPropuesto(session_, familia_.socio);
    numero_campo_->setText(QString::number(numero_));
    status_->Mostrar(u"ALTA"_s);
    if (auto* tienda = qobject_cast<CampoCaptura*>(Campo(u"Tienda"_s))) {
      tienda->setText(QString::number(session_.Tienda));
    }
  } else {
    numero_ = static_cast<qint32>(mFunciones::ValorNumerico(llave_));
    socios::Registro registro;
    Outcome leido = socios::LeerSocio(session_, familia_.socio, numero_, &registro);
    if (leido) Mostrar(registro);
    if (leido && precios_ != nullptr) leido = precios_->Cargar(numero_);
    if (!leido) {
      // Nothing to change: the message once the screen is up, then it closes.
      guardar_->setEnabled(false);
      QTimer::singleShot(0, this, [this, leido] {
        ui::ShowOutcome(this, session_, leido);
        reject();
      });
    }
  }
  if (cuenta_sugerida_ != nullptr) {
    cuenta_sugerida_->setText(socios::CuentaSugerida(familia_.socio, numero_));
  }
}

void FormaSocio::Mostrar(const socios::Registro& registro) {
  numero_campo_->setText(QString::number(registro.numero));
  status_->Mostrar(registro.status);
  for (const socios::Campo* campo : socios::Campos(familia_, cambio_)) {
    QWidget* widget = Campo(QLatin1String(campo->columna));
    const QVariant valor = registro.valores.Value(QLatin1String(campo->columna));
    if (auto* numero = qobject_cast<CampoCatalogo*>(widget)) {
      numero->setNumero(valor.toInt());
    } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
      if (combo->findText(valor.toString()) < 0) combo->addItem(valor.toString());
      combo->setCurrentIndex(combo->findText(valor.toString()));
    } else if (auto* marca = qobject_cast<QCheckBox*>(widget)) {
      marca->setChecked(valor.toString() == u"S"_s);
    } else if (auto* texto = qobject_cast<CampoCaptura*>(widget)) {
      if (campo->tipo == Tipo::kNumero) {
        texto->setNumero(valor.toDouble());
      } else if (campo->tipo == Tipo::kEntero) {
        texto->setText(QString::number(valor.toLongLong()));
      } else {
        texto->setText(valor.toString());
      }
    }
  }
  RevisarRfc(false);
}

socios::Registro FormaSocio::Capturado() const {
  socios::Registro registro;
  registro.numero = numero_;
  registro.status = status_->text();
  for (const socios::Campo* campo : socios::Campos(familia_, cambio_)) {
    const QString columna = QLatin1String(campo->columna);
    QWidget* widget = Campo(columna);
    QString valor;
    if (auto* numero = qobject_cast<CampoCatalogo*>(widget)) {
      valor = numero->campo()->text();
    } else if (auto* combo = qobject_cast<QComboBox*>(widget)) {
      valor = combo->currentText();
    } else if (auto* marca = qobject_cast<QCheckBox*>(widget)) {
      valor = marca->isChecked() ? u"S"_s : u"N"_s;
    } else if (auto* texto = qobject_cast<QLineEdit*>(widget)) {
      valor = texto->text();
    }
    registro.valores.Set(columna, valor);
  }
  return registro;
}

// The RFC cleaned, and for a client the date it encodes. Leaving the field again without a
// change says nothing twice: the focus also leaves it for the message box itself.
void FormaSocio::RevisarRfc(bool avisar) {
  auto* rfc = qobject_cast<QLineEdit*>(Campo(u"Rfc"_s));
  if (rfc == nullptr || !familia_.fiscal) return;
  if (avisar && rfc->text() == rfc_revisado_) return;
  const socios::RevisionRfc revision = socios::RevisarRfc(familia_.socio, rfc->text());
  rfc->setText(revision.rfc);
  rfc_revisado_ = revision.rfc;
  if (fecha_ != nullptr) fecha_->setText(revision.fecha);
  if (avisar && !revision.outcome.message.isEmpty()) {
    QTimer::singleShot(0, this, [this, outcome = revision.outcome] { Avisar(outcome); });
  }
}

void FormaSocio::GuardarClicked() {
  const socios::Registro registro = Capturado();
  socios::PreciosCliente precios;
  const socios::PreciosCliente* cambiados = nullptr;
  if (precios_ != nullptr && precios_->Modificado()) {
    precios = precios_->Precios();
    cambiados = &precios;
  }
  const socios::Resultado resultado =
      socios::GuardarSocio(session_, familia_.socio, cambio_, registro, cambiados);
  for (const Outcome& aviso : resultado.avisos) Avisar(aviso);
  if (!resultado.outcome) {
    Avisar(resultado.outcome);
    return;
  }
  guardada_ = QString::number(resultado.numero);
  accept();
}

// A message about a field shows the page that holds it first.
void FormaSocio::Avisar(const Outcome& outcome) {
  QWidget* pagina = tabs_->widget(0);
  if (precios_ != nullptr && outcome.field == u"Marcas"_s) pagina = precios_->marcas();
  if (precios_ != nullptr && outcome.field == u"Productos"_s) pagina = precios_->productos();
  tabs_->setCurrentWidget(pagina);
  ui::ShowOutcome(this, session_, outcome);
}

bool FormaSocio::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Campo(u"Rfc"_s) && event->type() == QEvent::KeyPress &&
      familia_.socio == socios::Socio::kClientes) {
    const auto* tecla = static_cast<QKeyEvent*>(event);
    const QString generico = socios::RfcGenerico(tecla->key() - Qt::Key_0);
    if (tecla->modifiers().testFlag(Qt::ControlModifier) && !generico.isEmpty()) {
      static_cast<QLineEdit*>(watched)->setText(generico);
      RevisarRfc(false);
      return true;
    }
  }
  // The choices and the check box take Enter as every field does.
  if (EsEnter(event) && watched != Campo(u"Rfc"_s)) {
    focusNextChild();
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

void FormaSocio::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (auto* boton = qobject_cast<QPushButton*>(focusWidget())) {
        boton->click();
      } else {
        focusNextChild();
      }
      return;
    case Qt::Key_Escape:
      reject();
      return;
    default:
      QDialog::keyPressEvent(event);
  }
}

}  // namespace ventarix
