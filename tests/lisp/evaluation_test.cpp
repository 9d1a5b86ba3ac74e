// Special forms, functions, scope, and forms that existing programs use.
#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

using Evaluation = LispTest;

TEST_F(Evaluation, Control) {
  check({{"(if t 1 2)", "1"},
         {"(if nil 1)", "nil"},
         {"(if nil 1 2)", "2"},
         {"(if)", "! too few arguments"},
         {"(if t 1 2 3)", "1"},
         {"(if nil 1 2 3)", "! too many arguments"},
         {"(cond)", "nil"},
         {"(cond (nil 1) (2) (t 3))", "2"},
         {"(cond ((= 1 1) 'a 'b))", "B"},
         {"(and)", "T"},
         {"(and 1 2)", "T"},
         {"(and 1 nil (car 5))", "nil"},
         {"(or)", "nil"},
         {"(or nil 5)", "T"},
         {"(progn)", "nil"},
         {"(progn (setq i 0 s 0) (while (< i 5) (setq s (+ s i) i (1+ i))) (list i s))", "(5 10)"},
         {"(progn (setq i 0) (repeat 4 (setq i (+ i 2))))", "8"},
         {"(repeat 0 1)", "nil"},
         {"(repeat 1.5 1)", "! bad argument type: fixnump: 1.5"},
         {"(progn (setq x 'outer l nil) (foreach x '(1 2 3) (setq l (cons x l))) (list x l))", "(OUTER (3 2 1))"},
         {"(foreach x 5 x)", "! bad argument type: listp: 5"},
         {"(setq a 1 b (1+ a))", "2"},
         {"(setq a)", "! too few arguments"},
         {"(setq \"a\" 1)", "! bad argument type: symbolp: \"a\""},
         {"(setq nil 1)", "! bad argument type: symbolp: nil"},
         {"(set 'z 5)", "5"},
         {"'(a . b)", "(A . B)"},
         {"''a", "(QUOTE A)"}});
}

TEST_F(Evaluation, Functions) {
  check({{"(defun f (x / y) (setq y (* x 2)) (+ x y))", "F"},
         {"(f 2)", "6"},
         {"y", "nil"},
         {"(f)", "! too few arguments"},
         {"(f 1 2)", "! too many arguments"},
         {"(defun noargs () 7)", "NOARGS"},
         {"(noargs)", "7"},
         {"(defun empty ())", "EMPTY"},
         {"(empty)", "nil"},
         {"(progn (defun both (a b / c b a) (setq c 3) (list a b c)) (both 1 2))", "(1 2 3)"},
         {"(defun onlylocals (/ a b) (setq a 1) (list a b))", "ONLYLOCALS"},
         {"(onlylocals)", "(1 nil)"},
         {"(defun doc (x) \"Une aide.\" (* x x))", "DOC"},
         {"(doc 4)", "16"},
         {"(defun (x) x)", "! bad argument type: symbolp: (X)"},
         {"(defun g 5 x)", "! bad formal argument list: 5"},
         {"(defun g (5) x)", "! bad formal argument list: (5)"},
         {"((lambda (x) (* x 3)) 3)", "9"},
         {"(progn (setq h '(lambda (x) (+ x 1))) (h 4))", "5"},
         {"(progn (setq h (lambda (x) (+ x 1))) (mapcar 'h '(1)))", "(2)"},
         {"(progn (defun-q dq (x) (list x)) (dq 1))", "(1)"},
         {"(defun-q-list-ref 'dq)", "((X) (LIST X))"},
         {"(progn (defun-q-list-set 'dq (append (defun-q-list-ref 'dq) '((list x x)))) (dq 2))", "(2 2)"},
         {"(progn (defun outer () (defun inner () 'in) (inner)) (outer))", "IN"},
         {"(undefined 1)", "! no function definition: UNDEFINED"},
         {"(progn (setq n 5) (n 1))", "! bad function: 5"},
         {"(1 2)", "! bad function: 1"},
         {"(\"a\")", "! bad function: \"a\""}});
}

