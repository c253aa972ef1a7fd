#include "documents/ui/mdi_inicio_motivo.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/ui/mayusculas.h"

namespace ventarix {

MDIInicioMotivo::MDIInicioMotivo(const Session& session, QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("MDIInicioMotivo"));
  setWindowTitle(QStringLiteral("Motivo de baja"));
  auto* etiqueta = new QLabel(QStringLiteral("Motivo de baja del registro"), this);
  motivo_ = new QLineEdit(this);
  motivo_->setObjectName(QStringLiteral("Motivo"));
  motivo_->setMaxLength(255);
  etiqueta->setBuddy(motivo_);
  MantenerMayusculas(motivo_, session.UtilizarMayusculas);
  auto* botones = new QDialogButtonBox(this);
  aceptar_ = botones->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole);
  aceptar_->setObjectName(QStringLiteral("Aceptar"));
  botones->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole)
      ->setObjectName(QStringLiteral("Cancelar"));
  aceptar_->setDefault(true);
  // A cancellation is kept with the reason it was made for: no reason, no cancellation.
  aceptar_->setEnabled(false);
  connect(motivo_, &QLineEdit::textChanged, this,
          [this](const QString& texto) { aceptar_->setEnabled(!texto.trimmed().isEmpty()); });
  connect(botones, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(botones, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(etiqueta);
  layout->addWidget(motivo_);
  layout->addWidget(botones);
  setMinimumWidth(420);
  motivo_->setFocus();
}

QString MDIInicioMotivo::motivo() const { return motivo_->text().trimmed(); }

std::optional<QString> MDIInicioMotivo::Pedir(const Session& session, QWidget* parent) {
  MDIInicioMotivo dialogo(session, parent);
  if (dialogo.exec() != QDialog::Accepted || dialogo.motivo().isEmpty()) return std::nullopt;
  return dialogo.motivo();
}

}  // namespace ventarix
