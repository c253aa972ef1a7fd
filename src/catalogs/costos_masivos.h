#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "core/outcome.h"
#include "core/session.h"

// Costs and final prices of many products at once, from a grid that is usually pasted from a
// spreadsheet. The run goes down the rows until the first one without a code; a heading row
// ("CÓDIGO") is passed over. It either adds the codes the catalogue lacks or updates the ones it
// has. The whole run is one save: a refused row leaves the catalogue as it was.
namespace ventarix::costos_masivos {

enum class Modo { kAgregar, kActualizar };

// One row of the grid, its cells in the order of the screen's columns.
using Fila = QStringList;

// Columns of the costs grid: Codigo, Costo, Producto, Unidad, Marca, Linea, Impuesto.
// The prices grid adds Precio and Venta.
enum Columna {
  kCodigo = 0,
  kCosto,
  kProducto,
  kUnidad,
  kMarca,
  kLinea,
  kImpuesto,
  kPrecio,
  kVenta
};
inline constexpr int kColumnasCostos = 7;
inline constexpr int kColumnasNetos = 9;

struct Resultado {
  // The closing message (information) naming the row reached, or the refusal that ended
  // the run and undid it.
  Outcome outcome;
  // The row reached, counted from 1 as the grid numbers them: the first row without a code,
  // or the row that was refused.
  int fila = 0;
  // The column of the refused cell, -1 when the run was not refused at a cell.
  int columna = -1;
  // Products added or updated.
  int productos = 0;
};

// Both runs need the right on Productos of their mode ("A" adding, "C" updating); new costs
// of existing products also need ModificarCosto, as on the product screens.
//
// Costs. Adding: a code missing from the catalogue becomes a product with the row's seven
// columns. Updating: an existing product with a cost above 0 gets the cost and its five
// levels by the company's price formula, unrounded; with `venta_y_precio` also Venta from the
// first margin and Precio with its tax. A company without formula gets nothing written.
Resultado GuardarCostos(const Session& session, const QList<Fila>& filas, Modo modo,
                        bool venta_y_precio);

// Final prices. Adding: as costs, with Precio and Venta. Updating: an existing product with a
// price above 0 gets it as Precio, and Venta without the product's own tax.
Resultado GuardarNetos(const Session& session, const QList<Fila>& filas, Modo modo);

// The rows of a spreadsheet's copied text: lines split by tabs; a cell in double quotes may
// hold line breaks, tabs and doubled quotes. The empty line a copy ends with is not a row.
QList<Fila> LeerTextoPegado(const QString& texto);

}  // namespace ventarix::costos_masivos
