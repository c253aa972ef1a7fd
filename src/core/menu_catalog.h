#pragma once

#include <vector>

#include "core/inicio.h"

// The entries of the four menus of the main window that the users' menu mask governs. Entries
// keep fixed index numbers because the mask addresses them by number; a gap in the numbers is a
// separator. The rights screen shows the same entries as check boxes.
namespace ventarix::menus {

struct EntradaMenu {
  int indice;
  const char* titulo;
  const char* forma;  // empty for a sub-menu, or for an entry wired by hand
  std::vector<EntradaMenu> sub = {};
};

const std::vector<EntradaMenu>& Registros();
const std::vector<EntradaMenu>& Catalogos();
const std::vector<EntradaMenu>& Reportes();
const std::vector<EntradaMenu>& Utilerias();
// The entries of one block of the mask.
const std::vector<EntradaMenu>& Bloque(inicio::BloqueMenu bloque);

// Whether the session's mask lets its user reach the form (an entry of a sub-menu goes with
// the sub-menu's own position). A routine behind a screen that only a menu entry opens, and
// whose data no rights text covers, asks this before it writes.
bool FormaPermitida(const Session& session, const char* forma);

}  // namespace ventarix::menus
