#pragma once

#include <functional>
#include <vector>

#include <QString>
#include <QStyle>

class QWidget;

namespace ventarix {

class Navegador;

// An entry of the drop-down menu of a family's button.
struct EntradaMenu {
  QString texto;
  std::function<void(Navegador& navegador)> accion;
};

// A button or key that one family's browser has beyond the common ones (the products' price
// mode, the folio ranges' Predeterminar), registered as data by the subsystem that owns the
// family. Button 6 takes the place of the common Imprimir and, like it, asks Autorizar 6 first.
struct AccionExtra {
  int boton = 0;  // the toolbar button's number (Toolbar_N); 0: a key alone
  QString texto;  // the button's caption
  QStyle::StandardPixmap icono = QStyle::SP_CustomBase;
  int tecla = 0;  // a Qt::Key that does the same; 0: the button alone
  Qt::KeyboardModifiers modificadores = Qt::NoModifier;
  std::function<void(Navegador& navegador)> accion;
  std::vector<EntradaMenu> menu;  // the button's drop-down menu, behind the same authorization
};

// What a family's browser does beyond the common buttons and keys.
struct ExtrasNavegador {
  std::vector<AccionExtra> acciones;
  QString baja;  // the screen Cancelar opens; empty: MDIInicioBajas
  // A panel beside the grid that follows the current row (an invoice's payments and credit
  // notes); none when empty.
  std::function<QWidget*(Navegador& navegador)> panel;
};

}  // namespace ventarix
