// Values as text: prin1 (reads back) and princ (for people).
#pragma once

#include <string>

#include "atelier/lisp/values/value.h"

namespace atelier::lisp {

class Interpreter;

// With quotes around strings and escapes in them; reals with six significant digits.
std::string prin1(Value value);
// Strings as they are.
std::string princ(Value value);
// The same; an interrupt stops them.
std::string prin1(Interpreter& in, Value value);
std::string princ(Interpreter& in, Value value);
// At most so many bytes of what prin1 gives, followed by "..." when there is more.
std::string prin1Beginning(Value value, std::size_t most);
// A real as prin1 and princ print it: "1.0", "0.333333", "1.0e+08".
std::string printReal(double number);

}  // namespace atelier::lisp
