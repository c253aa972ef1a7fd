#pragma once

#include <vector>

#include <QDateTime>
#include <QString>

#include "core/database.h"

namespace ventarix::compras {

// One line of a supplier's account: a purchase that charges it, or a payment or credit note
// that pays part of a purchase ("Abono $").
struct MovimientoDeCuenta {
  QString compra;      // the purchase the line belongs to
  QString movimiento;  // "COMPRA", "CxP" or "NC PROVEEDOR"
  QString documento;   // the purchase's supplier invoice, the payment's or the note's key
  QDateTime fecha;
  double cargo = 0;
  double abono = 0;
  double saldo = 0;  // the account's balance after this line
};

// The supplier's purchases still in force, oldest first, each followed by its payments and
// credit notes.
std::vector<MovimientoDeCuenta> CuentaDeProveedor(Connection& c, qint32 proveedor);

}  // namespace ventarix::compras
