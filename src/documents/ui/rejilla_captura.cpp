#include "documents/ui/rejilla_captura.h"

#include <utility>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTimer>

#include "core/ayuda.h"
#include "documents/ui/texto_largo.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {

using Columna = RejillaCaptura::Columna;

struct Definicion {
  const char* titulo;
  const char* nombre;  // the detail table's column
  int ancho;           // in average characters
  int longitud;        // maximum edit length; 0 for a computed column
  bool numero;
};

// By Columna, in order.
const Definicion kDefiniciones[] = {
    {"#", "item", 3, 0, true},
    {"Factura", "factura", 10, 20, false},
    {"Depto", "depto", 10, 0, false},
    {"Código", "codigo", 12, 20, false},
    {"Descripción", "descripcion", 30, 250, false},
    {"Uda", "unidad", 5, 5, false},
    {"Surtir", "surtir", 8, 12, true},
    {"Cantidad", "cantidad", 8, 12, true},
    {"Precio", "precio", 9, 12, true},
    {"Importe", "importe", 10, 0, true},
    {"Dcto %", "dcto", 7, 12, true},
    {"Descuento", "descuento", 10, 0, true},
    {"SubTotal", "subtotal", 10, 0, true},
    {"Impuesto %", "impuesto", 11, 0, true},
    {"Iva", "iva", 9, 0, true},
    {"Total", "total", 10, 0, true},
    {"Costo", "costo", 9, 12, true},
    {"Costo Total", "costototal", 10, 0, true},
    {"Com %", "com", 6, 6, true},
    {"Comisión", "comision", 9, 0, true},
    {"Utilidad", "utilidad", 10, 0, true},
    {"Existencia", "existencia", 9, 0, true},
    {"Pedido", "pedido", 10, 0, false},
};

const Definicion& De(Columna c) { return kDefiniciones[c]; }

QString Cifra(double valor) {
  static const QLocale kLocale(QLocale::English, QLocale::UnitedStates);
  return kLocale.toString(valor, 'f', 2);
}

// The cells keep numbers as numbers: shown with two decimals and thousands, edited as typed,
// written back in upper case or as a number.
class DelegadoCaptura : public QStyledItemDelegate {
 public:
  DelegadoCaptura(RejillaCaptura* rejilla) : QStyledItemDelegate(rejilla), rejilla_(rejilla) {}

  QString displayText(const QVariant& valor, const QLocale& locale) const override {
    if (valor.metaType().id() == QMetaType::Double) return Cifra(valor.toDouble());
    return QStyledItemDelegate::displayText(valor, locale);
  }

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex& index) const override {
    auto* editor = new QLineEdit(parent);
    editor->setFrame(false);
    const int longitud = De(rejilla_->Contenido(index.column())).longitud;
    if (longitud > 0) editor->setMaxLength(longitud);
    // The description has a button in the cell for the long-text dialog.
    if (rejilla_->Contenido(index.column()) == RejillaCaptura::kDescripcion) {
      QAction* largo =
          editor->addAction(editor->style()->standardIcon(QStyle::SP_FileDialogDetailedView),
                            QLineEdit::TrailingPosition);
      largo->setObjectName(u"TextoLargo"_s);
      largo->setToolTip(u"Descripción larga"_s);
      QObject::connect(largo, &QAction::triggered, editor, [editor, longitud] {
        if (const auto texto = EditarTextoLargo(editor, editor->text(), longitud)) {
          editor->setText(*texto);
        }
      });
    }
    if (De(rejilla_->Contenido(index.column())).numero) editor->setAlignment(Qt::AlignRight);
    return editor;
  }

  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    const QVariant valor = index.data(Qt::EditRole);
    static_cast<QLineEdit*>(editor)->setText(valor.metaType().id() == QMetaType::Double
                                                 ? QString::number(valor.toDouble(), 'g', 15)
                                                 : valor.toString());
  }

  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override {
    const QString texto = static_cast<QLineEdit*>(editor)->text();
    if (De(rejilla_->Contenido(index.column())).numero) {
      model->setData(index, texto.trimmed().isEmpty() ? 0.0 : ayuda::Numero(texto));
    } else {
      model->setData(index, texto.trimmed().toUpper());
    }
  }

 protected:
  // Enter writes the cell and lets the screen move on.
  bool eventFilter(QObject* objeto, QEvent* event) override {
    if (event->type() == QEvent::KeyPress) {
      const int tecla = static_cast<QKeyEvent*>(event)->key();
      auto* editor = qobject_cast<QWidget*>(objeto);
      if ((tecla == Qt::Key_Return || tecla == Qt::Key_Enter) && editor != nullptr) {
        const QModelIndex actual = rejilla_->currentIndex();
        emit commitData(editor);
        emit closeEditor(editor, QAbstractItemDelegate::NoHint);
        QTimer::singleShot(0, rejilla_, [r = rejilla_, actual] {
          emit r->Confirmada(actual.row(), actual.column());
        });
        return true;
      }
    }
    return QStyledItemDelegate::eventFilter(objeto, event);
  }

 private:
  RejillaCaptura* rejilla_;
};

}  // namespace

