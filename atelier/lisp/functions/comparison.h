// The equalities and orders of AutoLISP, for functions that search and compare.
#pragma once

#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier::lisp {

// eq: the same atom. Strings, reals and entity names are the same when their values are.
bool same(Value a, Value b);
// equal: the same structure; numbers may differ by `fuzz`, an integer equals a real of its value.
bool equal(Interpreter& in, Value a, Value b, double fuzz = 0);
// < on numbers or on strings; anything else is an error.
bool less(Interpreter& in, Value a, Value b);

}  // namespace atelier::lisp
