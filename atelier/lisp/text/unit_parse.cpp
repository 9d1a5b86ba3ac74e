// Reads distances and angles from text.
#include <charconv>
#include <cmath>
#include <numbers>

#include "atelier/base/real_reading.h"
#include "atelier/lisp/text/units.h"

namespace atelier::lisp {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

// Reads a text from the left.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) { skipBlanks(); }

  void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size())); }
  bool atEnd() const { return rest_.empty(); }
  char peek() const { return rest_.empty() ? '\0' : upper(rest_[0]); }
  bool take(char wanted) {
    if (peek() != wanted) return false;
    rest_.remove_prefix(1);
    return true;
  }
  // An unsigned number: digits with at most one point, and an exponent if allowed.
  std::optional<double> number(bool exponent) {
    if (peek() != '.' && !(peek() >= '0' && peek() <= '9')) return std::nullopt;
    double value = 0;
    const auto format = exponent ? std::chars_format::general : std::chars_format::fixed;
    const auto [end, error] = readReal(rest_.data(), rest_.data() + rest_.size(), value, format);
    if (error != std::errc() || !std::isfinite(value)) return std::nullopt;
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    return value;
  }

 private:
  std::string_view rest_;
};

// "5", "5.25", "5 1/2", "5-1/2", "1/2".
std::optional<double> mixedNumber(Scanner& scan) {
  auto value = scan.number(false);
  if (!value) return std::nullopt;
  double before = 0;
  if (scan.peek() == ' ' || scan.peek() == '-') {
    Scanner ahead = scan;
    ahead.take('-');
    ahead.skipBlanks();
    if (const auto numerator = ahead.number(false)) {
      before = *value;
      value = numerator;
      scan = ahead;
      if (scan.peek() != '/') return std::nullopt;
    }
  }
  if (scan.take('/')) {
    const auto denominator = scan.number(false);
    if (!denominator || *denominator == 0) return std::nullopt;
    return before + *value / *denominator;
  }
  return value;
}

// 1'-5 1/2", 1'5-1/2", 1', 5.5", 17.5
std::optional<double> feetAndInches(Scanner& scan) {
  auto value = mixedNumber(scan);
  if (!value) return std::nullopt;
  double feet = 0;
  if (scan.take('\'')) {
    feet = *value;
    scan.take('-');
    scan.skipBlanks();
    if (scan.atEnd()) return feet * 12;
    value = mixedNumber(scan);
    if (!value) return std::nullopt;
  }
  scan.take('"');
  return feet * 12 + *value;
}

// 45d30'15.5", 45d, 45.5
std::optional<double> degrees(Scanner& scan) {
  const auto first = scan.number(false);
  if (!first) return std::nullopt;
  double value = *first;
  if (!scan.take('D')) return value;
  for (const auto& [mark, parts] : {std::pair{'\'', 60.0}, std::pair{'"', 3600.0}}) {
    Scanner ahead = scan;
    if (const auto part = ahead.number(false); part && ahead.take(mark)) {
      value += *part / parts;
      scan = ahead;
    }
  }
  return value;
}

// N 45d30' E, or a cardinal direction alone.
std::optional<double> bearing(Scanner& scan) {
  const char pole = scan.peek();
  for (const auto& [letter, angle] : {std::pair{'E', 0.0}, {'N', 90.0}, {'W', 180.0}, {'S', 270.0}}) {
    Scanner ahead = scan;
    if (!ahead.take(letter)) continue;
    ahead.skipBlanks();
    if (ahead.atEnd()) return scan = ahead, angle * kDegree;
  }
  if (!scan.take('N') && !scan.take('S')) return std::nullopt;
  scan.skipBlanks();
  const auto turn = degrees(scan);
  scan.skipBlanks();
  const bool east = scan.take('E');
  if (!turn || *turn > 90 || (!east && !scan.take('W'))) return std::nullopt;
  const double angle = pole == 'N' ? (east ? 90 - *turn : 90 + *turn) : (east ? 270 + *turn : 270 - *turn);
  return angle * kDegree;
}

// A suffix d, g or r is preferred to the units asked for.
std::optional<double> plainAngle(Scanner& scan, AngularUnits units) {
  const auto value = degrees(scan);
  if (!value) return std::nullopt;
  if (scan.take('G')) return *value * std::numbers::pi / 200;
  if (scan.take('R')) return *value;
  if (units == AngularUnits::Grads) return *value * std::numbers::pi / 200;
  if (units == AngularUnits::Radians) return *value;
  return *value * kDegree;
}

// A sign and a value, with nothing after it.
template <class Parse>
std::optional<double> whole(std::string_view text, Parse parse) {
  Scanner scan(text);
  const bool negative = scan.take('-');
  if (!negative) scan.take('+');
  const std::optional<double> value = parse(scan);
  scan.skipBlanks();
  if (!value || !scan.atEnd()) return std::nullopt;
  return negative ? -*value : *value;
}

}  // namespace

std::optional<double> parseDistance(std::string_view text, LinearUnits units) {
  return whole(text, [units](Scanner& scan) {
    if (units == LinearUnits::Engineering || units == LinearUnits::Architectural) return feetAndInches(scan);
    return units == LinearUnits::Fractional ? mixedNumber(scan) : scan.number(true);
  });
}

std::optional<double> parseAngle(std::string_view text, AngularUnits units) {
  return whole(text, [units](Scanner& scan) {
    const char c = scan.peek();
    return c == 'N' || c == 'S' || c == 'E' || c == 'W' ? bearing(scan) : plainAngle(scan, units);
  });
}

}  // namespace atelier::lisp
