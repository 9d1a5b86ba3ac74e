// Numbers as text, independent of the locale.
// std::to_chars is exact and never looks at the locale.
#include "module/support/base/nombres.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace plv {

std::wstring texteFixe(double valeur, int decimales) {
  constexpr int kDecimalesUtiles = 1074;  // no double has more of them
  constexpr std::size_t kChiffresEntiers = 312;
  const int n = decimales < 0 ? 6 : std::min(decimales, kDecimalesUtiles);
  std::string tampon(kChiffresEntiers + static_cast<std::size_t>(n), '\0');
  const auto fin = std::to_chars(tampon.data(), tampon.data() + tampon.size(), valeur, std::chars_format::fixed, n);
  return std::wstring(tampon.data(), fin.ptr);
}

Adesk::Int32 tronquer32(double valeur) {
  constexpr double kBorne = 2147483648.0;
  if (!(valeur > -kBorne - 1 && valeur < kBorne)) return std::numeric_limits<Adesk::Int32>::min();
  return static_cast<Adesk::Int32>(valeur);
}

}  // namespace plv
