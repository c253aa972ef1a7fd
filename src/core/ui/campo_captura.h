#pragma once

#include <QLineEdit>
#include <QPalette>

#include "core/session.h"

namespace ventarix {

// The text box of every capture screen. It takes the session's background colour and selects
// its text while it has the focus; Enter and Down go to the next field, Up to the previous;
// Esc asks to leave (Salir) and F1 or a double click ask for the field's look-up (Ayuda).
// A numeric field shows its value with 2, 3 or 4 decimals when the focus leaves.
class CampoCaptura : public QLineEdit {
  Q_OBJECT

 public:
  explicit CampoCaptura(const Session& session, QWidget* parent = nullptr);

  // 0 for a text field; 2, 3 or 4 for a numeric one, which lines its figures up on the right.
  void setDecimales(int decimales);
  int decimales() const { return decimales_; }
  // Upper case as typed when the session uses it (names, codes, RFCs).
  void setMayusculas();
  // Lower case as typed (e-mail addresses).
  void setMinusculas();

  // The field's value as a number, however it was typed.
  double Numero() const;
  void setNumero(double value);

 signals:
  void Salir();
  void Ayuda();
  // The focus left the field: the moment a catalogue number is looked up.
  void Dejado();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  const Session& session_;
  int decimales_ = 0;
  QPalette paleta_;
  bool pintado_ = false;
};

// The same colour while it has the focus for every other field of a capture screen (choices,
// check boxes, spin boxes): each of `forma`'s fields that is no CampoCaptura.
void PintarCamposAlEnfocar(QWidget* forma, const Session& session);

}  // namespace ventarix
