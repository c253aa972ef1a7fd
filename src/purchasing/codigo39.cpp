#include "purchasing/codigo39.h"

#include <array>
#include <utility>

namespace ventarix::compras {

namespace {

// The 44 characters and their elements (bar, space, bar, ... : 5 bars, 4 spaces).
constexpr std::array<std::pair<char, const char*>, 44> kTabla{{
    {'0', "nnnwwnwnn"}, {'1', "wnnwnnnnw"}, {'2', "nnwwnnnnw"}, {'3', "wnwwnnnnn"},
    {'4', "nnnwwnnnw"}, {'5', "wnnwwnnnn"}, {'6', "nnwwwnnnn"}, {'7', "nnnwnnwnw"},
    {'8', "wnnwnnwnn"}, {'9', "nnwwnnwnn"}, {'A', "wnnnnwnnw"}, {'B', "nnwnnwnnw"},
    {'C', "wnwnnwnnn"}, {'D', "nnnnwwnnw"}, {'E', "wnnnwwnnn"}, {'F', "nnwnwwnnn"},
    {'G', "nnnnnwwnw"}, {'H', "wnnnnwwnn"}, {'I', "nnwnnwwnn"}, {'J', "nnnnwwwnn"},
    {'K', "wnnnnnnww"}, {'L', "nnwnnnnww"}, {'M', "wnwnnnnwn"}, {'N', "nnnnwnnww"},
    {'O', "wnnnwnnwn"}, {'P', "nnwnwnnwn"}, {'Q', "nnnnnnwww"}, {'R', "wnnnnnwwn"},
    {'S', "nnwnnnwwn"}, {'T', "nnnnwnwwn"}, {'U', "wwnnnnnnw"}, {'V', "nwwnnnnnw"},
    {'W', "wwwnnnnnn"}, {'X', "nwnnwnnnw"}, {'Y', "wwnnwnnnn"}, {'Z', "nwwnwnnnn"},
    {'-', "nwnnnnwnw"}, {'.', "wwnnnnwnn"}, {' ', "nwwnnnwnn"}, {'$', "nwnwnwnnn"},
    {'/', "nwnwnnnwn"}, {'+', "nwnnnwnwn"}, {'%', "nnnwnwnwn"}, {'*', "nwnnwnwnn"},
}};

const char* Elementos(QChar c) {
  for (const auto& [caracter, elementos] : kTabla) {
    if (c == QLatin1Char(caracter)) return elementos;
  }
  return nullptr;
}

}  // namespace

std::optional<QString> Codigo39(const QString& texto) {
  // The start and stop character is not data.
  if (texto.contains(QLatin1Char('*'))) return std::nullopt;
  QString barras;
  for (const QChar c : QLatin1Char('*') + texto.toUpper() + QLatin1Char('*')) {
    const char* elementos = Elementos(c);
    if (elementos == nullptr) return std::nullopt;
    if (!barras.isEmpty()) barras += QLatin1Char('n');
    barras += QLatin1String(elementos);
  }
  return barras;
}

}  // namespace ventarix::compras
