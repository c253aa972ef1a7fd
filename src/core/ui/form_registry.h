#pragma once

#include <functional>

#include <QHash>
#include <QString>
#include <QStringList>

#include "core/session.h"

class QWidget;

namespace ventarix {

// Which screen each form name opens. The main window's menus and buttons name forms
// ("FrmFacturas", "MDIInicioGuardar"); each subsystem adds the screens it builds with Add,
// in its own Registrar... function called by the desktop program. A name nobody added opens
// a notice that the screen is not available yet.
class FormRegistry {
 public:
  // Makes the screen for the session; the main window takes ownership. A QDialog is shown
  // modally, any other widget becomes a window inside the main window, once per name.
  using Factory = std::function<QWidget*(Session& session)>;

  void Add(const QString& name, Factory factory) { factories_.insert(name, std::move(factory)); }
  bool Has(const QString& name) const { return factories_.contains(name); }
  // The screen for the name, or the not-available notice.
  QWidget* Create(const QString& name, Session& session) const;

  // A screen that acts on records a browser hands it (cancel, delete): the browse's table and
  // the keys of its selected rows. It runs over `parent` and returns the keys it acted on.
  using Accion = std::function<QStringList(Session& session, const QString& tabla,
                                           const QStringList& llaves, QWidget* parent)>;
  void AddAccion(const QString& name, Accion accion) { acciones_.insert(name, std::move(accion)); }
  // The keys acted on; a name nobody added shows the not-available notice and acts on none.
  QStringList Actuar(const QString& name, Session& session, const QString& tabla,
                     const QStringList& llaves, QWidget* parent) const;

 private:
  QHash<QString, Factory> factories_;
  QHash<QString, Accion> acciones_;
};

// The screens of every subsystem built so far.
void RegistrarFormularios(FormRegistry& registry);

}  // namespace ventarix
