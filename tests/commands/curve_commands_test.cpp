// Commands on curves and polylines, and AutoLISP functions on curves: their results in the drawing.
#include <cmath>

#include "tests/support/bare_host.h"

namespace kaveltest {

class CurveCommands : public DrawingTest {
 protected:
  void SetUp() override {
    run(kTools);
    run(kCurveTools);
    run("(setq b (line '(0. -5. 0.) '(0. 5. 0.)) c (line '(6. -5. 0.) '(6. 5. 0.)))");
  }
};

TEST_F(CurveCommands, AnswerAutolisp) {
  run("(setq l (line '(0. 0. 0.) '(3. 4. 0.)) k (circle '(0. 0. 0.) 2.) p (pline '((0. 0.) (10. 0.) (10. 5.)) nil))");
  check(
      {{"(vlax-curve-getEndParam l)", "5.0"},
       {"(short (vlax-curve-getPointAtDist l 2.5))", "(\"1.50\" \"2.00\" \"0.00\")"},
       {"(vlax-curve-getPointAtDist l 6.)", "nil"},
       {"(rtos (vlax-curve-getDistAtParam k pi) 2 4)", "\"6.2832\""},
       {"(rtos (vlax-curve-getArea k) 2 4)", "\"12.5664\""},
       {"(vlax-curve-isClosed k)", "T"},
       {"(vlax-curve-isPeriodic k)", "T"},
       {"(vlax-curve-isPlanar k)", "T"},
       {"(vlax-curve-isClosed l)", "nil"},
       {"(vlax-curve-getParamAtPoint p '(10. 2.5 0.))", "1.5"},
       {"(vlax-curve-getParamAtPoint p '(3. 1. 0.))", "nil"},
       {"(vlax-curve-getDistAtPoint p '(10. 2.5 0.))", "12.5"},
       {"(vlax-curve-getParamAtDist p 5.)", "0.5"},
       {"(short (vlax-curve-getFirstDeriv l 1.))", "(\"0.60\" \"0.80\" \"0.00\")"},
       {"(short (vlax-curve-getClosestPointTo p '(12. 2. 0.)))", "(\"10.00\" \"2.00\" \"0.00\")"},
       {"(short (vlax-curve-getClosestPointTo l '(6. 8. 0.)))", "(\"3.00\" \"4.00\" \"0.00\")"},
       {"(short (vlax-curve-getClosestPointTo l '(6. 8. 0.) T))", "(\"6.00\" \"8.00\" \"0.00\")"},
       {"(short (vlax-curve-getClosestPointToProjection l '(1.5 2. 9.) '(0. 0. 1.)))", "(\"1.50\" \"2.00\" \"0.00\")"},
       {"(vlax-curve-getEndPoint (text '(0. 0. 0.) \"a\"))", "! bad argument value: AcDbCurve"},
       {"(vlax-curve-getArea 3)", "! bad argument type: lentityp 3"}});
}

TEST_F(CurveCommands, Cut) {
  check({// the part between the two points is removed, the first piece keeps the entity's name
         {"(progn (setq l (line '(-10. 0. 0.) '(10. 0. 0.))) (command \"_BREAK\" (pick l '(-4. 0. 0.)) '(2. 0. 0.)) "
          "(list (ends l) (ends (entlast))))",
          "(((\"-10.00\" \"0.00\" \"0.00\") (\"-4.00\" \"0.00\" \"0.00\")) ((\"2.00\" \"0.00\" \"0.00\") (\"10.00\" "
          "\"0.00\" \"0.00\")))"},
         {"(progn (command \"_BREAK\" (pick l '(-9. 0. 0.)) \"_F\" '(-6. 0. 0.) \"\") (ends (entlast)))",
          "((\"-6.00\" \"0.00\" \"0.00\") (\"-4.00\" \"0.00\" \"0.00\"))"},
         {"(progn (setq k (circle '(20. 0. 0.) 2.)) (command \"_BREAK\" (pick k '(22. 0. 0.)) '(20. 2. 0.)) (list (g 0 "
          "k) (rtos (vlax-curve-getDistAtParam k (vlax-curve-getEndParam k)) 2 3)))",
          "(\"ARC\" \"9.425\")"},
         {"(progn (command \"_UNDO\" 1) (g 0 k))", "\"CIRCLE\""},
         {"(progn (setq q (pline '((30. 0.) (34. 0.) (34. 4.) (30. 4.)) T)) (command \"_BREAK\" (pick q '(34. 1. 0.)) "
          "'(34. 3. 0.)) (list (g 70 q) (ends q)))",
          "(0 ((\"34.00\" \"3.00\" \"0.00\") (\"34.00\" \"1.00\" \"0.00\")))"},
         // an object without a pick: both points follow
         {"(progn (setq l (line '(0. 60. 0.) '(10. 60. 0.))) (command \"_BREAK\" l '(2. 60. 0.) '(4. 60. 0.)) (list "
          "(ends l) (ends (entlast))))",
          "(((\"0.00\" \"60.00\" \"0.00\") (\"2.00\" \"60.00\" \"0.00\")) ((\"4.00\" \"60.00\" \"0.00\") (\"10.00\" "
          "\"60.00\" \"0.00\")))"},
         {"(progn (command \"_BREAK\" l \"_F\" '(1. 60. 0.) \"@\") (ends l))",
          "((\"0.00\" \"60.00\" \"0.00\") (\"1.00\" \"60.00\" \"0.00\"))"}});
}

TEST_F(CurveCommands, TrimAndExtend) {
  check({{"(progn (setq l (line '(-10. 0. 0.) '(10. 0. 0.))) (command \"_TRIM\" b c \"\" (pick l '(3. 0. 0.)) \"\") "
          "(list (ends l) (ends (entlast))))",
          "(((\"-10.00\" \"0.00\" \"0.00\") (\"0.00\" \"0.00\" \"0.00\")) ((\"6.00\" \"0.00\" \"0.00\") (\"10.00\" "
          "\"0.00\" \"0.00\")))"},
         {"(progn (setq k (circle '(0. 0. 0.) 3.)) (command \"_TRIM\" b \"\" (pick k '(3. 0. 0.)) \"\") (ends k))",
          "((\"0.00\" \"3.00\" \"0.00\") (\"0.00\" \"-3.00\" \"0.00\"))"},
         {"(progn (setq l (line '(2. 1. 0.) '(4. 1. 0.))) (command \"_EXTEND\" b c \"\" (pick l '(3.9 1. 0.)) (pick l "
          "'(2.1 1. 0.)) \"\") (ends l))",
          "((\"0.00\" \"1.00\" \"0.00\") (\"6.00\" \"1.00\" \"0.00\"))"},
         {"(progn (setq p (pline '((2. 2.) (3. 2.) (3. 1.) (4. 1.)) nil)) (command \"_EXTEND\" c \"\" (pick p '(4. 1. "
          "0.)) \"\") (last (all-points p)))",
          "(\"6.00\" \"1.00\")"},
         {"(progn (setq a (arc '(0. -1. 0.) 2. 4. 6.)) (command \"_EXTEND\" b \"\" (pick a (vlax-curve-getEndPoint a)) "
          "\"\") (short (vlax-curve-getEndPoint a)))",
          "(\"0.00\" \"1.00\" \"0.00\")"}});
}

TEST_F(CurveCommands, Offset) {
  check({{"(progn (command \"_OFFSET\" 1.5 (pick b '(0. 0. 0.)) '(-3. 0. 0.) \"\") (ends (entlast)))",
          "((\"-1.50\" \"-5.00\" \"0.00\") (\"-1.50\" \"5.00\" \"0.00\"))"},
         {"(progn (setq k (circle '(20. 0. 0.) 4.)) (command \"_OFFSET\" 1. (pick k '(24. 0. 0.)) '(20. 1. 0.) \"\") "
          "(last-g 40))",
          "3.0"},
         {"(progn (setq p (pline '((0. 0.) (10. 0.) (10. 10.) (0. 10.)) T)) (command \"_OFFSET\" 2. (pick p '(5. 0. "
          "0.)) '(5. 5. 0.) \"\") (all-points (entlast)))",
          "((\"2.00\" \"2.00\") (\"8.00\" \"2.00\") (\"8.00\" \"8.00\") (\"2.00\" \"8.00\"))"},
         {"(progn (command \"_OFFSET\" \"_T\" (pick p '(5. 0. 0.)) '(5. -3. 0.) \"\") (all-points (entlast)))",
          "((\"-3.00\" \"-3.00\") (\"13.00\" \"-3.00\") (\"13.00\" \"13.00\") (\"-3.00\" \"13.00\"))"},
         {"(progn (command \"_OFFSET\" \"_E\" \"_Y\" 1. (pick p '(5. 0. 0.)) '(5. 5. 0.) \"\") (list (entget p) (car "
          "(all-points (entlast)))))",
          "(nil (\"1.00\" \"1.00\"))"}});
}

TEST_F(CurveCommands, FilletAndChamfer) {
  check({{"(progn (setq l (line '(-10. 2. 0.) '(-1. 2. 0.))) (setvar \"FILLETRAD\" 1.5) (command \"_FILLET\" (pick l "
          "'(-5. 2. 0.)) (pick b '(0. 0. 0.))) (list (g 0 (entlast)) (last-g 40) (ends l) (ends b)))",
          "(\"ARC\" 1.5 ((\"-10.00\" \"2.00\" \"0.00\") (\"-1.50\" \"2.00\" \"0.00\")) ((\"0.00\" \"-5.00\" \"0.00\") "
          "(\"0.00\" \"0.50\" \"0.00\")))"},
         {"(ends (entlast))", "((\"0.00\" \"0.50\" \"0.00\") (\"-1.50\" \"2.00\" \"0.00\"))"},
         {"(progn (setq p (pline '((0. 0.) (10. 0.) (10. 10.)) nil)) (command \"_FILLET\" \"_P\" p) (list (all-points "
          "p) (bulges p)))",
          "(((\"0.00\" \"0.00\") (\"8.50\" \"0.00\") (\"10.00\" \"1.50\") (\"10.00\" \"10.00\")) (\"0.000\" \"0.414\" "
          "\"0.000\" \"0.000\"))"},
         {"(progn (setq l (line '(8. 3. 0.) '(20. 3. 0.))) (command \"_CHAMFER\" \"_D\" 2. 1. \"_CHAMFER\" (pick l "
          "'(15. 3. 0.)) (pick c '(6. 0. 0.))) (ends (entlast)))",
          "((\"8.00\" \"3.00\" \"0.00\") (\"6.00\" \"2.00\" \"0.00\"))"},
         {"(progn (setq l (line '(8. 4. 0.) '(20. 4. 0.))) (command \"_FILLET\" \"_R\" 2. \"_FILLET\" \"_T\" \"_N\" "
          "(pick l '(15. 4. 0.)) (pick c '(6. 0. 0.))) (list (ends l) (last-g 40)))",
          "(((\"8.00\" \"4.00\" \"0.00\") (\"20.00\" \"4.00\" \"0.00\")) 2.0)"}});
}

TEST_F(CurveCommands, Polylines) {
  check({{"(progn (setq l (line '(20. 0. 0.) '(24. 0. 0.)) m (line '(24. 3. 0.) '(24. 0. 0.)) n (arc '(24. 4. 0.) 1. "
          "(* 0.5 pi) (* 1.5 pi)))"
          " (command \"_PEDIT\" l \"_Y\" \"_J\" m n \"\" \"_W\" 0.2 \"\") (list (g 0 l) (all-points l) (g 43 l) "
          "(entget m)))",
          "(\"LWPOLYLINE\" ((\"20.00\" \"0.00\") (\"24.00\" \"0.00\") (\"24.00\" \"3.00\") (\"24.00\" \"5.00\")) 0.2 "
          "nil)"},
         {"(progn (command \"_PEDIT\" l \"_C\" \"_X\") (g 70 l))", "1"},
         {"(progn (command \"_PEDIT\" l \"_O\" \"_D\" \"\") (list (g 70 l) (bulges l)))",
          "(0 (\"0.000\" \"0.000\" \"0.000\" \"0.000\"))"},
         {"(progn (command \"_PEDIT\" l \"_E\" \"_M\" '(19. 1. 0.) \"_I\" '(22. 2. 0.) \"_X\" \"\") (list (car "
          "(all-points l)) (cadr (all-points l))))",
          "((\"19.00\" \"1.00\") (\"22.00\" \"2.00\"))"},
         // a fitted polyline through points of a circle is that circle
         {"(progn (setq p (pline (mapcar '(lambda (a) (list (* 5. (cos a)) (* 5. (sin a)))) '(0. 1. 2. 3.)) nil)) "
          "(command \"_PEDIT\" p \"_F\" \"\")"
          " (list (length (all-points p)) (rtos (vlax-curve-getDistAtParam p (vlax-curve-getEndParam p)) 2 3)))",
          "(7 \"15.000\")"},
         {"(progn (setq p (pline '((0. 0.) (4. 8.) (8. 0.)) nil)) (setvar \"SPLINETYPE\" 5) (setvar \"SPLINESEGS\" 4) "
          "(command \"_PEDIT\" p \"_S\" \"\")"
          " (list (length (all-points p)) (nth 4 (all-points p))))",
          "(9 (\"4.00\" \"4.00\"))"}});
}

TEST_F(CurveCommands, ManyPolylinesAtOnce) {
  check({{"(progn (setq s (ssadd (line '(20. 0. 0.) '(24. 0. 0.)))) (ssadd (line '(24.005 0. 0.) '(24. 3. 0.)) s) "
          "(ssadd (pline '((24. 3.) (30. 3.)) nil) s) (ssadd (line '(40. 0. 0.) '(41. 0. 0.)) s)"
          " (command \"_PEDIT\" \"_M\" s \"\" \"_Y\" \"_J\" 0.01 \"_W\" 0.3 \"\") (mapcar '(lambda (e) (if (entget e) "
          "(list (length (all-points e)) (g 43 e)))) (list (ssname s 0) (ssname s 1) (ssname s 2) (ssname s 3))))",
          "((4 0.3) nil nil (2 0.3))"},
         {"(progn (command \"_PEDIT\" (ssname s 0) \"_L\" \"_ON\" \"\") (g 70 (ssname s 0)))", "128"},
         {"(progn (setvar \"PEDITACCEPT\" 1) (setq l (line '(0. 50. 0.) '(1. 50. 0.))) (command \"_PEDIT\" l \"_X\") "
          "(g 0 l))",
          "\"LWPOLYLINE\""}});
}

TEST_F(CurveCommands, Splines) {
  check(
      {{"(progn (command \"_SPLINE\" '(0. 0. 0.) '(5. 5. 0.) '(10. 0. 0.) \"\" \"\" \"\") (list (g 0 (entlast)) "
        "(last-g 74) (ends (entlast))))",
        "(\"SPLINE\" 3 ((\"0.00\" \"0.00\" \"0.00\") (\"10.00\" \"0.00\" \"0.00\")))"}});
}

TEST_F(CurveCommands, Undo) {
  check({{"(progn (command \"_UNDO\" \"_M\") (command \"_LINE\" '(1. 1.) '(2. 2.) \"\") (command \"_CIRCLE\" '(1. 1.) "
          "1.) (count))",
          "4"},
         {"(progn (command \"_UNDO\" \"_B\") (count))", "2"},
         {"(progn (command \"_REDO\") (count))", "4"},
         {"(progn (command \"_UNDO\" 2) (count))", "2"},
         {"(progn (command \"_REDO\") (count))", "4"},
         {"(progn (command \"_UNDO\" \"_BE\") (command \"_ERASE\" \"_L\" \"\") (command \"_ERASE\" \"_L\" \"\") "
          "(command \"_UNDO\" \"_E\") (command \"_U\") (count))",
          "4"},
         {"(progn (command \"_UNDO\" \"_B\" \"_N\") (count))", "4"},
         {"(progn (command \"_UNDO\" \"_B\" \"_Y\") (count))", "2"}});
}

}  // namespace kaveltest
