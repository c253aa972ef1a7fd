#include "edocs/codigo_qr.h"

#include <cerrno>
#include <cstring>

#include <QDir>
#include <QSaveFile>
#include <QtEndian>

#include "core/mFunciones.h"
#include "core/session.h"
#include "edocs/qr_ptr.h"

namespace ventarix::edocs {

namespace {

// Light modules around the symbol that every reader needs to find it.
constexpr int kZonaSilenciosa = 4;
constexpr int kCabecera = 14 + 40;  // file header and BITMAPINFOHEADER
constexpr int kBytesPorFila = (kLadoCodigoQR * 3 + 3) / 4 * 4;

void Poner16(QByteArray& bytes, int at, quint16 value) {
  qToLittleEndian(value, bytes.data() + at);
}
void Poner32(QByteArray& bytes, int at, quint32 value) {
  qToLittleEndian(value, bytes.data() + at);
}

QByteArray CabeceraBmp() {
  QByteArray bytes(kCabecera, '\0');
  const int imagen = kBytesPorFila * kLadoCodigoQR;
  bytes[0] = 'B';
  bytes[1] = 'M';
  Poner32(bytes, 2, kCabecera + imagen);
  Poner32(bytes, 10, kCabecera);
  Poner32(bytes, 14, 40);
  Poner32(bytes, 18, kLadoCodigoQR);
  Poner32(bytes, 22, kLadoCodigoQR);  // positive: rows from the bottom up
  Poner16(bytes, 26, 1);              // planes
  Poner16(bytes, 28, 24);             // bits per pixel
  Poner32(bytes, 34, imagen);
  Poner32(bytes, 38, 3780);  // 96 dpi
  Poner32(bytes, 42, 3780);
  return bytes;
}

// Each pixel takes the module under it, the quiet zone included, so the symbol fills the
// picture whatever its version.
QByteArray Pixeles(const QRcode& code) {
  const int modulos = code.width + 2 * kZonaSilenciosa;
  QByteArray pixeles(kBytesPorFila * kLadoCodigoQR, '\xff');
  for (int y = 0; y < kLadoCodigoQR; ++y) {
    const int fila = y * modulos / kLadoCodigoQR - kZonaSilenciosa;
    char* destino = pixeles.data() + (kLadoCodigoQR - 1 - y) * kBytesPorFila;
    for (int x = 0; x < kLadoCodigoQR; ++x) {
      const int columna = x * modulos / kLadoCodigoQR - kZonaSilenciosa;
      const bool dentro = fila >= 0 && fila < code.width && columna >= 0 && columna < code.width;
      if (dentro && (code.data[fila * code.width + columna] & 1)) {
        std::memset(destino + 3 * x, 0, 3);
      }
    }
  }
  return pixeles;
}

}  // namespace

QByteArray BmpCodigoQR(const QString& texto, QString* error) {
  const QByteArray utf8 = texto.toUtf8();
  if (utf8.isEmpty()) {
    *error = QStringLiteral("CrearCodigoQR: el texto está vacío");
    return {};
  }
  errno = 0;
  const QrCodePtr code(QRcode_encodeString(utf8.constData(), 0, QR_ECLEVEL_M, QR_MODE_8, 1));
  if (!code) {
    *error = QStringLiteral("CrearCodigoQR: ") + QString::fromLocal8Bit(std::strerror(errno));
    return {};
  }
  if (code->width + 2 * kZonaSilenciosa > kLadoCodigoQR) {
    *error = QStringLiteral("CrearCodigoQR: el texto no cabe en %1 puntos").arg(kLadoCodigoQR);
    return {};
  }
  return CabeceraBmp() + Pixeles(*code);
}

QString CrearCodigoQR(const Session& session, const QString& texto) {
  QString error;
  const QByteArray bmp = BmpCodigoQR(texto, &error);
  const QString path = session.CarpetaTmp + QStringLiteral("/cbb.tmp");
  if (!bmp.isEmpty()) {
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bmp) == bmp.size() && file.commit()) {
      return path;
    }
    error = QStringLiteral("CrearCodigoQR: ") + file.errorString() + QStringLiteral(": ") + path;
  }
  mFunciones::RegistrarError(session, error);
  return {};
}

}  // namespace ventarix::edocs
