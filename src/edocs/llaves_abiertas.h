#pragma once

// The sealing material of each folio range, opened once per session: the certificate read and
// the private key opened with its password (PBKDF2, the dearest part of a seal). An entry
// answers only for the very bytes and password it was made from; anything else opens again
// and replaces it. Safe from any thread.
#include <memory>

#include <QByteArray>
#include <QString>

#include "edocs/certificado.h"
#include "edocs/folios.h"
#include "edocs/llave_privada.h"

namespace ventarix::edocs {

// Which range the material belongs to: the company database, its range table and number.
struct RangoDeSellado {
  QString base;  // the session's Cadena
  FamiliaFolios folios = FamiliaFolios::kFacturas;
  qint64 numero = 0;
};

// The certificate of the range read from the .cer file's bytes; the one read before when the
// bytes are the same.
std::shared_ptr<const Certificado> CertificadoDeRango(const RangoDeSellado& rango,
                                                      const QByteArray& cer);

// The private key of the range opened from the .key file's bytes with the password; the one
// opened before when both are the same. Only a key that opened is kept: a password that does not
// open the file fails every time. The caller's bytes are left as they are.
std::shared_ptr<const LlavePrivada> LlaveDeRango(const RangoDeSellado& rango, const QByteArray& der,
                                                 const QString& password);

// Forgets every range's material, its secrets wiped: at the end of a session or when the company
// changes.
void OlvidarLlaves();

}  // namespace ventarix::edocs
