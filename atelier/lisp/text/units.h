// Distances and angles to and from text in the drawing's units, for rtos, angtos, distof, angtof and prompts.
// Public reference: AutoLISP rtos, angtos, distof, angtof; system variables DIMZIN and UNITMODE.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace atelier::lisp {

enum class LinearUnits { Scientific = 1, Decimal, Engineering, Architectural, Fractional };
enum class AngularUnits { Degrees, DegreesMinutesSeconds, Grads, Radians, Surveyor };

// How zeros and separators are written: DIMZIN (0-3 feet and inches, +4 leading, +8 trailing zeros
// suppressed) and UNITMODE (1: as it must be typed in).
struct UnitStyle {
  int dimzin = 0;
  int unitmode = 0;
};

// `precision`: decimals, or for architectural and fractional units the power of two of the denominator, 0
// to 8.
std::string formatDistance(double distance, LinearUnits units, int precision, UnitStyle style);
// `radians`: from the X axis, counter-clockwise; full turns are removed. For degrees, minutes and seconds a precision of
// 1 or 2 writes up to minutes, 3 or 4 up to seconds, more gives decimals of seconds.
std::string formatAngle(double radians, AngularUnits units, int precision, UnitStyle style);

// Nothing when the text isn't a distance or angle in these units.
std::optional<double> parseDistance(std::string_view text, LinearUnits units);
std::optional<double> parseAngle(std::string_view text, AngularUnits units);  // radians, as written

// Rounded half away from zero to this many decimals.
std::string fixedDecimals(double number, int decimals);

// Converts between units by their names or abbreviations ("m", "inch", "sq ft", "acre", "degree",
// "celsius"...). Nothing when a name is unknown or the two measure different things.
std::optional<double> convertUnit(double value, std::string_view from, std::string_view to);

}  // namespace atelier::lisp
