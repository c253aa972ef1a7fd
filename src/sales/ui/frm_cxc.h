#pragma once

#include <QDialog>

#include "core/session.h"
#include "core/ui/llave_guardada.h"
#include "documents/captura.h"

class QDateEdit;
class QLabel;
class QPushButton;

namespace ventarix {

class CamposPago;
class RejillaPagos;

// A client's receipt, add (FrmCxCa) and change (FrmCxCc): the payment's fields, Fecha and
// Status, the client's open invoices oldest first in Fg1 with this payment typed against
// them, and its Total. The change screen shows the receipt's own rows and rewrites the header
// only; Guardar stays enabled while the receipt is 'ALTA'. Both save through the capture
// engine with the receipts' row of differences.
class FormaPago : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  FormaPago(Session& session, bool cambio, const QString& llave, QWidget* parent = nullptr);

  QString Guardada() const override { return guardada_; }
  RejillaPagos* rejilla() const { return fg1_; }
  captura::Documento Capturado() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Nuevo();
  void Cargar(const QString& llave);
  void FacturasDelCliente();
  void Guardar();

  Session& session_;
  const bool cambio_;
  QString llave_;
  QString guardada_;
  qint32 cliente_cargado_ = -1;
  CamposPago* campos_;
  QDateEdit* fecha_;
  QLabel* status_;
  QLabel* motivo_;
  RejillaPagos* fg1_;
  QLabel* total_;
  QPushButton* guardar_;
  QPushButton* salir_;
};

class FrmCxCa : public FormaPago {
 public:
  FrmCxCa(Session& session, const QString& llave, QWidget* parent = nullptr)
      : FormaPago(session, false, llave, parent) {}
};
class FrmCxCc : public FormaPago {
 public:
  FrmCxCc(Session& session, const QString& llave, QWidget* parent = nullptr)
      : FormaPago(session, true, llave, parent) {}
};

}  // namespace ventarix
