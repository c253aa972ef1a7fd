#pragma once

#include "documents/ui/pantalla_captura.h"

namespace ventarix {

class FormRegistry;

// Purchase orders and supplier credit notes as rows of the capture screen: FrmOrdenesCompraA
// and C, FrmNotasProveedorA and C.
namespace compras_ui {
const captura_ui::Pantalla& OrdenesCompra();
const captura_ui::Pantalla& NotasProveedor();
}  // namespace compras_ui

void RegistrarDocumentosProveedor(FormRegistry& registry);

}  // namespace ventarix
