#pragma once

#include <array>

#include <QDialog>

#include "catalogs/price_formulas.h"
#include "core/session.h"

class QLabel;
class QPushButton;

namespace ventarix {

class CampoCaptura;

// A brand's screen: its name and the five default margins of its products. On saving it
// leaves the brand's number in RegistroActual and closes accepted.
class FormaMarca : public QDialog {
  Q_OBJECT

 protected:
  FormaMarca(Session& session, bool alta, QWidget* parent);
  void keyPressEvent(QKeyEvent* event) override;

  Session& session_;
  QLabel* numero_;
  QLabel* status_;
  CampoCaptura* nombre_;
  std::array<CampoCaptura*, catalogs::kNiveles> utilidades_{};

 private:
  void Guardar();

  const bool alta_;
  QPushButton* guardar_;
  QPushButton* salir_;
};

// A new brand.
class FrmMarcasA : public FormaMarca {
  Q_OBJECT

 public:
  explicit FrmMarcasA(Session& session, QWidget* parent = nullptr);
};

// The brand in RegistroActual. When the company applies brand margins to products, saving
// prices all its products again.
class FrmMarcasC : public FormaMarca {
  Q_OBJECT

 public:
  explicit FrmMarcasC(Session& session, QWidget* parent = nullptr);
};

}  // namespace ventarix
