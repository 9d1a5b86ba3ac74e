// Errors: the *error* protocol, catching, the chain, limits, interruption.
#include <chrono>
#include <thread>

#include "tests/lisp/table.h"

namespace atelier::lisp {
namespace {

using Errors = LispTest;

TEST_F(Errors, Catching) {
  check({{"(vl-catch-all-error-p (vl-catch-all-apply '/ '(1 0)))", "T"},
         {"(vl-catch-all-error-message (vl-catch-all-apply 'car '(1)))", "\"bad argument type: listp: 1\""},
         {"(vl-catch-all-apply '+ '(1 2))", "3"},
         {"(vl-catch-all-error-p 5)", "nil"},
         {"(vl-catch-all-error-message (vl-catch-all-apply 'quit))", "\"quit / exit abort\""},
         {"(vl-catch-all-apply '(lambda () (car 1)) nil)", "#<%catch-all-apply-error%>"},
         {"(vl-catch-all-error-message 5)", "! bad argument type: error-object: 5"},
         {"(exit)", "! quit / exit abort"}});
}

TEST_F(Errors, ErrorFunctionSeesTheVariablesOfTheError) {
  run("(defun *error* (m) (princ (list m inner)))");
  EXPECT_EQ(run("(defun f (inner) (g)) (defun g () (car 5)) (f 'here)"), "! bad argument type: listp: 5");
  EXPECT_EQ(console.written, "(bad argument type: listp: 5 HERE)");
  EXPECT_EQ(run("inner"), "nil");
}

TEST_F(Errors, LocalErrorFunctionRunsOnceAndOnlyInside) {
  run("(defun h (/ *error*) (defun *error* (m) (princ \"!\") (car 7)) (car 5))");
  EXPECT_EQ(run("(h)"), "! bad argument type: listp: 5");
  EXPECT_EQ(run("(car 6)"), "! bad argument type: listp: 6");
  EXPECT_EQ(console.written, "!");
}

TEST_F(Errors, CaughtErrorsDoNotReachTheErrorFunction) {
  run("(defun *error* (m) (princ m)) (vl-catch-all-apply 'car '(1))");
  EXPECT_EQ(console.written, "");
}

TEST_F(Errors, ChainAndPlace) {
  try {
    in.evaluate("(defun a (x)\n  (b x))\n(defun b (y)\n  (+ 1\n     (strlen y)))\n(a 3)", "prog.lsp");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.chain, (std::vector<std::string>{"(STRLEN Y)", "(+ 1 (STRLEN Y))", "(B X)", "(A 3)"}));
    EXPECT_EQ(error.file, "prog.lsp");
    EXPECT_EQ(error.line, 5);
    EXPECT_FALSE(error.reported);
  }
  run("(defun bt () (list (vl-bt))) (bt)");
  EXPECT_EQ(console.written, "\nBacktrace:\n[0] (VL-BT)\n[1] (LIST (VL-BT))\n[2] (BT)\n");
}

TEST_F(Errors, DeepRecursionIsAnError) {
  check({{"(defun deep (n) (if (= n 0) 0 (1+ (deep (1- n)))))", "DEEP"},
         {"(deep 8000)", "8000"},
         {"(deep -1)", "! hard stack overflow"},
         {"(deep 10)", "10"},
         {"(defun nest (n / x) (repeat n (setq x (list 'if t x))) x)", "NEST"},
         {"(eval (nest 2000000))", "! hard stack overflow"},
         {"(progn (setq a (nest 100000) b (nest 100000)) (equal a b))", "T"},
         {"(strlen (vl-prin1-to-string (nest 100000)))", "700003"}});
  EXPECT_EQ(run("(quote " + std::string(1000000, '(')), "! hard stack overflow");
  run("(defun *error* (m) (princ (deep 100)))");
  EXPECT_EQ(run("(deep -1)"), "! hard stack overflow");
  EXPECT_EQ(console.written, "100");
}

TEST_F(Errors, ArgumentStackOverflow) {
  EXPECT_EQ(run("(defun big (l) (append l l l l l)) (setq l nil) (repeat 5000000 (setq l (cons 1 l))) (big l)"),
            "! hard stack overflow");
  EXPECT_EQ(run("(setq l nil) (+ 1 1)"), "2");
}

TEST_F(Errors, InterruptStopsLoops) {
  for (const char* loop :
       {"(while t)", "(repeat 2147483647 (setq x 1))", "(defun r () (vl-catch-all-apply 'r)) (while t (r))",
        "(while t (vl-catch-all-apply '(lambda () (while t (car 1)))))",
        "(vl-sort '(1 2 3) '(lambda (a b) (while t)))"}) {
    run("(setq told nil) (defun *error* (m) (setq told m))");
    std::thread other([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(30));
      in.interrupt();
    });
    EXPECT_EQ(run(loop), "! Function cancelled");
    other.join();
    EXPECT_EQ(run("told"), "\"Function cancelled\"") << loop;
    in.clearInterrupt();
  }
}

TEST_F(Errors, Syntax) {
  const struct {
    const char* text;
    const char* message;
    int line;
  } rows[] = {{"(setq a 1)\n\n(defun f ()\n  (car 1)\n", "malformed list on input", 3},
              {"\n(list 1))", "extra right paren on input", 2},
              {"(princ)\n(setq s \"abc\n)", "malformed string on input", 2},
              {"(a . )", "misplaced dot on input", 1},
              {"( . a)", "misplaced dot on input", 1},
              {"\n(a . b c)", "extra cdrs in dotted pair on input", 2},
              {".5", "misplaced dot on input", 1},
              {"1\n;| open", "malformed comment on input", 2},
              {"'", "malformed list on input", 1},
              {"(quote ')", "malformed list on input", 1}};
  for (const auto& row : rows) {
    try {
      in.evaluate(row.text, "x.lsp");
      ADD_FAILURE() << row.text;
    } catch (const Error& error) {
      EXPECT_EQ(error.message(), row.message) << row.text;
      EXPECT_EQ(error.line, row.line) << row.text;
      EXPECT_EQ(error.file, "x.lsp");
    }
  }
}

}  // namespace
}  // namespace atelier::lisp
