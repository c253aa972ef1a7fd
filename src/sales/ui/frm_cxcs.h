#pragma once

#include <vector>

#include <QDialog>

#include "core/session.h"
#include "core/ui/llave_guardada.h"
#include "sales/cuentas_por_cobrar.h"

class QDateEdit;
class QLabel;
class QPushButton;
class QTableWidget;

namespace ventarix {

class CampoCaptura;
class CamposPago;

// "SALDAR Cuentas x Cobrar de Clientes": the month's invoices whose balance lies in a small
// range, of one client or of all, closed by one receipt. Delete takes a row out after two
// questions; "Saldo Final" is what the receipt will hold.
class FrmCxCs : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  explicit FrmCxCs(Session& session, QWidget* parent = nullptr);

  QString Guardada() const override { return guardada_; }
  QTableWidget* rejilla() const { return fg1_; }
  void Consultar();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* objeto, QEvent* event) override;

 private:
  CampoCaptura* Filtro(int indice, int decimales);
  void MostrarFacturas();
  void Quitar(int fila);
  void Guardar();

  Session& session_;
  QString guardada_;
  std::vector<pagos::PorSaldar> facturas_;
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
