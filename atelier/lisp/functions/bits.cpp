// Bitwise operations on 32-bit integers.
#include "atelier/lisp/evaluator/arguments.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {
namespace {

template <class Operation>
Value fold(Interpreter& in, Arguments arguments, Operation operation) {
  if (arguments.empty()) return Value::integer(0);
  std::int32_t result = integerArgument(in, arguments[0]);
  for (Value value : arguments.subspan(1)) result = operation(result, integerArgument(in, value));
  return Value::integer(result);
}

Value logand(Interpreter& in, Arguments arguments) {
  return fold(in, arguments, [](std::int32_t a, std::int32_t b) { return a & b; });
}
Value logior(Interpreter& in, Arguments arguments) {
  return fold(in, arguments, [](std::int32_t a, std::int32_t b) { return a | b; });
}
Value complement(Interpreter& in, Arguments arguments) { return Value::integer(~integerArgument(in, arguments[0])); }

// Logical shift: zeros come in from both sides.
Value shift(Interpreter& in, Arguments arguments) {
  const auto bits = static_cast<std::uint32_t>(integerArgument(in, arguments[0]));
  const std::int32_t count = integerArgument(in, arguments[1]);
  if (count >= 32 || count <= -32) return Value::integer(0);
  return Value::integer(static_cast<std::int32_t>(count >= 0 ? bits << count : bits >> -count));
}

// The operator's four bits give the result for the bit pairs 11, 10, 01, 00 (values 1, 2, 4, 8).
Value boole(Interpreter& in, Arguments arguments) {
  const std::int32_t operation = integerArgument(in, arguments[0]);
  return fold(in, arguments.subspan(1), [operation](std::int32_t a, std::int32_t b) {
    return (operation & 1 ? a & b : 0) | (operation & 2 ? a & ~b : 0) | (operation & 4 ? ~a & b : 0) |
           (operation & 8 ? ~a & ~b : 0);
  });
}

constexpr Builtin kTable[] = {
    {"logand", logand, 0, kAnyNumber, "(logand [entier...])", "Et bit à bit."},
    {"logior", logior, 0, kAnyNumber, "(logior [entier...])", "Ou bit à bit."},
    {"~", complement, 1, 1, "(~ entier)", "Complément bit à bit."},
    {"lsh", shift, 2, 2, "(lsh entier n)", "Décale les bits à gauche, ou à droite si n est négatif."},
    {"boole", boole, 2, kAnyNumber, "(boole operateur entier...)", "Opération booléenne bit à bit."},
};

}  // namespace

std::span<const Builtin> bitsFamily() { return kTable; }

}  // namespace atelier::lisp
