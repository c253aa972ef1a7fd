#pragma once

#include <functional>

#include <QEventLoop>
#include <QString>
#include <QWidget>

#include "core/outcome.h"
#include "core/session.h"
#include "maintenance/sweeps.h"

class QLabel;
class QProgressBar;
class QVBoxLayout;

namespace ventarix {

// What the three maintenance windows share: the sweep starts the first time the window shows,
// the label names the step under way and the bar counts the steps, the window repaints between
// steps, a failure is shown and logged, and the window closes by itself when the sweep ends.
class VentanaDeMantenimiento : public QWidget {
  Q_OBJECT

 public:
  using Barrido = std::function<Outcome(const Session&, const mantenimiento::Avance&)>;

  // True while the sweep runs: the window refuses to close then.
  bool corriendo() const { return corriendo_; }

 protected:
  VentanaDeMantenimiento(Session& session, const QString& nombre, const QString& titulo,
                         Barrido barrido, QWidget* parent);

  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

  // Asked between the rows of a walk, after pending events ran: true ends the walk after the
  // current row. Plain sweeps never stop.
  virtual bool Detener() { return false; }

  QVBoxLayout* layout() const { return layout_; }
  // A window with buttons of its own lets the user's clicks through while it works; otherwise
  // the sweep only lets the window repaint.
  QEventLoop::ProcessEventsFlags eventos_ = QEventLoop::ExcludeUserInputEvents;

 private:
  void Correr();
  void Iniciar(const QString& paso, int numero, int pasos);
  void Terminar();
  void Cerrar();

  Session& session_;
  Barrido barrido_;
  QVBoxLayout* layout_;
  QLabel* paso_;
  QProgressBar* barra_;
  bool iniciado_ = false;
  bool corriendo_ = false;
  int numero_ = 0;
  int pasos_ = 0;
};

}  // namespace ventarix
