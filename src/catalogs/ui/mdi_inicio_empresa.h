#pragma once

#include <QDialog>

#include "core/outcome.h"
#include "core/session.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTabWidget;

namespace ventarix {

class CamposAjustes;

// The company's own row: fiscal identity and address, issuing branch, contact, tax and
// pricing rules, mail account (with the known providers in Combo), stamping account (with
// the PAC's test account on Prueba) and logo (Agregar). Guardar checks, writes and reloads the
// session through the splash, then closes; Salir or Esc leave without saving.
class MDIInicioEmpresa : public QDialog {
  Q_OBJECT

 public:
  explicit MDIInicioEmpresa(Session& session, QWidget* parent = nullptr);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* PaginaEmpresa();
  QWidget* PaginaExpedidoEn();
  QWidget* PaginaContacto();
  QWidget* PaginaReglas();
  QWidget* PaginaCorreo();
  QWidget* PaginaTimbrado();
  QWidget* PaginaLogotipo();

  void MostrarLogotipo();
  void ReconocerCorreo();
  void AgregarClicked();
  void ComboActivated(int indice);
  void PruebaClicked();
  void GuardarClicked();

  Session& session_;
  RowValues datos_;
  CamposAjustes* campos_;
  QTabWidget* tabs_;
  QComboBox* combo_ = nullptr;
  QLabel* image1_ = nullptr;
  QLabel* tamano_ = nullptr;
  QPushButton* agregar_ = nullptr;
  QPushButton* prueba_ = nullptr;
  QPushButton* guardar_;
  QPushButton* salir_;
  // A row that could not be read is never written over; shown once the screen is up.
  Outcome problema_;
};

}  // namespace ventarix
