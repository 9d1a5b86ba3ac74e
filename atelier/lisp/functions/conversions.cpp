// rtos, angtos, distof, angtof: units and precision by default from the drawing's system variables. Angles
// count from ANGBASE, clockwise when ANGDIR is 1.
#include <cmath>
#include <numbers>

#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/functions/families.h"
#include "atelier/lisp/text/units.h"

namespace atelier::lisp {
namespace {

int setting(Interpreter& in, Arguments arguments, std::size_t position, const char* variable, int otherwise) {
  const Value given = optional(arguments, position);
  return given ? integerArgument(in, given) : in.variables().integer(variable, otherwise);
}

LinearUnits linearUnits(Interpreter& in, Arguments arguments) {
  const int mode = setting(in, arguments, 1, "LUNITS", 2);
  if (mode < 1 || mode > 5) in.fail("bad argument value: unit mode: " + std::to_string(mode));
  return static_cast<LinearUnits>(mode);
}

AngularUnits angularUnits(Interpreter& in, Arguments arguments) {
  const int mode = setting(in, arguments, 1, "AUNITS", 0);
  if (mode < 0 || mode > 4) in.fail("bad argument value: unit mode: " + std::to_string(mode));
  return static_cast<AngularUnits>(mode);
}

UnitStyle style(Interpreter& in) {
  return {in.variables().integer("DIMZIN", 0), in.variables().integer("UNITMODE", 0)};
}

Value rtos(Interpreter& in, Arguments arguments) {
  const double number = numberArgument(in, arguments[0]);
  return in.string(
      formatDistance(number, linearUnits(in, arguments), setting(in, arguments, 2, "LUPREC", 4), style(in)));
}

// Bearings are directions of the compass, which ANGBASE does not turn.
double direction(Interpreter& in) { return in.variables().integer("ANGDIR", 0) == 1 ? -1 : 1; }

Value angtos(Interpreter& in, Arguments arguments) {
  double radians = numberArgument(in, arguments[0]);
  const AngularUnits units = angularUnits(in, arguments);
  if (units != AngularUnits::Surveyor) radians = direction(in) * (radians - in.variables().real("ANGBASE", 0));
  return in.string(formatAngle(radians, units, setting(in, arguments, 2, "AUPREC", 0), style(in)));
}

Value distof(Interpreter& in, Arguments arguments) {
  const auto value = parseDistance(stringArgument(in, arguments[0]), linearUnits(in, arguments));
  return value ? Value::real(*value) : nil;
}

Value angtof(Interpreter& in, Arguments arguments) {
  const std::string_view text = stringArgument(in, arguments[0]);
  const auto written = parseAngle(text, angularUnits(in, arguments));
  if (!written) return nil;
  const bool isBearing = text.find_first_of("NSEWnsew") != std::string_view::npos;
  const double radians = isBearing ? *written : direction(in) * *written + in.variables().real("ANGBASE", 0);
  const double turn = 2 * std::numbers::pi;
  return Value::real(radians >= 0 && radians < turn ? radians : radians - turn * std::floor(radians / turn));
}

constexpr Builtin kTable[] = {
    {"rtos", rtos, 1, 3, "(rtos nombre [mode [precision]])",
     "Un nombre en chaîne : 1 scientifique, 2 décimal, 3 ingénierie, 4 architecture, 5 fractions."},
    {"angtos", angtos, 1, 3, "(angtos angle [mode [precision]])",
     "Un angle en chaîne : 0 degrés, 1 degrés minutes secondes, 2 grades, 3 radians, 4 géodésique."},
    {"distof", distof, 1, 2, "(distof chaîne [mode])", "Le nombre qu'écrit une chaîne, ou nil."},
    {"angtof", angtof, 1, 2, "(angtof chaîne [mode])", "L'angle qu'écrit une chaîne, en radians, ou nil."},
};

// A number or a list of numbers, converted.
Value cvunit(Interpreter& in, Arguments arguments) {
  const std::string_view from = stringArgument(in, arguments[1]), to = stringArgument(in, arguments[2]);
  const auto one = [&](Value number) {
    const auto converted = convertUnit(numberArgument(in, number), from, to);
    return converted ? Value::real(*converted) : nil;
  };
  if (!arguments[0].isPair()) return one(arguments[0]);
  Value reversed = nil, result = nil;
  for (Value number : Items(arguments[0])) {
    const Value converted = one(number);
    if (!converted) return nil;
    reversed = in.cons(converted, reversed);
  }
  for (Value number : Items(reversed)) result = in.cons(number, result);
  return result;
}

constexpr Builtin kUnitTable[] = {
    {"cvunit", cvunit, 3, 3, "(cvunit valeur de vers)", "Convertit un nombre ou un point d'une unité dans une autre."},
};

}  // namespace

std::span<const Builtin> conversionFamily() { return kTable; }
std::span<const Builtin> unitFamily() { return kUnitTable; }

}  // namespace atelier::lisp
