#pragma once

#include <vector>

#include <QString>
#include <QVariant>

#include "core/outcome.h"
#include "core/session.h"

// The value helpers every capture field goes through: numbers parsed by hand so that any text
// yields one, texts cleaned of what would spoil a statement or a key, fixed-width columns for
// tickets, the RFC check, the rights test and the check of a document's rows.
namespace ventarix::mFunciones {

// The value as trimmed text; a leading "-" makes it negative; of the rest only the digits and
// the first "." count ("1,234.50" is 1234.5, "12.5.7" is 12.57, "abc" and "-" are 0).
double ValorNumerico(const QVariant& value);

// The value as trimmed text without "`", "'" and "°". As a key (soloClave), upper case and
// only A to Z, "Ñ", "0" and "*".
QString ValorTexto(const QVariant& value, bool soloClave = false);

// Upper case, keeping A to Z, 0 to 9, "-", "/", ".", " " and "Ñ".
QString FiltrarCaracteres(const QString& text);

// "#,##0.00" with "," between thousands and "." before the cents; "0" for zero.
QString FormatoMoneda(double value);
// "#,##0.00", "#,##0.000" or "#,##0.0000" by the number of decimals.
QString FormatoNumero(double value, int decimales);

// A value formatted by its data type ("Long" and "Integer" as "0", "Double" as "#,##0.00",
// "Date" as "dd/mmm/yy" with Spanish months, "String" as it is) and fitted to `ancho` columns:
// numbers to the right, the rest to the left. Text is cut to the width; a number wider than it
// is kept whole, as a cut amount would print a wrong figure.
QString Alinear(const QString& tipo, const QVariant& valor, int ancho);

// A company RFC has 12 characters, a person's 13. Ok when valid. A wrong length or a character
// out of its class fails with no message; a month or day out of range fails with a stop
// message on the field "Rfc". Days are not checked against the month.
Outcome RfcValido(const QString& rfc);
bool EsRfcValido(const QString& rfc);

// Rights text of three letters "S"/"N": altas, bajas, cambios. "A", "B" or "C" is allowed
// when its position holds "S"; otherwise a warning with the denial message. Any other letter
// fails with no message.
Outcome TienePermiso(const QString& derechos, const QString& letra);
// The same on the user's rights column of the session ("Clientes", "Facturas", ...).
Outcome TienePermiso(const Session& session, const QString& columna, const QString& letra);

// One row of a document's capture grid as the check of its rows sees it.
struct PartidaCapturada {
  QString codigo;
  QString descripcion;
  QString unidad;
  double utilidad = 0;
};

// Whether a row's margin is looked at: not at all, a warning, or a refusal.
enum class RevisarUtilidad { kNo, kAdvertir, kExigir };

// A row with a code needs a description or a unit, and at least one row must have a code;
// rows are counted from 1. Failures point at the grid "Fg1".
Outcome ValidarPartidas(const std::vector<PartidaCapturada>& partidas, RevisarUtilidad revisar);

}  // namespace ventarix::mFunciones
