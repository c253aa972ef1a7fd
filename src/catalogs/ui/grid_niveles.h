#pragma once

#include <array>
#include <optional>

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
  // What a product being changed holds: its levels show as stored until their cost or margin
  // change (catalogs::NivelesDeProducto).
  void setGuardado(const catalogs::NivelesGuardados& guardado);
  const std::array<double, catalogs::kNiveles>& PreciosGuardados() const { return guardados_; }

  // Shows each level as NivelesDeProducto prices it from cost, tax and the margins typed.
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
  std::optional<catalogs::NivelesGuardados> guardado_;
  bool llenando_ = false;
};

}  // namespace ventarix
