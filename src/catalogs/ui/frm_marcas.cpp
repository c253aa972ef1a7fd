#include "catalogs/ui/frm_marcas.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "catalogs/marcas.h"
#include "core/mFunciones_valores.h"
#include "core/ui/campo_captura.h"
#include "core/ui/message_box.h"
#include "core/ui/usuarios_teclas.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FormaMarca::FormaMarca(Session& session, bool alta, QWidget* parent)
    : QDialog(parent), session_(session), alta_(alta) {
  numero_ = new QLabel(this);
  numero_->setObjectName(u"Numero"_s);
  status_ = new QLabel(u"ALTA"_s, this);
  status_->setObjectName(u"Status"_s);
  nombre_ = new CampoCaptura(session, this);
  nombre_->setObjectName(u"Nombre"_s);
  nombre_->setMaxLength(60);
  nombre_->setMayusculas();
  auto* campos = new QFormLayout;
  campos->addRow(u"Número:"_s, numero_);
  campos->addRow(u"&Nombre:"_s, nombre_);
  for (int k = 0; k < catalogs::kNiveles; ++k) {
    auto* campo = new CampoCaptura(session, this);
    const QString numero = QString::number(k + 1);
    campo->setObjectName(u"Utilidad"_s + numero);
    campo->setDecimales(2);
    campo->setMaxLength(10);
    campo->setNumero(0);
    campos->addRow(u"Utilidad &"_s + numero + u" %:"_s, campo);
    utilidades_[k] = campo;
  }
  campos->addRow(u"Status:"_s, status_);
  for (CampoCaptura* campo : findChildren<CampoCaptura*>()) {
    connect(campo, &CampoCaptura::Salir, this, &QDialog::reject);
  }
  guardar_ = BotonDeUsuarios("&Guardar", "Guardar", this);
  salir_ = BotonDeUsuarios("&Salir", "Salir", this);
  connect(guardar_, &QPushButton::clicked, this, &FormaMarca::Guardar);
  connect(salir_, &QPushButton::clicked, this, &QDialog::reject);
  auto* botones = new QHBoxLayout;
  botones->addStretch();
  botones->addWidget(guardar_);
  botones->addWidget(salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(campos);
  layout->addLayout(botones);
  setMinimumWidth(380);
  nombre_->setFocus();
}

void FormaMarca::Guardar() {
  marcas::Marca marca;
  marca.numero = numero_->text().toInt();
  marca.nombre = nombre_->text();
  for (int k = 0; k < catalogs::kNiveles; ++k) marca.utilidades[k] = utilidades_[k]->Numero();
  marca.status = status_->text();
  qint32 numero = marca.numero;
  const Outcome guardado =
      alta_ ? marcas::AltaMarca(session_, marca, &numero) : marcas::CambioMarca(session_, marca);
  if (!guardado) {
    ui::ShowOutcome(this, guardado);
    return;
  }
  session_.RegistroActual = QString::number(numero);
  accept();
}

void FormaMarca::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeUsuarios(this, event)) QDialog::keyPressEvent(event);
}

FrmMarcasA::FrmMarcasA(Session& session, QWidget* parent) : FormaMarca(session, true, parent) {
  setObjectName(u"FrmMarcasA"_s);
  setWindowTitle(u"Marcas - Alta"_s);
}

FrmMarcasC::FrmMarcasC(Session& session, QWidget* parent) : FormaMarca(session, false, parent) {
  setObjectName(u"FrmMarcasC"_s);
  setWindowTitle(u"Marcas - Cambios"_s);
  marcas::Marca marca;
  const Outcome lectura = marcas::LeerMarca(
      session, static_cast<qint32>(mFunciones::ValorNumerico(session.RegistroActual)), &marca);
  if (!lectura) {
    QTimer::singleShot(0, this, [this, lectura] {
      ui::ShowOutcome(this, lectura);
      reject();
    });
    return;
  }
  numero_->setText(QString::number(marca.numero));
  nombre_->setText(marca.nombre);
  for (int k = 0; k < catalogs::kNiveles; ++k) utilidades_[k]->setNumero(marca.utilidades[k]);
  status_->setText(marca.status);
}

}  // namespace ventarix
