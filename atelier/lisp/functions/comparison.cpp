// Comparison: = /= < <= > >= eq equal null not.
#include "atelier/lisp/functions/comparison.h"

#include <cmath>
#include <vector>

#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {

bool same(Value a, Value b) {
  if (a == b) return true;
  if (a.tag() != b.tag()) return false;
  if (a.isString()) return a.text() == b.text();
  if (a.isEntity()) return a.entity() == b.entity();
  return a.isReal() && b.isReal() && a.real() == b.real();  // 0.0 and -0.0
}

namespace {

bool atomsEqual(Value a, Value b, double fuzz) {
  if (a == b) return true;
  if (a.isNumber() && b.isNumber()) return a.number() == b.number() || std::fabs(a.number() - b.number()) <= fuzz;
  return same(a, b);
}

}  // namespace

bool equal(Interpreter& in, Value a, Value b, double fuzz) {
  if (!a.isPair() || !b.isPair()) return atomsEqual(a, b, fuzz);
  std::vector<std::pair<Value, Value>> pending;
  for (;;) {
    while (a.isPair() && b.isPair() && a != b) {
      in.poll();
      if (a.car().isPair() && b.car().isPair()) pending.emplace_back(a.car(), b.car());
      else if (!atomsEqual(a.car(), b.car(), fuzz)) return false;
      a = a.cdr();
      b = b.cdr();
    }
    if (!atomsEqual(a, b, fuzz)) return false;
    if (pending.empty()) return true;
    std::tie(a, b) = pending.back();
    pending.pop_back();
  }
}

namespace {

[[noreturn]] void incomparable(Interpreter& in, Value a, Value b) {
  in.fail("bad argument type for compare: " + prin1(a) + " " + prin1(b));
}

template <class Test>
bool compare(Interpreter& in, Value a, Value b, Test test) {
  if (a.isInteger() && b.isInteger()) return test(a.integer(), b.integer());
  if (a.isNumber() && b.isNumber()) return test(a.number(), b.number());
  if (a.isString() && b.isString()) return test(a.text(), b.text());  // UTF-8 sorts as its code points do
  incomparable(in, a, b);
}

// Whether the test holds between every two neighbours.
template <class Test>
Value compareAll(Interpreter& in, Arguments arguments, Test test) {
  for (std::size_t i = 1; i < arguments.size(); ++i)
    if (!compare(in, arguments[i - 1], arguments[i], test)) return nil;
  return in.t();
}

// Numbers by value, strings by their characters, other atoms by identity; lists are never equal.
bool atomEqual(Value a, Value b) {
  if (a.isPair() || b.isPair()) return false;
  return atomsEqual(a, b, 0);
}

Value equalSign(Interpreter& in, Arguments arguments) {
  for (std::size_t i = 1; i < arguments.size(); ++i)
    if (!atomEqual(arguments[i - 1], arguments[i])) return nil;
  return in.t();
}

Value notEqualSign(Interpreter& in, Arguments arguments) {
  for (std::size_t i = 1; i < arguments.size(); ++i)
    if (atomEqual(arguments[i - 1], arguments[i])) return nil;
  return in.t();
}

struct Less {
  template <class T>
  bool operator()(T a, T b) const {
    return a < b;
  }
};
struct AtMost {
  template <class T>
  bool operator()(T a, T b) const {
    return a <= b;
  }
};
struct Greater {
  template <class T>
  bool operator()(T a, T b) const {
    return a > b;
  }
};
struct AtLeast {
  template <class T>
  bool operator()(T a, T b) const {
    return a >= b;
  }
};

Value lessSign(Interpreter& in, Arguments arguments) { return compareAll(in, arguments, Less()); }
Value atMostSign(Interpreter& in, Arguments arguments) { return compareAll(in, arguments, AtMost()); }
Value greaterSign(Interpreter& in, Arguments arguments) { return compareAll(in, arguments, Greater()); }
Value atLeastSign(Interpreter& in, Arguments arguments) { return compareAll(in, arguments, AtLeast()); }

Value eqFunction(Interpreter& in, Arguments arguments) { return in.boolean(same(arguments[0], arguments[1])); }

Value equalFunction(Interpreter& in, Arguments arguments) {
  const double fuzz = arguments.size() > 2 ? numberArgument(in, arguments[2]) : 0;
  return in.boolean(equal(in, arguments[0], arguments[1], fuzz));
}

Value isNil(Interpreter& in, Arguments arguments) { return in.boolean(!arguments[0]); }

constexpr Builtin kTable[] = {
    {"=", equalSign, 1, kAnyNumber, "(= valeur [valeur...])", "T si les nombres ou les chaînes sont égaux."},
    {"/=", notEqualSign, 1, kAnyNumber, "(/= valeur [valeur...])", "T si deux voisins ne sont jamais égaux."},
    {"<", lessSign, 1, kAnyNumber, "(< valeur [valeur...])", "T si chaque valeur est inférieure à la suivante."},
    {"<=", atMostSign, 1, kAnyNumber, "(<= valeur [valeur...])",
     "T si chaque valeur est inférieure ou égale à la suivante."},
    {">", greaterSign, 1, kAnyNumber, "(> valeur [valeur...])", "T si chaque valeur est supérieure à la suivante."},
    {">=", atLeastSign, 1, kAnyNumber, "(>= valeur [valeur...])",
     "T si chaque valeur est supérieure ou égale à la suivante."},
    {"eq", eqFunction, 2, 2, "(eq a b)", "T si les deux valeurs sont le même atome ou la même liste."},
    {"equal", equalFunction, 2, 3, "(equal a b [tolerance])", "T si les deux valeurs ont la même structure."},
    {"not", isNil, 1, 1, "(not valeur)", "T si la valeur est nil."},
    {"null", isNil, 1, 1, "(null valeur)", "T si la valeur est nil."},
};

}  // namespace

bool less(Interpreter& in, Value a, Value b) { return compare(in, a, b, Less()); }

std::span<const Builtin> comparisonFamily() { return kTable; }

}  // namespace atelier::lisp
