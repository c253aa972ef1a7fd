#pragma once

#include <QDialog>

#include "core/outcome.h"
#include "core/session.h"

class QComboBox;
class QPushButton;
class QTabWidget;

namespace ventarix {

class CamposAjustes;

// The terminal settings of a user: the point of sale's screens, client and agent, what the
// cashier may change, and the three printed forms (ticket, note, quotation) with their
// series, copies, printers, margins and header and footer lines. An administrator chooses the
// user in Usuario; anyone else edits only their own row. Guardar writes it and closes.
class MDIInicioConfigurar : public QDialog {
  Q_OBJECT

 public:
  explicit MDIInicioConfigurar(Session& session, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* PaginaTpv();
  QWidget* PaginaFormulario(const QString& prefijo);
  void Cargar(const QString& usuario);
  void GuardarClicked();

  Session& session_;
  RowValues datos_;
  CamposAjustes* campos_;
  QComboBox* usuario_;
  QTabWidget* tabs_;
  QPushButton* guardar_;
  QPushButton* salir_;
  Outcome problema_;
};

}  // namespace ventarix
