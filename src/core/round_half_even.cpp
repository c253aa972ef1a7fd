#include "core/round_half_even.h"

#include <array>
#include <charconv>
#include <cmath>
#include <string>
#include <system_error>

namespace ventarix {

namespace {

// Adds one unit in the last place of a digit string that may hold a decimal point.
void IncrementLastDigit(std::string& digits) {
  for (auto it = digits.rbegin(); it != digits.rend(); ++it) {
    if (*it == '.') continue;
    if (*it != '9') {
      ++*it;
      return;
    }
    *it = '0';
  }
  digits.insert(digits.begin(), '1');
}

}  // namespace

double RoundHalfEven(double value, int decimals) {
  if (!std::isfinite(value) || decimals < 0) return value;
  // Fixed notation of the shortest round-trip text: at most 309 integer digits and a few
  // hundred fraction digits for the smallest subnormals.
  std::array<char, 1100> buffer;
  const auto [end, ec] =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
  if (ec != std::errc()) return value;
  std::string text(buffer.data(), end);
  const bool negative = text.front() == '-';
  if (negative) text.erase(0, 1);
  const std::size_t point = text.find('.');
  if (point == std::string::npos) return value;
  const std::size_t cut = point + 1 + static_cast<std::size_t>(decimals);
  if (text.size() <= cut) return value;

  const char first_dropped = text[cut];
  const bool rest_nonzero = text.find_first_not_of('0', cut + 1) != std::string::npos;
  std::string kept = text.substr(0, decimals == 0 ? point : cut);
  const bool last_odd = (kept.back() - '0') % 2 == 1;
  const bool up = first_dropped > '5' || (first_dropped == '5' && (rest_nonzero || last_odd));
  if (up) IncrementLastDigit(kept);

  double result = 0;
  std::from_chars(kept.data(), kept.data() + kept.size(), result, std::chars_format::fixed);
  if (result == 0) return 0.0;
  return negative ? -result : result;
}

}  // namespace ventarix
