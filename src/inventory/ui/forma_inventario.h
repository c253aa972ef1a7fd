#pragma once

#include <QDialog>
#include <QHash>

#include "core/session.h"
#include "core/ui/llave_guardada.h"
#include "documents/captura.h"
#include "inventory/ui/pantalla_inventario.h"

class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;

namespace ventarix {

class RejillaInventario;

// The capture screen of the stock documents, add (Frm<Doc>A, empty key) and change
// (Frm<Doc>C, the key of the document): Serie, Folio, Fecha, Status, the family's fields, the
// grid Fg1, the totals of a priced document, Guardar and Salir. Each row written is completed
// as the save will complete it (description, unit, stock, cost...), so the clerk sees what is
// stored; the checks and the save are the capture engine's. A document that may no longer be
// changed (cancelled, closed, or of a closed month) opens for viewing.
class FormaInventario : public QDialog, public LlaveGuardada {
  Q_OBJECT

 public:
  FormaInventario(Session& session, const inventario_ui::Pantalla& pantalla, bool cambio,
                  const QString& llave, QWidget* parent = nullptr);
  ~FormaInventario() override;

  QString Guardada() const override { return guardada_; }
  Session& session() const { return session_; }
  bool cambio() const { return cambio_; }
  RejillaInventario* rejilla() const { return fg1_; }

  // The document as the screen holds it now.
  captura::Documento Capturado() const;
  // A header field's text (a warehouse list gives its number).
  QVariant Dato(const QString& columna) const;
  // Shows every row anew, and the totals.
  void PonerPartidas(const std::vector<QVariantMap>& partidas);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* Encabezado();
  QWidget* Totales();
  void Cargar(const QString& llave);
  void CeldaEscrita(int fila, int columna);
  void AplicarDescuento();
  void Recalcular();
  void Guardar();
  void Avisar(const Outcome& outcome);

  Session& session_;
  const inventario_ui::Pantalla& pantalla_;
  const bool cambio_;
  QString llave_;
  QString guardada_;
  QLabel* serie_;
  QLabel* folio_;
  QDateEdit* fecha_;
  QLabel* status_;
  QLabel* motivo_;
  QHash<QString, QWidget*> datos_;
  QHash<QString, QLabel*> totales_;
  RejillaInventario* fg1_;
  QPushButton* guardar_;
  QPushButton* salir_;
};

}  // namespace ventarix
