#pragma once

#include <functional>

#include <QList>
#include <QWidget>

#include "core/session.h"
#include "edocs/informe_sat.h"

class QAction;
class QComboBox;
class QDateEdit;
class QLabel;
class QTableWidget;

namespace ventarix {

class FormRegistry;

// The monthly SAT report: the scheme in Combo, the month in Fecha, the month's documents in
// Fg1, and the file the SAT receives (its path in Archivo). The toolbar lists (F5), creates
// the file after two confirmations (F6) and opens an earlier report (F7).
class rptInforme : public QWidget {
  Q_OBJECT

 public:
  explicit rptInforme(Session& session, QWidget* parent = nullptr);

  // How a report file is shown: the platform's text viewer unless a test says otherwise.
  using Visor = std::function<bool(const QString& path)>;
  void PonerVisor(Visor visor) { visor_ = std::move(visor); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QDate Mes() const;
  void ActualizarTitulo();
  bool Listar();
  void Mostrar();
  void Crear();
  void Abrir();

  Session& session_;
  Visor visor_;
  QComboBox* combo_;
  QDateEdit* fecha_;
  QLabel* titulo_;
  QLabel* archivo_;
  QTableWidget* fg1_;
  QList<edocs::RenglonInforme> renglones_;
};

// "rptInforme", the menu entry "Informe SAT".
void RegistrarInformeSat(FormRegistry& registry);

}  // namespace ventarix
