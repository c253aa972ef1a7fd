#pragma once

#include <functional>

#include <QStringList>
#include <QWidget>

#include "catalogs/costos_masivos.h"
#include "core/session.h"

class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace ventarix {

class RejillaDePegado;

// What the costs and the final prices screens share: the grid a sheet is pasted into, the
// choice between adding products and updating them, Guardar and the closing message, and the
// refused cell shown when a row can't be taken.
class VentanaDeCostos : public QWidget {
  Q_OBJECT

 public:
  using Guardado = std::function<costos_masivos::Resultado(
      const Session&, const QList<costos_masivos::Fila>&, costos_masivos::Modo, bool)>;

  ~VentanaDeCostos() override;

  RejillaDePegado* rejilla() const { return rejilla_; }

 protected:
  struct Forma {
    QString nombre;          // object name: the form's name
    QString titulo;          // window title
    QStringList columnas;    // grid captions
    QString actualizar;      // caption of the updating choice
    QString venta_y_precio;  // caption of the extra choice; empty for none
    Guardado guardado;
  };
  VentanaDeCostos(Session& session, Forma forma, QWidget* parent);

  void keyPressEvent(QKeyEvent* event) override;

 private:
  void GuardarClicked();
  void Mostrar(const costos_masivos::Resultado& resultado);
  void ContarFilas();
  void Salir();

  Session& session_;
  Guardado guardado_;
  RejillaDePegado* rejilla_;
  QRadioButton* agregar_;
  QRadioButton* actualizar_;
  QCheckBox* venta_y_precio_ = nullptr;
  QLabel* filas_;
  QPushButton* guardar_;
  QPushButton* salir_;
};

}  // namespace ventarix
