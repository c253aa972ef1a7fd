#pragma once

#include <vector>

#include <QDialog>
#include <QStringList>

#include "core/browse_view.h"
#include "core/session.h"

class QLineEdit;
class QTableWidget;

namespace ventarix {

// The filter of a browser: one line per visible column of the view, with its type and the
// field `Texto` where the user writes the column's filter. Enter or F9 builds the conditions
// and closes; Esc leaves without a filter.
class MDIInicioFiltrar : public QDialog {
  Q_OBJECT

 public:
  // `textos_previos` are the texts of an earlier filter, one per column of `columnas`, to
  // start from.
  MDIInicioFiltrar(Session& session, const std::vector<mBrowse::ColumnaVista>& columnas,
                   const QStringList& textos_previos, QWidget* parent = nullptr);

  // The joined conditions, after the dialog was accepted.
  mBrowse::Condicion condicion() const { return condicion_; }
  // What the user typed, one text per column given (empty for hidden ones).
  QStringList textos() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AgregarLinea(int indice, const QString& texto_previo);
  void Aplicar();
  void IrALinea(int fila);

  Session& session_;
  std::vector<mBrowse::ColumnaVista> columnas_;
  QTableWidget* grid_;
  std::vector<int> indices_;  // the column of columnas_ on each line of the grid
  std::vector<QLineEdit*> textos_;
  mBrowse::Condicion condicion_;
};

}  // namespace ventarix