RejillaCaptura::RejillaCaptura(const Forma& forma, QWidget* parent)
    : QTableWidget(parent), fuente_(forma.fuente ? QString::fromUtf8(forma.fuente) : QString()) {
  setObjectName(u"Fg1"_s);
  for (int c = kItem; c <= kPedido; ++c) {
    if (c == kSurtir && !forma.con_surtir) continue;
    if ((c == kFactura || c == kDepto) && !forma.con_factura) continue;
    if (c == kPedido && forma.fuente == nullptr) continue;
    columnas_.append(static_cast<Columna>(c));
  }
  setColumnCount(static_cast<int>(columnas_.size()));
  QStringList titulos;
  const int letra = fontMetrics().averageCharWidth();
  for (int col = 0; col < columnCount(); ++col) {
    titulos << (columnas_[col] == kPedido ? QString::fromUtf8(forma.titulo_fuente)
                                          : QString::fromUtf8(De(columnas_[col]).titulo));
    setColumnWidth(col, (De(columnas_[col]).ancho + 2) * letra);
  }
  setHorizontalHeaderLabels(titulos);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  setItemDelegate(new DelegadoCaptura(this));
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                  QAbstractItemView::EditKeyPressed);
  setTabKeyNavigation(false);
  setRowCount(1);
  NumerarFilas();
}

bool RejillaCaptura::Editable(int col) const {
  return !solo_lectura_ && De(Contenido(col)).longitud > 0;
}

QString RejillaCaptura::Nombre(int col) const {
  return Contenido(col) == kPedido ? fuente_ : QString::fromUtf8(De(Contenido(col)).nombre);
}

QTableWidgetItem* RejillaCaptura::Celda(int fila, int col) {
  QTableWidgetItem* celda = item(fila, col);
  if (celda == nullptr) {
    celda = new QTableWidgetItem;
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (Editable(col)) flags |= Qt::ItemIsEditable;
    celda->setFlags(flags);
    if (De(Contenido(col)).numero) celda->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setItem(fila, col, celda);
  }
  return celda;
}

void RejillaCaptura::NumerarFilas() {
  const QSignalBlocker bloqueo(this);
  for (int fila = 0; fila < rowCount(); ++fila) {
    Celda(fila, Col(kItem))->setData(Qt::DisplayRole, QString::number(fila + 1));
    for (int col = 1; col < columnCount(); ++col) Celda(fila, col);
  }
}

void RejillaCaptura::setSoloLectura(bool solo) {
  solo_lectura_ = solo;
  setEditTriggers(solo ? QAbstractItemView::NoEditTriggers
                       : QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                             QAbstractItemView::EditKeyPressed);
}

QString RejillaCaptura::Codigo(int fila) const {
  const QTableWidgetItem* celda = item(fila, Col(kCodigo));
  return celda != nullptr ? celda->data(Qt::EditRole).toString().trimmed() : QString();
}

QString RejillaCaptura::Texto(int fila, Columna columna) const {
  const int col = Col(columna);
  const QTableWidgetItem* celda = col >= 0 ? item(fila, col) : nullptr;
  return celda != nullptr ? celda->data(Qt::EditRole).toString().trimmed() : QString();
}

