#include "core/ui/mdi_inicio_autorizacion.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "core/inicio.h"
#include "core/ui/mayusculas.h"
#include "core/ui/message_box.h"

namespace ventarix {

namespace {
// The prompt always works in upper case, whatever the company's setting.
const bool kSiempreMayusculas = true;
}  // namespace

MDIInicioAutorizacion::MDIInicioAutorizacion(Session& session, const QString& titulo,
                                             const QStringList& claves, QWidget* parent)
    : QDialog(parent), session_(session), claves_(claves) {
  setObjectName(QStringLiteral("MDIInicioAutorizacion"));
  setWindowTitle(QString::fromLatin1(ui::kTitulo));
  setModal(true);
  titulo_ = new QLabel(titulo, this);
  titulo_->setObjectName(QStringLiteral("Titulo"));
  titulo_->setWordWrap(true);
  autorizar_ = new QLineEdit(this);
  autorizar_->setObjectName(QStringLiteral("Autorizar"));
  autorizar_->setEchoMode(QLineEdit::Password);
  MantenerMayusculas(autorizar_, kSiempreMayusculas);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(titulo_);
  layout->addWidget(autorizar_);
  setMinimumWidth(320);
  autorizar_->setFocus();
}

void MDIInicioAutorizacion::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      Comprobar();
      return;
    case Qt::Key_Escape:
      autorizado_ = false;
      reject();
      return;
    default:
      QDialog::keyPressEvent(event);
  }
}

bool MDIInicioAutorizacion::Autorizar(Session& session, const QString& titulo,
                                      const QStringList& claves, QWidget* parent) {
  MDIInicioAutorizacion dialogo(session, titulo, claves, parent);
  dialogo.exec();
  return dialogo.autorizado();
}

void MDIInicioAutorizacion::Comprobar() {
  const Outcome outcome = inicio::Autorizar(claves_, autorizar_->text());
  autorizado_ = outcome.ok;
  if (outcome) {
    // The password has no business staying in the window once it did its work.
    autorizar_->clear();
    accept();
    return;
  }
  // The message, then the typed text selected so that the next attempt replaces it.
  ui::ShowOutcome(this, session_, outcome);
}

}  // namespace ventarix
