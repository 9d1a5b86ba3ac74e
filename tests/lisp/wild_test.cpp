// Forms of existing programs, with the values, the output and the messages on which they rely.
#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

using Wild = LispTest;

TEST_F(Wild, Numbers) {
  check({{"(+ 2147483647 1)", "-2147483648"},
         {"(- -2147483648 1)", "2147483647"},
         {"(* 65536 65536)", "0"},
         {"(/ 7 2)", "3"},
         {"(/ 7 2.)", "3.5"},
         {"(/ 1 0)", "! divide by zero"},
         {"(rem -7 3)", "-1"},
         {"(rem 10.5 3)", "1.5"},
         {"(fix -3.7)", "-3"},
         {"(atan 1 0)", "1.5708"},
         {"(lsh 1 31)", "-2147483648"},
         {"(~ 5)", "-6"},
         {"(expt 2 0.5)", "1.41421"},
         {"(sqrt -1)", "! function undefined for argument: -1"},
         {"(max 1 2.0)", "2.0"},
         {"(list 1e-8 1e15 123456789.0 0.1 100000.0 1e6)", "(1.0e-08 1.0e+15 1.23457e+08 0.1 100000.0 1.0e+06)"},
         {"(= 1 1.0)", "T"},
         {"(eq 1 1.0)", "nil"},
         {"(equal 1.0 1.01 0.1)", "T"},
         {"(equal '(1 2.0) '(1.0 2))", "T"},
         {"(< 1 'a)", "! bad argument type for compare: 1 A"},
         {"(+ nil 1)", "! bad argument type: numberp: nil"},
         {"(1+ \"a\")", "! bad argument type: numberp: \"a\""},
         {"(logand 1 2.5)", "! bad argument type: fixnump: 2.5"},
         {"(itoa 3.5)", "! bad argument type: fixnump: 3.5"},
         {"(atoi \"12abc\")", "12"},
         {"(atof \"1.5e3x\")", "1500.0"},
         {"(polar '(0 0) 0 5)", "(5.0 0.0)"},
         {"(distance '(0 0 0) nil)", "! bad argument type: 2D/3D point: nil"},
         {"(inters '(0 0) '(1 0) '(0 1) '(1 1))", "nil"}});
}

TEST_F(Wild, Lists) {
  check({{"(car 5)", "! bad argument type: listp: 5"},
         {"(cadr '(1))", "nil"},
         {"(nth 5 '(1 2))", "nil"},
         {"(nth 1.0 '(1 2))", "! bad argument type: fixnump: 1.0"},
         {"(length '(1 . 2))", "! bad list: (1 . 2)"},
         {"(append '(1) 2)", "(1 . 2)"},
         {"(append nil '(1))", "(1)"},
         {"(cdr (assoc 10 '((0 . \"LINE\") (10 1. 2. 3.))))", "(1.0 2.0 3.0)"},
         {"(assoc 1 5)", "! bad argument type: listp: 5"},
         {"(subst '(8 . \"AXE\") (assoc 8 '((8 . \"0\"))) '((8 . \"0\") (62 . 1)))", "((8 . \"AXE\") (62 . 1))"},
         {"'(1 . (2 3))", "(1 2 3)"},
         {"''a", "(QUOTE A)"},
         {"(mapcar '+ '(1 2) '(10 20 30))", "(11 22)"},
         {"(mapcar 'car 5)", "! bad argument type: listp: 5"},
         {"(apply 'and '(1 nil))", "nil"},
         {"(apply 'max '(1 5 3))", "5"},
         {"(apply 'mapcar (cons 'list '((1 2) (3 4))))", "((1 3) (2 4))"},
         {"(vl-sort '(3 1 2 1 3) '<)", "(1 2 3)"},
         {"(vl-sort '((2 . b) (1 . a)) '(lambda (a b) (< (car a) (car b))))", "((1 . A) (2 . B))"},
         {"(vl-remove-if 'numberp '(1 a))", "(A)"},
         {"(vl-position 3 '(1 2 3))", "2"},
         {"(vl-member-if 'numberp '(a 1 b))", "(1 B)"},
         {"(vl-list-length '(1 . 2))", "nil"},
         {"(foreach x '(1 2 3) x)", "3"},
         {"(foreach x 5 x)", "! bad argument type: listp: 5"},
         {"(repeat 3 5)", "5"},
         {"(repeat 1.5 1)", "! bad argument type: fixnump: 1.5"}});
}

