#pragma once

#include <functional>

#include <QHash>
#include <QString>

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

 private:
  QHash<QString, Factory> factories_;
};

// The screens of every subsystem built so far.
void RegistrarFormularios(FormRegistry& registry);

}  // namespace ventarix
