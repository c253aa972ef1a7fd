#pragma once

#include <QDialog>

#include "core/session.h"
#include "core/ui/llave_guardada.h"
#include "documents/captura.h"
#include "documents/ui/pantalla_pagos.h"

class QDateEdit;
class QLabel;
class QPushButton;

namespace ventarix {

class CamposPago;
class RejillaPagos;

// A payment, add (FrmCxCa, FrmCxPa) and change (FrmCxCc, FrmCxPc): the payment's fields,
// Fecha and Status, the party's open documents oldest first in Fg1 with this payment typed
// against them, and its Total. The change screen shows the payment's own rows and rewrites
// the header only; Guardar stays enabled while the payment is 'ALTA'. Both save through the
// capture engine with the side's family.
class FormaPago : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  FormaPago(Session& session, const PantallaPagos& pantalla, bool cambio, const QString& llave,
            QWidget* parent = nullptr);

  QString Guardada() const override { return guardada_; }
  RejillaPagos* rejilla() const { return fg1_; }
  captura::Documento Capturado() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Nuevo();
  void Cargar(const QString& llave);
  void DocumentosDelSocio();
  void Guardar();

  Session& session_;
  const PantallaPagos& pantalla_;
  const bool cambio_;
  QString llave_;
  QString guardada_;
  qint32 socio_cargado_ = -1;
  CamposPago* campos_;
  QDateEdit* fecha_;
  QLabel* status_;
  QLabel* motivo_;
  RejillaPagos* fg1_;
  QLabel* total_;
  QPushButton* guardar_;
  QPushButton* salir_;
};

}  // namespace ventarix
