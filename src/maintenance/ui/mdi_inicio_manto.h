#pragma once

#include "maintenance/ui/ventana_mantenimiento.h"

namespace ventarix {

class FormRegistry;

// Periods of every document and stock of every warehouse, rebuilt from the documents.
class MDIInicioManto1 : public VentanaDeMantenimiento {
  Q_OBJECT

 public:
  explicit MDIInicioManto1(Session& session, QWidget* parent = nullptr);
};

// Balances and statuses of every document, client and supplier.
class MDIInicioManto2 : public VentanaDeMantenimiento {
  Q_OBJECT

 public:
  explicit MDIInicioManto2(Session& session, QWidget* parent = nullptr);
};

// Product pictures; the walk can be stopped with its Detener button.
class MDIInicioBarrido : public VentanaDeMantenimiento {
  Q_OBJECT

 public:
  explicit MDIInicioBarrido(Session& session, QWidget* parent = nullptr);

 protected:
  bool Detener() override { return detener_; }

 private:
  void ClicDetener();

  bool detener_ = false;
};

// The maintenance screens of the utilities menu.
void RegistrarMantenimiento(FormRegistry& registry);

}  // namespace ventarix
