#include "catalogs/ui/rejilla_pegado.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>

#include "catalogs/costos_masivos.h"

namespace ventarix {

RejillaDePegado::RejillaDePegado(const QStringList& columnas, int filas, QWidget* parent)
    : QTableWidget(filas, static_cast<int>(columnas.size()), parent) {
  setObjectName(QStringLiteral("Fg1"));
  setHorizontalHeaderLabels(columnas);
  horizontalHeader()->setStretchLastSection(true);
  verticalHeader()->setDefaultSectionSize(22);
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                  QAbstractItemView::EditKeyPressed);
}

QList<QStringList> RejillaDePegado::Filas() const {
  QList<QStringList> filas;
  filas.reserve(rowCount());
  for (int r = 0; r < rowCount(); ++r) {
    QStringList celdas;
    for (int c = 0; c < columnCount(); ++c) {
      const QTableWidgetItem* celda = item(r, c);
      celdas << (celda != nullptr ? celda->text() : QString());
    }
    filas << celdas;
  }
  return filas;
}

void RejillaDePegado::Pegar(const QList<QStringList>& filas, int fila, int columna) {
  fila = qMax(fila, 0);
  columna = qMax(columna, 0);
  const int necesarias = fila + static_cast<int>(filas.size());
  if (necesarias > rowCount()) setRowCount(necesarias);
  for (int r = 0; r < filas.size(); ++r) {
    const QStringList& celdas = filas.at(r);
    for (int c = 0; c < celdas.size() && columna + c < columnCount(); ++c) {
      setItem(fila + r, columna + c, new QTableWidgetItem(celdas.at(c)));
    }
  }
  emit Cambiada();
}

int RejillaDePegado::FilasConCodigo() const {
  int filas = 0;
  for (int r = 0; r < rowCount(); ++r) {
    const QTableWidgetItem* celda = item(r, 0);
    if (celda != nullptr && !celda->text().trimmed().isEmpty()) ++filas;
  }
  return filas;
}

void RejillaDePegado::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) {
    PegarPortapapeles();
    return;
  }
  const bool editando = state() == QAbstractItemView::EditingState;
  if (event->key() == Qt::Key_Delete && !editando) {
    Vaciar();
    return;
  }
  // Enter goes down the column, as in the spreadsheet the rows come from.
  if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !editando) {
    if (currentRow() + 1 < rowCount()) setCurrentCell(currentRow() + 1, currentColumn());
    return;
  }
  QTableWidget::keyPressEvent(event);
}

void RejillaDePegado::PegarPortapapeles() {
  const QList<QStringList> filas =
      costos_masivos::LeerTextoPegado(QApplication::clipboard()->text());
  if (filas.isEmpty()) return;
  const QModelIndex actual = currentIndex();
  Pegar(filas, actual.isValid() ? actual.row() : 0, actual.isValid() ? actual.column() : 0);
}

void RejillaDePegado::Vaciar() {
  for (QTableWidgetItem* celda : selectedItems()) celda->setText(QString());
  emit Cambiada();
}

}  // namespace ventarix