double RejillaCaptura::Numero(int fila, Columna columna) const {
  const int col = Col(columna);
  const QTableWidgetItem* celda = col >= 0 ? item(fila, col) : nullptr;
  return celda != nullptr ? celda->data(Qt::EditRole).toDouble() : 0;
}

void RejillaCaptura::PonerNumero(int fila, Columna columna, double valor) {
  const int col = Col(columna);
  if (col < 0) return;
  const QSignalBlocker bloqueo(this);
  Celda(fila, col)->setData(Qt::EditRole, valor);
}

QVariantMap RejillaCaptura::Partida(int fila) const {
  QVariantMap partida;
  for (int col = 1; col < columnCount(); ++col) {
    const QTableWidgetItem* celda = item(fila, col);
    const Definicion& d = De(Contenido(col));
    const QVariant valor = celda != nullptr ? celda->data(Qt::EditRole) : QVariant();
    partida.insert(Nombre(col),
                   d.numero ? QVariant(valor.toDouble()) : QVariant(valor.toString().trimmed()));
  }
  // A note's quantity is what an order's row has still to deliver.
  if (Col(kSurtir) < 0) partida.remove(u"surtir"_s);
  return partida;
}

std::vector<QVariantMap> RejillaCaptura::Partidas() const {
  std::vector<QVariantMap> partidas;
  for (int fila = 0; fila < rowCount(); ++fila) partidas.push_back(Partida(fila));
  return partidas;
}

void RejillaCaptura::PonerPartida(int fila, const QVariantMap& partida) {
  if (fila >= rowCount()) setRowCount(fila + 1);
  NumerarFilas();
  const QSignalBlocker bloqueo(this);
  for (int col = 1; col < columnCount(); ++col) {
    const Definicion& d = De(Contenido(col));
    const QString nombre = Nombre(col);
    if (!partida.contains(nombre)) continue;
    const QVariant valor = partida.value(nombre);
    Celda(fila, col)->setData(
        Qt::EditRole, d.numero ? QVariant(valor.toDouble()) : QVariant(valor.toString().trimmed()));
  }
}

void RejillaCaptura::PonerPartidas(const std::vector<QVariantMap>& partidas) {
  clearContents();
  setRowCount(static_cast<int>(partidas.size()));
  NumerarFilas();
  for (size_t i = 0; i < partidas.size(); ++i) PonerPartida(static_cast<int>(i), partidas[i]);
  // One empty row always waits at the end for the next code.
  if (rowCount() == 0 || !Codigo(rowCount() - 1).isEmpty()) {
    setRowCount(rowCount() + 1);
    NumerarFilas();
  }
}

void RejillaCaptura::VaciarFila(int fila) {
  const QSignalBlocker bloqueo(this);
  for (int col = 1; col < columnCount(); ++col) Celda(fila, col)->setData(Qt::EditRole, {});
  Celda(fila, Col(kCodigo))->setForeground(palette().text());
}

DocumentSums RejillaCaptura::Recalcular() {
  DocumentSums sumas;
  const QSignalBlocker bloqueo(this);
  for (int fila = 0; fila < rowCount(); ++fila) {
    if (Codigo(fila).isEmpty()) continue;
    const RowAmounts r =
        ComputeRow({Numero(fila, kCantidad), Numero(fila, kPrecio), Numero(fila, kDcto),
                    Numero(fila, kImpuesto), Numero(fila, kCosto), Numero(fila, kCom)},
                   true);
    sumas.Add(r);
    const std::pair<Columna, double> calculadas[] = {
        {kImporte, r.importe},   {kDescuento, r.descuento}, {kSubTotal, r.subtotal},
        {kIva, r.iva},           {kTotal, r.total},         {kCostoTotal, r.costo_total},
        {kComision, r.comision}, {kUtilidad, r.utilidad}};
    for (const auto& [columna, valor] : calculadas) PonerNumero(fila, columna, valor);
    // A row sold at no profit is drawn in red (colour 255), the others in black.
    const QBrush color =
        r.cantidad > 0 && r.utilidad <= 0 ? QBrush(QColor(255, 0, 0)) : QBrush(QColor(0, 0, 0));
    for (int col = 0; col < columnCount(); ++col) Celda(fila, col)->setForeground(color);
  }
  return sumas;
}

