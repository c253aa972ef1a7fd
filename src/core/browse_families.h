#pragma once

#include <vector>

#include <QString>

// The browsers of the catalogues and documents: one screen design, told apart by this table.
namespace ventarix::mBrowse {

// How a browser's search prompt narrows the view.
enum class ModoBusqueda {
  kIgual,        // t."column" = number
  kContiene,     // t."column" like '%text%'
  kSubconsulta,  // t."column" in (the family's statement over its detail rows, like '%text%')
};

struct BusquedaFamilia {
  int tecla;  // 2..8 for F2..F8, or 0 for Ctrl+B
  const char* columna;
  const char* indicacion;  // the prompt, e.g. "Número de Folio a Buscar"
  ModoBusqueda modo;
  // For kSubconsulta: a select of the document's key from its detail table, with %1 where the
  // comparison of `detalle` goes.
  const char* subconsulta = nullptr;
  const char* detalle = nullptr;
};

struct Familia {
  const char* forma;      // "FrmClientes": the form's name in the menus
  const char* titulo;     // the caption, also the view's name in `tablas`
  const char* sentencia;  // the statement of a new view; nullptr: every column of `titulo`
  const char* derechos;   // column of `usuarios` with the rights text; nullptr: administrators
  std::vector<const char*> llave;  // columns that order the rows; the first finds a row
  bool llave_unica;                // the key identifies one row
  const char* alta;                // add and change screens
  const char* cambio;
  bool documento;  // a document family: the year panel narrows it
  std::vector<BusquedaFamilia> busquedas;
};

const std::vector<Familia>& Familias();
const Familia* FamiliaDeForma(const QString& forma);

}  // namespace ventarix::mBrowse
