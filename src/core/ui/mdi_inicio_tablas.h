#pragma once

#include <QDialog>

#include "core/ayuda.h"
#include "core/session.h"

class QLabel;
class QStandardItemModel;
class QTableView;

namespace ventarix {

// The look-up list every field's F1 opens. It reads the keyword's rows once and keeps no
// cursor open; F2, F3 and F4 ask for a value of their column and read the list again with
// it. Enter or a double click takes the row's first column as the answer; Esc leaves it
// empty.
class MDIInicioTablas : public QDialog {
  Q_OBJECT

 public:
  MDIInicioTablas(Session& session, ayuda::PeticionAyuda peticion, QWidget* parent = nullptr);

  int filas() const;
  // The first column of the row chosen; empty until one is.
  QString resultado() const { return resultado_; }
  // The statement and title of the list as it stands, searches included.
  const ayuda::PeticionAyuda& peticion() const { return peticion_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Cargar();
  QString Leer();
  void Buscar(int tecla);
  void Elegir();
  void Salir();

  Session& session_;
  ayuda::PeticionAyuda peticion_;
  QString resultado_;
  QStandardItemModel* modelo_;
  QTableView* tabla_;
  QLabel* teclas_;
};

}  // namespace ventarix
