#include "catalogs/ui/mdi_inicio_empresa.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "catalogs/empresa_cuentas.h"
#include "catalogs/empresa_datos.h"
#include "catalogs/empresa_logotipo.h"
#include "catalogs/ui/campos_ajustes.h"
#include "core/ui/mdi_inicio_presentacion.h"
#include "core/ui/message_box.h"
#include "core/ui/pestanas.h"
#include "core/ui/teclas_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

MDIInicioEmpresa::MDIInicioEmpresa(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), campos_(new CamposAjustes(session, this)) {
  setObjectName(u"MDIInicioEmpresa"_s);
  setWindowTitle(u"Empresa"_s);
  tabs_ = new Pestanas(this);
  tabs_->setObjectName(u"Tab1"_s);
  tabs_->addTab(PaginaEmpresa(), u"Empresa"_s);
  tabs_->addTab(PaginaExpedidoEn(), u"Expedido en"_s);
  tabs_->addTab(PaginaContacto(), u"Contacto"_s);
  tabs_->addTab(PaginaReglas(), u"Reglas"_s);
  tabs_->addTab(PaginaCorreo(), u"Correo"_s);
  tabs_->addTab(PaginaTimbrado(), u"Timbrado"_s);
  tabs_->addTab(PaginaLogotipo(), u"Logotipo"_s);

  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { GuardarClicked(); });
  auto* botones = FilaDeBotones(guardar_, salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabs_);
  layout->addLayout(botones);
  setMinimumWidth(640);

  datos_ = empresa::LeerEmpresa(session_, &problema_);
  campos_->Mostrar(datos_);
  ReconocerCorreo();
  MostrarLogotipo();
  guardar_->setEnabled(problema_.ok);
  if (QWidget* rfc = campos_->Campo(u"Rfc"_s)) rfc->setFocus();
}

void MDIInicioEmpresa::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!problema_) {
    QTimer::singleShot(0, this, [this] { ui::ShowOutcome(this, session_, problema_); });
  }
}

void MDIInicioEmpresa::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

void MDIInicioEmpresa::MostrarLogotipo() {
  const QByteArray imagen = datos_.Value(u"logotipo"_s).toByteArray();
  QPixmap logo;
  if (!imagen.isEmpty() && logo.loadFromData(imagen)) {
    image1_->setPixmap(
        logo.scaled(image1_->size() - QSize(8, 8), Qt::KeepAspectRatio, Qt::SmoothTransformation));
  } else {
    image1_->setPixmap(QPixmap());
    image1_->setText(imagen.isEmpty() ? u"Sin logotipo"_s : QString());
  }
  tamano_->setText(empresa::TamanoLogotipo(imagen.size()));
}

// The provider whose server is captured shows in the list; any other server, "Otro servidor".
void MDIInicioEmpresa::ReconocerCorreo() {
  QWidget* servidor = campos_->Campo(u"ServidorSMTP"_s);
  const QString texto = servidor ? servidor->property("text").toString() : QString();
  combo_->setCurrentIndex(empresa::CorreoDeServidor(texto) + 1);
}

void MDIInicioEmpresa::ComboActivated(int indice) {
  if (indice <= 0) return;
  campos_->Leer(datos_);
  empresa::AplicarCorreo(indice - 1, datos_);
  campos_->Mostrar(datos_);
}

void MDIInicioEmpresa::PruebaClicked() {
  campos_->Leer(datos_);
  empresa::CuentaDePruebaPac(datos_);
  campos_->Mostrar(datos_);
}

void MDIInicioEmpresa::AgregarClicked() {
  const QString archivo = QFileDialog::getOpenFileName(
      this, u"Abrir logotipo"_s, session_.CarpetaImagenes, u"Archivos de imagen (*.jpg *.bmp)"_s);
  if (archivo.isEmpty()) return;
  QByteArray imagen;
  const Outcome leido = empresa::LeerLogotipo(archivo, &imagen);
  if (!leido) {
    ui::ShowOutcome(this, session_, leido);
    return;
  }
  datos_.Set(u"logotipo"_s, imagen);
  MostrarLogotipo();
}

void MDIInicioEmpresa::GuardarClicked() {
  campos_->Leer(datos_);
  Outcome aviso_rfc;
  const Outcome guardado = empresa::GuardarEmpresa(session_, datos_, &aviso_rfc);
  if (!aviso_rfc) {
    // The RFC's notice leaves the focus where the save's checks put it.
    aviso_rfc.field.clear();
    ui::ShowOutcome(this, session_, aviso_rfc);
  }
  if (!guardado) {
    campos_->Avisar(guardado);
    return;
  }
  // The old extraction goes first, so that the reload extracts the logo just saved.
  empresa::DescartarLogoExtraido(session_);
  MostrarPresentacion(session_, this);
  accept();
}

}  // namespace ventarix
