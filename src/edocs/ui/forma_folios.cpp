#include "edocs/ui/forma_folios.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "core/mFunciones_valores.h"
#include "core/ui/campo_captura.h"
#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"
#include "edocs/ui/caja_leyenda.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using edocs::Esquema;

FormaFolios::FormaFolios(Session& session, edocs::FamiliaFolios familia, bool alta,
                         const QString& llave, QWidget* parent)
    : QDialog(parent), session_(session), familia_(familia), llave_(llave), alta_(alta) {
  abrir_archivo_ = [](QWidget* padre, const QString& titulo, const QString& carpeta,
                      const QString& filtro) {
    return QFileDialog::getOpenFileName(padre, titulo, carpeta, filtro);
  };
  ConstruirEncabezado();
  ConstruirPaginas();
  ConstruirBotones();
  auto* layout = new QVBoxLayout(this);
  auto* encabezado = new QGridLayout;
  const std::array<std::pair<const char*, QWidget*>, 8> filas = {
      {{"Número:", numero_},
       {"&Esquema:", esquema_},
       {"Serie:", serie_},
       {"Status:", status_},
       {"Folio &inicial:", folio_inicial_},
       {"Folio &final:", folio_final_},
       {"Cantidad:", cantidad_},
       {"", version_}}};
  for (int i = 0; i < static_cast<int>(filas.size()); ++i) {
    auto* titulo = new QLabel(QString::fromUtf8(filas[i].first), this);
    titulo->setBuddy(filas[i].second);
    encabezado->addWidget(titulo, i % 4, (i / 4) * 2);
    encabezado->addWidget(filas[i].second, i % 4, (i / 4) * 2 + 1);
  }
  layout->addLayout(encabezado);
  layout->addWidget(tabs_, 1);
  auto* botones = new QHBoxLayout;
  botones->addWidget(etiquetas_);
  botones->addStretch();
  botones->addWidget(guardar_);
  botones->addWidget(salir_);
  layout->addLayout(botones);
  resize(640, 500);
  OrdenarCampos();
  if (alta_) {
    esquema_->setCurrentIndex(1);
    CambiarEsquema();
    esquema_->setFocus();
  } else {
    Cargar();
  }
}

void FormaFolios::ConstruirEncabezado() {
  numero_ = new QLabel(this);
  numero_->setObjectName(u"Numero"_s);
  esquema_ = new QComboBox(this);
  esquema_->setObjectName(u"Esquema"_s);
  for (Esquema e : edocs::Esquemas()) esquema_->addItem(edocs::TextoEsquema(e));
  esquema_->setEnabled(alta_);
  version_ = new QLabel(u"Versión: "_s, this);
  version_->setObjectName(u"Version"_s);
  serie_ = new CampoCaptura(session_, this);
  serie_->setObjectName(u"Serie"_s);
  serie_->setMaxLength(10);
  serie_->setReadOnly(!alta_);
  folio_inicial_ = new CampoCaptura(session_, this);
  folio_inicial_->setObjectName(u"FolioInicial"_s);
  folio_final_ = new CampoCaptura(session_, this);
  folio_final_->setObjectName(u"FolioFinal"_s);
  for (CampoCaptura* folio : {folio_inicial_, folio_final_}) {
    folio->setMaxLength(10);
    folio->setAlignment(Qt::AlignRight);
    connect(folio, &CampoCaptura::Dejado, this, &FormaFolios::MostrarCantidad);
  }
  cantidad_ = new QLabel(this);
  cantidad_->setObjectName(u"Cantidad"_s);
  status_ = new QLabel(u"ALTA"_s, this);
  status_->setObjectName(u"Status"_s);
  connect(esquema_, &QComboBox::currentIndexChanged, this, &FormaFolios::CambiarEsquema);
  if (alta_) AlDejar(serie_, &FormaFolios::RevisarSerie);
}

