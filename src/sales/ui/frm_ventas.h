#pragma once

#include <QString>

#include "documents/ui/forma_captura.h"

// The add and change screens of delivery notes, quotations and orders: the capture engine's
// screen on each family's row. The add screen starts a new document; the change screen opens
// the one whose key it is given.
namespace ventarix {

class FrmRemisionesA : public FormaCaptura {
 public:
  FrmRemisionesA(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmRemisionesC : public FormaCaptura {
 public:
  FrmRemisionesC(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmCotizacionesA : public FormaCaptura {
 public:
  FrmCotizacionesA(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmCotizacionesC : public FormaCaptura {
 public:
  FrmCotizacionesC(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmPedidosA : public FormaCaptura {
 public:
  FrmPedidosA(Session& session, const QString& llave, QWidget* parent = nullptr);
};
class FrmPedidosC : public FormaCaptura {
 public:
  FrmPedidosC(Session& session, const QString& llave, QWidget* parent = nullptr);
};

// Makes their screens known to the main window and the browsers.
class FormRegistry;
void RegistrarVentas(FormRegistry& registry);

// Each screen opens the document whose key it is given (none for a new one) and tells the
// browser, through LlaveGuardada, the one it saved. `registry` is a FormRegistry.
template <typename Forma, typename Registro>
void AgregarCaptura(Registro& registry, const char* nombre) {
  registry.Add(QLatin1String(nombre), [](Session& session, const QString& llave) -> QWidget* {
    return new Forma(session, llave);
  });
}

}  // namespace ventarix
