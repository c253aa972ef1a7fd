#pragma once

#include <array>

#include "catalogs/price_formulas.h"
#include "catalogs/ui/forma_numero_nombre.h"

namespace ventarix {

// A brand's screen: its name and the five default margins of its products.
class FormaMarca : public FormaNumeroNombre {
  Q_OBJECT

 protected:
  FormaMarca(Session& session, bool alta, QWidget* parent);

  std::array<CampoCaptura*, catalogs::kNiveles> utilidades_{};

 private:
  void Guardar() override;
};

// A new brand.
class FrmMarcasA : public FormaMarca {
  Q_OBJECT

 public:
  explicit FrmMarcasA(Session& session, QWidget* parent = nullptr);
};

// The brand of the number given. When the company applies brand margins to products, saving
// prices all its products again.
class FrmMarcasC : public FormaMarca {
  Q_OBJECT

 public:
  FrmMarcasC(Session& session, const QString& llave, QWidget* parent = nullptr);
};

}  // namespace ventarix
