#pragma once

#include <functional>

#include <QTableWidget>

namespace ventarix {

// Fg2 and Fg3 of the product screens: lines of a key (a client's number, a material's code),
// its name, shown only, and a figure (price or quantity). One empty line always waits at the
// end for the next entry. The screen rewrites the list only when `cambiado` says it was
// touched, which the label beside it shows.
class GridLista : public QTableWidget {
  Q_OBJECT

 public:
  // The name beside a key, or empty for an unknown one.
  using Nombre = std::function<QString(const QString& clave)>;

  GridLista(const QStringList& titulos, Nombre nombre, int decimales, QWidget* parent = nullptr);

  // Lines as they were read; the list counts as untouched afterwards.
  void Llenar(const QList<QStringList>& lineas);
  // Lines with a key: key and figure (read with a "0" before it, so an empty cell is 0).
  QList<std::pair<QString, double>> Lineas() const;
  bool cambiado() const { return cambiado_; }
  // The key chosen in a look-up, as if typed.
  void setClave(int fila, const QString& clave);

 signals:
  void Cambiado();
  // F1 on a key cell: the screen opens the look-up and answers with setClave.
  void Ayuda(int fila);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AlCambiar(QTableWidgetItem* celda);
  void LineaVacia();
  QTableWidgetItem* Celda(const QString& texto, bool editable, bool numero) const;

  Nombre nombre_;
  int decimales_;
  bool cambiado_ = false;
  bool llenando_ = false;
};

}  // namespace ventarix
