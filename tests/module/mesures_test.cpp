// pl_fprmprb and pl_curvelength where numbers are awkward: far from the origin, and splines that a file gives by fit points only.
#include <cmath>

#include "tests/module/aide.h"

namespace {

TEST(Mesures, AParabolaGoesThroughItsPointsFarFromTheOrigin) {
  kaveltest::Session session;
  session.eval(R"((defun ecart (x y / p l)
    (setq l (mapcar '(lambda (d h) (list (+ x d) (+ y h))) '(0.0 37.25 81.5) '(12.0 14.75 9.125)) p (apply 'pl_fprmprb l))
    (apply 'max (mapcar '(lambda (q) (abs (- (cadr q) (+ (* (+ (* (car p) (car q)) (cadr p)) (car q)) (caddr p))))) l))))");
  const struct {
    const char* point;
    double atMost;  // what is left when a polynomial of such coefficients is worked out in doubles
  } rows[] = {
      {"0.0 0.0", 1e-12}, {"652000.37 6861.5", 1e-6}, {"6780000.25 1852340.5", 1e-4}, {"-6780000.25 0.0", 1e-4}};
  for (const auto& row : rows)
    EXPECT_LE(std::stod(session.eval(std::string("(ecart ") + row.point + ")")), row.atMost) << row.point;
  EXPECT_EQ(session.eval("(pl_fprmprb '(0.0 0.0) '(1.0 1.0) '(2.0 4.0))"), "(1.0 0.0 0.0)");
  EXPECT_EQ(session.eval("(pl_fprmprb '(6780000.0 0.0) '(6780000.0 1.0) '(6780002.0 4.0))"), "nil");
}

// The same curve, by its fit points and by the control points that the host works out from them.
TEST(Mesures, ASplineByFitPointsMeasuresAsOneByControlPoints) {
  kaveltest::Session session;
  session.eval(R"((progn
    (setq s (entmakex '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 3) (72 . 0) (73 . 0) (74 . 5)
      (11 0.0 0.0 0.0) (11 10.0 40.0 0.0) (11 20.0 -30.0 0.0) (11 30.0 50.0 0.0) (11 40.0 0.0 0.0))))
    (defun etirer (k) (mapcar '(lambda (p) (list (car p) (/ (cadr p) k) 0.0))
      '((0.0 0.0) (10.0 40.0) (20.0 -30.0) (30.0 50.0) (40.0 0.0))))
    (setq longueur (vlax-curve-getDistAtParam s (vlax-curve-getEndParam s)))))");
  EXPECT_EQ(session.eval("(equal (pl_curvelength s 1.0) longueur 1e-9)"), "T");
  // By hand: the drawn curve with its ordinates divided, cut into a thousand chords.
  session.eval(R"((defun par-cordes (k / i n p q l)
    (setq n 2000 i 0 l 0.0 p (vlax-curve-getPointAtParam s 0.0) fin (vlax-curve-getEndParam s))
    (repeat n
      (setq i (1+ i) q (vlax-curve-getPointAtParam s (* fin (/ i (float n))))
            l (+ l (distance (list (car p) (/ (cadr p) k)) (list (car q) (/ (cadr q) k)))) p q))
    l))");
  for (const char* k : {"1.0", "10.0", "2.5"})
    EXPECT_EQ(session.eval(std::string("(equal (pl_curvelength s ") + k + ") (par-cordes " + k + ") 1e-3)"), "T") << k;
  EXPECT_EQ(session.eval("(length (vl-remove-if-not '(lambda (g) (= (car g) 11)) (entget s)))"), "5");
}

}  // namespace