// Enter walks the header, then the scheme's fields and the CBB buttons, then the other pages.
void FormaFolios::OrdenarCampos() {
  QList<QWidget*> orden = {esquema_,
                           serie_,
                           folio_inicial_,
                           folio_final_,
                           regimen_fiscal_,
                           no_aprobacion_,
                           ano_aprobacion_,
                           archivo_certificado_,
                           archivo_llave_,
                           password_,
                           findChild<QWidget*>(u"CBBAgregar"_s),
                           findChild<QWidget*>(u"CBBQuitar"_s),
                           imprimir_logotipo_,
                           ubicar_logotipo_,
                           alinear_empresa_,
                           alinear_logotipo_,
                           domicilio_};
  for (CajaLeyenda* leyenda : leyendas_) orden << leyenda;
  if (pagare_ != nullptr) orden << pagare_;
  orden << guardar_ << salir_;
  for (int i = 1; i < orden.size(); ++i) setTabOrder(orden[i - 1], orden[i]);
}

Esquema FormaFolios::EsquemaActual() const {
  return edocs::Esquemas()[qBound(0, esquema_->currentIndex(), 3)];
}

// The chosen scheme's frame is the only one shown, and takes the rows of the fields its scheme
// uses, in their screen order.
void FormaFolios::CambiarEsquema() {
  const Esquema esquema = EsquemaActual();
  const int indice = static_cast<int>(esquema);
  const QStringList campos = edocs::CamposDelEsquema(esquema);
  auto* layout = static_cast<QVBoxLayout*>(frames_[indice]->layout());
  int posicion = 0;
  for (const QString& campo :
       {u"RegimenFiscal"_s, u"NoAprobacion"_s, u"AnoAprobacion"_s, u"ArchivoCertificado"_s,
        u"ArchivoLlave"_s, u"Password"_s, u"Informe"_s}) {
    QWidget* fila = filas_.value(campo);
    const bool usa = campos.contains(campo) || (campo == u"Informe"_s && edocs::EsSellado(esquema));
    if (usa) layout->insertWidget(posicion++, fila);
    fila->setVisible(usa);
  }
  for (int i = 0; i < 4; ++i) tabs_->setTabVisible(i, i == indice);
  tabs_->setCurrentIndex(indice);
  const QString version = edocs::VersionDe(esquema);
  version_->setText(u"Versión: "_s + version);
}

void FormaFolios::MostrarCantidad() {
  cantidad_->setText(QString::number(
      edocs::Cantidad(static_cast<qint64>(mFunciones::ValorNumerico(folio_inicial_->text())),
                      static_cast<qint64>(mFunciones::ValorNumerico(folio_final_->text())))));
}

// A check on leaving a field runs once the focus has settled, and only while this screen is
// the one in use (not when a message or a file dialog took the focus away).
void FormaFolios::AlDejar(CampoCaptura* campo, void (FormaFolios::*revision)()) {
  connect(campo, &CampoCaptura::Dejado, this, [this, campo, revision] {
    QTimer::singleShot(0, this, [this, campo, revision] {
      QWidget* modal = QApplication::activeModalWidget();
      if (!isVisible() || campo->hasFocus() || (modal != nullptr && modal != this)) return;
      (this->*revision)();
    });
  });
}

void FormaFolios::RevisarSerie() {
  Mostrar(edocs::RevisarSerie(session_, familia_, serie_->text(), EsquemaActual()));
}

void FormaFolios::RevisarContrasena() {
  if (password_->text().isEmpty()) return;
  const QString llave = !ruta_llave_.isEmpty()
                            ? ruta_llave_
                            : session_.CarpetaCer + u'/' + archivo_llave_->text().trimmed();
  const Outcome revisada = edocs::RevisarContrasena(llave, password_->text());
  if (revisada) return;
  password_->clear();
  Mostrar(revisada);
}

// The field named by the outcome may sit on a page of TabStrip1 that is not shown.
void FormaFolios::Mostrar(const Outcome& outcome) {
  if (QWidget* campo = findChild<QWidget*>(outcome.field); campo && !outcome.field.isEmpty()) {
    for (int i = 0; i < tabs_->count(); ++i) {
      if (tabs_->widget(i)->isAncestorOf(campo)) tabs_->setCurrentIndex(i);
    }
  }
  ui::ShowOutcome(this, session_, outcome);
}

