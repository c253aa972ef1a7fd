#pragma once

#include <QList>
#include <QStringList>
#include <QTableWidget>

namespace ventarix {

// The grid of the mass maintenance screens. Ctrl+V lays a spreadsheet's copied cells from the
// current cell on, adding the rows it needs; Delete empties the selected cells. Cells are
// typed as in a spreadsheet.
class RejillaDePegado : public QTableWidget {
  Q_OBJECT

 public:
  RejillaDePegado(const QStringList& columnas, int filas, QWidget* parent = nullptr);

  // Every row's cells as text, in column order.
  QList<QStringList> Filas() const;
  // Lays the rows from the cell (fila, columna) on; cells past the last column are dropped.
  void Pegar(const QList<QStringList>& filas, int fila, int columna);
  // Rows with something in their first cell.
  int FilasConCodigo() const;

 signals:
  // The grid's contents changed through a paste or a deletion.
  void Cambiada();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void PegarPortapapeles();
  void Vaciar();
};

}  // namespace ventarix
