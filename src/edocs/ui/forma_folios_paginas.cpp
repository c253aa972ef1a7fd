// The pages of a folio range's TabStrip1 and what their fields and buttons do: the scheme
// frames with the certificate, key and password, the CBB image, the logo's placement and the
// legends with their tags.
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QMenu>
#include <QPixmap>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "core/ui/campo_captura.h"
#include "core/ui/message_box.h"
#include "core/ui/pestanas.h"
#include "core/ui/teclas_captura.h"
#include "edocs/ui/caja_leyenda.h"
#include "edocs/ui/forma_folios.h"

namespace ventarix {

using namespace Qt::StringLiterals;
using edocs::Esquema;

namespace {

constexpr int kAnchoTitulo = 130;

CampoCaptura* Campo(const Session& session, const QString& nombre, int largo, QWidget* padre) {
  auto* campo = new CampoCaptura(session, padre);
  campo->setObjectName(nombre);
  campo->setMaxLength(largo);
  return campo;
}

QComboBox* Lista(const QString& nombre, const QStringList& items, QWidget* padre) {
  auto* lista = new QComboBox(padre);
  lista->setObjectName(nombre);
  lista->addItems(items);
  return lista;
}

}  // namespace

QWidget* FormaFolios::ConstruirFila(const QString& campo, const QString& titulo, QWidget* control) {
  auto* fila = new QWidget(this);
  auto* layout = new QHBoxLayout(fila);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* etiqueta = new QLabel(titulo, fila);
  etiqueta->setFixedWidth(kAnchoTitulo);
  etiqueta->setBuddy(control);
  control->setParent(fila);
  layout->addWidget(etiqueta);
  layout->addWidget(control, 1);
  filas_.insert(campo, fila);
  return fila;
}

void FormaFolios::ConstruirPaginas() {
  tabs_ = new Pestanas(this);
  tabs_->setObjectName(u"TabStrip1"_s);
  // Enter walks the fields; the pages change with Ctrl+Tab.
  tabs_->tabBar()->setFocusPolicy(Qt::NoFocus);
  const std::array<const char*, 4> titulos = {"CFD", "CFDi", "CBB", "NOTA"};
  for (Esquema e : edocs::Esquemas()) {
    const int i = static_cast<int>(e);
    frames_[i] = e == Esquema::kCbb ? PaginaCbb() : new QWidget(this);
    frames_[i]->setObjectName(u"Frame"_s + edocs::TextoEsquema(e));
    if (e != Esquema::kCbb) {
      auto* layout = new QVBoxLayout(frames_[i]);
      if (e == Esquema::kNota) {
        layout->addWidget(new QLabel(u"Sólo la numeración de folios."_s, frames_[i]));
      }
      layout->addStretch();
    }
    tabs_->addTab(frames_[i], QString::fromLatin1(titulos[i]));
  }
  regimen_fiscal_ = Campo(session_, u"RegimenFiscal"_s, 100, this);
  no_aprobacion_ = Campo(session_, u"NoAprobacion"_s, 20, this);
  ano_aprobacion_ = Campo(session_, u"AnoAprobacion"_s, 4, this);
  archivo_certificado_ = Campo(session_, u"ArchivoCertificado"_s, 255, this);
  archivo_llave_ = Campo(session_, u"ArchivoLlave"_s, 255, this);
  password_ = Campo(session_, u"Password"_s, 50, this);
  password_->setEchoMode(QLineEdit::Password);
  // The files are chosen with F1 or a double click, never typed.
  archivo_certificado_->setReadOnly(true);
  archivo_llave_->setReadOnly(true);
  archivo_certificado_->setPlaceholderText(u"F1 para buscar"_s);
  archivo_llave_->setPlaceholderText(u"F1 para buscar"_s);
  connect(archivo_certificado_, &CampoCaptura::Ayuda, this, &FormaFolios::AbrirCertificado);
  connect(archivo_llave_, &CampoCaptura::Ayuda, this, &FormaFolios::AbrirLlave);
  AlDejar(password_, &FormaFolios::RevisarContrasena);
  ConstruirFila(u"RegimenFiscal"_s, u"&Régimen fiscal:"_s, regimen_fiscal_);
  ConstruirFila(u"NoAprobacion"_s, u"&No. aprobación:"_s, no_aprobacion_);
  ConstruirFila(u"AnoAprobacion"_s, u"Año a&probación:"_s, ano_aprobacion_);
  ConstruirFila(u"ArchivoCertificado"_s, u"&Certificado (.cer):"_s, archivo_certificado_);
  ConstruirFila(u"ArchivoLlave"_s, u"&Llave privada (.key):"_s, archivo_llave_);
  ConstruirFila(u"Password"_s, u"C&ontraseña:"_s, password_);
  auto* informe = new QWidget(this);
  auto* rejilla = new QFormLayout(informe);
  rejilla->setContentsMargins(kAnchoTitulo + 6, 6, 0, 0);
  const std::array<const char*, 3> rotulos = {
      "No. de certificado:", "Válido desde:", "Válido hasta:"};
  for (int i = 0; i < 3; ++i) {
    informe_[i] = new QLabel(informe);
    informe_[i]->setObjectName(u"Informe"_s + QString::number(i));
    rejilla->addRow(QString::fromUtf8(rotulos[i]), informe_[i]);
  }
  filas_.insert(u"Informe"_s, informe);
  tabs_->addTab(PaginaLogotipo(), u"Logo&tipo"_s);
  tabs_->addTab(PaginaLeyendas(), u"Le&yendas"_s);
  if (edocs::DatosDe(familia_).pagare) tabs_->addTab(PaginaPagare(), u"Pagaré"_s);
  connect(tabs_, &QTabWidget::currentChanged, this,
          [this] { etiquetas_->setEnabled(tabs_->currentIndex() >= 5); });
}

QWidget* FormaFolios::PaginaCbb() {
  auto* pagina = new QWidget(this);
  auto* layout = new QVBoxLayout(pagina);
  image1_ = new QLabel(pagina);
  image1_->setObjectName(u"Image1"_s);
  image1_->setFixedSize(170, 170);
  image1_->setFrameShape(QFrame::Box);
  image1_->setAlignment(Qt::AlignCenter);
  tamano_ = new QLabel(pagina);
  tamano_->setObjectName(u"TamanoCbb"_s);
  auto* agregar = new QPushButton(u"&Agregar"_s, pagina);
  agregar->setObjectName(u"CBBAgregar"_s);
  auto* quitar = new QPushButton(u"&Quitar"_s, pagina);
  quitar->setObjectName(u"CBBQuitar"_s);
  connect(agregar, &QPushButton::clicked, this, &FormaFolios::AgregarCbb);
  connect(quitar, &QPushButton::clicked, this, &FormaFolios::QuitarCbb);
  auto* imagen = new QHBoxLayout;
  imagen->addSpacing(kAnchoTitulo + 6);
  imagen->addWidget(image1_);
  auto* botones = new QVBoxLayout;
  botones->addWidget(agregar);
  botones->addWidget(quitar);
  botones->addWidget(tamano_);
  botones->addStretch();
  imagen->addLayout(botones);
  imagen->addStretch();
  layout->addLayout(imagen);
  layout->addStretch();
  return pagina;
}

QWidget* FormaFolios::PaginaLogotipo() {
  auto* pagina = new QWidget(this);
  auto* layout = new QFormLayout(pagina);
  imprimir_logotipo_ = new QCheckBox(u"Imprimir logotipo"_s, pagina);
  imprimir_logotipo_->setObjectName(u"ImprimirLogotipo"_s);
  ubicar_logotipo_ = Lista(u"UbicarLogoTipo"_s, edocs::ItemsUbicarLogoTipo(), pagina);
  alinear_empresa_ = Lista(u"AlinearEmpresa"_s, edocs::ItemsAlinearEmpresa(), pagina);
  alinear_logotipo_ = Lista(u"AlinearLogotipo"_s, edocs::ItemsAlinearLogotipo(), pagina);
  layout->addRow(QString(), imprimir_logotipo_);
  layout->addRow(u"Ubicar logotipo:"_s, ubicar_logotipo_);
  layout->addRow(u"Alinear empresa:"_s, alinear_empresa_);
  layout->addRow(u"Alinear logotipo:"_s, alinear_logotipo_);
  return pagina;
}

QWidget* FormaFolios::PaginaLeyendas() {
  auto* pagina = new QWidget(this);
  auto* layout = new QFormLayout(pagina);
  auto caja = [this, pagina](const QString& nombre) {
    auto* c = new CajaLeyenda(pagina);
    c->setObjectName(nombre);
    connect(c, &CajaLeyenda::Enfocada, this,
            [this](CajaLeyenda* enfocada) { caja_actual_ = enfocada; });
    return c;
  };
  domicilio_ = caja(u"Domicilio"_s);
  caja_actual_ = domicilio_;
  layout->addRow(u"Domicilio:"_s, domicilio_);
  for (int i = 0; i < 3; ++i) {
    const QString numero = QString::number(i + 1);
    leyendas_[i] = caja(u"Leyenda"_s + numero);
    layout->addRow(u"Leyenda "_s + numero + u':', leyendas_[i]);
  }
  return pagina;
}

QWidget* FormaFolios::PaginaPagare() {
  auto* pagina = new QWidget(this);
  auto* layout = new QVBoxLayout(pagina);
  pagare_ = new CajaLeyenda(pagina);
  pagare_->setObjectName(u"Pagare"_s);
  // The promissory note is a long text: its box takes the whole page.
  pagare_->setMinimumHeight(120);
  pagare_->setMaximumHeight(QWIDGETSIZE_MAX);
  connect(pagare_, &CajaLeyenda::Enfocada, this,
          [this](CajaLeyenda* enfocada) { caja_actual_ = enfocada; });
  layout->addWidget(pagare_);
  return pagina;
}

void FormaFolios::ConstruirBotones() {
  etiquetas_ = BotonDeCaptura("Etiq&uetas", "Etiquetas", this);
  // The tag goes where the legend's cursor is: the button never takes the focus from it.
  etiquetas_->setFocusPolicy(Qt::NoFocus);
  etiquetas_->setEnabled(false);
  mnu_etiquetas_ = new QMenu(this);
  mnu_etiquetas_->setObjectName(u"mnuEtiquetas"_s);
  for (const QString& etiqueta : edocs::Etiquetas()) {
    QAction* accion = mnu_etiquetas_->addAction(etiqueta);
    accion->setObjectName(etiqueta);
    connect(accion, &QAction::triggered, this, [this, etiqueta] {
      // A tag for the promissory note only goes into it while its page is shown.
      CajaLeyenda* caja = caja_actual_;
      if (!caja->isVisible()) caja = tabs_->currentIndex() == 6 && pagare_ ? pagare_ : domicilio_;
      caja->InsertarEtiqueta(etiqueta);
    });
  }
  connect(etiquetas_, &QPushButton::clicked, this, &FormaFolios::MostrarEtiquetas);
  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { Guardar(); });
  for (CampoCaptura* campo : findChildren<CampoCaptura*>()) {
    connect(campo, &CampoCaptura::Salir, this, &QDialog::reject);
  }
}

