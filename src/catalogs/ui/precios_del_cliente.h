#pragma once

#include <QObject>

#include "catalogs/socios_precios.h"
#include "core/session.h"

class QLabel;
class QTableWidget;
class QTableWidgetItem;
class QWidget;

namespace ventarix {

// The two price grids of a client's change screen: the price level (u#, 1 to 5) and discount
// (d%) the client gets per brand, and the client's own price per product, with an empty line
// at the end for another product. The label beside them tells that something changed: only
// then does the save rewrite the client's prices.
class PreciosDelCliente : public QObject {
  Q_OBJECT

 public:
  PreciosDelCliente(Session& session, QWidget* parent);

  // Fills both grids with the client's prices; false with the message when they can't be read.
  Outcome Cargar(qint32 cliente);
  bool Modificado() const { return modificado_; }
  // The grids as the save takes them.
  socios::PreciosCliente Precios() const;

  QTableWidget* marcas() const { return marcas_; }
  QTableWidget* productos() const { return productos_; }
  QLabel* etiqueta() const { return etiqueta_; }

  // Keys the grids handle beyond editing: Enter goes down a line, F1 in a code looks the
  // product up, Del takes a product line out.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ProductoCambiado(QTableWidgetItem* item);
  void PonerProducto(int fila, const socios::PrecioProducto& producto);
  void LineaVacia();
  void Marcar();

  Session& session_;
  QWidget* parent_;
  QTableWidget* marcas_;
  QTableWidget* productos_;
  QLabel* etiqueta_;
  bool modificado_ = false;
  bool llenando_ = false;
};

}  // namespace ventarix
