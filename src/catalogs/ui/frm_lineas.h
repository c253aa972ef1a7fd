#pragma once

#include "catalogs/ui/forma_numero_nombre.h"

namespace ventarix {

// A product line's screen: its name.
class FormaLinea : public FormaNumeroNombre {
  Q_OBJECT

 protected:
  FormaLinea(Session& session, bool alta, QWidget* parent);

 private:
  void Guardar() override;
};

class FrmLineasA : public FormaLinea {
  Q_OBJECT

 public:
  explicit FrmLineasA(Session& session, QWidget* parent = nullptr);
};

// The line of the number given.
class FrmLineasC : public FormaLinea {
  Q_OBJECT

 public:
  FrmLineasC(Session& session, const QString& llave, QWidget* parent = nullptr);
};

}  // namespace ventarix