void FormaFolios::MostrarEtiquetas() {
  mnu_etiquetas_->popup(etiquetas_->mapToGlobal(QPoint(0, etiquetas_->height())));
}

// F1 or a double click: the certificate's full path is kept for the save, its bare name goes
// into the field and its number and validity into the Informe labels. A cancelled dialog
// changes nothing.
void FormaFolios::AbrirCertificado() {
  const QString ruta = abrir_archivo_(this, u"Abrir certificado"_s, session_.CarpetaCer,
                                      u"Archivos de certificado (*.cer)"_s);
  if (ruta.isEmpty()) return;
  ruta_certificado_ = ruta;
  archivo_certificado_->setText(QFileInfo(ruta).fileName());
  edocs::LeerInforme(ruta, &certificado_);
  MostrarInforme();
}

void FormaFolios::AbrirLlave() {
  const QString ruta =
      abrir_archivo_(this, u"Abrir llave"_s, session_.CarpetaCer, u"Archivos de llave (*.key)"_s);
  if (ruta.isEmpty()) return;
  ruta_llave_ = ruta;
  archivo_llave_->setText(QFileInfo(ruta).fileName());
}

void FormaFolios::MostrarInforme() {
  informe_[0]->setText(certificado_.no_certificado);
  informe_[1]->setText(edocs::FechaDeInforme(certificado_.valido_desde));
  informe_[2]->setText(edocs::FechaDeInforme(certificado_.valido_hasta));
}