TEST_F(Wild, Texts) {
  check({{"(substr \"hello\" 2 3)", "\"ell\""},
         {"(substr \"hello\" 9)", "\"\""},
         {"(substr \"hello\" 0)", "! bad argument value: positive 0"},
         {"(strcat \"a\" 5)", "! bad argument type: stringp 5"},
         {"(strcat)", "\"\""},
         {"(chr 65)", "\"A\""},
         {"(ascii \"\")", "0"},
         {"(strcase \"aé\" )", "\"AÉ\""},
         {"\"\\101\\t\\e\"", "\"A\\t\\e\""},
         {"\"a\\nb\\\\\"", "\"a\\nb\\\\\""},
         {"(vl-string-subst \"x\" \"b\" \"abcb\")", "\"axcb\""},
         {"(vl-string-position 98 \"abcb\" nil T)", "3"},
         {"(vl-list->string (reverse (vl-string->list \"abc\")))", "\"cba\""},
         {"(vl-princ-to-string '(\"a\" 1.5))", "\"(a 1.5)\""},
         {"(vl-prin1-to-string '(\"a\\n\" b))", "\"(\\\"a\\\\n\\\" B)\""},
         {"(wcmatch \"Name\" \"N*,~M*\")", "T"},
         {"(wcmatch \"a.b\" \"?`.?\")", "T"},
         {"(wcmatch \"5\" \"[~a-z]\")", "T"},
         {"(rtos 17.5 4 2)", "\"1'-5 1/2\\\"\""},
         {"(rtos -0.25 5 2)", "\"-1/4\""},
         {"(angtos 0.785398163397 1 4)", "\"45d0'0\\\"\""},
         {"(angtos 0.785398163397 4 4)", "\"N 45d0'0\\\" E\""},
         {"(distof \"1'-5 1/2\\\"\" 4)", "17.5"},
         {"(angtof \"x\")", "nil"},
         {"(cvunit 1 \"inch\" \"mm\")", "25.4"},
         {"(vl-filename-base \"/a/b.c.d\")", "\"b.c\""},
         {"(vl-filename-directory \"/a/b.c\")", "\"/a\""}});
}

TEST_F(Wild, FunctionsAndNames) {
  check({{"((lambda (x) (* x 2)) 3)", "6"},
         {"((lambda (x) x))", "! too few arguments"},
         {"(defun f (a / b) a)", "F"},
         {"(f 1 2)", "! too many arguments"},
         {"(foo)", "! no function definition: FOO"},
         {"(mapcar 'foo '(1))", "! no function definition: FOO"},
         {"(nil)", "! bad function: nil"},
         {"(\"a\")", "! bad function: \"a\""},
         {"(defun c:essai-2 () 'a->b)", "C:ESSAI-2"},
         {"(c:essai-2)", "A->B"},
         {"(eval (read \"(+ 1 2)\"))", "3"},
         {"(read \"a b\")", "A"},
         {"(read \")\")", "! extra right paren on input"},
         {"(read \"(a\")", "! malformed list on input"},
         {"(read \"(a . b c)\")", "! extra cdrs in dotted pair on input"},
         {"(setq 5 1)", "! bad argument type: symbolp: 5"},
         {"(setq a)", "! too few arguments"},
         {"(setq a 1 b 2)", "2"},
         {"(set (read \"zz\") 5)", "5"},
         {"(boundp 'zork)", "nil"},
         {"(type car)", "SUBR"},
         {"(type f)", "USUBR"},
         {"(type nil)", "nil"},
         {"(list (type 1) (type 1.) (type \"\") (type '(1)) (type 'a))", "(INT REAL STR LIST SYM)"},
         {"(load \"absent\" \"rien\")", "\"rien\""},
         {"(load \"absent\")", "! LOAD failed: \"absent\""},
         {"(exit)", "! quit / exit abort"},
         {"(vl-symbol-name 'abc)", "\"ABC\""},
         {";| un bloc\nde commentaire |; 5", "5"}});
}

TEST_F(Wild, Registry) {
  check({{"(vl-registry-read \"HKEY_CURRENT_USER\\\\Software\\\\Essai\" \"Pas\")", "nil"},
         {"(vl-registry-write \"HKEY_CURRENT_USER\\\\Software\\\\Essai\" \"Pas\" \"12\")", "\"12\""},
         {"(vl-registry-read \"hkey_current_user\\\\software\\\\essai\" \"pas\")", "\"12\""},
         {"(vl-registry-delete \"HKEY_CURRENT_USER\\\\Software\\\\Essai\" \"Pas\")", "T"},
         {"(vl-registry-read \"HKEY_CURRENT_USER\\\\Software\\\\Essai\" \"Pas\")", "nil"}});
}

}  // namespace
}  // namespace atelier::lisp
