#pragma once

#include <array>

#include <QHash>
#include <QMainWindow>
#include <QPointer>

#include "core/session.h"
#include "core/ui/form_registry.h"

class QAction;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;

namespace ventarix {

// The main window: menus of records, catalogues, reports and utilities, the toolbar that
// speaks to the active browser, and the status bar with the database, store, engine, year and
// user. Each menu entry opens its form once; a second choice brings it to the front.
class MDIInicio : public QMainWindow {
  Q_OBJECT

 public:
  MDIInicio(Session& session, const FormRegistry& registry, QWidget* parent = nullptr);

  // Loads the session through the splash, applies the user's menu mask and fills the status
  // bar; then finishes an interrupted code change or opens the point of sale when the user
  // works at the till.
  void Cargar();

  // Opens the form by name on the record of key `llave` (empty: none, or a new one): a dialog
  // modally, returning the key of the record it saved (empty when it saved none); any other
  // screen as a window of its own here.
  QString Abrir(const QString& forma, const QString& llave = {});
  // The form in front, or none.
  QWidget* FormaActiva() const;
  // A key for the form in front, as if typed in its current field.
  void EnviarTecla(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  // The users catalogue, behind the password step.
  void AbrirUsuarios();
  void AbrirTpv();
  QString Panel(int numero) const;
  QMdiArea* area() const { return area_; }

 public slots:
  // Status panel 4: free for the browsers' sums.
  void MostrarSuma(const QString& texto);
  // Status panel 5: the year the browsers show.
  void MostrarAno();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ConstruirMenus();
  void ConstruirBarra();
  void ConstruirEstado();
  void AplicarPermisos();
  void LlenarPaneles();
  void Recargar();
  void ClicBaseDatos();
  void ClicAno();
  void AlinearGrid();
  void CerrarActiva();

  Session& session_;
  const FormRegistry& registry_;
  QMdiArea* area_;
  QHash<QString, QPointer<QMdiSubWindow>> abiertas_;
  std::array<QWidget*, 6> paneles_{};
  std::array<QLabel*, 6> textos_{};
  std::array<QLabel*, 6> iconos_{};
  QAction* tpv_ = nullptr;
  Qt::Alignment alineacion_ = Qt::AlignCenter;
};

}  // namespace ventarix
