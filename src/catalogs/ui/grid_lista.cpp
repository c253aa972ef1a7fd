#include "catalogs/ui/grid_lista.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "core/mFunciones_valores.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {
enum Columna { kClave = 0, kNombre = 1, kCifra = 2 };
}  // namespace

GridLista::GridLista(const QStringList& titulos, Nombre nombre, int decimales, QWidget* parent)
    : QTableWidget(0, 3, parent), nombre_(std::move(nombre)), decimales_(decimales) {
  setHorizontalHeaderLabels(titulos);
  horizontalHeader()->setSectionResizeMode(kNombre, QHeaderView::Stretch);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                  QAbstractItemView::EditKeyPressed);
  LineaVacia();
  connect(this, &QTableWidget::itemChanged, this, &GridLista::AlCambiar);
}

QTableWidgetItem* GridLista::Celda(const QString& texto, bool editable, bool numero) const {
  auto* celda = new QTableWidgetItem(texto);
  if (!editable) celda->setFlags(celda->flags() & ~Qt::ItemIsEditable);
  if (numero) celda->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return celda;
}

void GridLista::LineaVacia() {
  const bool antes = llenando_;
  llenando_ = true;
  const int fila = rowCount();
  insertRow(fila);
  setItem(fila, kClave, Celda({}, true, false));
  setItem(fila, kNombre, Celda({}, false, false));
  setItem(fila, kCifra, Celda({}, true, true));
  llenando_ = antes;
}

void GridLista::Llenar(const QList<QStringList>& lineas) {
  llenando_ = true;
  setRowCount(0);
  for (const QStringList& linea : lineas) {
    const int fila = rowCount();
    insertRow(fila);
    setItem(fila, kClave, Celda(linea.value(0), true, false));
    setItem(fila, kNombre, Celda(linea.value(1), false, false));
    setItem(fila, kCifra, Celda(linea.value(2), true, true));
  }
  LineaVacia();
  llenando_ = false;
  cambiado_ = false;
}

QList<std::pair<QString, double>> GridLista::Lineas() const {
  QList<std::pair<QString, double>> lineas;
  for (int fila = 0; fila < rowCount(); ++fila) {
    const QString clave = item(fila, kClave)->text().trimmed();
    if (clave.isEmpty()) continue;
    lineas.append({clave, mFunciones::ValorNumerico(u"0"_s + item(fila, kCifra)->text())});
  }
  return lineas;
}

void GridLista::setClave(int fila, const QString& clave) {
  if (fila >= 0 && fila < rowCount()) item(fila, kClave)->setText(clave);
}

void GridLista::AlCambiar(QTableWidgetItem* celda) {
  if (llenando_) return;
  llenando_ = true;
  if (celda->column() == kClave) {
    const QString clave = mFunciones::ValorTexto(celda->text()).toUpper();
    celda->setText(clave);
    item(celda->row(), kNombre)->setText(clave.isEmpty() ? QString() : nombre_(clave));
  } else if (celda->column() == kCifra) {
    celda->setText(
        mFunciones::FormatoNumero(mFunciones::ValorNumerico(u"0"_s + celda->text()), decimales_));
  }
  llenando_ = false;
  if (celda->row() == rowCount() - 1 && !item(celda->row(), kClave)->text().isEmpty()) {
    LineaVacia();
  }
  cambiado_ = true;
  emit Cambiado();
}

void GridLista::keyPressEvent(QKeyEvent* event) {
  if (state() != QAbstractItemView::EditingState) {
    switch (event->key()) {
      case Qt::Key_F1:
        if (currentColumn() == kClave) emit Ayuda(currentRow());
        return;
      case Qt::Key_Delete:
        // Delete empties the line; the empty line at the end stays.
        if (currentRow() >= 0 && currentRow() < rowCount() - 1) {
          removeRow(currentRow());
          cambiado_ = true;
          emit Cambiado();
        }
        return;
      case Qt::Key_Return:
      case Qt::Key_Enter:
        // Enter moves across the line, then to the key of the next one.
        if (currentColumn() == kClave) {
          setCurrentCell(currentRow(), kCifra);
        } else if (currentRow() + 1 < rowCount()) {
          setCurrentCell(currentRow() + 1, kClave);
        } else {
          focusNextChild();
        }
        return;
      default:
        break;
    }
  }
  QTableWidget::keyPressEvent(event);
}

}  // namespace ventarix
