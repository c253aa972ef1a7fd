#pragma once

#include <QByteArray>
#include <QString>

namespace ventarix::pac {

// True when `firma` (Base64) is the RSA PKCS#1 v1.5 SHA-1 signature of `datos` under the
// public key of the DER certificate.
bool FirmaVerifica(const QByteArray& certificado_der, const QByteArray& datos,
                   const QString& firma);

// The RFC a SAT certificate was issued to: the subject's x500UniqueIdentifier, whose first
// word is the RFC ("AAA010101AAA / HEGT7610034S2" for a company with its legal
// representative). Empty when the certificate has none.
QString RfcDelCertificado(const QByteArray& certificado_der);

}  // namespace ventarix::pac
