#pragma once

#include <array>

#include <QDialog>
#include <QHash>

#include "core/session.h"
#include "core/ui/llave_guardada.h"
#include "core/usuarios.h"

class QCheckBox;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace ventarix {

// The rights of the user whose key it is given: the four masked menus as checkable
// entries with the main window's captions, the rights text (add, cancel, change) of every
// document family and catalogue, the field locks and the invoice series. Check1 ticks or
// clears every menu entry; Check2 and Check3 give or take every right of the documents and
// of the catalogues. Guardar writes it all, tells the key as the one saved and closes.
class FrmUsuariosP : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  FrmUsuariosP(Session& session, const QString& usuario, QWidget* parent = nullptr);

  QString Guardada() const override { return guardada_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* ConstruirMenus();
  QWidget* ConstruirDerechos(const QStringList& columnas, const char* titulo, QCheckBox* todos);
  QWidget* ConstruirOtros();
  void Mostrar(const usuarios::Derechos& derechos);
  usuarios::Derechos Leer() const;
  void MarcarMenus(bool marcar);
  void EscribirDerechos(const QStringList& columnas, bool todos);
  void GuardarClicked();
  void Rechazar();

  Session& session_;
  QString usuario_;
  std::array<QTreeWidget*, 4> menus_{};
  QHash<QString, QLineEdit*> datos_;  // rights texts by column
  QCheckBox* check1_;
  QCheckBox* check2_;
  QCheckBox* check3_;
  QCheckBox* modificar_costo_;
  QCheckBox* modificar_plazo_;
  QCheckBox* modificar_credito_;
  QCheckBox* aplicar_series_;
  std::array<QLineEdit*, 9> series_{};
  QPushButton* guardar_;
  QPushButton* salir_;
  Outcome problema_;
  QString guardada_;
};

}  // namespace ventarix
