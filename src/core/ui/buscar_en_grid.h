#pragma once

class QString;
class QTableWidget;

namespace ventarix {

// Looks for the code, in upper case, in the grid's current column (cells that contain it,
// in any case), paints the hits' text blue and goes to the first. Two or more hits are told
// in a message. Returns how many cells hold the code.
int BuscarEnGrid(QTableWidget* grid, const QString& codigo);

}  // namespace ventarix
