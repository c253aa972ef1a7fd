#pragma once

#include <QByteArray>
#include <QString>

namespace ventarix {
struct Session;
}

namespace ventarix::edocs {

// Side of the square picture the printed document carries, in pixels.
inline constexpr int kLadoCodigoQR = 129;

// Makes the QR picture of the text as a bitmap file <CarpetaTmp>/cbb.tmp (black modules on
// white, the symbol with its quiet zone stretched over kLadoCodigoQR pixels) and returns its
// path. On failure the reason is logged and the path comes back empty: the document then
// prints without the picture.
QString CrearCodigoQR(const Session& session, const QString& texto);

// The same picture as the bytes of a 24-bit BMP file; empty with *error set on failure.
QByteArray BmpCodigoQR(const QString& texto, QString* error);

}  // namespace ventarix::edocs
