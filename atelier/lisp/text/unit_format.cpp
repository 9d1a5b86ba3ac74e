// Distances and angles to text.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>

#include "atelier/lisp/text/units.h"

namespace atelier::lisp {
namespace {

constexpr int kMostDecimals = 16;
constexpr int kMostHalvings = 8;  // 1/256

std::string whole(std::int64_t number) { return std::to_string(number); }

// Adds one in the last place of a decimal numeral.
void carry(std::string& digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] == '.') continue;
    if (digits[i] != '9') {
      ++digits[i];
      return;
    }
    digits[i] = '0';
  }
  digits.insert(0, "1");
}

// DIMZIN 4 drops the zero before the point, 8 those at the end.
std::string suppressZeros(std::string text, int dimzin) {
  const std::size_t exponent = std::min(text.find('E'), text.size());
  std::string tail = text.substr(exponent);
  text.resize(exponent);
  if (dimzin & 8 && text.find('.') != std::string::npos) {
    text.resize(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  if (dimzin & 4) {
    const std::size_t zero = text.find_first_of("0123456789");
    if (text.compare(zero, 2, "0.") == 0) text.erase(zero, 1);
  }
  return text + tail;
}

std::string scientific(double number, int decimals) {
  char digits[64];
  std::string text(digits,
                   std::to_chars(digits, digits + sizeof digits, number, std::chars_format::scientific, decimals).ptr);
  std::replace(text.begin(), text.end(), 'e', 'E');
  return text;
}

struct Fraction {
  std::int64_t whole, numerator, denominator;
};

// A positive number to the nearest 1/2^halvings, in lowest terms.
Fraction nearestFraction(double number, int halvings) {
  std::int64_t denominator = std::int64_t{1} << std::clamp(halvings, 0, kMostHalvings);
  const std::int64_t parts = std::llround(number * static_cast<double>(denominator));
  Fraction result{parts / denominator, parts % denominator, denominator};
  while (result.numerator && result.numerator % 2 == 0) {
    result.numerator /= 2;
    result.denominator /= 2;
  }
  return result;
}

// "5 1/2", "5", "1/2"; "5-1/2" in the form that can be typed.
std::string fractionText(Fraction value, bool keepZero, UnitStyle style) {
  if (!value.numerator) return whole(value.whole);
  const std::string part = whole(value.numerator) + "/" + whole(value.denominator);
  if (!value.whole && !keepZero) return part;
  return whole(value.whole) + (style.unitmode ? "-" : " ") + part;
}

// Joins feet and inches; the two low bits of DIMZIN say which zeros are written:
// 0 neither, 1 both, 2 zero feet, 3 zero inches.
std::string feetAndInches(std::int64_t feet, const std::string& inches, bool zeroInches, UnitStyle style) {
  const int zeros = style.dimzin & 3;
  const bool showFeet = feet != 0 || zeros == 1 || zeros == 2;
  const bool showInches = !zeroInches || zeros == 1 || zeros == 3 || !showFeet;
  std::string text = showFeet ? whole(feet) + "'" : "";
  if (!showInches) return text;
  if (showFeet && !style.unitmode) text += "-";
  return text + inches + "\"";
}

std::string engineering(double inches, int precision, UnitStyle style) {
  std::int64_t feet = static_cast<std::int64_t>(inches / 12);
  std::string rest = fixedDecimals(inches - 12.0 * static_cast<double>(feet), precision);
  if (rest.compare(0, 2, "12") == 0) {
    ++feet;
    rest = fixedDecimals(0, precision);
  }
  const bool zero = rest.find_first_not_of("0.") == std::string::npos;
  return feetAndInches(feet, suppressZeros(rest, style.dimzin), zero, style);
}

std::string architectural(double inches, int precision, UnitStyle style) {
  Fraction value = nearestFraction(inches, precision);
  const std::int64_t feet = value.whole / 12;
  value.whole %= 12;
  return feetAndInches(feet, fractionText(value, feet != 0, style), !value.whole && !value.numerator, style);
}

// --- Angles

// The precision of an angle in degrees, minutes and seconds.
struct Sexagesimal {
  int level;           // 0 degrees, 1 minutes, 2 seconds
  int decimals;        // of seconds
  std::int64_t parts;  // in a degree
};

Sexagesimal sexagesimal(int precision) {
  if (precision <= 0) return {0, 0, 1};
  if (precision <= 2) return {1, 0, 60};
  Sexagesimal result{2, std::clamp(precision - 4, 0, 8), 3600};
  for (int i = 0; i < result.decimals; ++i) result.parts *= 10;
  return result;
}

std::string sexagesimalText(std::int64_t parts, Sexagesimal form) {
  std::string text = whole(parts / form.parts) + "d";
  if (form.level == 0) return text;
  parts %= form.parts;
  const std::int64_t minute = form.parts / 60;
  text += whole(parts / minute) + "'";
  if (form.level == 1) return text;
  parts %= minute;
  std::int64_t scale = minute / 60;
  text += whole(parts / scale);
  if (form.decimals) {
    const std::string decimals = whole(parts % scale + scale);  // the leading 1 keeps the zeros
    text += "." + decimals.substr(1);
  }
  return text + "\"";
}

std::string bearing(double degrees, int precision, UnitStyle style) {
  const Sexagesimal form = sexagesimal(precision);
  const std::int64_t quarter = 90 * form.parts;
  const std::int64_t parts = std::llround(degrees * static_cast<double>(form.parts)) % (4 * quarter);
  constexpr const char* kCardinal[] = {"E", "N", "W", "S"};
  const std::int64_t quadrant = parts / quarter, rest = parts % quarter;
  if (rest == 0) return kCardinal[quadrant];
  const bool fromPole = quadrant % 2 == 1;  // second and fourth quadrants turn away from north and south
  const std::string turn = sexagesimalText(fromPole ? rest : quarter - rest, form);
  const std::string gap = style.unitmode ? "" : " ";
  return (quadrant < 2 ? "N" : "S") + gap + turn + gap + (quadrant == 0 || quadrant == 3 ? "E" : "W");
}

std::string decimalAngle(double turns, double perTurn, int precision, const char* suffix, UnitStyle style) {
  std::string text = fixedDecimals(turns * perTurn, precision);
  if (text == fixedDecimals(perTurn, precision)) text = fixedDecimals(0, precision);
  return suppressZeros(text, style.dimzin) + suffix;
}

}  // namespace

std::string fixedDecimals(double number, int decimals) {
  decimals = std::clamp(decimals, 0, kMostDecimals);
  // Thirty more places than asked for show whether the number is exactly half-way.
  std::string text(400 + static_cast<std::size_t>(decimals), '\0');
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), std::fabs(number), std::chars_format::fixed, decimals + 30)
          .ptr;
  text.resize(static_cast<std::size_t>(end - text.data()));
  const std::size_t point = text.find('.');
  if (point == std::string::npos) return text;  // inf, nan
  const bool up = text[point + 1 + static_cast<std::size_t>(decimals)] >= '5';
  text.resize(point + (decimals ? 1 + static_cast<std::size_t>(decimals) : 0));
  if (up) carry(text);
  const bool zero = text.find_first_not_of("0.") == std::string::npos;
  return std::signbit(number) && !zero ? "-" + text : text;
}

