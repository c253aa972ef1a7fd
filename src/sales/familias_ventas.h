#pragma once

#include <QString>

#include "documents/captura.h"

// The sales documents as rows of the capture engine: delivery notes, quotations, sales
// orders, invoices and client credit notes.
namespace ventarix::ventas {

const captura::FamiliaCaptura& Remisiones();
const captura::FamiliaCaptura& Cotizaciones();
const captura::FamiliaCaptura& Pedidos();
// Invoices (serie and scheme from the folio range, sealed inside the save) and client credit
// notes (rows on the invoices they reduce, sealed as egreso).
const captura::FamiliaCaptura& Facturas();
const captura::FamiliaCaptura& NotasCliente();

// The family of a header table ("remisiones"), or nullptr.
const captura::FamiliaCaptura* FamiliaDeTabla(const QString& tabla);

// The credit a client has left, as the delivery note shows it: the client's balance plus,
// for a credit sale to a client with a limit, the total of this document; `excedido` when
// that passes the limit.
struct Credito {
  double saldo = 0;
  double credito = 0;
  bool excedido = false;
};
Credito CreditoDe(Connection& c, qint32 cliente, int plazo, double total);
// The same from the client's balance and limit as the screen read them with the client.
Credito CreditoDe(double saldo, double credito, qint32 cliente, int plazo, double total);

// The total of a document's rows as the row arithmetic gives it, before anything is stored.
double TotalDe(const captura::Documento& d);

}  // namespace ventarix::ventas
