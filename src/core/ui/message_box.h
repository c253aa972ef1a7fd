#pragma once

#include <QMessageBox>
#include <QString>

#include "core/outcome.h"
#include "core/session.h"

class QWidget;

// The one way every form shows a message: a box titled "Ventarix" with the icon of the
// outcome, one at a time, and then the focus on the field the domain named.
namespace ventarix::ui {

inline constexpr char kTitulo[] = "Ventarix";

QMessageBox::Icon IconOf(MessageIcon icon);

// Shows the outcome's message (nothing for an ok outcome without message) and moves the focus
// to the child of `form` whose objectName is the outcome's field, selecting its text. A
// run-time error (a stop that is no rule) is the error trap's: the normal mouse pointer back
// and one line in the session's error log.
void ShowOutcome(QWidget* form, const Session& session, const Outcome& outcome);
// Moves the focus to the named child of `form` and selects its text.
void FocusField(QWidget* form, const QString& field);

// A question with the question icon; returns the button pressed.
QMessageBox::StandardButton Ask(QWidget* parent, const QString& text,
                                QMessageBox::StandardButtons buttons = QMessageBox::Yes |
                                                                       QMessageBox::No,
                                QMessageBox::StandardButton default_button = QMessageBox::Yes);
// A question whose answers are the given captions (with their "&" letters), the last one the
// answer of Esc; returns the index of the one chosen.
int Elegir(QWidget* parent, const QString& text, const QStringList& opciones);
// One of a row of confirmations under its own title, with Yes, No and Cancel: true only for
// Yes. With the stop icon (an act that cannot be undone) the default button is No.
bool Confirmar(QWidget* parent, const QString& titulo, const QString& texto,
               MessageIcon icono = MessageIcon::kQuestion);
// A message with an OK button.
void Inform(QWidget* parent, const QString& text, MessageIcon icon = MessageIcon::kInformation);

}  // namespace ventarix::ui

namespace ventarix {

// The error trap of every routine of a form: the normal mouse pointer back, a stop message
// with the description, and one line in the month's error log.
void MostrarError(QWidget* parent, const Session& session, const QString& description);

}  // namespace ventarix
