#pragma once

#include <array>
#include <functional>
#include <optional>

#include <QString>

#include "catalogs/costos_masivos.h"
#include "core/database.h"

// What the costs and the prices runs share: reading a grid row, the walk down the rows in one
// transaction, and the adding of a new product.
namespace ventarix::costos_masivos::detalle {

// A grid row after cleaning: texts without quotes and line breaks, in upper case; numbers
// parsed by hand.
struct FilaLeida {
  QString codigo;
  QString producto;
  QString unidad;
  double costo = 0;
  double marca = 0;
  double linea = 0;
  double impuesto = 0;
  double precio = 0;
  double venta = 0;
};
FilaLeida LeerFila(const Fila& fila);

// What one row did: nothing, a product written, or a refusal that undoes the run.
struct Paso {
  Outcome outcome = Outcome::Ok();
  int columna = -1;
  bool escrito = false;

  static Paso Escrito() { return {Outcome::Ok(), -1, true}; }
  static Paso Nada() { return {}; }
  static Paso Refusado(Outcome outcome, int columna = -1) {
    return {std::move(outcome), columna, false};
  }
};
using GuardarFila = std::function<Paso(Connection&, const FilaLeida&)>;

// Walks the rows until the first without a code, in one transaction; the closing message is
// `mensaje` followed by the row reached.
Resultado Recorrer(const Session& session, const QList<Fila>& filas, const GuardarFila& guardar,
                   const QString& mensaje);

// Adding mode: a code missing from the catalogue becomes a product with the row's columns and
// Status "ALTA"; `con_precios` adds Precio and Venta. A code the catalogue has is left alone.
Paso Agregar(Connection& c, const FilaLeida& fila, bool con_precios);

// The stored margins and tax of a product.
struct Guardado {
  std::array<double, 5> utilidades{};
  double impuesto = 0;
};
// The product's row, nothing when the code is not in the catalogue; a failed read sets *error.
std::optional<Guardado> LeerProducto(Connection& c, const QString& codigo, QString* error);

}  // namespace ventarix::costos_masivos::detalle
