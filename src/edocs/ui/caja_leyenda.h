#pragma once

#include <QPlainTextEdit>

namespace ventarix {

// A text box of the printed form's legends (address, legends, promissory note): Enter moves
// on as in every capture field, Ctrl+Enter starts a new line, and a tag from the Etiquetas
// menu goes in at the cursor.
class CajaLeyenda : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit CajaLeyenda(QWidget* parent = nullptr);

  // "<EmisorNombre>" at the cursor.
  void InsertarEtiqueta(const QString& etiqueta);

 signals:
  void Enfocada(CajaLeyenda* caja);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
};

}  // namespace ventarix
