#pragma once

#include <vector>

#include <QDateTime>
#include <QString>
#include <QStringList>

#include "core/database.h"
#include "core/outcome.h"
#include "documents/captura.h"

// Invoicing delivery notes: the notes a store still has to invoice, and the invoice the
// ticked ones give. The invoicing dialog and the command line share it.
namespace ventarix::ventas {

// A delivery note offered for invoicing: the store's 'POR FACTURAR' notes that are not
// 'COTIZACION', newest first.
struct RemisionPorFacturar {
  QString remision;
  QDateTime fecha;
  qint32 cliente = 0;
  QString nombre;
  double total = 0;
  int plazo = 0;
  QString tipo;
};
std::vector<RemisionPorFacturar> RemisionesPorFacturar(Connection& c, int tienda);

// The invoice the ticked notes give: header of the first note (cliente, agente, plazo, pedido,
// "orden de compra", "solicitado por", referencia, "enviar a", metodo, numctapago,
// condicionesdepago, tipo), rows of all in order of note and item (codigo, descripcion,
// unidad, cantidad, precio, dcto, impuesto, costo, remision), encabezado["depto"] =
// "PRODUCTOS".
Outcome DocumentoDeRemisiones(Connection& c, const QStringList& remisiones,
                              captura::Documento* factura);

}  // namespace ventarix::ventas
