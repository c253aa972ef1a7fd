#include "pac_local/qr_png.h"

#include <zlib.h>

#include <QtEndian>

#include "edocs/qr_ptr.h"

namespace ventarix::pac {

namespace {

constexpr int kZonaSilenciosa = 4;

QByteArray Numero32(quint32 valor) {
  QByteArray bytes(4, '\0');
  qToBigEndian(valor, bytes.data());
  return bytes;
}

// A PNG chunk: length, type, data and the CRC of type and data.
QByteArray Trozo(const char* tipo, const QByteArray& datos) {
  const QByteArray cuerpo = QByteArray(tipo, 4) + datos;
  const uLong crc = crc32(0L, reinterpret_cast<const Bytef*>(cuerpo.constData()),
                          static_cast<uInt>(cuerpo.size()));
  return Numero32(static_cast<quint32>(datos.size())) + cuerpo +
         Numero32(static_cast<quint32>(crc));
}

// The picture's rows, each behind its filter byte 0 (none).
QByteArray Filas(const QRcode& code, int lado, int escala) {
  QByteArray filas;
  filas.reserve((lado + 1) * lado);
  for (int y = 0; y < lado; ++y) {
    filas.append('\0');
    const int fila = y / escala - kZonaSilenciosa;
    for (int x = 0; x < lado; ++x) {
      const int columna = x / escala - kZonaSilenciosa;
      const bool dentro = fila >= 0 && fila < code.width && columna >= 0 && columna < code.width;
      filas.append(dentro && (code.data[fila * code.width + columna] & 1) ? '\0' : '\xff');
    }
  }
  return filas;
}

}  // namespace

QByteArray PngCodigoQR(const QString& texto, int escala) {
  const QByteArray utf8 = texto.toUtf8();
  if (utf8.isEmpty()) return {};
  const edocs::QrCodePtr code(QRcode_encodeString(utf8.constData(), 0, QR_ECLEVEL_M, QR_MODE_8, 1));
  if (!code) return {};
  const int lado = (code->width + 2 * kZonaSilenciosa) * escala;
  const QByteArray filas = Filas(*code, lado, escala);
  QByteArray comprimido(static_cast<qsizetype>(compressBound(static_cast<uLong>(filas.size()))),
                        '\0');
  uLongf tamano = static_cast<uLongf>(comprimido.size());
  if (compress2(reinterpret_cast<Bytef*>(comprimido.data()), &tamano,
                reinterpret_cast<const Bytef*>(filas.constData()), static_cast<uLong>(filas.size()),
                Z_BEST_COMPRESSION) != Z_OK) {
    return {};
  }
  comprimido.truncate(static_cast<qsizetype>(tamano));
  // Width, height, bit depth 8, colour type 0 (grey), deflate, no filter variants, no interlace.
  const QByteArray cabecera =
      Numero32(lado) + Numero32(lado) + QByteArray("\x08\x00\x00\x00\x00", 5);
  return QByteArray("\x89PNG\r\n\x1a\n", 8) + Trozo("IHDR", cabecera) + Trozo("IDAT", comprimido) +
         Trozo("IEND", {});
}

}  // namespace ventarix::pac
