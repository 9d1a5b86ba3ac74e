// Arithmetic, comparison, bits, functions of reals.
#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

using Numbers = LispTest;

TEST_F(Numbers, Operations) {
  check({{"(+)", "0"},
         {"(+ 1 2)", "3"},
         {"(+ 1 2 3 4)", "10"},
         {"(+ 1 2.5)", "3.5"},
         {"(+ 2147483647 1)", "-2147483648"},
         {"(+ 2147483646 3)", "-2147483647"},
         {"(+ 2147483647 1.0)", "2.14748e+09"},
         {"(- 5)", "-5"},
         {"(- 10 1 2)", "7"},
         {"(- -2147483647 1)", "-2147483648"},
         {"(- 0.5 2)", "-1.5"},
         {"(*)", "0"},
         {"(* 3 4 5)", "60"},
         {"(* 100000 100000)", "1410065408"},
         {"(* 2 0.5)", "1.0"},
         {"(/ 7 2)", "3"},
         {"(/ -7 2)", "-3"},
         {"(/ 7 2.0)", "3.5"},
         {"(/ 135 360.0)", "0.375"},
         {"(/ 5)", "5"},
         {"(/ -2147483648 -1)", "-2147483648"},
         {"(rem 42 12)", "6"},
         {"(rem -7 2)", "-1"},
         {"(rem 12.0 16)", "12.0"},
         {"(1+ 5)", "6"},
         {"(1- -1.5)", "-2.5"},
         {"(max 4.07 -144)", "4.07"},
         {"(max 3 1 2)", "3"},
         {"(max 3 1.0)", "3.0"},
         {"(min 683 -10.0)", "-10.0"},
         {"(abs -99.25)", "99.25"},
         {"(abs -5)", "5"},
         {"(gcd 81 57)", "3"},
         {"(gcd 12 20 8)", "4"},
         {"(zerop 0)", "T"},
         {"(zerop 0.0001)", "nil"},
         {"(minusp -4.293)", "T"},
         {"(numberp \"1\")", "nil"}});
}

TEST_F(Numbers, Errors) {
  check({{"(+ 1 nil)", "! bad argument type: numberp: nil"},
         {"(+ \"a\")", "! bad argument type: numberp: \"a\""},
         {"(* 2 'a)", "! bad argument type: numberp: A"},
         {"(/ 1 0)", "! divide by zero"},
         {"(/ 1.0 0.0)", "! divide by zero"},
         {"(rem 1 0)", "! divide by zero"},
         {"(1+)", "! too few arguments"},
         {"(1+ 1 2)", "! too many arguments"},
         {"(1+ nil)", "! bad argument type: numberp: nil"},
         {"(sqrt -1)", "! function undefined for argument: -1"},
         {"(log 0)", "! function undefined for argument: 0"},
         {"(expt 0 -1)", "! divide by zero"},
         {"(gcd 1.5 2)", "! bad argument type: fixnump: 1.5"},
         {"(logand 1.0 1)", "! bad argument type: fixnump: 1.0"},
         {"(< 1 nil)", "! bad argument type for compare: 1 nil"},
         {"(< \"a\" 1)", "! bad argument type for compare: \"a\" 1"}});
}

TEST_F(Numbers, Functions) {
  check({{"(sqrt 2)", "1.41421"},
         {"(exp 1.0)", "2.71828"},
         {"(log 4.5)", "1.50408"},
         {"(expt 2 4)", "16"},
         {"(expt 3.0 2.0)", "9.0"},
         {"(expt 2 40)", "1.09951e+12"},
         {"(expt 2 0.5)", "1.41421"},
         {"(sin 1)", "0.841471"},
         {"(cos pi)", "-1.0"},
         {"(atan 1)", "0.785398"},
         {"(atan -1.0)", "-0.785398"},
         {"(atan 2.0 -3.0)", "2.55359"},
         {"(fix 3.7)", "3"},
         {"(fix -3.7)", "-3"},
         {"(fix 1e10)", "1.0e+10"},
         {"(float 3)", "3.0"},
         {"pi", "3.14159"}});
}

TEST_F(Numbers, Bits) {
  check({{"(logand 7 15 3)", "3"},
         {"(logior 1 2 4)", "7"},
         {"(~ 3)", "-4"},
         {"(lsh 2 1)", "4"},
         {"(lsh 2 -1)", "1"},
         {"(lsh 1 31)", "-2147483648"},
         {"(lsh -1 -31)", "1"},
         {"(lsh 1 32)", "0"},
         {"(boole 1 12 5)", "4"},
         {"(boole 6 6 5)", "3"},
         {"(boole 7 6 5)", "7"},
         {"(boole 8 0 0)", "-1"}});
}

TEST_F(Numbers, Comparison) {
  check({{"(= 4 4.0)", "T"},
         {"(= 20 388)", "nil"},
         {"(= 2.4 2.4 2.4)", "T"},
         {"(= \"me\" \"me\")", "T"},
         {"(= \"me\" \"Me\")", "nil"},
         {"(= 'a 'a)", "T"},
         {"(= nil nil)", "T"},
         {"(= '(1) '(1))", "nil"},
         {"(= 1 \"1\")", "nil"},
         {"(/= 10 20)", "T"},
         {"(/= 1 2 2)", "nil"},
         {"(< 1 2 3)", "T"},
         {"(< 1 3 2)", "nil"},
         {"(<= 1 1 2)", "T"},
         {"(> \"b\" \"a\")", "T"},
         {"(>= 2 2.0 1)", "T"},
         {"(> 5)", "T"},
         {"(eq \"a\" \"a\")", "T"},
         {"(eq 1 1.0)", "nil"},
         {"(eq '(1) '(1))", "nil"},
         {"(progn (setq a '(1 2) b a) (eq a b))", "T"},
         {"(equal '(1 (2 . 3)) '(1.0 (2 . 3)))", "T"},
         {"(equal '(1 2) '(1 2 3))", "nil"},
         {"(equal 1.123456 1.123457)", "nil"},
         {"(equal 1.123456 1.123457 1e-5)", "T"},
         {"(equal '(1.0 2.0) '(1.0 2.0001) 0.001)", "T"},
         {"(equal '((1) (2)) '((1) (3)))", "nil"},
         {"(not nil)", "T"},
         {"(null 0)", "nil"}});
}

}  // namespace
}  // namespace atelier::lisp
