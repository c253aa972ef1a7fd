#include "catalogs/ui/grid_niveles.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "core/mFunciones_valores.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {
enum Columna { kUtilidad = 0, kSinImpuesto = 1, kConImpuesto = 2 };
}  // namespace

GridNiveles::GridNiveles(QWidget* parent) : QTableWidget(catalogs::kNiveles, 3, parent) {
  setObjectName(u"Fg1"_s);
  setHorizontalHeaderLabels({u"Utilidad %"_s, u"Precio $"_s, u"Precio neto $"_s});
  QStringList niveles;
  for (int k = 1; k <= catalogs::kNiveles; ++k) niveles << u"Precio "_s + QString::number(k);
  setVerticalHeaderLabels(niveles);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                  QAbstractItemView::EditKeyPressed);
  llenando_ = true;
  for (int fila = 0; fila < catalogs::kNiveles; ++fila) {
    for (int columna = 0; columna < 3; ++columna) {
      auto* celda = new QTableWidgetItem;
      celda->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      if (columna != kUtilidad) celda->setFlags(celda->flags() & ~Qt::ItemIsEditable);
      setItem(fila, columna, celda);
    }
    Poner(fila, kUtilidad, 0, 2);
  }
  llenando_ = false;
  setCurrentCell(0, kUtilidad);
  connect(this, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* celda) {
    if (llenando_ || celda->column() != kUtilidad) return;
    // The margin is shown back with its two decimals, whatever was typed.
    Poner(celda->row(), kUtilidad, mFunciones::ValorNumerico(u"0"_s + celda->text()), 2);
    emit UtilidadCambiada();
  });
  const int alto = verticalHeader()->defaultSectionSize() * (catalogs::kNiveles + 1) + 6;
  setMinimumHeight(alto);
  setMaximumHeight(alto + 4);
  setMinimumWidth(verticalHeader()->sizeHint().width() +
                  3 * fontMetrics().horizontalAdvance(u"000,000.0000__"_s));
}

void GridNiveles::Poner(int fila, int columna, double valor, int decimales) {
  const bool antes = llenando_;
  llenando_ = true;
  item(fila, columna)->setText(mFunciones::FormatoNumero(valor, decimales));
  llenando_ = antes;
}

void GridNiveles::setUtilidades(const std::array<double, catalogs::kNiveles>& utilidades) {
  for (int k = 0; k < catalogs::kNiveles; ++k) Poner(k, kUtilidad, utilidades[k], 2);
}

std::array<double, catalogs::kNiveles> GridNiveles::Utilidades() const {
  std::array<double, catalogs::kNiveles> utilidades{};
  for (int k = 0; k < catalogs::kNiveles; ++k) {
    utilidades[k] = mFunciones::ValorNumerico(u"0"_s + item(k, kUtilidad)->text());
  }
  return utilidades;
}

void GridNiveles::setGuardado(const catalogs::NivelesGuardados& guardado) {
  guardado_ = guardado;
  guardados_ = guardado.precios;
}

void GridNiveles::Recalcular(catalogs::Formula formula, double costo, double impuesto) {
  const catalogs::Niveles niveles =
      catalogs::NivelesDeProducto(formula, guardado_, costo, impuesto, Utilidades());
  for (int k = 0; k < catalogs::kNiveles; ++k) {
    const double sin = niveles[k].precio.value_or(guardados_[k]);
    const double con = niveles[k].precio_con_impuesto.value_or(catalogs::PrecioNeto(sin, impuesto));
    Poner(k, kSinImpuesto, sin, 4);
    Poner(k, kConImpuesto, con, 4);
  }
}

double GridNiveles::PrecioSinImpuesto(int nivel) const {
  return mFunciones::ValorNumerico(item(nivel, kSinImpuesto)->text());
}

double GridNiveles::PrecioConImpuesto(int nivel) const {
  return mFunciones::ValorNumerico(item(nivel, kConImpuesto)->text());
}

void GridNiveles::keyPressEvent(QKeyEvent* event) {
  // Enter on a margin that is not being typed moves down the levels, and past the last one
  // on to the next field, as in every other field of the screen.
  if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
      state() != QAbstractItemView::EditingState) {
    if (currentRow() + 1 < rowCount()) {
      setCurrentCell(currentRow() + 1, kUtilidad);
    } else {
      focusNextChild();
    }
    return;
  }
  QTableWidget::keyPressEvent(event);
}

}  // namespace ventarix
