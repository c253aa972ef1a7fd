#pragma once

#include <QByteArray>
#include <QString>

namespace ventarix::edocs {

// The cadena original of a document: the SAT's own style sheet run over the document's XML
// text, with its includes resolved beside it. Nothing of the chain is coded here.
struct CadenaOriginal {
  bool ok = false;
  QString cadena;
  // On failure, the message the sealing reports: "<sheet file name> <reason>" when the style
  // sheet does not parse, "<reason> Para el documento XML" when the document does not.
  QString error;
};

CadenaOriginal GenerarCadenaOriginal(const QString& xslt_path, const QByteArray& xml);

}  // namespace ventarix::edocs
