#pragma once

#include <vector>

#include <QDialog>

#include "core/browse_format.h"
#include "core/session.h"

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QTableWidget;

namespace ventarix {

// The view editor of a browser, for administrators: which users get the view's button
// permissions, security rules, sort or statement. Guardar writes only the parts marked with
// their Aplicar... box. The password step comes before, at the caller.
class MDIInicioFormato : public QDialog {
  Q_OBJECT

 public:
  // `requeridas`: the columns the calling browser reads from every row, which a new
  // statement must keep.
  MDIInicioFormato(Session& session, const QString& tabla,
                   std::vector<mBrowse::ColumnaRequerida> requeridas = {},
                   QWidget* parent = nullptr);

 private:
  QWidget* CrearUsuarios();
  QWidget* CrearOpciones(const mBrowse::Vista& vista);
  void Guardar();
  void MarcarTodos(bool marcar);

  Session& session_;
  QString tabla_;
  std::vector<mBrowse::ColumnaRequerida> requeridas_;
  QTableWidget* usuarios_;
  QCheckBox* aplicar_permisos_;
  QCheckBox* aplicar_seguridad_;
  QCheckBox* aplicar_ordenar_;
  QCheckBox* aplicar_sql_;
  QLineEdit* permisos_;
  QPlainTextEdit* seguridad_;
  QLineEdit* ordenar_;
  QPlainTextEdit* sentencia_;
};

}  // namespace ventarix
