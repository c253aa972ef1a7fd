#include "inventory/ui/rejilla_inventario.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "core/mFunciones_valores.h"

namespace ventarix {

using namespace Qt::StringLiterals;

RejillaInventario::RejillaInventario(const std::vector<inventario_ui::Columna>& columnas,
                                     QWidget* parent)
    : QTableWidget(parent) {
  setObjectName(u"Fg1"_s);
  nombres_ = {u"codigo"_s, u"descripcion"_s, u"unidad"_s};
  editables_ = {true, false, false};
  QStringList titulos = {u"Código"_s, u"Descripción"_s, u"Unidad"_s};
  for (const inventario_ui::Columna& c : columnas) {
    nombres_ << QString::fromUtf8(c.columna);
    editables_ << c.editable;
    titulos << QString::fromUtf8(c.titulo);
  }
  setColumnCount(static_cast<int>(nombres_.size()));
  setHorizontalHeaderLabels(titulos);
  setRowCount(1);
  setColumnWidth(0, 110);
  setColumnWidth(1, 300);
  setColumnWidth(2, 70);
  for (int c = 3; c < columnCount(); ++c) setColumnWidth(c, 90);
  verticalHeader()->setDefaultSectionSize(22);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked);
  setCurrentCell(0, 0);
}

bool RejillaInventario::Editable(int col) const {
  return !solo_lectura_ && editables_.value(col, false);
}

QString RejillaInventario::Codigo(int fila) const {
  const QTableWidgetItem* i = item(fila, 0);
  return i ? i->text().trimmed().toUpper() : QString();
}

double RejillaInventario::Numero(int fila, const QString& columna) const {
  const QTableWidgetItem* i = item(fila, Col(columna));
  return i ? mFunciones::ValorNumerico(i->text()) : 0;
}

QVariantMap RejillaInventario::Partida(int fila) const {
  QVariantMap p;
  for (int c = 0; c < columnCount(); ++c) {
    const QTableWidgetItem* i = item(fila, c);
    if (!i) continue;
    const QVariant guardado = i->data(Qt::UserRole);
    p.insert(nombres_[c], c < 3 ? QVariant(i->text().trimmed())
                                : QVariant(mFunciones::ValorNumerico(i->text())));
    // A figure the screen did not type (a stored snapshot) keeps its full value.
    if (guardado.isValid() && !Editable(c)) p.insert(nombres_[c], guardado);
  }
  return p;
}

std::vector<QVariantMap> RejillaInventario::Partidas() const {
  std::vector<QVariantMap> partidas;
  for (int f = 0; f < rowCount(); ++f) {
    if (!Codigo(f).isEmpty()) partidas.push_back(Partida(f));
  }
  return partidas;
}

void RejillaInventario::PonerPartida(int fila, const QVariantMap& partida) {
  const QSignalBlocker bloqueo(this);
  if (fila >= rowCount()) setRowCount(fila + 1);
  for (int c = 0; c < columnCount(); ++c) {
    if (!partida.contains(nombres_[c])) continue;
    const QVariant valor = partida.value(nombres_[c]);
    // Money and percentages at 2 places, quantities at 4.
    static const QStringList kDosDecimales = {u"costo"_s, u"precio"_s,   u"total"_s,
                                              u"dcto"_s,  u"impuesto"_s, u"com"_s};
    const QString texto = c < 3
                              ? valor.toString()
                              : QLocale::c().toString(mFunciones::ValorNumerico(valor), 'f',
                                                      kDosDecimales.contains(nombres_[c]) ? 2 : 4);
    auto* i = new QTableWidgetItem(texto);
    if (c >= 3) {
      i->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      i->setData(Qt::UserRole, valor);
    }
    if (!Editable(c)) i->setFlags(i->flags() & ~Qt::ItemIsEditable);
    setItem(fila, c, i);
  }
}

void RejillaInventario::PonerPartidas(const std::vector<QVariantMap>& partidas) {
  clearContents();
  setRowCount(static_cast<int>(partidas.size()) + 1);
  for (size_t f = 0; f < partidas.size(); ++f) PonerPartida(static_cast<int>(f), partidas[f]);
}

void RejillaInventario::setSoloLectura(bool solo) {
  solo_lectura_ = solo;
  setEditTriggers(solo ? QAbstractItemView::NoEditTriggers
                       : QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked);
}

void RejillaInventario::Avanzar() {
  int fila = currentRow(), col = currentColumn();
  if (Codigo(fila).isEmpty()) return setCurrentCell(fila, 0);
  for (int c = col + 1; c < columnCount(); ++c) {
    if (Editable(c)) return setCurrentCell(fila, c);
  }
  if (fila + 1 >= rowCount()) setRowCount(fila + 2);
  setCurrentCell(fila + 1, 0);
}

void RejillaInventario::keyPressEvent(QKeyEvent* event) {
  if (state() != QAbstractItemView::EditingState &&
      (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
    Avanzar();
    return;
  }
  if (event->key() == Qt::Key_Delete && state() != QAbstractItemView::EditingState &&
      !solo_lectura_ && currentRow() >= 0 && rowCount() > 1) {
    removeRow(currentRow());
    emit Escrita(currentRow(), -1);
    return;
  }
  QTableWidget::keyPressEvent(event);
}

void RejillaInventario::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  const int fila = currentRow(), col = currentColumn();
  QTableWidget::closeEditor(editor, QAbstractItemDelegate::NoHint);
  if (hint == QAbstractItemDelegate::RevertModelCache) return;
  if (QTableWidgetItem* i = item(fila, col)) i->setData(Qt::UserRole, {});
  quedarse_ = false;
  emit Escrita(fila, col);
  if (hint == QAbstractItemDelegate::SubmitModelCache && !quedarse_) Avanzar();
}

}  // namespace ventarix
