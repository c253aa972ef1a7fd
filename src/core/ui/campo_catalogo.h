#pragma once

#include <QWidget>

#include "core/catalogo_nombre.h"
#include "core/session.h"

class QLabel;

namespace ventarix {

class CampoCaptura;

// A catalogue number with its name beside it (label "Nombre"). Leaving the field reads the
// row of that number and shows its name; an unknown number clears the name. A client's row
// goes out whole through ClienteLeido, so that a document takes its term, agent, RFC and the
// rest from it.
class CampoCatalogo : public QWidget {
  Q_OBJECT

 public:
  CampoCatalogo(const Session& session, Catalogo catalogo, QWidget* parent = nullptr);

  CampoCaptura* campo() const { return campo_; }
  QLabel* nombre() const { return nombre_; }
  Catalogo catalogo() const { return catalogo_; }

  qint32 Numero() const;
  // Shows the number and reads its row at once.
  void setNumero(qint32 numero);
  // Reads the row of the number typed, even when it was read already.
  void Leer();

 signals:
  void ClienteLeido(const RowValues& cliente);
  void Salir();
  void Ayuda();

 private:
  void AlDejar();

  const Session& session_;
  Catalogo catalogo_;
  CampoCaptura* campo_;
  QLabel* nombre_;
  // The number whose name is shown, so that leaving an unchanged field reads nothing and
  // leaves alone what the document took from the row.
  qint32 leido_ = 0;
};

}  // namespace ventarix
