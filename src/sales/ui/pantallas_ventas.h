#pragma once

#include "documents/ui/pantalla_captura.h"

// The sales documents' rows of the capture screen: delivery notes, quotations and orders.
namespace ventarix::ventas_ui {

const captura_ui::Pantalla& Remisiones();
const captura_ui::Pantalla& Cotizaciones();
const captura_ui::Pantalla& Pedidos();

}  // namespace ventarix::ventas_ui
