#include "documents/ui/texto_largo.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace ventarix {

std::optional<QString> EditarTextoLargo(QWidget* parent, const QString& texto, int longitud) {
  QDialog dialogo(parent);
  dialogo.setObjectName(QStringLiteral("TextoLargo"));
  dialogo.setWindowTitle(QStringLiteral("Descripción"));
  auto* editor = new QPlainTextEdit(texto, &dialogo);
  editor->setObjectName(QStringLiteral("Texto"));
  editor->setTabChangesFocus(true);
  auto* botones = new QDialogButtonBox(&dialogo);
  auto* aceptar = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
  aceptar->setObjectName(QStringLiteral("Aceptar"));
  botones->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole)
      ->setObjectName(QStringLiteral("Cancelar"));
  QObject::connect(botones, &QDialogButtonBox::accepted, &dialogo, &QDialog::accept);
  QObject::connect(botones, &QDialogButtonBox::rejected, &dialogo, &QDialog::reject);
  auto* capas = new QVBoxLayout(&dialogo);
  capas->addWidget(editor);
  capas->addWidget(botones);
  dialogo.resize(480, 220);
  editor->moveCursor(QTextCursor::End);
  editor->setFocus();
  if (dialogo.exec() != QDialog::Accepted) return std::nullopt;
  QString escrito = editor->toPlainText().trimmed().toUpper();
  if (longitud > 0) escrito.truncate(longitud);
  return escrito;
}

}  // namespace ventarix
