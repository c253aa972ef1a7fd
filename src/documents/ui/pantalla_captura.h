#pragma once

#include <vector>

#include <QStringList>

#include "documents/captura.h"

namespace ventarix {

class FormaCaptura;

// What one family's capture screens show and do beyond the shared engine: a row of
// differences fed to FormaCaptura, which serves both the add and the change screen.
namespace captura_ui {

// What a header field holds: free text, a number, or a catalogue number with its name.
enum class Campo { kTexto, kNumero, kCliente, kAgente, kMetodo };

// One field of the array Datos: its index, the header column it is saved in, its caption,
// and the tab it lives on (0 above the tabs, 1 the tab of further data).
struct Dato {
  int indice;
  const char* columna;
  const char* titulo;
  Campo campo = Campo::kTexto;
  int pagina = 0;
  int longitud = 0;  // maximum length of a text field; 0 for the default
};

// A button of the family's own (apply a discount, bring an order in ...), with what it does
// to the open screen. Shown in the add screen, the change screen or both.
struct Accion {
  const char* nombre;  // object name: "AplicarDescuento"
  const char* texto;   // caption with its "&" letter
  void (*hacer)(FormaCaptura& forma);
  bool en_alta = true;
  bool en_cambio = true;
};

struct Pantalla {
  const captura::FamiliaCaptura& familia;
  const char* alta;    // "FrmRemisionesA"
  const char* cambio;  // "FrmRemisionesC"
  const char* titulo;  // "REMISIONES": the caption adds "ALTAS" or "CAMBIOS"
  QStringList tipos;   // entries of Tipo, the first one chosen on a new document
  std::vector<Dato> datos;
  std::vector<Accion> acciones;
  // The order's grid has Surtir ahead of Cantidad.
  bool con_surtir = false;
  // The client's balance and limit are shown, and a note over the limit flashes in Msg1.
  // Called by RecalcularPantalla.
  void (*credito)(FormaCaptura& forma) = nullptr;
  // F1 on the price: the product's price list, the choice written into the row `fila`.
  void (*lista_de_precios)(FormaCaptura& forma, int fila) = nullptr;
  // The stock warning per row (the family takes goods out of stock).
  bool avisar_existencias = false;
  // The change screen keeps its grid's states for undo and redo.
  bool deshacer = false;
};

}  // namespace captura_ui
}  // namespace ventarix
