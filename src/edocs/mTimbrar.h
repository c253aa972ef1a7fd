#pragma once

#include <QString>

#include "core/outcome.h"

namespace ventarix {
struct Session;
}

namespace ventarix::edocs {

// The end of one stamping. respuesta is the PAC's reply when one arrived: the screen shows it
// with the warning icon before anything else, whatever it says. outcome is ok when the document
// was stamped (uuid set, the row written, the file rebuilt with its Complemento); otherwise it
// carries the message and icon of the step that stopped, and the row is as it was.
struct ResultadoTimbrado {
  Outcome outcome;
  QString respuesta;
  QString uuid;
};

// mTimbrarFactura / mTimbrarNota: a saved CFDi invoice or client credit note rebuilt from its
// row, sealed again, sent to the PAC and, with a complete reply, written back with its stamp.
// A document the PAC already stamped (a reply lost on the way) takes the stamp the PAC kept.
ResultadoTimbrado TimbrarFactura(const Session& session, const QString& factura);
ResultadoTimbrado TimbrarNota(const Session& session, const QString& nota);

// Cancellation of a UUID at the PAC with the certificate and key files chosen and the key's
// password. Changes nothing in the database; respuesta is the PAC's reply for the user.
struct ResultadoCancelacion {
  Outcome outcome;
  QString respuesta;
};
ResultadoCancelacion CancelarUUID(const Session& session, const QString& uuid,
                                  const QString& archivo_cer, const QString& archivo_key,
                                  const QString& password);

}  // namespace ventarix::edocs
