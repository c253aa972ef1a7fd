#pragma once

#include <QDate>
#include <QRectF>
#include <QString>

class QPainter;

namespace ventarix::compras_ui {

// One label of a received product inside `caja`: the code's Code 39 bars with the code
// beneath, the product's name and the date of the purchase ("dd MMM yyyy"). False when the
// code has no Code 39 form (nothing is drawn).
bool PintarEtiqueta(QPainter& painter, const QRectF& caja, const QString& codigo,
                    const QString& producto, const QDate& fecha);

}  // namespace ventarix::compras_ui
