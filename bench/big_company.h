#pragma once

#include <QString>

#include "core/database.h"

// Fills a company with the documents of a large business, by set-wise statements: every
// family of documents numbered in proportion to the invoices, each invoice with ten rows, and
// the links between them that the balances, statuses and stock read (payments and credit notes
// of invoices, delivery notes held by invoices, deliveries against orders, receipts against
// purchase orders). Dates fall in the current year, so every delivery note is one the status
// recomputation may touch.
namespace ventarix::bench {

inline constexpr int kProductos = 3000;
inline constexpr int kClientes = 2000;
inline constexpr int kProveedores = 200;
inline constexpr int kFilasPorFactura = 10;

// Products, clients and suppliers, all of them at once.
bool GenerarCatalogos(Connection& connection, QString* error);

// The invoices numbered desde..hasta and every other family's share of that range, so that
// calling it for 1..10000 and then 10001..100000 gives the same company as one call for
// 1..100000. `filas` receives how many rows were written.
bool GenerarDocumentos(Connection& connection, int desde, int hasta, qint64* filas, QString* error);

}  // namespace ventarix::bench
