#pragma once

#include <vector>

#include <QDateTime>
#include <QString>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"
#include "documents/captura.h"

// Accounts receivable: a receipt (`cxc`, rows in "cxc detalles") records one payment by a
// client spread over the client's open invoices, and the settle receipt closes many small
// balances of several clients at once. Both are rows of the capture engine: the header is
// the payment, each row an invoice and its `abono`; the balances of the invoices and of their
// clients are derived again on saving.
namespace ventarix::ventas {

// A receipt of one client (FrmCxCa, FrmCxCc). Header: cliente, metodo, banco, anotacion,
// fecha; rows: factura, abono. A change rewrites the header only.
const captura::FamiliaCaptura& CxC();
// The settle receipt (FrmCxCs): rows of any client, each paying its invoice's whole balance,
// which may be negative. Header: metodo, banco, anotacion and the period searched, as
// "anio" and "mes"; cliente when the search was for one.
const captura::FamiliaCaptura& CxCSaldar();

// The screen's rule for an amount typed against a balance: an amount above 0 and not above
// the balance stands; anything else is thrown away (0), never trimmed to the balance.
double AbonoAdmitido(double abono, double saldo);

// An open invoice as the receipt's grid shows it.
struct FacturaPorCobrar {
  QString factura;
  QDateTime fecha;
  int plazo = 0;
  QDateTime vence;
  double total = 0;
  double abonos = 0;
  double descuentos = 0;
  double abono = 0;  // this payment
  double saldo = 0;  // the balance before this payment
};

// The client's invoices in 'POR COBRAR', oldest first.
std::vector<FacturaPorCobrar> FacturasPorCobrar(const Session& session, qint32 cliente,
                                                QString* error = nullptr);
// The rows of a stored receipt, in their order, with the invoices' figures of today.
std::vector<FacturaPorCobrar> FacturasDelPago(const Session& session, const QString& pago,
                                              QString* error = nullptr);

// What the settle screen searches: an optional client, the invoices' year and month, and a
// range of balance ("Ejemplo:  -2.00    y    2.00").
struct FiltroSaldar {
  qint32 cliente = 0;  // 0: every client
  int anio = 0;
  int mes = 0;
  double desde = 0;
  double hasta = 0;
};

struct FacturaPorSaldar {
  qint32 cliente = 0;
  QString nombre;
  QString factura;
  QString depto;
  QDateTime fecha;
  double total = 0;
  double saldo = 0;
};

// Invoices in 'POR COBRAR' of the period whose balance lies in the range, by client and date.
std::vector<FacturaPorSaldar> FacturasPorSaldar(const Session& session, const FiltroSaldar& filtro,
                                                QString* error = nullptr);
// "Saldo Final": what the settle receipt will hold.
double SaldoFinal(const std::vector<FacturaPorSaldar>& facturas);

}  // namespace ventarix::ventas