edocs::RangoFolios FormaFolios::Capturado() const {
  edocs::RangoFolios r = certificado_;
  r.numero = numero_->text().toInt();
  r.serie = serie_->text().trimmed();
  r.esquema = EsquemaActual();
  r.folio_inicial = folio_inicial_->text();
  r.folio_final = folio_final_->text();
  r.regimen_fiscal = regimen_fiscal_->text();
  r.no_aprobacion = no_aprobacion_->text();
  r.ano_aprobacion = ano_aprobacion_->text();
  r.archivo_certificado = archivo_certificado_->text();
  r.archivo_llave = archivo_llave_->text();
  r.password = password_->text();
  r.domicilio = domicilio_->toPlainText();
  for (int i = 0; i < 3; ++i) r.leyendas[i] = leyendas_[i]->toPlainText();
  if (pagare_ != nullptr) r.pagare = pagare_->toPlainText();
  r.imprimir_logotipo = imprimir_logotipo_->isChecked();
  r.ubicar_logotipo = ubicar_logotipo_->currentIndex();
  r.alinear_empresa = alinear_empresa_->currentIndex();
  r.alinear_logotipo = alinear_logotipo_->currentIndex();
  r.status = status_->text();
  return r;
}

void FormaFolios::Guardar() {
  edocs::RangoFolios rango = Capturado();
  const Outcome guardado = edocs::GuardarRango(session_, familia_, alta_, &rango,
                                               {ruta_certificado_, ruta_llave_, cbb_});
  if (!guardado) return Mostrar(guardado);
  if (!alta_) edocs::VaciarTemporales(session_);
  guardada_ = QString::number(rango.numero);
  accept();
}

// The change screen: the stored range, its CBB image, and the certificate and key written back
// into CarpetaCer; what the row lacks is said once the screen is up.
void FormaFolios::Cargar() {
  const qint32 numero = static_cast<qint32>(mFunciones::ValorNumerico(llave_));
  edocs::RangoFolios r;
  const Outcome leido = edocs::LeerRango(session_, familia_, numero, &r, &cbb_);
  if (!leido) {
    QTimer::singleShot(0, this, [this, leido] {
      ui::ShowOutcome(this, session_, leido);
      reject();
    });
    return;
  }
  const std::vector<Outcome> avisos = edocs::RestaurarMaterial(session_, familia_, &r);
  numero_->setText(QString::number(r.numero));
  esquema_->setCurrentIndex(static_cast<int>(r.esquema));
  CambiarEsquema();
  serie_->setText(r.serie);
  folio_inicial_->setText(r.folio_inicial);
  folio_final_->setText(r.folio_final);
  MostrarCantidad();
  regimen_fiscal_->setText(r.regimen_fiscal);
  no_aprobacion_->setText(r.no_aprobacion);
  ano_aprobacion_->setText(r.ano_aprobacion);
  archivo_certificado_->setText(r.archivo_certificado);
  archivo_llave_->setText(r.archivo_llave);
  password_->setText(r.password);
  certificado_ = r;
  MostrarInforme();
  MostrarCbb();
  domicilio_->setPlainText(r.domicilio);
  for (int i = 0; i < 3; ++i) leyendas_[i]->setPlainText(r.leyendas[i]);
  if (pagare_ != nullptr) pagare_->setPlainText(r.pagare);
  imprimir_logotipo_->setChecked(r.imprimir_logotipo);
  ubicar_logotipo_->setCurrentIndex(r.ubicar_logotipo);
  alinear_empresa_->setCurrentIndex(r.alinear_empresa);
  alinear_logotipo_->setCurrentIndex(r.alinear_logotipo);
  status_->setText(r.status);
  folio_inicial_->setFocus();
  if (!avisos.empty()) {
    QTimer::singleShot(0, this, [this, avisos] {
      for (const Outcome& aviso : avisos) ui::ShowOutcome(this, session_, aviso);
    });
  }
}

void FormaFolios::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
