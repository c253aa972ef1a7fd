#pragma once

#include <QList>

// What the demo hardware shop sells: one brand per line, each with its margins and supplier,
// and the articles of each line in their sizes or colours.
namespace ventarix::demo {

struct Marca {
  const char* nombre;
  int utilidades[5];  // margin percent of price levels 1 to 5
  int proveedor;
};

struct Articulo {
  int linea;  // also the brand
  const char* nombre;
  const char* unidad;
  int centavos;  // cost of the first variant
  QList<const char*> variantes;
  int paso = 30;      // percent each further size costs more; 0 when variants are colours or kinds
  int impuesto = 16;  // seeds and fertiliser are sold at 0 %
};

const QList<const char*>& Lineas();
const QList<Marca>& Marcas();
const QList<Articulo>& Articulos();

}  // namespace ventarix::demo
