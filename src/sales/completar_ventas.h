#pragma once

#include <QVariantMap>

#include "core/database.h"
#include "core/outcome.h"
#include "core/session.h"
#include "documents/captura.h"

// What the sales families share when they fill a document as the screen would.
namespace ventarix::ventas {

// A row of a known code takes the catalogue's description and unit, the client's price and
// discount, tax, cost and commission; what the row holds stays. An unknown code is refused
// with "Este código no existe en productos".
Outcome CompletarPartidaDeVenta(const Session& session, Connection& c, const captura::Documento& d,
                                QVariantMap* partida);
// The client's agent, term and payment data where the document does not say, as leaving the
// client's field leaves them.
Outcome DatosDePagoDelCliente(const Session& session, Connection& c, captura::Documento* d);

// The electronic documents' checks in the invoice's words: the scheme and the exchange rate
// (right after the rights), then method, conditions and place of issue.
Outcome EsquemaYTipoDeCambio(const Session& session, Connection& c, const captura::Documento& d,
                             bool alta);
Outcome CamposFiscales(const Session& session, Connection& c, const captura::Documento& d,
                       bool alta);
// What their screens show when they open: pesos at rate 1, one payment, the client's payment
// data, the company's town as the place of issue.
Outcome DatosFiscales(const Session& session, Connection& c, captura::Documento* d);

// The summary text as typed (spaces make a summary too); emptied on a change, the document's
// summary row in `tabla` goes.
QString ResumenDe(const captura::Documento& d);
Outcome QuitarResumen(Connection& c, const char* tabla, const char* llave_columna,
                      const QString& llave, const QString& resumen);

}  // namespace ventarix::ventas
