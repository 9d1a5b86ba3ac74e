// Roots, powers, trigonometry, and conversions between integers and reals.
#include <cmath>

#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {
namespace {

[[noreturn]] void undefinedFor(Interpreter& in, Value argument) {
  in.fail("function undefined for argument: " + prin1(argument));
}

template <double (*kFunction)(double)>
Value real(Interpreter& in, Arguments arguments) {
  return Value::real(kFunction(numberArgument(in, arguments[0])));
}
double sine(double x) { return std::sin(x); }
double cosine(double x) { return std::cos(x); }
double exponential(double x) { return std::exp(x); }

Value squareRoot(Interpreter& in, Arguments arguments) {
  const double number = numberArgument(in, arguments[0]);
  if (number < 0) undefinedFor(in, arguments[0]);
  return Value::real(std::sqrt(number));
}

Value logarithm(Interpreter& in, Arguments arguments) {
  const double number = numberArgument(in, arguments[0]);
  if (number <= 0) undefinedFor(in, arguments[0]);
  return Value::real(std::log(number));
}

// One argument: an angle between -pi/2 and pi/2; two: the angle of the vector (x y) for (atan y x).
Value arcTangent(Interpreter& in, Arguments arguments) {
  const double y = numberArgument(in, arguments[0]);
  if (arguments.size() == 1) return Value::real(std::atan(y));
  return Value::real(std::atan2(y, numberArgument(in, arguments[1])));
}

// Two integers give an integer, cut off towards zero, as long as it fits.
Value power(Interpreter& in, Arguments arguments) {
  const double base = numberArgument(in, arguments[0]), exponent = numberArgument(in, arguments[1]);
  if (base == 0 && exponent < 0) in.fail("divide by zero");
  const double result = std::pow(base, exponent);
  if (std::isnan(result) && !std::isnan(base) && !std::isnan(exponent)) undefinedFor(in, arguments[0]);
  if (arguments[0].isInteger() && arguments[1].isInteger() && std::fabs(result) < 2147483648.0)
    return Value::integer(static_cast<std::int32_t>(result));
  return Value::real(result);
}

Value fix(Interpreter& in, Arguments arguments) {
  if (arguments[0].isInteger()) return arguments[0];
  const double whole = std::trunc(numberArgument(in, arguments[0]));
  if (whole > -2147483649.0 && whole < 2147483648.0) return Value::integer(static_cast<std::int32_t>(whole));
  return Value::real(whole);
}

Value toReal(Interpreter& in, Arguments arguments) { return Value::real(numberArgument(in, arguments[0])); }

constexpr Builtin kTable[] = {
    {"sin", real<sine>, 1, 1, "(sin angle)", "Sinus d'un angle en radians."},
    {"cos", real<cosine>, 1, 1, "(cos angle)", "Cosinus d'un angle en radians."},
    {"atan", arcTangent, 1, 2, "(atan y [x])", "Arc tangente, en radians."},
    {"sqrt", squareRoot, 1, 1, "(sqrt nombre)", "Racine carrée."},
    {"exp", real<exponential>, 1, 1, "(exp nombre)", "Exponentielle."},
    {"log", logarithm, 1, 1, "(log nombre)", "Logarithme naturel."},
    {"expt", power, 2, 2, "(expt base exposant)", "Puissance."},
    {"fix", fix, 1, 1, "(fix nombre)", "Partie entière, vers zéro."},
    {"float", toReal, 1, 1, "(float nombre)", "Le nombre en réel."},
};

}  // namespace

std::span<const Builtin> functionsFamily() { return kTable; }

}  // namespace atelier::lisp
