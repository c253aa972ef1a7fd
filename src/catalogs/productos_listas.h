#pragma once

#include <vector>

#include <QString>

#include "catalogs/productos.h"
#include "core/database.h"

// The two lists of a product: clients' fixed prices and the materials it consumes. Both are
// written whole: the old rows go and one row per line with a client (or a material) comes,
// numbered from 1 in the screen's order.
namespace ventarix::productos {

bool EscribirPreciosClientes(Connection& c, const QString& codigo,
                             const std::vector<PrecioCliente>& filas, QString* error);
bool EscribirConsumos(Connection& c, const QString& codigo, const std::vector<Consumo>& filas,
                      QString* error);

// The lists of the product in item order, with the client's and the material's name beside
// each row (empty when the client or material is gone).
void LeerPreciosClientes(Connection& c, const QString& codigo, std::vector<PrecioCliente>* filas,
                         std::vector<QString>* nombres);
void LeerConsumos(Connection& c, const QString& codigo, std::vector<Consumo>* filas,
                  std::vector<QString>* nombres);

}  // namespace ventarix::productos
