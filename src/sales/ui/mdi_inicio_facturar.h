#pragma once

#include <optional>
#include <vector>

#include <QDialog>

#include "core/session.h"
#include "documents/captura.h"
#include "sales/facturar_remisiones.h"

class QLabel;
class QTableWidget;

namespace ventarix {

// "Facturar REMISIONES": the store's delivery notes still to invoice, newest first, each with
// a check (column 8) and the total of those ticked. F1 or Todas asks a client and ticks all
// its notes, Space reloads, Enter ticks or unticks the current note; Aceptar gives the invoice
// the ticked notes make.
class MDIInicioFacturar : public QDialog {
  Q_OBJECT

 public:
  // The invoice of the ticked notes; nothing when the store has no note to invoice ("No
  // existen registros por facturar", and the dialog doesn't open) or the user leaves.
  static std::optional<captura::Documento> Facturar(Session& session, QWidget* parent);

  MDIInicioFacturar(Session& session, std::vector<ventas::RemisionPorFacturar> remisiones,
                    QWidget* parent = nullptr);

  QStringList Marcadas() const;

 protected:
  bool eventFilter(QObject* objeto, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Mostrar(const std::vector<ventas::RemisionPorFacturar>& remisiones);
  void Recargar();
  void Todas();
  void Sumar();

  Session& session_;
  QTableWidget* fg1_;
  QLabel* total_;
};

}  // namespace ventarix
