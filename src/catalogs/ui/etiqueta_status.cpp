#include "catalogs/ui/etiqueta_status.h"

#include <QMouseEvent>

#include "catalogs/socios.h"

namespace ventarix {

using namespace Qt::StringLiterals;

EtiquetaStatus::EtiquetaStatus(bool alternable, QWidget* parent)
    : QLabel(parent), alternable_(alternable) {
  setObjectName(u"Status"_s);
  if (alternable_) {
    setCursor(Qt::PointingHandCursor);
    setToolTip(u"Un clic cambia entre ALTA y BAJA"_s);
  }
  Mostrar(u"ALTA"_s);
}

void EtiquetaStatus::Mostrar(const QString& status) {
  setText(status);
  setStyleSheet(status == u"BAJA"_s ? u"color: #b00000; font-weight: bold"_s
                                    : u"color: #006000; font-weight: bold"_s);
}

void EtiquetaStatus::mousePressEvent(QMouseEvent* event) {
  if (alternable_ && event->button() == Qt::LeftButton) {
    Mostrar(socios::StatusAlternado(text()));
    event->accept();
    return;
  }
  QLabel::mousePressEvent(event);
}

}  // namespace ventarix
