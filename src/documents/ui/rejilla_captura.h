#pragma once

#include <vector>

#include <QStringList>
#include <QTableWidget>
#include <QVariantMap>

#include "documents/row_arithmetic.h"

namespace ventarix {

// The grid Fg1 of every sales capture screen: item, code, description, unit, quantity, price,
// amount, discount percent, discount, subtotal, tax percent, tax, total, unit cost, total
// cost, commission percent, commission, profit, stock and the source document; an order's
// grid has Surtir ahead of the quantity. The computed columns hold the row arithmetic of the
// stored document; a row sold at no profit is drawn in red.
//
// Keys: Enter writes the cell and moves on (code, quantity, price, then the next row's code);
// Insert adds a row above, Delete on the code removes the row and elsewhere clears its data,
// Ctrl+C copies the grid as text, Ctrl+V pastes rows; F1 asks for a look-up.
class RejillaCaptura : public QTableWidget {
  Q_OBJECT

 public:
  enum Columna {
    kItem,
    kFactura,
    kDepto,
    kCodigo,
    kDescripcion,
    kUnidad,
    kSurtir,
    kCantidad,
    kPrecio,
    kImporte,
    kDcto,
    kDescuento,
    kSubTotal,
    kImpuesto,
    kIva,
    kTotal,
    kCosto,
    kCostoTotal,
    kCom,
    kComision,
    kUtilidad,
    kExistencia,
    kPedido
  };

  // The columns a family's grid shows beyond the common ones.
  struct Forma {
    bool con_surtir = false;        // an order's Surtir ahead of the quantity
    bool con_factura = false;       // a credit note's invoice key and its Depto ahead of the code
    const char* fuente = "pedido";  // the row column of the source document; nullptr: none
    const char* titulo_fuente = "Pedido";  // and its heading
  };

  RejillaCaptura(const Forma& forma, QWidget* parent = nullptr);

  // The grid column of a content, or -1 when this grid has none (Surtir on a note).
  int Col(Columna columna) const { return static_cast<int>(columnas_.indexOf(columna)); }
  Columna Contenido(int col) const { return columnas_.value(col, kItem); }
  // The first column a clerk types in: the invoice key of a credit note, else the code.
  Columna Primera() const { return Col(kFactura) >= 0 ? kFactura : kCodigo; }

  // Every row, by the detail table's column names, plus "existencia".
  std::vector<QVariantMap> Partidas() const;
  QVariantMap Partida(int fila) const;
  // Shows a row's values; the computed columns wait for Recalcular.
  void PonerPartida(int fila, const QVariantMap& partida);
  void PonerPartidas(const std::vector<QVariantMap>& partidas);
  void VaciarFila(int fila);
  QString Codigo(int fila) const;
  QString Texto(int fila, Columna columna) const;
  double Numero(int fila, Columna columna) const;
  void PonerNumero(int fila, Columna columna, double valor);

  // The row arithmetic on every row with a code; returns the running sums.
  DocumentSums Recalcular();
  // Writes any open cell back.
  void TerminarEdicion();
  // Moves to the cell Enter reaches after (fila, columna), adding a row at the end.
  void Avanzar(int fila, int columna);
  void setSoloLectura(bool solo);

  // Text of the grid for the clipboard: the heading row, then every row with a code.
  QString Texto() const;

 signals:
  // A cell was written back by the user.
  void Escrita(int fila, int columna);
  // Enter wrote the cell: the screen handles it and then moves on.
  void Confirmada(int fila, int columna);
  void Ayuda(int fila, int columna);
  // Rows pasted from the clipboard, from the row `fila` down.
  void Pegadas(const QList<QStringList>& filas, int fila);
  // A row was added, removed or cleared by a key.
  void Modificada();
  void Salir();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void commitData(QWidget* editor) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void NumerarFilas();
  QTableWidgetItem* Celda(int fila, int col);
  bool Editable(int col) const;
  QString Nombre(int col) const;

  QList<Columna> columnas_;
  QString fuente_;
  bool solo_lectura_ = false;
};

}  // namespace ventarix
