#pragma once

#include <vector>

#include <QTableWidget>

#include "sales/cuentas_por_cobrar.h"

namespace ventarix {

// The grid Fg1 of a receipt: one row per invoice, "Factura", "Fecha", "Plazo", "Vence",
// "Total $", "Abonos $", "Notas Crédito $", "Abono <F8>" (the only column typed in),
// "Saldo $" after this payment, and the balance before it, hidden. In the amount, F8 pays the
// row's whole balance, Delete writes 0, Enter goes down. After each change every row follows
// the rule of AbonoAdmitido: an amount above the balance goes back to 0.
class RejillaPagos : public QTableWidget {
  Q_OBJECT

 public:
  enum Columna {
    kFactura = 0,
    kFecha,
    kPlazo,
    kVence,
    kTotal,
    kAbonos,
    kNotas,
    kAbono,
    kSaldo,
    kAntes,
    kColumnas
  };

  explicit RejillaPagos(QWidget* parent = nullptr);

  // Editable: a new payment against open invoices. Otherwise a stored receipt's rows, shown
  // as they are: its amounts and the invoices' balances of today.
  void PonerFacturas(const std::vector<pagos::DocumentoAbierto>& facturas, bool editable = true);
  double Numero(int fila, int columna) const;
  // factura, abono, cliente and saldo of the rows with an amount.
  std::vector<QVariantMap> Partidas(qint32 cliente) const;
  // The sum of the amounts.
  double Total() const;

 signals:
  void Recalculada();
  void Salir();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

 private:
  void Recalcular();
  void PonerAbono(int fila, double abono);
  void Bajar();

  bool recalculando_ = false;
};

}  // namespace ventarix
