#pragma once

#include <array>
#include <optional>
#include <vector>

#include <QDateTime>
#include <QString>

#include "catalogs/price_formulas.h"
#include "core/outcome.h"
#include "core/session.h"

// The product catalogue as its add and change screens keep it: the nineteen fields in their
// save order, the five levels, a client's fixed prices and the materials a finished product
// consumes.
namespace ventarix::productos {

// Reserved for the discount line of credit notes: no product may carry it.
inline constexpr char kCodigoNotas[] = "DPPP";

struct PrecioCliente {
  qint32 cliente = 0;
  double precio = 0;
};

struct Consumo {
  QString equivale;  // the material's code
  double cantidad = 0;
};

struct Producto {
  // The screen's fields, in save order.
  QString codigo;
  QString producto;
  QString unidad;
  qint32 marca = 0;
  qint32 linea = 0;
  QString ubicacion;
  double precio = 0;    // final price with tax
  double impuesto = 0;  // tax percent
  double costo = 0;
  double venta = 0;  // price without tax
  double comision = 0;
  double descuento = 0;
  double min = 0;
  double max = 0;
  QString zona;
  QString descripcion;
  QString codigo1;
  QString codigo2;
  QString codigo3;

  std::array<double, catalogs::kNiveles> utilidades{};
  // Level prices without tax as read; a save prices again those whose cost or margin changed.
  std::array<double, catalogs::kNiveles> precios{};
  QString moneda = QStringLiteral("MXN");
  bool pt = false;
  QString status = QStringLiteral("ALTA");

  std::vector<PrecioCliente> precios_clientes;
  std::vector<Consumo> consumos;
  // The change screen rewrites a list only when it was touched.
  bool precios_clientes_cambiados = false;
  bool consumos_cambiados = false;
};

// The company's warehouses, almacen1 to almacen5 of each product.
inline constexpr int kAlmacenes = 5;

// What the change screen shows and never writes: the stock of every warehouse.
struct Historial {
  double ultimo_costo = 0;
  double ultima_venta = 0;
  QDateTime fecha_ultima_compra;
  QDateTime fecha_ultima_venta;
  std::array<double, kAlmacenes> almacenes{};
};

// The product with that code, its lists (with the clients' and materials' names in
// `nombres_*`, by row) and its history. A missing product is a stop.
struct Leido {
  Producto producto;
  Historial historial;
  std::vector<QString> nombres_clientes;
  std::vector<QString> nombres_consumos;
};
Outcome LeerProducto(const Session& session, const QString& codigo, Leido* leido);

// The checks of saving, in their order: the right ("A" adding, "C" changing), the reserved
// code, brand and line, the three alternate codes, and when adding a code already taken.
// Each failure names the field that takes the focus.
Outcome RevisarProducto(const Session& session, const Producto& producto, bool alta);

// A new product with status "ALTA", zone "ZONA00" when none was given, and its lists.
Outcome AltaProducto(const Session& session, const Producto& producto);
// The product's row written again, the lists only when they changed.
Outcome CambioProducto(const Session& session, const Producto& producto);

// The level prices a product is saved with, as its screen shows them: the stored ones
// (`guardado`, empty for a new product) that still follow unchanged cost and margin, else by
// the company's formula rounded to 4 (catalogs::NivelesDeProducto).
std::array<double, catalogs::kNiveles> PreciosAGuardar(
    const RowValues& empresa, const Producto& producto,
    const std::optional<catalogs::NivelesGuardados>& guardado);

}  // namespace ventarix::productos
