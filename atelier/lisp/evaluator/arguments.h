// Checked access to the arguments of a built-in function: each function gives the value asked for, or raises AutoLISP's
// error "bad argument type".
#pragma once

#include <array>
#include <string>

#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier::lisp {

inline double numberArgument(Interpreter& in, Value value) {
  if (!value.isNumber()) in.failType("numberp:", value);
  return value.number();
}
inline std::int32_t integerArgument(Interpreter& in, Value value) {
  if (!value.isInteger()) in.failType("fixnump:", value);
  return value.integer();
}
inline std::string_view stringArgument(Interpreter& in, Value value) {
  if (!value.isString()) in.failType("stringp", value);
  return value.text();
}
inline Value listArgument(Interpreter& in, Value value) {
  if (!value.isList()) in.failType("listp:", value);
  return value;
}
inline Value symbolArgument(Interpreter& in, Value value) {
  if (!value.isSymbol()) in.failType("symbolp:", value);
  return value;
}
inline std::uint64_t entityArgument(Interpreter& in, Value value) {
  if (!value.isEntity()) in.failType("lentityp", value);
  return value.entity();
}
// A list of two or three numbers; z is 0 when there are two.
std::array<double, 3> pointArgument(Interpreter& in, Value value);
// The argument at `position`, nil when the call has fewer.
inline Value optional(Arguments arguments, std::size_t position) {
  return position < arguments.size() ? arguments[position] : nil;
}

}  // namespace atelier::lisp
