#pragma once

#include <array>

#include "catalogs/productos.h"
#include "core/session.h"

class QCheckBox;
class QComboBox;
class QDialog;
class QGridLayout;
class QLabel;

namespace ventarix {

class CampoCaptura;
class CampoCatalogo;
class EtiquetaStatus;
class GridLista;
class GridNiveles;

// The fields of the product's add and change screens, laid out: Datos 0 to 18 named after
// their columns ("Codigo", "Marca", "Precio" ...), the currency and the finished-product flag,
// the margin and tax in money beside the prices, the levels (Fg1), the clients' prices (Fg2)
// and the materials (Fg3) with the labels that tell a list was touched.
struct CamposDeProducto {
  enum Dato {
    kCodigo,
    kProducto,
    kUnidad,
    kMarca,
    kLinea,
    kUbicacion,
    kPrecio,
    kImpuesto,
    kCosto,
    kVenta,
    kComision,
    kDescuento,
    kMin,
    kMax,
    kZona,
    kDescripcion,
    kCodigo1,
    kCodigo2,
    kCodigo3,
    kDatos
  };

  std::array<CampoCaptura*, kDatos> Datos{};
  CampoCatalogo* marca = nullptr;
  CampoCatalogo* linea = nullptr;
  QComboBox* moneda = nullptr;
  QCheckBox* pt = nullptr;
  QLabel* utilidad = nullptr;        // margin in money, bold when negative
  QLabel* impuesto = nullptr;        // tax in money
  EtiquetaStatus* status = nullptr;  // "ALTA" or "BAJA"
  GridNiveles* fg1 = nullptr;
  GridLista* fg2 = nullptr;
  GridLista* fg3 = nullptr;
  QLabel* lbl_precios = nullptr;
  QLabel* lbl_consumos = nullptr;
  QGridLayout* layout = nullptr;

  // `alta`: a new product, always "ALTA"; a change screen turns the status over with a click.
  CamposDeProducto(QDialog* forma, const Session& session, bool alta);

  productos::Producto Leer() const;
  void Mostrar(const productos::Producto& producto, const std::vector<QString>& nombres_clientes,
               const std::vector<QString>& nombres_consumos);
};

}  // namespace ventarix
