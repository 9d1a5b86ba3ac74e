// The four operations, increments, extremes. Integers of 32 bits; a result that they cannot hold becomes a
// real.
#include <cmath>
#include <numeric>

#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {
namespace {

// Folds the arguments from the left: `whole` works on integers, whose results wrap around at 32 bits, `real` from the
// first real on.
template <class Whole, class Real>
Value fold(Interpreter& in, Arguments arguments, Whole whole, Real real) {
  std::size_t i = 1;
  if (!arguments[0].isNumber()) in.failType("numberp:", arguments[0]);
  Value result = arguments[0];
  for (; i < arguments.size() && result.isInteger() && arguments[i].isInteger(); ++i)
    result = Value::wrapped(whole(std::int64_t{result.integer()}, std::int64_t{arguments[i].integer()}));
  if (i == arguments.size()) return result;
  double sum = result.number();
  for (; i < arguments.size(); ++i) sum = real(sum, numberArgument(in, arguments[i]));
  return Value::real(sum);
}

Value add(Interpreter& in, Arguments arguments) {
  if (arguments.size() == 2 && arguments[0].isInteger() && arguments[1].isInteger())
    return Value::wrapped(std::int64_t{arguments[0].integer()} + arguments[1].integer());
  if (arguments.size() == 2 && arguments[0].isNumber() && arguments[1].isNumber())
    return Value::real(arguments[0].number() + arguments[1].number());
  if (arguments.empty()) return Value::integer(0);
  return fold(
      in, arguments, [](auto a, auto b) { return a + b; }, [](double a, double b) { return a + b; });
}

Value subtract(Interpreter& in, Arguments arguments) {
  if (arguments.size() == 2 && arguments[0].isInteger() && arguments[1].isInteger())
    return Value::wrapped(std::int64_t{arguments[0].integer()} - arguments[1].integer());
  if (arguments.size() == 2 && arguments[0].isNumber() && arguments[1].isNumber())
    return Value::real(arguments[0].number() - arguments[1].number());
  if (arguments.empty()) return Value::integer(0);
  if (arguments.size() == 1) {
    const Value value = arguments[0];
    return value.isInteger() ? Value::wrapped(-std::int64_t{value.integer()})
                             : Value::real(-numberArgument(in, value));
  }
  return fold(
      in, arguments, [](auto a, auto b) { return a - b; }, [](double a, double b) { return a - b; });
}

Value multiply(Interpreter& in, Arguments arguments) {
  if (arguments.empty()) return Value::integer(0);
  return fold(
      in, arguments, [](auto a, auto b) { return a * b; }, [](double a, double b) { return a * b; });
}

Value divide(Interpreter& in, Arguments arguments) {
  if (arguments.empty()) return Value::integer(0);
  for (Value divisor : arguments.subspan(1))
    if (numberArgument(in, divisor) == 0) in.fail("divide by zero");
  return fold(
      in, arguments, [](auto a, auto b) { return a / b; }, [](double a, double b) { return a / b; });
}

Value remainder(Interpreter& in, Arguments arguments) {
  if (arguments.empty()) return Value::integer(0);
  for (Value divisor : arguments.subspan(1))
    if (numberArgument(in, divisor) == 0) in.fail("divide by zero");
  return fold(
      in, arguments, [](auto a, auto b) { return a % b; }, [](double a, double b) { return std::fmod(a, b); });
}

Value increment(Interpreter& in, Arguments arguments) {
  const Value value = arguments[0];
  return value.isInteger() ? Value::wrapped(std::int64_t{value.integer()} + 1)
                           : Value::real(numberArgument(in, value) + 1);
}

Value decrement(Interpreter& in, Arguments arguments) {
  const Value value = arguments[0];
  return value.isInteger() ? Value::wrapped(std::int64_t{value.integer()} - 1)
                           : Value::real(numberArgument(in, value) - 1);
}

// The result is a real when one argument is a real, even if an integer is chosen.
template <class Better>
Value extreme(Interpreter& in, Arguments arguments, Better better) {
  if (arguments.empty()) return Value::integer(0);
  Value best = arguments[0];
  bool real = false;
  for (Value value : arguments) {
    real |= !value.isInteger();
    if (better(numberArgument(in, value), best.number())) best = value;
  }
  return real ? Value::real(best.number()) : best;
}

Value greatest(Interpreter& in, Arguments arguments) {
  return extreme(in, arguments, [](double a, double b) { return a > b; });
}

Value least(Interpreter& in, Arguments arguments) {
  return extreme(in, arguments, [](double a, double b) { return a < b; });
}

Value absolute(Interpreter& in, Arguments arguments) {
  const Value value = arguments[0];
  return value.isInteger() ? Value::wrapped(std::abs(std::int64_t{value.integer()}))
                           : Value::real(std::fabs(numberArgument(in, value)));
}

Value greatestCommonDivisor(Interpreter& in, Arguments arguments) {
  std::int64_t result = 0;
  for (Value value : arguments) result = std::gcd(result, std::int64_t{integerArgument(in, value)});
  return Value::integerOrReal(result);
}

Value isZero(Interpreter& in, Arguments arguments) { return in.boolean(numberArgument(in, arguments[0]) == 0); }
Value isNegative(Interpreter& in, Arguments arguments) { return in.boolean(numberArgument(in, arguments[0]) < 0); }
Value isNumber(Interpreter& in, Arguments arguments) { return in.boolean(arguments[0].isNumber()); }

constexpr Builtin kTable[] = {
    {"+", add, 0, kAnyNumber, "(+ [nombre...])", "Somme."},
    {"-", subtract, 0, kAnyNumber, "(- [nombre...])", "Différence, ou opposé d'un seul nombre."},
    {"*", multiply, 0, kAnyNumber, "(* [nombre...])", "Produit."},
    {"/", divide, 0, kAnyNumber, "(/ [nombre...])", "Quotient ; entier quand tous les nombres sont entiers."},
    {"rem", remainder, 0, kAnyNumber, "(rem [nombre...])", "Reste de la division."},
    {"1+", increment, 1, 1, "(1+ nombre)", "Le nombre augmenté de un."},
    {"1-", decrement, 1, 1, "(1- nombre)", "Le nombre diminué de un."},
    {"max", greatest, 0, kAnyNumber, "(max [nombre...])", "Le plus grand des nombres."},
    {"min", least, 0, kAnyNumber, "(min [nombre...])", "Le plus petit des nombres."},
    {"abs", absolute, 1, 1, "(abs nombre)", "Valeur absolue."},
    {"gcd", greatestCommonDivisor, 2, kAnyNumber, "(gcd entier entier...)", "Plus grand commun diviseur."},
    {"zerop", isZero, 1, 1, "(zerop nombre)", "T si le nombre est nul."},
    {"minusp", isNegative, 1, 1, "(minusp nombre)", "T si le nombre est négatif."},
    {"numberp", isNumber, 1, 1, "(numberp valeur)", "T si la valeur est un nombre."},
};

}  // namespace

std::span<const Builtin> arithmeticFamily() { return kTable; }

}  // namespace atelier::lisp
