#pragma once

#include <vector>

#include <QTableWidget>

#include "documents/pagos.h"
#include "documents/ui/pantalla_pagos.h"

namespace ventarix {

// The grid Fg1 of a payment: one row per open document, its key ("Factura", "Compra") and,
// on a side that has one, its reference ("Factura/Remisión"), "Fecha", "Plazo", "Vence",
// "Total $", "Abonos $", "Notas Crédito $", "Abono <F8>" (the only column typed in),
// "Saldo $" after this payment, and the balance before it, hidden. In the amount, F8 pays the
// row's whole balance, Delete writes 0, Enter goes down. After each change every row follows
// the rule of AbonoAdmitido: an amount above the balance goes back to 0.
class RejillaPagos : public QTableWidget {
  Q_OBJECT

 public:
  enum Columna {
    kDocumento = 0,
    kReferencia,
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

  RejillaPagos(const PantallaPagos& pantalla, QWidget* parent = nullptr);

  // Editable: a new payment against open documents. Otherwise a stored payment's rows, shown
  // as they are: its amounts and the documents' balances of today.
  void PonerDocumentos(const std::vector<pagos::DocumentoAbierto>& documentos,
                       bool editable = true);
  double Numero(int fila, int columna) const;
  // documento, abono, the party and saldo of the rows with an amount.
  std::vector<QVariantMap> Partidas(qint32 socio) const;
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

  const PantallaPagos& pantalla_;
  bool recalculando_ = false;
};

}  // namespace ventarix
