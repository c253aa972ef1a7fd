#pragma once

#include "catalogs/socios.h"
#include "catalogs/ui/forma_socio.h"

// The add (A) and change (C) screens of the partner catalogues, which their browsers open by
// name: one screen told apart by the family's table.
namespace ventarix {

class FrmClientesA : public FormaSocio {
 public:
  explicit FrmClientesA(Session& session, QWidget* parent = nullptr)
      : FormaSocio(session, socios::Socio::kClientes, false, {}, parent) {}
};

class FrmClientesC : public FormaSocio {
 public:
  FrmClientesC(Session& session, const QString& llave, QWidget* parent = nullptr)
      : FormaSocio(session, socios::Socio::kClientes, true, llave, parent) {}
};

class FrmProveedoresA : public FormaSocio {
 public:
  explicit FrmProveedoresA(Session& session, QWidget* parent = nullptr)
      : FormaSocio(session, socios::Socio::kProveedores, false, {}, parent) {}
};

class FrmProveedoresC : public FormaSocio {
 public:
  FrmProveedoresC(Session& session, const QString& llave, QWidget* parent = nullptr)
      : FormaSocio(session, socios::Socio::kProveedores, true, llave, parent) {}
};

class FrmAgentesA : public FormaSocio {
 public:
  explicit FrmAgentesA(Session& session, QWidget* parent = nullptr)
      : FormaSocio(session, socios::Socio::kAgentes, false, {}, parent) {}
};

class FrmAgentesC : public FormaSocio {
 public:
  FrmAgentesC(Session& session, const QString& llave, QWidget* parent = nullptr)
      : FormaSocio(session, socios::Socio::kAgentes, true, llave, parent) {}
};

class FrmBancosA : public FormaSocio {
 public:
  explicit FrmBancosA(Session& session, QWidget* parent = nullptr)
      : FormaSocio(session, socios::Socio::kBancos, false, {}, parent) {}
};

class FrmBancosC : public FormaSocio {
 public:
  FrmBancosC(Session& session, const QString& llave, QWidget* parent = nullptr)
      : FormaSocio(session, socios::Socio::kBancos, true, llave, parent) {}
};

}  // namespace ventarix
