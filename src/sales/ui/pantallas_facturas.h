#pragma once

#include "documents/ui/pantalla_captura.h"

// The electronic sales documents' rows of the capture screen: invoices and client credit notes.
namespace ventarix::ventas_ui {

const captura_ui::Pantalla& Facturas();
const captura_ui::Pantalla& NotasCliente();

}  // namespace ventarix::ventas_ui
