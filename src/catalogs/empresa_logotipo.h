#pragma once

#include <QByteArray>
#include <QString>

#include "core/outcome.h"

// The company's logo: a picture file read whole into empresa.logotipo, printed on documents
// and shown by the splash screen.
namespace ventarix::empresa {

// A logo bigger than this would make every document carry it; the screen refuses it.
inline constexpr qint64 kLogotipoMaximo = 4 * 1024 * 1024;

// Reads the file into *imagen. A file that cannot be read, is empty, is not a JPEG, BMP or PNG
// picture, or passes kLogotipoMaximo is refused with a warning and *imagen left alone.
Outcome LeerLogotipo(const QString& archivo, QByteArray* imagen);

// The size as the screen shows it: whole kilobytes, rounded up, and " Kb" ("13 Kb"); empty
// for no logo.
QString TamanoLogotipo(qint64 bytes);

}  // namespace ventarix::empresa
