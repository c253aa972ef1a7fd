#pragma once

#include <QString>

#include "inventory/ui/forma_inventario.h"

// The add and change screens of adjustments, transfers and production orders: the stock
// capture screen on each family's row.
namespace ventarix {

class FrmAjustesA : public FormaInventario {
 public:
  FrmAjustesA(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmAjustesC : public FormaInventario {
 public:
  FrmAjustesC(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmTraspasosA : public FormaInventario {
 public:
  FrmTraspasosA(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmTraspasosC : public FormaInventario {
 public:
  FrmTraspasosC(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmProduccionA : public FormaInventario {
 public:
  FrmProduccionA(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmProduccionC : public FormaInventario {
 public:
  FrmProduccionC(Session& session, const QString& llave, QWidget* parent = nullptr);
};

// Makes their screens, and the production browser's Terminar (F7), known to the main window.
class FormRegistry;
void RegistrarInventario(FormRegistry& registry);

}  // namespace ventarix
