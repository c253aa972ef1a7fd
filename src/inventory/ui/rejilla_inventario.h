#pragma once

#include <vector>

#include <QTableWidget>
#include <QVariantMap>

#include "inventory/ui/pantalla_inventario.h"

namespace ventarix {

// The grid Fg1 of the stock screens: code, description and unit, then the family's columns.
// Keys: a key on a cell opens it, Enter writes it and moves to the next cell the clerk types
// in (the code, then the family's editable columns, then the next row's code, adding it).
class RejillaInventario : public QTableWidget {
  Q_OBJECT

 public:
  RejillaInventario(const std::vector<inventario_ui::Columna>& columnas, QWidget* parent = nullptr);

  // The grid column of a row column ("codigo", "entradas"), or -1.
  int Col(const QString& columna) const { return static_cast<int>(nombres_.indexOf(columna)); }
  QString Codigo(int fila) const;
  double Numero(int fila, const QString& columna) const;
  // The rows with a code, by their column names.
  std::vector<QVariantMap> Partidas() const;
  QVariantMap Partida(int fila) const;
  // Shows a row's values (the columns it names), or every row from the first, cleaning the rest.
  void PonerPartida(int fila, const QVariantMap& partida);
  void PonerPartidas(const std::vector<QVariantMap>& partidas);
  void setSoloLectura(bool solo);
  // Called while a written cell is handled: the cursor stays on it instead of moving on.
  void Quedarse() { quedarse_ = true; }

 signals:
  // A cell was written by the user (Enter or leaving it).
  void Escrita(int fila, int columna);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

 private:
  void Avanzar();
  bool Editable(int col) const;

  QStringList nombres_;
  QList<bool> editables_;
  bool solo_lectura_ = false;
  bool quedarse_ = false;
};

}  // namespace ventarix
