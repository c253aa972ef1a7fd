#pragma once

#include <functional>

#include <QHash>
#include <QString>
#include <QStringList>

#include "core/session.h"
#include "core/ui/accion_extra.h"

class QDialog;
class QWidget;

namespace ventarix {

// Which screen each form name opens. The main window's menus and buttons name forms
// ("FrmFacturas", "MDIInicioGuardar"); each subsystem adds the screens it builds with Add, and
// its browsers' extra buttons and keys with AddNavegador, in its own Registrar... function,
// which the program's composition root (app/formularios.h) calls. A name nobody added opens
// a notice that the screen is not available yet.
class FormRegistry {
 public:
  // Makes the screen for the session and the key of the record it opens (empty for a new
  // one); the main window takes ownership. A QDialog is shown modally, any other widget
  // becomes a window inside the main window, once per name.
  using Factory = std::function<QWidget*(Session& session, const QString& llave)>;

  void Add(const QString& name, Factory factory) { factories_.insert(name, std::move(factory)); }
  // A screen that opens no particular record.
  void Add(const QString& name, std::function<QWidget*(Session& session)> factory) {
    Add(name, [factory = std::move(factory)](Session& session, const QString&) {
      return factory(session);
    });
  }
  bool Has(const QString& name) const { return factories_.contains(name); }
  // The extra buttons, keys and cancel screen of the browser of form `forma` ("FrmProductos").
  void AddNavegador(const QString& forma, ExtrasNavegador extras) {
    navegadores_.insert(forma, std::move(extras));
  }
  ExtrasNavegador ExtrasDe(const QString& forma) const { return navegadores_.value(forma); }
  // The screen for the name, or the not-available notice.
  QWidget* Create(const QString& name, Session& session, const QString& llave = {}) const;

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
  QHash<QString, ExtrasNavegador> navegadores_;
};

// Runs a screen's dialog modally over `parent` and deletes it. The key of the record it saved
// when it tells one (LlaveGuardada), else empty.
QString EjecutarDialogo(QDialog* dialogo, QWidget* parent);

}  // namespace ventarix
