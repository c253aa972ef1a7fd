#pragma once

#include <optional>

#include <QString>

// Code 39 bar codes for the purchase labels: each character is nine elements, bars and
// spaces alternating from a bar, three of them wide; characters are parted by a narrow space
// and the code is framed by the start and stop character "*".
namespace ventarix::compras {

// The elements of `texto` framed by "*": 'n'/'w' for narrow and wide, bars at the even
// positions of each character, a narrow space ('n') between characters. Lower case is taken
// as upper case; nothing when a character has no Code 39 form.
std::optional<QString> Codigo39(const QString& texto);

}  // namespace ventarix::compras
