#pragma once

#include <QString>

#include "catalogs/socios.h"
#include "core/outcome.h"

// What the partner screens do to a field as the user leaves it.
namespace ventarix::socios {

// What the Fecha label of a client says when the RFC is not valid.
inline constexpr char kRfcNoValido[] = "Este RFC es NO es válido";

// The RFC without "-", "." and blanks, in upper case.
QString LimpiarRfc(const QString& texto);

// The date an RFC of 12 or 13 characters encodes (two digits each of year, month and day),
// as "dd mmm yyyy" with Spanish months ("01 ene 2001"); years below 30 are of this century.
QString FechaDeRfc(const QString& rfc);

// Leaving the RFC field: the cleaned text, the check's own message when a month or day is out
// of range, and for clients the text of the Fecha label.
struct RevisionRfc {
  QString rfc;
  Outcome outcome;
  QString fecha;
};
RevisionRfc RevisarRfc(Socio socio, const QString& texto);

// Ctrl+1 and Ctrl+2 in a client's RFC: the generic RFC of a Mexican ("XAXX010101000") and of
// a foreign client ("XEXX010101000"); empty for any other digit.
QString RfcGenerico(int digito);

// Leaving NumCtaPago: fewer than four characters become nothing, more keep the last four.
QString NumCtaPagoAlDejar(const QString& texto);

}  // namespace ventarix::socios
