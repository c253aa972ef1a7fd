#include "documents/ui/forma_pago.h"

#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/dialect.h"
#include "core/ui/campo_captura.h"
#include "core/ui/campo_catalogo.h"
#include "core/ui/message_box.h"
#include "core/ui/teclas_captura.h"
#include "documents/ui/autorizar_captura.h"
#include "documents/ui/campos_pago.h"
#include "documents/ui/rejilla_pagos.h"

namespace ventarix {

using namespace Qt::StringLiterals;

FormaPago::FormaPago(Session& session, const PantallaPagos& pantalla, bool cambio,
                     const QString& llave, QWidget* parent)
    : QDialog(parent), session_(session), pantalla_(pantalla), cambio_(cambio) {
  setObjectName(QString::fromUtf8(cambio ? pantalla.cambio : pantalla.alta));
  setWindowTitle(QString::fromUtf8(cambio ? pantalla.titulo_cambio : pantalla.titulo_alta));
  campos_ = new CamposPago(session_, pantalla_, this);
  fecha_ = CampoFecha(this);
  status_ = new QLabel(this);
  status_->setObjectName(u"Status"_s);
  QFont negrita = status_->font();
  negrita.setBold(true);
  status_->setFont(negrita);
  motivo_ = new QLabel(this);
  motivo_->setObjectName(u"Motivo"_s);
  motivo_->setVisible(false);
  fg1_ = new RejillaPagos(pantalla_, this);
  total_ = CampoTotal(this, u"000,000,000.00"_s);
  std::tie(guardar_, salir_) = BotonesGuardarSalir(this, [this] { Guardar(); });

  auto* arriba = new QHBoxLayout;
  arriba->addWidget(campos_, 1);
  auto* lado = new QGridLayout;
  lado->addWidget(new QLabel(u"Fecha"_s, this), 0, 0);
  lado->addWidget(fecha_, 0, 1);
  lado->addWidget(new QLabel(u"Status"_s, this), 1, 0);
  lado->addWidget(status_, 1, 1);
  lado->addWidget(motivo_, 2, 0, 1, 2);
  lado->setRowStretch(3, 1);
  arriba->addLayout(lado);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(arriba);
  layout->addWidget(fg1_, 1);
  layout->addLayout(PieDePago(this, u"Total"_s, total_, guardar_, salir_));

  EncadenarFoco(QList<QWidget*>{fecha_} + campos_->Orden() +
                QList<QWidget*>{fg1_, guardar_, salir_});
  connect(fg1_, &RejillaPagos::Recalculada, this,
          [this] { total_->setText(Importe(fg1_->Total())); });
  connect(fg1_, &RejillaPagos::Salir, this, [this] { guardar_->setFocus(); });
  connect(campos_->socio()->campo(), &CampoCaptura::Dejado, this, &FormaPago::DocumentosDelSocio);
  connect(campos_->socio(), &CampoCatalogo::ClienteLeido, this, &FormaPago::DocumentosDelSocio);
  resize(1000, 560);
  if (cambio_) {
    Cargar(llave);
  } else {
    Nuevo();
  }
  campos_->socio()->campo()->setFocus();
}

void FormaPago::Nuevo() {
  campos_->Nuevo(pantalla_.familia());
  fecha_->setDate(QDate::currentDate());
  status_->setText(u"ALTA"_s);
}

void FormaPago::Cargar(const QString& llave) {
  llave_ = llave;
  const captura::Leido leido = captura::LeerDocumento(session_, pantalla_.familia(), llave);
  if (!leido.outcome) {
    guardar_->setEnabled(false);
    QTimer::singleShot(0, this, [this, o = leido.outcome] {
      ui::ShowOutcome(this, session_, o);
      reject();
    });
    return;
  }
  const QVariantMap& e = leido.documento.encabezado;
  campos_->Mostrar(e);
  socio_cargado_ = e.value(QString::fromUtf8(pantalla_.lado.socio)).toInt();
  fecha_->setDate(dialect::ReadDate(e.value(u"fecha"_s)).date());
  status_->setText(e.value(u"status"_s).toString());
  const QString motivo = e.value(u"motivo de baja"_s).toString().trimmed();
  motivo_->setText(u"Motivo de baja: "_s + motivo);
  motivo_->setVisible(!motivo.isEmpty());
  fg1_->PonerDocumentos(pagos::DelPago(session_, pantalla_.lado, llave), false);
  guardar_->setEnabled(leido.modificable);
}

// Leaving the party's field of a new payment brings that party's open documents.
void FormaPago::DocumentosDelSocio() {
  const qint32 socio = campos_->socio()->Numero();
  if (cambio_ || socio == socio_cargado_) return;
  socio_cargado_ = socio;
  QString error;
  fg1_->PonerDocumentos(pagos::Abiertos(session_, pantalla_.lado, socio, &error));
  if (!error.isEmpty()) ui::ShowOutcome(this, session_, Outcome::Stop(error));
}

captura::Documento FormaPago::Capturado() const {
  captura::Documento d;
  d.llave = cambio_ ? llave_ : QString();
  campos_->Poner(&d);
  d.encabezado.insert(u"fecha"_s, QDateTime(fecha_->date(), QTime(0, 0)));
  if (!cambio_) d.partidas = fg1_->Partidas(campos_->socio()->Numero());
  return d;
}

void FormaPago::Guardar() {
  const captura::Documento documento = Capturado();
  const captura::FamiliaCaptura& familia = pantalla_.familia();
  if (Outcome revisado = captura::RevisarDocumento(session_, familia, documento); !revisado) {
    return ui::ShowOutcome(this, session_, revisado);
  }
  if (!AutorizarCaptura(session_, pantalla_.alta, cambio_, this)) return;
  const captura::Guardado guardado = captura::GuardarDocumento(session_, familia, documento);
  if (!guardado.outcome) return ui::ShowOutcome(this, session_, guardado.outcome);
  guardada_ = guardado.llave;
  accept();
}

void FormaPago::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    salir_->setFocus();
    return;
  }
  if (!TeclaDeCaptura(this, event)) QDialog::keyPressEvent(event);
}

}  // namespace ventarix
