#pragma once

#include <QString>

#include "documents/ui/forma_captura.h"

// The add and change screens of purchases, and their browser's extras.
namespace ventarix {

class FrmComprasA : public FormaCaptura {
 public:
  FrmComprasA(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmComprasC : public FormaCaptura {
 public:
  FrmComprasC(Session& session, const QString& llave, QWidget* parent = nullptr);
};

// Makes the purchase screens known to the main window and the browsers.
class FormRegistry;
void RegistrarCompras(FormRegistry& registry);

}  // namespace ventarix
