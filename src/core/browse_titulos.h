#pragma once

#include <QString>

#include "core/browse_view.h"

// The captions of a browser's columns. A new view keeps each column's caption in field 7 of
// its definition line, where the company may change it; the words come from one table of the
// shop's Spanish.
namespace ventarix::mBrowse {

// "numero" gives "Número", "ultimo costo" "Último costo", "precio1" "Precio 1",
// "anoaprobacion" "Año aprobación", "rfc" "RFC"; a name the table does not know keeps its
// words, the first letter in upper case.
QString TituloDeColumna(const QString& nombre);

// The caption a column shows: its own from the view's definition, else the table's.
QString TituloDe(const ColumnaVista& columna);

}  // namespace ventarix::mBrowse
