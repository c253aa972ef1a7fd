#include "core/ui/message_box.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QWidget>

#include "core/mFunciones.h"
#include "core/passwords.h"

namespace ventarix::ui {

namespace {

int Show(QWidget* parent, const QString& text, QMessageBox::Icon icon,
         QMessageBox::StandardButtons buttons, QMessageBox::StandardButton default_button) {
  // Whatever a box says, a connection string's password is not shown.
  QMessageBox box(icon, QString::fromLatin1(kTitulo), passwords::Enmascarar(text), buttons, parent);
  box.setDefaultButton(default_button);
  return box.exec();
}

}  // namespace

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kInformation:
      return QMessageBox::Information;
    case MessageIcon::kWarning:
      return QMessageBox::Warning;
    case MessageIcon::kStop:
      return QMessageBox::Critical;
    case MessageIcon::kQuestion:
      return QMessageBox::Question;
    case MessageIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

void FocusField(QWidget* form, const QString& field) {
  if (form == nullptr || field.isEmpty()) return;
  QWidget* target = form->findChild<QWidget*>(field);
  if (target == nullptr || !target->isEnabled()) return;
  target->setFocus(Qt::OtherFocusReason);
  if (auto* line = qobject_cast<QLineEdit*>(target)) line->selectAll();
  if (auto* spin = qobject_cast<QAbstractSpinBox*>(target)) spin->selectAll();
}

void ShowOutcome(QWidget* form, const Session& session, const Outcome& outcome) {
  if (outcome.IsRunTimeError() && !outcome.message.isEmpty()) {
    MostrarError(form, session, outcome.message);
  } else if (!outcome.message.isEmpty()) {
    Show(form, outcome.message, IconOf(outcome.icon), QMessageBox::Ok, QMessageBox::Ok);
  }
  FocusField(form, outcome.field);
}

QMessageBox::StandardButton Ask(QWidget* parent, const QString& text,
                                QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton default_button) {
  return static_cast<QMessageBox::StandardButton>(
      Show(parent, text, QMessageBox::Question, buttons, default_button));
}

int Elegir(QWidget* parent, const QString& text, const QStringList& opciones) {
  QMessageBox box(QMessageBox::Question, QString::fromLatin1(kTitulo), text, QMessageBox::NoButton,
                  parent);
  QList<QPushButton*> botones;
  for (const QString& opcion : opciones) {
    botones << box.addButton(
        opcion, opcion == opciones.last() ? QMessageBox::RejectRole : QMessageBox::AcceptRole);
  }
  if (!botones.isEmpty()) box.setDefaultButton(botones.first());
  box.exec();
  return static_cast<int>(botones.indexOf(qobject_cast<QPushButton*>(box.clickedButton())));
}

bool Confirmar(QWidget* parent, const QString& titulo, const QString& texto, MessageIcon icono) {
  QMessageBox box(IconOf(icono), titulo, texto,
                  QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, parent);
  // Enter alone never confirms an act that cannot be undone.
  box.setDefaultButton(icono == MessageIcon::kStop ? QMessageBox::No : QMessageBox::Yes);
  return box.exec() == QMessageBox::Yes;
}

void Inform(QWidget* parent, const QString& text, MessageIcon icon) {
  Show(parent, text, IconOf(icon), QMessageBox::Ok, QMessageBox::Ok);
}

}  // namespace ventarix::ui

namespace ventarix {

void MostrarError(QWidget* parent, const Session& session, const QString& description) {
  while (QApplication::overrideCursor() != nullptr) QApplication::restoreOverrideCursor();
  ui::Inform(parent, description, MessageIcon::kStop);
  mFunciones::RegistrarError(session, description);
}

}  // namespace ventarix
