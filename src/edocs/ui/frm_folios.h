#pragma once

#include "edocs/ui/forma_folios.h"

namespace ventarix {

// A new invoice folio range ([folios facturas]).
class FrmFoliosFacturasA : public FormaFolios {
  Q_OBJECT

 public:
  explicit FrmFoliosFacturasA(Session& session, QWidget* parent = nullptr);
};

// The invoice folio range in RegistroActual.
class FrmFoliosFacturasC : public FormaFolios {
  Q_OBJECT

 public:
  explicit FrmFoliosFacturasC(Session& session, QWidget* parent = nullptr);
};

// A new credit-note folio range ([folios notas]).
class FrmFoliosNotasA : public FormaFolios {
  Q_OBJECT

 public:
  explicit FrmFoliosNotasA(Session& session, QWidget* parent = nullptr);
};

// The credit-note folio range in RegistroActual.
class FrmFoliosNotasC : public FormaFolios {
  Q_OBJECT

 public:
  explicit FrmFoliosNotasC(Session& session, QWidget* parent = nullptr);
};

}  // namespace ventarix
