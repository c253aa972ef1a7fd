#pragma once

#include <vector>

#include <QString>
#include <QStringList>
#include <QVariantList>

// A saved grid view: one row of `tablas` per form caption and user, and the pieces a browser
// builds from it.
namespace ventarix::mBrowse {

// The user whose row is the template for everybody.
inline constexpr char kPlantilla[] = "ADMINISTRADOR";

// One row of `tablas`.
struct Vista {
  QString Tabla;
  QString Usuario;
  QString Sentencia;
  QString Cadena;
  QString Busqueda;
  QString Ordenar;
  QString Permisos;
  QString Seguridad;
  int Extender = 0;
  int Renglon = 0;
  int Altura = 0;
  int Posicion = 0;
};

// How a column's values are compared in searches and filters.
enum class TipoColumna { kTexto, kNumero, kFecha, kOtro };

// Data type codes kept in a definition line (the codes of the original grid control).
inline constexpr int kTipoTexto = 202;
inline constexpr int kTipoMemo = 203;
inline constexpr int kTipoEntero16 = 2;
inline constexpr int kTipoEntero32 = 3;
inline constexpr int kTipoDoble = 5;
inline constexpr int kTipoFecha = 135;
inline constexpr int kTipoBinario = 205;
TipoColumna TipoDe(int tipo_datos);

// One line of `Cadena`: "name|type|width|alignment|hidden|format|..." (at most eight fields).
// The layout integers are the width in pixels, the alignment (0 left, 1 right, 2 centre) and
// whether the column is hidden (1).
struct ColumnaVista {
  QString nombre;
  int tipo = kTipoTexto;
  int ancho = 100;
  int alineacion = 0;
  bool oculta = false;
  QString formato;
  QStringList opciones;  // fields 7 and 8, kept as read
};

std::vector<ColumnaVista> LeerCadena(const QString& cadena);
QString EscribirCadena(const std::vector<ColumnaVista>& columnas);

// A piece of WHERE text over the view's columns ("t"."name"), with `?` placeholders and the
// values that fill them in order. User text only ever travels as a value.
struct Condicion {
  QString texto;
  QVariantList valores;
  bool vacia() const { return texto.isEmpty(); }
};

}  // namespace ventarix::mBrowse
