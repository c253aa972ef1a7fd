// The "ALTA"/"BAJA" label of a catalogue screen: on a change screen a click turns it over.
#pragma once

#include <QLabel>

namespace ventarix {

class EtiquetaStatus : public QLabel {
  Q_OBJECT

 public:
  // `alternable`: a click changes the status (change screens); a new record is always "ALTA".
  EtiquetaStatus(bool alternable, QWidget* parent);

  void Mostrar(const QString& status);

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  bool alternable_;
};

}  // namespace ventarix