std::string formatDistance(double distance, LinearUnits units, int precision, UnitStyle style) {
  const double size = std::fabs(distance);
  std::string text;
  if (units == LinearUnits::Decimal || !(size < 1e15)) {
    return suppressZeros(fixedDecimals(distance, precision), style.dimzin);
  } else if (units == LinearUnits::Scientific) {
    return suppressZeros(scientific(distance, std::clamp(precision, 0, kMostDecimals)), style.dimzin);
  } else if (units == LinearUnits::Engineering) {
    text = engineering(size, precision, style);
  } else if (units == LinearUnits::Architectural) {
    text = architectural(size, precision, style);
  } else {
    text = fractionText(nearestFraction(size, precision), false, style);
  }
  return distance < 0 && text.find_first_of("123456789") != std::string::npos ? "-" + text : text;
}

std::string formatAngle(double radians, AngularUnits units, int precision, UnitStyle style) {
  if (!std::isfinite(radians)) radians = 0;
  double turns = radians / (2 * std::numbers::pi);
  turns -= std::floor(turns);
  switch (units) {
    case AngularUnits::Degrees: return decimalAngle(turns, 360, precision, "", style);
    case AngularUnits::Grads: return decimalAngle(turns, 400, precision, "g", style);
    case AngularUnits::Radians: return decimalAngle(turns, 2 * std::numbers::pi, precision, "r", style);
    case AngularUnits::Surveyor: return bearing(turns * 360, precision, style);
    case AngularUnits::DegreesMinutesSeconds: break;
  }
  const Sexagesimal form = sexagesimal(precision);
  const std::int64_t parts = std::llround(turns * 360 * static_cast<double>(form.parts)) % (360 * form.parts);
  return sexagesimalText(parts, form);
}

}  // namespace atelier::lisp
