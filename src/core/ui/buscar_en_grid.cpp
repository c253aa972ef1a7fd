#include "core/ui/buscar_en_grid.h"

#include <QTableWidget>

#include "core/ui/message_box.h"

namespace ventarix {

using namespace Qt::StringLiterals;

int BuscarEnGrid(QTableWidget* grid, const QString& codigo) {
  const QString buscado = codigo.trimmed().toUpper();
  if (buscado.isEmpty() || grid->rowCount() == 0) return 0;
  const int columna = qMax(0, grid->currentColumn());
  int hallados = 0;
  int primero = -1;
  for (int fila = 0; fila < grid->rowCount(); ++fila) {
    QTableWidgetItem* celda = grid->item(fila, columna);
    if (celda == nullptr) continue;
    // The marks of an earlier search go, so that only this one's hits stand out.
    celda->setData(Qt::ForegroundRole, QVariant());
    if (!celda->text().contains(buscado, Qt::CaseInsensitive)) continue;
    celda->setForeground(Qt::blue);
    if (primero < 0) primero = fila;
    ++hallados;
  }
  if (primero < 0) return 0;
  grid->setCurrentCell(primero, columna);
  grid->scrollToItem(grid->item(primero, columna));
  if (hallados >= 2) {
    ui::Inform(grid, u"El código %1 fué encontrado %2 veces"_s.arg(buscado).arg(hallados));
  }
  return hallados;
}

}  // namespace ventarix
