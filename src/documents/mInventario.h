#pragma once

#include <optional>

#include <QString>
#include <QStringList>

#include "core/database.h"

// Stock on hand per warehouse, in productos.almacen1..almacen5, and the two ways it moves: the
// capture screens move it by a document's rows when they save, and the rebuild derives it
// again from every document that counts.
namespace ventarix::mInventario {

// Product codes of one document's rows, each once: what a cancellation or deletion rebuilds.
// `tabla` is the family's table stem ("remisiones"), `columna_clave` its key column.
QStringList ListaCodigosDocumento(Connection& connection, const QString& tabla,
                                  const QString& columna_clave, const QString& clave,
                                  QString* error = nullptr);

// Codes to rebuild: std::nullopt means every product; an empty list means none.
using Codigos = std::optional<QStringList>;

// Rebuilds stock from all documents. `almacen` 1 rebuilds almacen1 and production into it;
// 2..5 that warehouse alone; any other value (0) all five warehouses and then production.
bool RecalcularExistencias(Connection& connection, int almacen, const Codigos& codigos,
                           QString* error = nullptr);

// Sets almacen<n> (1..5) of the codes to what purchases, adjustments, delivery notes,
// transfers and supplier credit notes leave there; client returns of product invoices count in
// warehouse 1. Production is not part of it.
bool RecalcularAlmacen(Connection& connection, const Codigos& codigos, int almacen,
                       QString* error = nullptr);

// Adds production on top of almacen1: components out, finished products in. It must follow
// RecalcularAlmacen for warehouse 1, or production is counted twice. A SQLite company counts
// an order's product once the order is closed (termino set); a PostgreSQL company counts every
// order.
bool RecalcularProduccion(Connection& connection, const Codigos& codigos, QString* error = nullptr);

// The move a capture screen makes when it saves: almacen<n> of every product of the document
// changes by `signo` (+1 or -1) times the sum of its rows' quantities, in one statement, so a
// product on several rows moves by all of them. Quantities are d.cantidad; adjustments move
// by entradas - salidas, production by consumo; purchases move only their rows of warehouse
// n. A transfer makes two moves: -1 in its source warehouse and +1 in its target.
bool ActualizarExistencias(Connection& connection, const QString& tabla,
                           const QString& columna_clave, const QString& clave, int almacen,
                           int signo, QString* error = nullptr);

// Closing (+1) or reopening (-1) a production order moves its finished product in almacen1.
bool ActualizarExistenciasProduccion(Connection& connection, const QString& clave, int signo,
                                     QString* error = nullptr);

}  // namespace ventarix::mInventario
