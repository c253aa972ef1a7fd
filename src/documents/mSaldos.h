#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"

// Derived figures of the documents. Totals: after a document's rows are written, its routine
// reads them back, rewrites each with fixed rounding and puts the sums in the header. Balances,
// statuses and pending quantities: rebuilt from the rows by set-wise statements.
//
// Every routine joins the transaction the caller began on the connection it is given (or
// makes its own when there is none) and answers Ok, or a stop Outcome with the engine's words;
// a failure makes the caller's transaction roll back.
//
// Scopes of the recomputations are lists of document keys bound as values: an empty list means
// every document, and the list of nothing {""} (what ListaDocumentosRelacionados gives when
// there is no related row) matches none.
namespace ventarix::mSaldos {

// Retentions the invoice screen computed; the header total is the rows' total less all three.
struct Retenciones {
  double isr = 0;
  double iva = 0;
  double ced = 0;
};

// `resumen` non-empty: the one "facturas resumen" row of the invoice (a single concept
// "CORTE" dated `fecha`) is written or rewritten; empty: any such row is left alone.
Outcome TotalizarFactura(Connection& connection, const Session& session, const QString& factura,
                         const Retenciones& retenciones = {}, const QString& resumen = {},
                         const QDateTime& fecha = {});
Outcome TotalizarRemision(Connection& connection, const QString& remision);
Outcome TotalizarCotizacion(Connection& connection, const QString& cotizacion);
Outcome TotalizarTraspaso(Connection& connection, const QString& traspaso);
Outcome TotalizarPedido(Connection& connection, const QString& pedido);
Outcome TotalizarOrdenCompra(Connection& connection, const QString& orden);
// Same summary rule as the invoice, on "notas cliente resumen" with the concept "NOTA".
Outcome TotalizarNotaCliente(Connection& connection, const Session& session, const QString& nota,
                             const QDateTime& fecha = {}, const QString& resumen = {});
// The header total is the rows' total less `retencion`, which is stored beside it.
Outcome TotalizarCompra(Connection& connection, const QString& compra, double retencion = 0);
// The header total is the rows' total less `deducir`, which is not stored.
Outcome TotalizarNotaProveedor(Connection& connection, const QString& nota, double deducir = 0);
// total = sum of (Entradas - Salidas) x Costo over the rows, unrounded; an empty cost is 0.
Outcome TotalizarAjuste(Connection& connection, const QString& ajuste);

// The distinct values of `columna` in the rows of "<tabla> detalles" whose `columna_clave`
// holds `clave`: the orders behind a purchase, the invoices behind a receipt... {""} when
// there is none, so that a scope built from it matches nothing. Null values read as "".
QStringList ListaDocumentosRelacionados(Connection& connection, const QString& tabla,
                                        const QString& columna_clave, const QString& clave,
                                        const QString& columna, QString* error = nullptr);

// abonos, descuentos, saldo (rounded to 2 by the database) and status of the invoices in scope.
// On PostgreSQL every client's balance is refreshed as well, whatever the scope; on SQLite the
// caller follows with RecalcularSaldoClientes.
Outcome RecalcularSaldosFacturas(Connection& connection, const QStringList& claves);
// The same for the saves of documents: the invoices in scope, then the balances of `clientes`
// alone, on both engines (the sweeps above remain the repair of every client).
Outcome RecalcularSaldosFacturas(Connection& connection, const QStringList& claves,
                                 const QList<qint32>& clientes);
// The same for purchases, their payments and supplier notes, and the suppliers' balances.
Outcome RecalcularSaldosCompras(Connection& connection, const QStringList& claves);
// The purchases in scope and the balances of `proveedores` alone, on both engines.
Outcome RecalcularSaldosCompras(Connection& connection, const QStringList& claves,
                                const QList<qint32>& proveedores);
// Balance of one client from its invoices; 0 means every client.
Outcome RecalcularSaldoClientes(Connection& connection, qint32 numero);
Outcome RecalcularSaldoProveedores(Connection& connection, qint32 numero);
// Balances of the clients who own the invoices `facturas`, and of no other client: a receipt
// that settles invoices of several clients touches each of them. The list of nothing {""}
// touches none.
Outcome RecalcularSaldoClientesDeFacturas(Connection& connection, const QStringList& facturas);
// The same for the suppliers who own the purchases `compras`.
Outcome RecalcularSaldoProveedoresDeCompras(Connection& connection, const QStringList& compras);
// Delivery notes of the current calendar year (the server's date): 'POR FACTURAR', or the key
// and hour of the live invoice that holds them. Older notes are never touched.
Outcome RecalcularStatusRemisiones(Connection& connection, const Session& session,
                                   const QStringList& claves);
// Quantity still to receive on each purchase-order row, and the orders' statuses.
Outcome RecalcularSurtirOrdenes(Connection& connection, const QStringList& claves);
// Quantity still to deliver on each sales-order row, and the orders' statuses.
Outcome RecalcularSurtirPedidos(Connection& connection, const QStringList& claves);

}  // namespace ventarix::mSaldos
