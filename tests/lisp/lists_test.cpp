// Lists, mapping, sorting, symbols.
#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

using Lists = LispTest;

TEST_F(Lists, Building) {
  check({{"(cons 'a '(b c))", "(A B C)"},
         {"(cons 'a 2)", "(A . 2)"},
         {"(cons '(a) '(b))", "((A) B)"},
         {"(list)", "nil"},
         {"(list 1 2.0 \"x\" nil)", "(1 2.0 \"x\" nil)"},
         {"(vl-list* 1 2 '(3))", "(1 2 3)"},
         {"(append '(a) nil '(b c))", "(A B C)"},
         {"(append)", "nil"},
         {"(append '((a)) '((b)))", "((A) (B))"},
         {"(reverse '((a) b c))", "(C B (A))"},
         {"(subst 'x 'b '(a b (b) b))", "(A X (B) X)"},
         {"(subst '(1 . 9) '(1 . 2) '((0 . 0) (1 . 2)))", "((0 . 0) (1 . 9))"},
         {"(vl-remove 2 '(1 2 3 2.0))", "(1 3)"},
         {"(vl-remove \"a\" '(\"a\" \"b\"))", "(\"b\")"}});
}

TEST_F(Lists, Access) {
  check({{"(car nil)", "nil"},
         {"(cdr '(a))", "nil"},
         {"(cdr '(1 . 2))", "2"},
         {"(cadr '(1 2 3))", "2"},
         {"(caddr '(1 2))", "nil"},
         {"(cdar '((1 . 2)))", "2"},
         {"(cadar '((1 2) 3))", "2"},
         {"(cddddr '(1 2 3 4 5))", "(5)"},
         {"(cadddr '(1 2 3 4 5))", "4"},
         {"(caar '((a) b))", "A"},
         {"(nth 3 '(a b c d e))", "D"},
         {"(nth 5 '(a))", "nil"},
         {"(last '(a b (c d)))", "(C D)"},
         {"(length '(a b (c d)))", "3"},
         {"(length nil)", "0"},
         {"(vl-list-length '(1 2 . 3))", "nil"},
         {"(member 'c '(a b c d))", "(C D)"},
         {"(member 1.0 '(0 1 2))", "(1 2)"},
         {"(member '(1) '((0) (1)))", "((1))"},
         {"(assoc 8 '((0 . \"LINE\") (8 . \"0\")))", "(8 . \"0\")"},
         {"(assoc 9 '((8 . 1)))", "nil"},
         {"(vl-position 'b '(a b c))", "1"},
         {"(vl-position 'z '(a))", "nil"},
         {"(listp nil)", "T"},
         {"(listp '(1 . 2))", "T"},
         {"(vl-consp nil)", "nil"},
         {"(atom nil)", "T"},
         {"(atom '(a))", "nil"}});
}

TEST_F(Lists, Errors) {
  check({{"(car 1)", "! bad argument type: listp: 1"},
         {"(cadr '(1 . 2))", "! bad argument type: listp: 2"},
         {"(length 5)", "! bad argument type: listp: 5"},
         {"(length '(1 . 2))", "! bad list: (1 . 2)"},
         {"(nth -1 '(1))", "! bad argument value: non-negative: -1"},
         {"(nth 1.0 '(1))", "! bad argument type: fixnump: 1.0"},
         {"(assoc 1 '(1 2))", "! bad association list: (1 2)"},
         {"(append 1 '(2))", "! bad argument type: listp: 1"},
         {"(reverse \"abc\")", "! bad argument type: listp: \"abc\""}});
}

