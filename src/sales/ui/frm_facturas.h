#pragma once

#include <QString>

#include "documents/ui/forma_captura.h"

// The add and change screens of invoices and client credit notes: the capture engine's screen
// on each family's row.
namespace ventarix {

class FrmFacturasA : public FormaCaptura {
 public:
  FrmFacturasA(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmFacturasC : public FormaCaptura {
 public:
  FrmFacturasC(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmNotasClienteA : public FormaCaptura {
 public:
  FrmNotasClienteA(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmNotasClienteC : public FormaCaptura {
 public:
  FrmNotasClienteC(Session& session, const QString& llave, QWidget* parent = nullptr);
};

// Makes their screens, and the invoice browser's own buttons and panel, known to the main
// window and the browsers.
class FormRegistry;
void RegistrarFacturas(FormRegistry& registry);

}  // namespace ventarix