void RejillaCaptura::TerminarEdicion() {
  if (state() != QAbstractItemView::EditingState) return;
  if (QWidget* editor = indexWidget(currentIndex())) {
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
  }
}

// Code, quantity and price are what a clerk types on every row; the other cells (an order's
// Surtir among them) are reached with the arrows.
void RejillaCaptura::Avanzar(int fila, int columna) {
  const Columna contenido = Contenido(columna);
  int siguiente_fila = fila;
  Columna siguiente = Primera();
  if (contenido == kFactura) {
    siguiente = Texto(fila, kFactura).isEmpty() ? kFactura : kCodigo;
  } else if (contenido == kCodigo && !Codigo(fila).isEmpty()) {
    siguiente = kCantidad;
  } else if (contenido == kCantidad) {
    siguiente = kPrecio;
  } else if (contenido == kCodigo) {
    siguiente = kCodigo;
  } else {
    siguiente_fila = fila + 1;
  }
  if (siguiente_fila >= rowCount()) {
    setRowCount(siguiente_fila + 1);
    NumerarFilas();
  }
  setCurrentCell(siguiente_fila, Col(siguiente));
}

QString RejillaCaptura::Texto() const {
  QStringList lineas;
  QStringList titulos;
  for (int col = 1; col < columnCount(); ++col) titulos << horizontalHeaderItem(col)->text();
  lineas << titulos.join(u'\t').toUpper();
  for (int fila = 0; fila < rowCount(); ++fila) {
    if (Codigo(fila).isEmpty()) continue;
    QStringList celdas;
    for (int col = 1; col < columnCount(); ++col) {
      const QTableWidgetItem* celda = item(fila, col);
      const QVariant valor = celda != nullptr ? celda->data(Qt::EditRole) : QVariant();
      celdas << (valor.metaType().id() == QMetaType::Double
                     ? QString::number(valor.toDouble(), 'g', 15)
                     : valor.toString());
    }
    lineas << celdas.join(u'\t');
  }
  return lineas.join(u'\n');
}

void RejillaCaptura::commitData(QWidget* editor) {
  const QModelIndex actual = currentIndex();
  QTableWidget::commitData(editor);
  if (actual.isValid()) {
    QTimer::singleShot(0, this, [this, actual] { emit Escrita(actual.row(), actual.column()); });
  }
}

void RejillaCaptura::focusInEvent(QFocusEvent* event) {
  QTableWidget::focusInEvent(event);
  if (!currentIndex().isValid() || currentColumn() == Col(kItem)) {
    setCurrentCell(qMax(0, currentRow()), Col(Primera()));
  }
}

void RejillaCaptura::keyPressEvent(QKeyEvent* event) {
  const int fila = currentRow();
  const int col = currentColumn();
  if (event->matches(QKeySequence::Copy)) {
    QApplication::clipboard()->setText(Texto());
    return;
  }
  if (event->matches(QKeySequence::Paste)) {
    QList<QStringList> filas;
    for (const QString& linea : QApplication::clipboard()->text().split(u'\n')) {
      if (!linea.trimmed().isEmpty()) filas << QString(linea).remove(u'\r').split(u'\t');
    }
    if (!filas.isEmpty() && !solo_lectura_) emit Pegadas(filas, qMax(0, fila));
    return;
  }
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (fila >= 0) Avanzar(fila, col);
      return;
    case Qt::Key_F1:
      if (fila >= 0) emit Ayuda(fila, col);
      return;
    case Qt::Key_Escape:
      emit Salir();
      return;
    case Qt::Key_Insert:
      if (solo_lectura_) return;
      insertRow(qMax(0, fila));
      NumerarFilas();
      setCurrentCell(qMax(0, fila), Col(Primera()));
      emit Modificada();
      return;
    case Qt::Key_Delete:
      if (solo_lectura_ || fila < 0) return;
      if (col == Col(Primera())) {
        removeRow(fila);
        if (rowCount() == 0) setRowCount(1);
        NumerarFilas();
        setCurrentCell(qMin(fila, rowCount() - 1), Col(Primera()));
      } else {
        VaciarFila(fila);
      }
      emit Modificada();
      return;
    default:
      QTableWidget::keyPressEvent(event);
  }
}

}  // namespace ventarix
