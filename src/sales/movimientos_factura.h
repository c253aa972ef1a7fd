#pragma once

#include <vector>

#include <QDateTime>
#include <QString>

#include "core/database.h"
#include "core/session.h"

// What lowered an invoice's balance, as its browser shows it beside the grid: the receipts in
// cxc and the client credit notes that name it.
namespace ventarix::ventas {

struct MovimientoDeFactura {
  QString movimiento;  // "CxC" or "NC CLIENTE"
  QString pago;        // the receipt's or the note's key
  QDateTime fecha;
  double abono = 0;
  QString status;
};
std::vector<MovimientoDeFactura> MovimientosDeFactura(Connection& c, const QString& factura);

// The stored electronic file of a document: <CarpetaXml>/<key>.xml.
QString ArchivoXml(const Session& session, const QString& llave);

}  // namespace ventarix::ventas
