#pragma once

#include <QByteArray>
#include <QString>

namespace ventarix::pac {

// The QR symbol of the text as a PNG file's bytes (8-bit grey, black modules on white, four
// modules of quiet zone, `escala` pixels per module), as the service's qrCode carries it.
// Empty when the text cannot be encoded.
QByteArray PngCodigoQR(const QString& texto, int escala = 4);

}  // namespace ventarix::pac
