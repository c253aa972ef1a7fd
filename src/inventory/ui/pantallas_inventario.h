#pragma once

#include "inventory/ui/pantalla_inventario.h"

// The stock families' rows of the stock capture screen.
namespace ventarix::inventario_ui {

const Pantalla& Ajustes();
const Pantalla& Traspasos();
const Pantalla& Produccion();

}  // namespace ventarix::inventario_ui