TEST_F(Evaluation, DynamicScope) {
  check({{"(progn (setq v 1) (defun show () v) (defun with (v) (show)) (list (with 2) (show)))", "(2 1)"},
         {"(progn (setq v 1) (vl-catch-all-apply '(lambda (v) (car v)) '(5)) v)", "1"},
         {"(progn (defun twice (a a) a) (setq a 0) (list (twice 1 2) a))", "(2 0)"}});
}

TEST_F(Evaluation, FormsMetInTheWild) {
  check({{"(defun c:test->it (/ *error*) (defun *error* (m) (princ m)) 'done)", "C:TEST->IT"},
         {"(C:TEST->IT)", "DONE"},
         {"(defun my:sub (x) x) ; comment", "MY:SUB"},
         {"(+ 1 ;| inside\n a block (((;\n |; 2)", "3"},
         {"(list 1e-8 -1.5E3 1. +5 1e400)", "(1.0e-08 -1500.0 1.0 5 inf)"},
         {"(cdr (assoc 40 '((0 . \"CIRCLE\") (40 . 2.5))))", "2.5"},
         {"((eval 'car) '(1 2))", "1"},
         {"(apply (function +) '(1 2))", "3"},
         {"(eval (list 'setq 'zz 4))", "4"},
         {"(apply 'strcat (mapcar '(lambda (s) (strcat s \",\")) '(\"a\" \"b\")))", "\"a,b,\""},
         {"(mapcar '(lambda (a / b) (setq b a) (list b)) '(1 2))", "((1) (2))"},
         {"(progn (princ \"x\") (princ))", ""},
         {"T", "T"},
         {"(= (type list) 'SUBR)", "T"},
         {"(setq + +) (+ 1 1)", "2"}});
}

TEST_F(Evaluation, Printing) {
  check({{"1.0", "1.0"},
         {"0.1", "0.1"},
         {"(/ 1.0 3)", "0.333333"},
         {"100000.0", "100000.0"},
         {"1000000.0", "1.0e+06"},
         {"123456.789", "123457.0"},
         {"1e-5", "1.0e-05"},
         {"0.0001", "0.0001"},
         {"1.5e10", "1.5e+10"},
         {"-2.5", "-2.5"},
         {"2147483648", "2.14748e+09"},
         {"\"a\\\"b\\\\c\\n\\t\\e\\001\"", "\"a\\\"b\\\\c\\n\\t\\e\\001\""},
         {"'((1 . 2) (3 4 . 5) nil)", "((1 . 2) (3 4 . 5) nil)"}});
  EXPECT_EQ(run("car").substr(0, 7), "#<SUBR ");
  EXPECT_EQ(run("(defun pp ()) pp").substr(0, 8), "#<USUBR ");
}

TEST_F(Evaluation, ConsoleOutput) {
  run("(princ \"a\\\"\") (prin1 \"b\\\"\") (print 'c) (prompt \"d\") (terpri) (write-line \"e\") (write-char "
      "233)");
  EXPECT_EQ(console.written, "a\"\"b\\\"\"\nC d\ne\né");
}

TEST_F(Evaluation, Tracing) {
  run("(defun fact (n) (if (< n 2) 1 (* n (fact (1- n))))) (trace fact) (fact 2) (untrace fact) (fact 3)");
  EXPECT_EQ(console.written, "\nEntering (FACT 2)\n  Entering (FACT 1)\n  Result: 1\nResult: 2");
}

TEST_F(Evaluation, EveryBuiltinHasSignatureAndHelp) {
  EXPECT_GT(in.primitives().size(), 190u);
  for (const Primitive* primitive : in.primitives()) {
    EXPECT_FALSE(primitive->help.empty()) << primitive->name;
    std::string expected = "(" + primitive->name, start = primitive->signature.substr(0, expected.size());
    for (char& c : start) c = static_cast<char>(std::toupper(c));
    EXPECT_EQ(start, expected);
  }
  run("(aide 'nth)");
  EXPECT_EQ(console.written, "\n(nth n liste)\nL'élément de rang n, compté de zéro.\n");
  EXPECT_EQ(run("(aide 'rien-du-tout)"), "nil");
}

}  // namespace
}  // namespace atelier::lisp
