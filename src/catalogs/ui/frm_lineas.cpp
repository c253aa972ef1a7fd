#include "catalogs/ui/frm_lineas.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "catalogs/lineas.h"
#include "core/mFunciones_valores.h"
#include "core/ui/campo_captura.h"
#include "core/ui/message_box.h"
#include "core/ui/usuarios_teclas.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FormaLinea::FormaLinea(Session& session, bool alta, QWidget* parent)
    : QDialog(parent), session_(session), alta_(alta) {
  numero_ = new QLabel(this);
  numero_->setObjectName(u"Numero"_s);
  status_ = new QLabel(u"ALTA"_s, this);
  status_->setObjectName(u"Status"_s);
  nombre_ = new CampoCaptura(session, this);
  nombre_->setObjectName(u"Nombre"_s);
  nombre_->setMaxLength(60);
  nombre_->setMayusculas();
  connect(nombre_, &CampoCaptura::Salir, this, &QDialog::reject);
  guardar_ = BotonDeUsuarios("&Guardar", "Guardar", this);
  salir_ = BotonDeUsuarios("&Salir", "Salir", this);
  connect(guardar_, &QPushButton::clicked, this, &FormaLinea::Guardar);
  connect(salir_, &QPushButton::clicked, this, &QDialog::reject);
  auto* campos = new QFormLayout;
  campos->addRow(u"Número:"_s, numero_);
  campos->addRow(u"&Nombre:"_s, nombre_);
  campos->addRow(u"Status:"_s, status_);
  auto* botones = new QHBoxLayout;
  botones->addStretch();
  botones->addWidget(guardar_);
  botones->addWidget(salir_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(campos);
  layout->addLayout(botones);
  setMinimumWidth(360);
  nombre_->setFocus();
}

void FormaLinea::Guardar() {
  lineas::Linea linea{numero_->text().toInt(), nombre_->text(), status_->text()};
  qint32 numero = linea.numero;
  const Outcome guardado =
      alta_ ? lineas::AltaLinea(session_, linea, &numero) : lineas::CambioLinea(session_, linea);
  if (!guardado) {
    ui::ShowOutcome(this, guardado);
    return;
  }
  session_.RegistroActual = QString::number(numero);
  accept();
}

void FormaLinea::keyPressEvent(QKeyEvent* event) {
  if (!TeclaDeUsuarios(this, event)) QDialog::keyPressEvent(event);
}

FrmLineasA::FrmLineasA(Session& session, QWidget* parent) : FormaLinea(session, true, parent) {
  setObjectName(u"FrmLineasA"_s);
  setWindowTitle(u"Líneas - Alta"_s);
}

FrmLineasC::FrmLineasC(Session& session, QWidget* parent) : FormaLinea(session, false, parent) {
  setObjectName(u"FrmLineasC"_s);
  setWindowTitle(u"Líneas - Cambios"_s);
  lineas::Linea linea;
  const Outcome lectura = lineas::LeerLinea(
      session, static_cast<qint32>(mFunciones::ValorNumerico(session.RegistroActual)), &linea);
  if (!lectura) {
    QTimer::singleShot(0, this, [this, lectura] {
      ui::ShowOutcome(this, lectura);
      reject();
    });
    return;
  }
  numero_->setText(QString::number(linea.numero));
  nombre_->setText(linea.nombre);
  status_->setText(linea.status);
}

}  // namespace ventarix
