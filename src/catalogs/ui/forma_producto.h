#pragma once

#include <memory>

#include <QDialog>

#include "catalogs/price_formulas.h"
#include "core/outcome.h"
#include "core/session.h"
#include "core/ui/llave_guardada.h"

class QLabel;
class QPushButton;

namespace ventarix {

struct CamposDeProducto;

// What the product's add and change screens share: the fields and grids, the figures that
// follow price, tax, cost and margins as they are typed, the brand's margins and consecutive
// code, the checks on leaving a code, the look-ups and Guardar. On saving it closes accepted and
// tells the code saved.
class FormaProducto : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  ~FormaProducto() override;

  QString Guardada() const override { return guardada_; }

  CamposDeProducto& campos() const { return *campos_; }

 protected:
  FormaProducto(Session& session, bool alta, QWidget* parent);
  void keyPressEvent(QKeyEvent* event) override;

  // Price, tax and cost as typed give the sale price, the margin and tax in money, and the
  // five levels.
  void Recalcular();
  // The same figures; with venta_de_precio false the sale price shown stays as it is.
  void Cifras(bool venta_de_precio);
  // The brand the product was read with: passing through its field copies nothing, only
  // another brand brings its margins (and, adding, its next code).
  void setMarcaLeida(qint32 marca) { marca_leida_ = marca; }
  Session& session_;
  QPushButton* guardar_;
  QPushButton* salir_;

 private:
  void Conectar();
  void DejarCodigo();
  void DejarMarca();
  void DejarAlterno(int dato);
  void AyudaDe(int dato);
  void Guardar();
  // A check's message shown once the focus has settled, and the field emptied when asked.
  void Avisar(const Outcome& outcome, bool vaciar = false);

  const bool alta_;
  const catalogs::Formula formula_;
  std::unique_ptr<CamposDeProducto> campos_;
  qint32 marca_leida_ = 0;
  bool avisando_ = false;
  QString guardada_;
};

}  // namespace ventarix
