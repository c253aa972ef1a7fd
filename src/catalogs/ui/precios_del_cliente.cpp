#include "catalogs/ui/precios_del_cliente.h"

#include <cmath>

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableWidget>

#include "core/mFunciones_valores.h"
#include "core/ui/abrir_ayuda.h"

namespace ventarix {

using namespace Qt::StringLiterals;

namespace {

enum ColumnaMarca { kNumero = 0, kMarca = 1, kNivel = 7, kDcto = 8 };
enum ColumnaProducto { kCodigo = 0, kProducto = 1, kPrecio = 2 };

QTableWidget* Grid(const QString& nombre, const QStringList& titulos, QWidget* parent) {
  auto* grid = new QTableWidget(0, static_cast<int>(titulos.size()), parent);
  grid->setObjectName(nombre);
  grid->setHorizontalHeaderLabels(titulos);
  grid->verticalHeader()->setDefaultSectionSize(grid->fontMetrics().height() + 6);
  grid->horizontalHeader()->setDefaultSectionSize(grid->fontMetrics().horizontalAdvance(u'0') * 10);
  grid->setSelectionMode(QAbstractItemView::SingleSelection);
  return grid;
}

QTableWidgetItem* Celda(const QString& texto, bool editable, bool numero) {
  auto* item = new QTableWidgetItem(texto);
  if (!editable) item->setFlags(item->flags() & ~Qt::ItemIsEditable);
  if (numero) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return item;
}

QString Texto(const QTableWidget* grid, int fila, int columna) {
  const QTableWidgetItem* item = grid->item(fila, columna);
  return item != nullptr ? item->text().trimmed() : QString();
}

// A level is a small whole number; anything out of the five levels stays out of them, for
// the save to refuse.
int Nivel(const QString& texto) {
  const double nivel = std::round(mFunciones::ValorNumerico(texto));
  return nivel < 0 ? -1 : nivel > 99 ? 99 : static_cast<int>(nivel);
}

}  // namespace

PreciosDelCliente::PreciosDelCliente(Session& session, QWidget* parent)
    : QObject(parent), session_(session), parent_(parent) {
  marcas_ = Grid(
      u"Marcas"_s,
      {u"#"_s, u"Marca"_s, u"u1"_s, u"u2"_s, u"u3"_s, u"u4"_s, u"u5"_s, u"u#"_s, u"d%"_s}, parent);
  marcas_->horizontalHeader()->setSectionResizeMode(kMarca, QHeaderView::Stretch);
  marcas_->setColumnWidth(kNumero, marcas_->fontMetrics().horizontalAdvance(u'0') * 6);
  productos_ = Grid(u"Productos"_s, {u"Código"_s, u"Producto"_s, u"Precio"_s}, parent);
  productos_->horizontalHeader()->setSectionResizeMode(kProducto, QHeaderView::Stretch);
  productos_->setColumnWidth(kCodigo, productos_->fontMetrics().horizontalAdvance(u'0') * 16);
  etiqueta_ = new QLabel(parent);
  etiqueta_->setObjectName(u"Modificado"_s);
  etiqueta_->setStyleSheet(u"color: #a00000; font-weight: bold"_s);
  marcas_->installEventFilter(this);
  productos_->installEventFilter(this);
  connect(marcas_, &QTableWidget::itemChanged, this, [this] {
    if (!llenando_) Marcar();
  });
  connect(productos_, &QTableWidget::itemChanged, this, &PreciosDelCliente::ProductoCambiado);
}

Outcome PreciosDelCliente::Cargar(qint32 cliente) {
  socios::PreciosCliente precios;
  const Outcome leido = socios::LeerPreciosCliente(session_, cliente, &precios);
  llenando_ = true;
  marcas_->setRowCount(static_cast<int>(precios.marcas.size()));
  for (int fila = 0; fila < marcas_->rowCount(); ++fila) {
    const socios::UtilidadMarca& marca = precios.marcas[static_cast<std::size_t>(fila)];
    marcas_->setItem(fila, kNumero, Celda(QString::number(marca.marca), false, true));
    marcas_->setItem(fila, kMarca, Celda(marca.nombre, false, false));
    for (int i = 0; i < 5; ++i) {
      marcas_->setItem(
          fila, 2 + i,
          Celda(mFunciones::FormatoNumero(marca.utilidades[static_cast<std::size_t>(i)], 2), false,
                true));
    }
    marcas_->setItem(fila, kNivel,
                     Celda(marca.nivel > 0 ? QString::number(marca.nivel) : QString(), true, true));
    marcas_->setItem(
        fila, kDcto,
        Celda(marca.dcto != 0 ? mFunciones::FormatoNumero(marca.dcto, 2) : QString(), true, true));
  }
  productos_->setRowCount(0);
  for (const socios::PrecioProducto& producto : precios.productos) {
    const int fila = productos_->rowCount();
    productos_->insertRow(fila);
    PonerProducto(fila, producto);
    // Prices are kept to four places, and the grid is saved from what it shows.
    productos_->item(fila, kPrecio)->setText(mFunciones::FormatoNumero(producto.precio, 4));
  }
  LineaVacia();
  llenando_ = false;
  modificado_ = false;
  etiqueta_->clear();
  return leido;
}

socios::PreciosCliente PreciosDelCliente::Precios() const {
  socios::PreciosCliente precios;
  for (int fila = 0; fila < marcas_->rowCount(); ++fila) {
    socios::UtilidadMarca marca;
    marca.marca = Texto(marcas_, fila, kNumero).toInt();
    marca.nombre = Texto(marcas_, fila, kMarca);
    marca.nivel = Nivel(Texto(marcas_, fila, kNivel));
    marca.dcto = mFunciones::ValorNumerico(Texto(marcas_, fila, kDcto));
    precios.marcas.push_back(marca);
  }
  for (int fila = 0; fila < productos_->rowCount(); ++fila) {
    const QString codigo = Texto(productos_, fila, kCodigo);
    if (codigo.isEmpty()) continue;
    precios.productos.push_back({codigo, Texto(productos_, fila, kProducto),
                                 mFunciones::ValorNumerico(Texto(productos_, fila, kPrecio))});
  }
  return precios;
}

// The cells are written in place: the code's own cell may be the one whose change is being
// handled.
void PreciosDelCliente::PonerProducto(int fila, const socios::PrecioProducto& producto) {
  const auto poner = [this, fila](int columna, const QString& texto, bool editable, bool numero) {
    if (QTableWidgetItem* item = productos_->item(fila, columna)) {
      item->setText(texto);
    } else {
      productos_->setItem(fila, columna, Celda(texto, editable, numero));
    }
  };
  poner(kCodigo, producto.codigo, true, false);
  poner(kProducto, producto.producto, false, false);
  if (productos_->item(fila, kPrecio) == nullptr) poner(kPrecio, QString(), true, true);
}

// A typed code becomes the product's own code and shows its name; one that names no product
// stays as typed, marked, for the save to refuse.
void PreciosDelCliente::ProductoCambiado(QTableWidgetItem* item) {
  if (llenando_) return;
  llenando_ = true;
  if (item->column() == kCodigo) {
    socios::PrecioProducto producto;
    const QString codigo = item->text().trimmed().toUpper();
    if (codigo.isEmpty() || !socios::BuscarProducto(session_, codigo, &producto)) {
      producto.codigo = codigo;
      producto.producto = codigo.isEmpty() ? QString() : u"NO EXISTE"_s;
    }
    PonerProducto(item->row(), producto);
  }
  LineaVacia();
  llenando_ = false;
  Marcar();
}

void PreciosDelCliente::LineaVacia() {
  const int filas = productos_->rowCount();
  if (filas > 0 && Texto(productos_, filas - 1, kCodigo).isEmpty()) return;
  productos_->insertRow(filas);
  PonerProducto(filas, {});
}

void PreciosDelCliente::Marcar() {
  modificado_ = true;
  etiqueta_->setText(u"Precios modificados"_s);
}

bool PreciosDelCliente::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  auto* grid = qobject_cast<QTableWidget*>(watched);
  const auto* tecla = static_cast<QKeyEvent*>(event);
  if (grid == nullptr || tecla->modifiers() != Qt::NoModifier) return false;
  // A key the open cell left unused: Enter has already closed the cell, and must not also
  // move the screen on.
  if (QApplication::focusWidget() != grid)
    return tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter;
  const int fila = grid->currentRow();
  switch (tecla->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (fila + 1 >= grid->rowCount()) return false;  // the screen's next field
      grid->setCurrentCell(fila + 1, grid->currentColumn());
      return true;
    case Qt::Key_F1:
      if (grid != productos_ || fila < 0 || grid->currentColumn() != kCodigo) return false;
      if (const QString codigo = AbrirAyuda(session_, u"PRODUCTOS"_s, parent_); !codigo.isEmpty()) {
        grid->item(fila, kCodigo)->setText(codigo);
      }
      return true;
    case Qt::Key_Delete:
      if (grid != productos_ || fila < 0 || fila + 1 >= grid->rowCount()) return false;
      grid->removeRow(fila);
      Marcar();
      return true;
    default:
      return false;
  }
}

}  // namespace ventarix
