#pragma once

#include <QDate>
#include <QString>

#include "core/database.h"
#include "core/session.h"
#include "demo/demo_rows.h"

// The demo company, table by table. Each writer adds its rows on the open transaction and
// returns false with *error set when a row is refused.
namespace ventarix::demo {

// Sizes the tables agree on: clients name an agent, a payment method and a bank; products a
// brand, a line and a supplier.
inline constexpr int kAgentes = 5;
inline constexpr int kMetodos = 6;
inline constexpr int kBancos = 4;
inline constexpr int kClientes = 60;
inline constexpr int kProveedores = 10;
// The shop's history: the working days (Monday to Saturday) up to the day the demo is made.
// The opening counts are taken the day before the first of them.
inline constexpr int kDiasDeHistoria = 130;
QDate PrimerDiaDeHistoria();

// The company's settings put prices at cost * (1 + margin / 100).
bool EscribirEmpresa(Connection& c, QString* error);
bool EscribirMetodos(Connection& c, QString* error);
bool EscribirTipos(Connection& c, QString* error);
bool EscribirSeries(Connection& c, QString* error);
// The serie the demo gives a document family ("remisiones" gives "R").
QString SerieDe(const char* documento);
// The session the demo's documents are saved under: the administrator at store 1 of
// workstation DEMO, with every right.
Session SesionDeDemo(Connection& c);
bool EscribirBancos(Connection& c, QString* error);

bool EscribirAgentes(Connection& c, QString* error);
bool EscribirClientes(Connection& c, Dice& dice, QString* error);
bool EscribirProveedores(Connection& c, Dice& dice, QString* error);

bool EscribirLineas(Connection& c, QString* error);
bool EscribirMarcas(Connection& c, QString* error);
bool EscribirProductos(Connection& c, Dice& dice, QString* error);
bool EscribirClientesUtilidades(Connection& c, QString* error);
bool EscribirProductoTerminado(Connection& c, Dice& dice, QString* error);
bool EscribirPreciosPorCliente(Connection& c, QString* error);
// Opening counts that account for the stock of every warehouse.
bool EscribirInventarioInicial(Connection& c, QString* error);
// One CFDi range of invoices and one of credit notes, default, with the test certificate.
bool EscribirFolios(Connection& c, QString* error);
// Delivery notes, quotations and orders of the last months, saved as the capture screens save
// them; some cancelled, orders delivered in full or in part.
// Invoices of the notes asked for with one, free invoices and credit notes sealed among them,
// their XML in the xml folder of the company's folder tree under `carpeta`.
bool EscribirHistoria(Connection& c, Dice& dice, const QString& carpeta, QString* error);
// Purchases of the last months into warehouses 2 and 3, three of them suppliers' CFDI files
// shipped with the demo, and one expense.
bool EscribirCompras(Connection& c, QString* error);
bool EscribirPagosAProveedores(Connection& c, QString* error);
// A count adjustment, a transfer and a closed production order of the last days.
bool EscribirInventario(Connection& c, QString* error);

// The session of a save that seals: the company's block as `c` holds it, the folder tree under
// `carpeta`, the demo's default ranges.
void PrepararSesionFiscal(Connection& c, const QString& carpeta, Session* s);
// The invoicing of one working day of the history.
bool Facturar(Connection& c, const Session& s, Dice& dice, int dia, const QDate& fecha,
              QString* error);

}  // namespace ventarix::demo