void FormaFolios::AgregarCbb() {
  const QString ruta =
      abrir_archivo_(this, u"Abrir código bidimensional"_s, session_.CarpetaImagenes,
                     QString::fromLatin1(edocs::DatosDe(familia_).filtro_cbb));
  if (ruta.isEmpty()) return;
  QImageReader lector(ruta);
  if (!lector.canRead()) return MostrarError(this, session_, lector.errorString());
  QFile archivo(ruta);
  if (!archivo.open(QIODevice::ReadOnly))
    return MostrarError(this, session_, archivo.errorString());
  cbb_ = archivo.readAll();
  MostrarCbb();
}

void FormaFolios::QuitarCbb() {
  if (ui::Ask(this, u"Quitar el código bidimensional"_s,
              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel) != QMessageBox::Yes) {
    return;
  }
  cbb_.clear();
  MostrarCbb();
}

void FormaFolios::MostrarCbb() {
  QPixmap imagen;
  if (cbb_.isEmpty() || !imagen.loadFromData(cbb_)) {
    image1_->clear();
    tamano_->clear();
    return;
  }
  image1_->setPixmap(
      imagen.scaled(image1_->size() - QSize(6, 6), Qt::KeepAspectRatio, Qt::SmoothTransformation));
  tamano_->setText(edocs::TamanoCbb(cbb_.size()));
}

}  // namespace ventarix
