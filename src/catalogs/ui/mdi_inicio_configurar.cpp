#include "catalogs/ui/mdi_inicio_configurar.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "catalogs/configurar_datos.h"
#include "catalogs/ui/campos_ajustes.h"
#include "core/ui/message_box.h"
#include "core/ui/pestanas.h"
#include "core/ui/teclas_captura.h"

namespace ventarix {

using namespace Qt::StringLiterals;

MDIInicioConfigurar::MDIInicioConfigurar(Session& session, QWidget* parent)
    : QDialog(parent), session_(session), campos_(new CamposAjustes(session, this)) {
  setObjectName(u"MDIInicioConfigurar"_s);
  setWindowTitle(u"Configurar"_s);
  usuario_ = new QComboBox(this);
  usuario_->setObjectName(u"Usuario"_s);
  usuario_->addItems(configurar::UsuariosConfigurables(session_, &problema_));
  usuario_->setCurrentIndex(qMax(0, usuario_->findText(session_.Usuario)));
  usuario_->setEnabled(session_.Administrador);
  auto* arriba = new QFormLayout;
  arriba->addRow(u"Usuario"_s, usuario_);

  tabs_ = new Pestanas(this);
  tabs_->setObjectName(u"Tab1"_s);
  tabs_->addTab(PaginaTpv(), u"Punto de venta"_s);
  tabs_->addTab(PaginaFormulario(u"Ticket"_s), u"Ticket"_s);
  tabs_->addTab(PaginaFormulario(u"Nota"_s), u"Nota"_s);
  tabs_->addTab(PaginaFormulario(u"Cotizacion"_s), u"Cotización"_s);

  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { GuardarClicked(); });
  auto* botones = FilaDeBotones(guardar_, salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(arriba);
  layout->addWidget(tabs_);
  layout->addLayout(botones);

  connect(usuario_, &QComboBox::currentTextChanged, this, &MDIInicioConfigurar::Cargar);
  if (problema_) Cargar(usuario_->currentText());
  guardar_->setEnabled(problema_.ok);
  usuario_->setFocus();
}

void MDIInicioConfigurar::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!problema_) {
    QTimer::singleShot(0, this, [this] { ui::ShowOutcome(this, session_, problema_); });
  }
}

void MDIInicioConfigurar::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

// The chosen user's row replaces what the screen shows; a row that cannot be read is not
// offered for saving.
void MDIInicioConfigurar::Cargar(const QString& usuario) {
  Outcome leido;
  datos_ = configurar::LeerConfiguracion(session_, usuario, &leido);
  campos_->Mostrar(datos_);
  guardar_->setEnabled(leido.ok);
  if (!leido) ui::ShowOutcome(this, session_, leido);
}

void MDIInicioConfigurar::GuardarClicked() {
  campos_->Leer(datos_);
  const Outcome guardado =
      configurar::GuardarConfiguracion(session_, usuario_->currentText(), datos_);
  if (!guardado) {
    campos_->Avisar(guardado);
    return;
  }
  accept();
}

}  // namespace ventarix
