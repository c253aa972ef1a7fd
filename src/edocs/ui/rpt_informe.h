#pragma once

#include <QList>
#include <QWidget>

#include "core/session.h"
#include "core/ui/visor_texto.h"
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
// the file after two confirmations (F6) and opens an earlier report (F7). The month is shown
// as a month, "marzo 2024"; a month without documents is said so.
class rptInforme : public QWidget {
  Q_OBJECT

 public:
  explicit rptInforme(Session& session, QWidget* parent = nullptr);

  // How the platform opens a report file, unless a test says otherwise. Where it can't, the
  // program's own text viewer shows the file.
  void PonerVisor(VisorDePlataforma visor) { visor_ = std::move(visor); }

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
  VisorDePlataforma visor_;
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
