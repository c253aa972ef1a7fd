#pragma once

#include <QByteArray>
#include <QString>

namespace ventarix::edocs {

// The text of a SOAP reply as the stamping reads it: the `return` element of the operation's
// Response (a Fault's content for a fault), each element written <local>…</local> without
// prefixes nor namespace declarations, xsi:nil elements empty. A body that is not SOAP comes
// back as it arrived.
QString TextoRespuestaSoap(const QByteArray& cuerpo, const QString& operacion);

}  // namespace ventarix::edocs