TEST_F(Lists, Mapping) {
  check({{"(mapcar '1+ '(10 20 30))", "(11 21 31)"},
         {"(mapcar '+ '(1 2 3) '(10 20))", "(11 22)"},
         {"(mapcar 'cons '(a b) '(1 2))", "((A . 1) (B . 2))"},
         {"(mapcar (function (lambda (x) (* x x))) '(1 2 3))", "(1 4 9)"},
         {"(mapcar 'list '(1 2) '(3 4) '(5 6))", "((1 3 5) (2 4 6))"},
         {"(apply 'mapcar (cons 'list '((1 2) (3 4))))", "((1 3) (2 4))"},
         {"(apply '+ '(1 2 3))", "6"},
         {"(apply 'and '(1 nil 2))", "nil"},
         {"(apply 'or (list nil 'a))", "T"},
         {"(progn (mapcar 'setq '(p q) '(1 (2 3))) (list p q))", "(1 (2 3))"},
         {"(progn (mapcar 'set '(p q) '(5 6)) (list p q))", "(5 6)"},
         {"(vl-some '(lambda (x) (if (> x 1) x)) '(1 2 3))", "2"},
         {"(vl-some '< '(3 1) '(2 2))", "T"},
         {"(vl-every 'numberp '(1 2.0))", "T"},
         {"(vl-every '= '(1 2) '(1 3))", "nil"},
         {"(vl-every 'numberp nil)", "T"},
         {"(vl-remove-if 'minusp '(1 -2 3))", "(1 3)"},
         {"(vl-remove-if-not 'minusp '(1 -2 3))", "(-2)"},
         {"(vl-member-if 'minusp '(1 -2 3))", "(-2 3)"},
         {"(vl-member-if-not 'numberp '(1 a b))", "(A B)"},
         {"(mapcar 'nofun '(1))", "! no function definition: NOFUN"},
         {"(mapcar '5 '(1))", "! bad function: 5"}});
}

TEST_F(Lists, Sorting) {
  check({{"(vl-sort '(3 2 1 3) '<)", "(1 2 3)"},
         {"(vl-sort '(3 2 1 3) '>)", "(3 2 1)"},
         {"(vl-sort '(2.5 1.0 2.5) '<)", "(1.0 2.5 2.5)"},
         {"(vl-sort '(\"b\" \"a\" \"c\") '<)", "(\"a\" \"b\" \"c\")"},
         {"(vl-sort '(a d c b a) '(lambda (x y) (< (vl-symbol-name x) (vl-symbol-name y))))", "(A B C D)"},
         {"(vl-sort '((1 3) (2 2) (3 3)) (function (lambda (a b) (< (cadr a) (cadr b)))))", "((2 2) (1 3) (3 3))"},
         {"(vl-sort nil '<)", "nil"},
         {"(vl-sort '(1 2 3 4 5) '(lambda (a b) t))", "(5 4 3 2 1)"},
         {"(vl-sort '(1 nil) '<)", "! bad argument type for compare: nil 1"},
         {"(vl-sort-i '(\"a\" \"d\" \"f\" \"c\") '<)", "(0 3 1 2)"},
         {"(vl-sort-i '(3 2 1 3) '<)", "(2 1 0 3)"},
         {"(acad_strlsort '(\"Mar\" \"jan\" \"Feb\" \"mar\"))", "(\"Feb\" \"jan\" \"Mar\" \"mar\")"}});
}

TEST_F(Lists, SymbolsAndTypes) {
  check({{"(type 1)", "INT"},
         {"(type 1.0)", "REAL"},
         {"(type \"a\")", "STR"},
         {"(type 'a)", "SYM"},
         {"(type '(1 . 2))", "LIST"},
         {"(type nil)", "nil"},
         {"(type car)", "SUBR"},
         {"(type if)", "SUBR"},
         {"(type (lambda (x) x))", "USUBR"},
         {"(progn (defun-q dq (x) x) (type dq))", "LIST"},
         {"(vl-symbol-name 'S::STARTUP)", "\"S::STARTUP\""},
         {"(progn (setq v 12) (vl-symbol-value 'v))", "12"},
         {"(boundp 'undefined-thing)", "nil"},
         {"(progn (setq v 1) (boundp 'v))", "T"},
         {"(vl-symbolp 'a)", "T"},
         {"(atoms-family 1 '(\"car\" \"undefined-thing\"))", "(\"CAR\" nil)"},
         {"(and (member 'car (atoms-family 0)) t)", "T"}});
}

TEST_F(Lists, PropagationAsksTheHost) {
  std::string name;
  in.onPropagate([&name](const std::string& symbol) { name = symbol; });
  run("(setq shared 1)(vl-propagate 'shared)");
  EXPECT_EQ(name, "SHARED");
}

}  // namespace
}  // namespace atelier::lisp
