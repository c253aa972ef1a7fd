#pragma once

#include "documents/ui/forma_pago.h"
#include "documents/ui/forma_saldar.h"
#include "documents/ui/pantalla_pagos.h"

namespace ventarix {

// The receivables screens: the payment screens of the client's side.
const PantallaPagos& PantallaCxC();

class FrmCxCa : public FormaPago {
 public:
  FrmCxCa(Session& session, const QString& llave, QWidget* parent = nullptr)
      : FormaPago(session, PantallaCxC(), false, llave, parent) {}
};
class FrmCxCc : public FormaPago {
 public:
  FrmCxCc(Session& session, const QString& llave, QWidget* parent = nullptr)
      : FormaPago(session, PantallaCxC(), true, llave, parent) {}
};
class FrmCxCs : public FormaSaldar {
 public:
  explicit FrmCxCs(Session& session, QWidget* parent = nullptr)
      : FormaSaldar(session, PantallaCxC(), parent) {}
};

}  // namespace ventarix
