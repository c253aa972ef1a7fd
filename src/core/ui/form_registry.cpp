#include "core/ui/form_registry.h"

#include <memory>

#include <QDialog>
#include <QWidget>

#include "core/ui/llave_guardada.h"
#include "core/ui/pantalla_pendiente.h"

namespace ventarix {

QWidget* FormRegistry::Create(const QString& name, Session& session, const QString& llave) const {
  const auto found = factories_.constFind(name);
  if (found == factories_.constEnd() || !*found) return new PantallaPendiente(name);
  return (*found)(session, llave);
}

QStringList FormRegistry::Actuar(const QString& name, Session& session, const QString& tabla,
                                 const QStringList& llaves, QWidget* parent) const {
  const auto found = acciones_.constFind(name);
  if (found != acciones_.constEnd() && *found) return (*found)(session, tabla, llaves, parent);
  auto* pendiente = new PantallaPendiente(name);
  pendiente->setAttribute(Qt::WA_DeleteOnClose);
  pendiente->show();
  return {};
}

QString EjecutarDialogo(QDialog* dialogo, QWidget* parent) {
  std::unique_ptr<QDialog> propio(dialogo);
  dialogo->setParent(parent, dialogo->windowFlags() | Qt::Dialog);
  dialogo->exec();
  const auto* guardada = dynamic_cast<const LlaveGuardada*>(dialogo);
  return guardada != nullptr ? guardada->Guardada() : QString();
}

}  // namespace ventarix
