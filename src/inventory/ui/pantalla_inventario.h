#pragma once

#include <vector>

#include "documents/captura.h"

namespace ventarix {

class FormaInventario;

// What one stock family's capture screens show beyond the shared form: a row of differences
// fed to FormaInventario, which serves the add and the change screen alike.
namespace inventario_ui {

// A header field: free text, a number, or a warehouse list ("ALMACEN1" to "ALMACEN5").
enum class Campo { kTexto, kNumero, kAlmacen };

struct Dato {
  const char* columna;  // the header column it is saved in
  const char* nombre;   // its object name: "Obs", "Combo0"
  const char* titulo;
  Campo campo = Campo::kTexto;
};

// A grid column after Código, Descripción and Unidad: the row column it holds.
struct Columna {
  const char* columna;
  const char* titulo;
  bool editable = false;
};

struct Pantalla {
  const captura::FamiliaCaptura& familia;
  const char* alta;    // "FrmAjustesA"
  const char* cambio;  // "FrmAjustesC"
  const char* titulo;  // "AJUSTES DE INVENTARIO": the caption adds "ALTAS" or "CAMBIOS"
  std::vector<Dato> datos;
  std::vector<Columna> columnas;
  // The button "Aplicar descuento %" (a percentage written to Dcto of every used row).
  bool con_descuento = false;
  // A header field written: the family may refill the grid (a finished product brings its
  // components; another warehouse, its stock).
  void (*dato_escrito)(FormaInventario& forma, const QString& columna) = nullptr;
};

}  // namespace inventario_ui
}  // namespace ventarix
