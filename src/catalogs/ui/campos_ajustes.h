#pragma once

#include <vector>

#include <QObject>
#include <QString>

#include "core/catalogo_nombre.h"
#include "core/outcome.h"
#include "core/session.h"

class QCheckBox;
class QDialog;
class QFormLayout;
class QWidget;

namespace ventarix {

class CampoCaptura;
class CampoCatalogo;

// The fields of a settings screen, each bound to the column of the row it edits: the field's
// object name is the column's name as the system spells it ("NoExterior"), the column is its
// lower case. Shows a row, reads it back, and points a refusal at its field, bringing its tab
// to the front.
class CamposAjustes : public QObject {
  Q_OBJECT

 public:
  enum class Estilo {
    kMayusculas,  // names, addresses, codes
    kMinusculas,  // e-mail addresses and hosts
    kLibre,       // typed as it comes (passwords of outside accounts)
    kClave,       // as kLibre, shown as dots
    kEntero,      // whole numbers
    kDecimal,     // amounts with two decimals
  };

  CamposAjustes(Session& session, QDialog* forma);

  CampoCaptura* Texto(QFormLayout* layout, const QString& nombre, const QString& titulo,
                      Estilo estilo = Estilo::kMayusculas, int largo = 0);
  QCheckBox* Marca(QFormLayout* layout, const QString& nombre, const QString& titulo);
  // A catalogue number with its name; F1 opens the look-up of PALABRA.
  CampoCatalogo* Catalogo(QFormLayout* layout, const QString& nombre, const QString& titulo,
                          ventarix::Catalogo catalogo, const QString& palabra);

  void Mostrar(const RowValues& fila);
  // Writes every field's value into the row, under its column.
  void Leer(RowValues& fila) const;
  // The field of the outcome (named as a field or as a column), or null.
  QWidget* Campo(const QString& nombre) const;
  // Shows the outcome's message and puts the focus on its field, on whichever tab it is.
  void Avisar(const Outcome& outcome) const;

 private:
  struct Enlace {
    QString columna;
    QWidget* campo;
    Estilo estilo;
  };

  Session& session_;
  QDialog* forma_;
  std::vector<Enlace> enlaces_;
};

}  // namespace ventarix
