// Rows of an AutoLISP expression and what prin1 prints of its value, in a drawing of the bare host.
// An error is a row's value too: "! " and its message.
#pragma once
#include <gtest/gtest.h>

#include <initializer_list>

#include "tests/support/session.h"

namespace kaveltest {

struct Row {
  const char* lisp;
  const char* printed;
};

class DrawingTest : public testing::Test {
 protected:
  Session session{false};

  std::string run(std::string_view lisp) {
    try {
      return session.eval(lisp);
    } catch (const std::runtime_error& error) {
      return std::string("! ") + error.what();
    }
  }
  void check(std::initializer_list<Row> rows) {
    for (const Row& row : rows) EXPECT_EQ(run(row.lisp), row.printed) << row.lisp;
  }
};

// Functions that draw, and that say what the last entity is in few characters.
inline constexpr const char* kTools = R"((progn
  (setvar "DIMZIN" 0)
  (defun line (a b) (entmakex (list '(0 . "LINE") (cons 10 a) (cons 11 b))))
  (defun circle (c r) (entmakex (list '(0 . "CIRCLE") (cons 10 c) (cons 40 r))))
  (defun text (p s) (entmakex (list '(0 . "TEXT") (cons 10 p) '(40 . 2.5) (cons 1 s))))
  (defun g (code e) (cdr (assoc code (entget e))))
  (defun last-g (code) (g code (entlast)))
  (defun kinds (ss / i l) (if ss (repeat (setq i (sslength ss)) (setq l (cons (g 0 (ssname ss (setq i (1- i)))) l)))))
  (defun layers (ss / i l) (if ss (repeat (setq i (sslength ss)) (setq l (cons (g 8 (ssname ss (setq i (1- i)))) l)))))
  (defun count (/ s) (if (setq s (ssget "X")) (sslength s) 0))))";

// Polylines and arcs, and where curves run.
inline constexpr const char* kCurveTools = R"((progn
  (defun pline (pts closed / p) (entmakex (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline")
    (cons 90 (length pts)) (cons 70 (if closed 1 0))) (mapcar '(lambda (p) (cons 10 p)) pts))))
  (defun arc (c r a b) (entmakex (list '(0 . "ARC") (cons 10 c) (cons 40 r) (cons 50 a) (cons 51 b))))
  (defun pick (e p) (list e p))
  (defun short (l) (mapcar '(lambda (x) (rtos x 2 2)) l))
  (defun all-points (e / r) (foreach p (entget e) (if (= (car p) 10) (setq r (cons (short (cdr p)) r)))) (reverse r))
  (defun ends (e) (list (short (vlax-curve-getStartPoint e)) (short (vlax-curve-getEndPoint e))))
  (defun bulges (e / r) (foreach p (entget e) (if (= (car p) 42) (setq r (cons (rtos (cdr p) 2 3) r)))) (reverse r))))";

}  // namespace kaveltest
