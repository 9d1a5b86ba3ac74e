// Values as text: prin1 (reads back) and princ (for people).
#pragma once

#include <string>

#include "atelier/lisp/value.h"

namespace atelier::lisp {

// With quotes around strings and escapes in them; reals with six significant digits.
std::string prin1(Value value);
// Strings as they are.
std::string princ(Value value);
// A real as the two print it: "1.0", "0.333333", "1.0e+08".
std::string printReal(double number);

}  // namespace atelier::lisp
