#pragma once

#include <vector>

#include <QStringList>

#include "documents/captura.h"

namespace ventarix {

class FormaCaptura;

// What one family's capture screens show and do beyond the shared engine: a row of
// differences fed to FormaCaptura, which serves both the add and the change screen.
namespace captura_ui {

// What a header field holds: free text, a number, or a catalogue number with its name; an
// amount withheld (F1 asks a percentage of the subtotal, and the screen's total is the rows
// less these amounts); a summary text (F2 opens the long-text dialog).
enum class Campo { kTexto, kNumero, kCliente, kProveedor, kAgente, kMetodo, kRetencion, kResumen };

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

// The screen of a family whose serie and scheme come from a folio range (the family's rango):
// the labels Ingreso and Esquema, and the look-up on Ingreso that chooses another range.
struct Rango {
  const char* ayuda;  // "FOLIOS FACTURAS"
};

struct Pantalla {
  const captura::FamiliaCaptura& familia;
  const char* alta;    // "FrmRemisionesA"
  const char* cambio;  // "FrmRemisionesC"
  const char* titulo;  // "REMISIONES": the caption adds "ALTAS" or "CAMBIOS"
  QStringList tipos;   // entries of Tipo, the first one chosen on a new document
  // Entries of the list Movimiento ("ALMACEN1" ... "GASTOS"), saved in `movimiento`, the first
  // one chosen on a new document; empty: the screen has none.
  QStringList movimientos;
  std::vector<Dato> datos;
  std::vector<Accion> acciones;
  // The order's grid has Surtir ahead of Cantidad.
  bool con_surtir = false;
  // A credit note's grid has the invoice key and its Depto ahead of the code.
  bool con_factura = false;
  // The row column of the source document, and its heading; nullptr: the grid has none.
  const char* fuente = "pedido";
  const char* titulo_fuente = "Pedido";
  const Rango* rango = nullptr;
  // Moneda with its exchange rate, and FormaDePago, of the electronic documents.
  bool con_moneda = false;
  // Depto: "LIBRE" typed freely; "PRODUCTOS" brought from delivery notes, with the client and
  // the rows locked. Rows are pasted in "LIBRE" only.
  bool con_depto = false;
  // A code not in productos keeps its row, with the unit "PIEZA", instead of offering to add
  // the product (rows of a free invoice).
  bool codigos_libres = false;
  // An invoice key written in a row's first column (credit notes): what the row becomes.
  void (*factura_escrita)(FormaCaptura& forma, int fila) = nullptr;
  // What a new document shows when the screen opens beyond the engine's own (the place of
  // issue of the electronic documents).
  void (*al_abrir)(FormaCaptura& forma) = nullptr;
  // F1 on a row's cell (grid column `columna`): the family's own look-up; false leaves the
  // common one (products on the code, the price list on the price).
  bool (*ayuda_de_fila)(FormaCaptura& forma, int fila, int columna) = nullptr;
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
