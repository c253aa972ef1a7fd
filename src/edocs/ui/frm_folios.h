#pragma once

#include "edocs/ui/forma_folios.h"

namespace ventarix {

// A new invoice folio range ([folios facturas]).
class FrmFoliosFacturasA : public FormaFolios {
  Q_OBJECT

 public:
  explicit FrmFoliosFacturasA(Session& session, QWidget* parent = nullptr);
};

// The invoice folio range of the number given.
class FrmFoliosFacturasC : public FormaFolios {
  Q_OBJECT

 public:
  FrmFoliosFacturasC(Session& session, const QString& llave, QWidget* parent = nullptr);
};

// A new credit-note folio range ([folios notas]).
class FrmFoliosNotasA : public FormaFolios {
  Q_OBJECT

 public:
  explicit FrmFoliosNotasA(Session& session, QWidget* parent = nullptr);
};

// The credit-note folio range of the number given.
class FrmFoliosNotasC : public FormaFolios {
  Q_OBJECT

 public:
  FrmFoliosNotasC(Session& session, const QString& llave, QWidget* parent = nullptr);
};

}  // namespace ventarix
