#pragma once

#include <array>

#include <QTableWidget>

#include "catalogs/price_formulas.h"

namespace ventarix {

// Fg1 of the product screens: one row per price level with its margin (the only cell typed)
// and its price without and with tax, which are shown, never typed. Stored are the prices
// without tax.
class GridNiveles : public QTableWidget {
  Q_OBJECT

 public:
  explicit GridNiveles(QWidget* parent = nullptr);

  void setUtilidades(const std::array<double, catalogs::kNiveles>& utilidades);
  std::array<double, catalogs::kNiveles> Utilidades() const;
  // The prices the product holds, shown as they are when the company has no formula.
  void setPreciosGuardados(const std::array<double, catalogs::kNiveles>& precios);
  const std::array<double, catalogs::kNiveles>& PreciosGuardados() const { return guardados_; }

  // Shows each level priced from cost and tax by the formula; a level the formula cannot
  // price (or every level, without formula) shows the stored price.
  void Recalcular(catalogs::Formula formula, double costo, double impuesto);

  double PrecioSinImpuesto(int nivel) const;
  double PrecioConImpuesto(int nivel) const;

 signals:
  void UtilidadCambiada();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Poner(int fila, int columna, double valor, int decimales);

  std::array<double, catalogs::kNiveles> guardados_{};
  bool llenando_ = false;
};

}  // namespace ventarix
