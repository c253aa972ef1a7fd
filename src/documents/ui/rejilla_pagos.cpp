#include "documents/ui/rejilla_pagos.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "core/mFunciones_valores.h"
#include "core/round_half_even.h"
#include "documents/ui/campos_pago.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {

QTableWidgetItem* Celda(const QString& texto, bool numero) {
  auto* celda = new QTableWidgetItem(texto);
  celda->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
  if (numero) celda->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return celda;
}

}  // namespace

RejillaPagos::RejillaPagos(const PantallaPagos& pantalla, QWidget* parent)
    : QTableWidget(0, kColumnas, parent), pantalla_(pantalla) {
  setObjectName(u"Fg1"_s);
  setHorizontalHeaderLabels({QString::fromUtf8(pantalla.documento),
                             QString::fromUtf8(pantalla.referencia), u"Fecha"_s, u"Plazo"_s,
                             u"Vence"_s, u"Total $"_s, u"Abonos $"_s, u"Notas Crédito $"_s,
                             u"Abono <F8>"_s, u"Saldo $"_s, QString()});
  setColumnHidden(kAntes, true);
  setColumnHidden(kReferencia, pantalla.referencia == nullptr);
  setSelectionMode(QAbstractItemView::SingleSelection);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  connect(this, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* celda) {
    if (!recalculando_ && celda->column() == kAbono) Recalcular();
  });
}

void RejillaPagos::PonerDocumentos(const std::vector<pagos::DocumentoAbierto>& documentos,
                                   bool editable) {
  recalculando_ = true;
  setEditTriggers(editable ? QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                                 QAbstractItemView::EditKeyPressed
                           : QAbstractItemView::NoEditTriggers);
  setRowCount(0);
  setRowCount(static_cast<int>(documentos.size()));
  for (int i = 0; i < rowCount(); ++i) {
    const pagos::DocumentoAbierto& f = documentos[i];
    const QLocale c = QLocale::c();
    setItem(i, kDocumento, Celda(f.documento, false));
    setItem(i, kReferencia, Celda(f.referencia, false));
    setItem(i, kFecha, Celda(c.toString(f.fecha.date(), u"dd MMM yyyy"_s), false));
    setItem(i, kPlazo, Celda(QString::number(f.plazo), true));
    setItem(i, kVence, Celda(c.toString(f.vence.date(), u"dd MMM yyyy"_s), false));
    setItem(i, kTotal, Celda(Importe(f.total), true));
    setItem(i, kAbonos, Celda(Importe(f.abonos), true));
    setItem(i, kNotas, Celda(Importe(f.descuentos), true));
    QTableWidgetItem* abono = Celda(Importe(f.abono), true);
    abono->setFlags(abono->flags() | Qt::ItemIsEditable);
    setItem(i, kAbono, abono);
    setItem(i, kSaldo, Celda(Importe(f.saldo), true));
    setItem(i, kAntes, Celda(QString::number(f.saldo, 'f', 2), true));
  }
  recalculando_ = false;
  if (editable) {
    Recalcular();
  } else {
    emit Recalculada();
  }
  if (rowCount() > 0) setCurrentCell(0, kAbono);
}

double RejillaPagos::Numero(int fila, int columna) const {
  const QTableWidgetItem* celda = item(fila, columna);
  return celda ? mFunciones::ValorNumerico(celda->text()) : 0;
}

std::vector<QVariantMap> RejillaPagos::Partidas(qint32 socio) const {
  std::vector<QVariantMap> partidas;
  for (int i = 0; i < rowCount(); ++i) {
    if (Numero(i, kAbono) <= 0) continue;
    partidas.push_back({{u"documento"_s, item(i, kDocumento)->text()},
                        {u"abono"_s, Numero(i, kAbono)},
                        {QString::fromUtf8(pantalla_.lado.socio), socio},
                        {u"saldo"_s, Numero(i, kAntes)}});
  }
  return partidas;
}

double RejillaPagos::Total() const {
  double total = 0;
  for (int i = 0; i < rowCount(); ++i) total += Numero(i, kAbono);
  return total;
}

// With a the amount and s the balance before it: a above 0 and not above s leaves s - a;
// anything else goes back to 0 and leaves s.
void RejillaPagos::Recalcular() {
  recalculando_ = true;
  for (int i = 0; i < rowCount(); ++i) {
    const double antes = Numero(i, kAntes);
    const double abono = pagos::AbonoAdmitido(Numero(i, kAbono), antes);
    item(i, kAbono)->setText(abono > 0 ? Importe(abono) : u"0"_s);
    item(i, kSaldo)->setText(Importe(RoundHalfEven(antes - abono, 2)));
  }
  recalculando_ = false;
  emit Recalculada();
}

void RejillaPagos::PonerAbono(int fila, double abono) {
  if (fila < 0 || editTriggers() == QAbstractItemView::NoEditTriggers) return;
  item(fila, kAbono)->setText(QString::number(abono, 'f', 2));
}

void RejillaPagos::Bajar() {
  if (currentRow() + 1 < rowCount()) {
    setCurrentCell(currentRow() + 1, kAbono);
  } else {
    emit Salir();
  }
}

void RejillaPagos::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_F8:
      return PonerAbono(currentRow(), Numero(currentRow(), kAntes));
    case Qt::Key_Delete:
      return PonerAbono(currentRow(), 0);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Bajar();
    case Qt::Key_Escape:
      emit Salir();
      return;
    default:
      QTableWidget::keyPressEvent(event);
  }
}

// Enter in the amount writes it and goes down, as on the grid itself.
void RejillaPagos::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  QTableWidget::closeEditor(editor, hint);
  if (hint == QAbstractItemDelegate::SubmitModelCache) Bajar();
}

}  // namespace ventarix
