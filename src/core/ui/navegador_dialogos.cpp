// The browser's two dialogs over its view: the filter of the grid's columns and, for
// administrators, the view editor.
#include "core/ui/navegador.h"

namespace ventarix {

void Navegador::Filtrar() {}
void Navegador::Formato() {}

}  // namespace ventarix
