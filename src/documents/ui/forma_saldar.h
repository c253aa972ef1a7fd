#pragma once

#include <vector>

#include <QDialog>

#include "core/session.h"
#include "core/ui/llave_guardada.h"
#include "documents/pagos.h"
#include "documents/ui/pantalla_pagos.h"

class QDateEdit;
class QLabel;
class QPushButton;
class QTableWidget;

namespace ventarix {

class CampoCaptura;
class CamposPago;

// The settle screen of a side ("SALDAR Cuentas x Cobrar de Clientes"): the month's documents
// whose balance lies in a small range, of one party or of all, closed by one payment. Delete
// takes a row out after two questions; "Saldo Final" is what the payment will hold.
class FormaSaldar : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  FormaSaldar(Session& session, const PantallaPagos& pantalla, QWidget* parent = nullptr);

  QString Guardada() const override { return guardada_; }
  QTableWidget* rejilla() const { return fg1_; }
  void Consultar();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* objeto, QEvent* event) override;

 private:
  CampoCaptura* Filtro(int indice, int decimales);
  void MostrarDocumentos();
  void Quitar(int fila);
  void Guardar();

  Session& session_;
  const PantallaPagos& pantalla_;
  QString guardada_;
  std::vector<pagos::PorSaldar> documentos_;
  CamposPago* campos_;
  QDateEdit* fecha_;
  CampoCaptura* anio_;
  CampoCaptura* mes_;
  CampoCaptura* desde_;
  CampoCaptura* hasta_;
  QTableWidget* fg1_;
  QLabel* saldo_final_;
  QPushButton* guardar_;
  QPushButton* salir_;
};

}  // namespace ventarix
