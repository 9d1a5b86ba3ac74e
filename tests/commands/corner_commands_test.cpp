// FILLET and CHAMFER on lines, arcs, circles and polylines: their results in the drawing, and what they refuse.
#include "tests/support/bare_host.h"

namespace kaveltest {

class CornerCommands : public DrawingTest {
 protected:
  void SetUp() override {
    run(kTools);
    run(kCurveTools);
    // An entity in few characters: its kind, where it begins and ends; of round ones the radius.
    run(R"((progn
      (defun xy (p) (strcat (rtos (car p) 2 2) "," (rtos (cadr p) 2 2)))
      (defun say (e) (strcat (substr (g 0 e) 1 4) " " (xy (vlax-curve-getStartPoint e)) " "
        (xy (vlax-curve-getEndPoint e)) (if (member (g 0 e) '("ARC" "CIRCLE")) (strcat " r" (rtos (g 40 e) 2 2)) "")))
      (defun path (e / r) (foreach p (entget e) (cond ((= (car p) 10) (setq r (cons (xy (cdr p)) r)))
        ((and (= (car p) 42) (/= (cdr p) 0.)) (setq r (cons (rtos (cdr p) 2 3) r))))) (reverse r))
      (defun bpline (pts / p) (entmakex (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline")
        (cons 90 (length pts)) '(70 . 0)) (apply 'append (mapcar '(lambda (p)
          (list (list 10 (car p) (cadr p)) (cons 42 (caddr p)))) pts)))))
      (defun fillet (r a pa b pb) (setvar "FILLETRAD" r) (command "_FILLET" (list a pa) (list b pb)))
      (defun chamfer (x y a pa b pb) (setvar "CHAMFERA" x) (setvar "CHAMFERB" y)
        (command "_CHAMFER" (list a pa) (list b pb)))
      (setvar "FILLETRAD" 2.)))");
  }
  void rows(std::initializer_list<Row> list) {
    for (const Row& row : list) {
      session.transcript();
      const std::string printed = run("(progn (command \"_ERASE\" \"_ALL\" \"\") " + std::string(row.lisp) + ")");
      EXPECT_EQ(printed, row.printed) << row.lisp << session.transcript();
    }
  }
};

// A line along the x axis and a quarter of the circle of radius 10: the centres lie 12 or 8 from the origin, 2 above.
TEST_F(CornerCommands, FilletALineWithAnArc) {
  const std::string draw = "(setq l (line '(0. 0. 0.) '(20. 0. 0.)) a (arc '(0. 0. 0.) 10. 0. (/ pi 2))) ";
  const auto with = [&](const char* rest, const char* printed) { rows({{(draw + rest).c_str(), printed}}); };
  with("(fillet 2. l '(15. 0.) a '(7. 7.)) (list (say l) (say a) (say (entlast)))",
       R"(("LINE 11.83,0.00 20.00,0.00" "ARC 9.86,1.67 0.00,10.00 r10.00" "ARC 9.86,1.67 11.83,0.00 r2.00"))");
  with("(fillet 2. l '(5. 0.) a '(7. 7.)) (list (say l) (say a) (say (entlast)))",
       R"(("LINE 0.00,0.00 7.75,0.00" "ARC 9.68,2.50 0.00,10.00 r10.00" "ARC 7.75,0.00 9.68,2.50 r2.00"))");
  with("(fillet 0. l '(5. 0.) a '(7. 7.)) (list (say l) (say a) (count))",
       R"(("LINE 0.00,0.00 10.00,0.00" "ARC 10.00,0.00 0.00,10.00 r10.00" 2))");
  // an arc that is too short is lengthened to the corner
  with("(entmod (subst '(50 . 0.5) (assoc 50 (entget a)) (entget a))) (fillet 0. a '(7. 7.) l '(5. 0.)) (say a)",
       R"("ARC 10.00,0.00 0.00,10.00 r10.00")");
  with(
      "(setvar \"TRIMMODE\" 0) (fillet 2. l '(15. 0.) a '(7. 7.)) (setvar \"TRIMMODE\" 1)"
      "(list (say l) (say a) (say (entlast)))",
      R"(("LINE 0.00,0.00 20.00,0.00" "ARC 10.00,0.00 0.00,10.00 r10.00" "ARC 9.86,1.67 11.83,0.00 r2.00"))");
}

TEST_F(CornerCommands, FilletArcsAndCircles) {
  rows({// circles stay whole; the arc nearest to the picks: between them, or round both
        {"(setq a (circle '(0. 0. 0.) 5.) b (circle '(20. 0. 0.) 5.)) (fillet 10. a '(3. 4.) b '(17. 4.))"
         "(list (say a) (say b) (say (entlast)))",
         R"(("CIRC 5.00,0.00 5.00,0.00 r5.00" "CIRC 25.00,0.00 25.00,0.00 r5.00" "ARC 3.33,3.73 16.67,3.73 r10.00"))"},
        {"(setq a (circle '(0. 0. 0.) 5.) b (circle '(20. 0. 0.) 5.)) (fillet 30. a '(-4. 3.) b '(24. 3.))"
         "(say (entlast))",
         R"("ARC 22.00,4.58 -2.00,4.58 r30.00")"},
        // two arcs that run into each other
        {"(setq a (arc '(0. 0. 0.) 5. 0. pi) b (arc '(8. 0. 0.) 5. 0. pi)) (fillet 1. a '(-3. 4.) b '(11. 4.))"
         "(list (say a) (say b) (say (entlast)))",
         R"(("ARC 3.33,3.73 -5.00,0.00 r5.00" "ARC 13.00,0.00 4.67,3.73 r5.00" "ARC 3.33,3.73 4.67,3.73 r1.00"))"},
        // a circle and a line: the line is cut
        {"(setq a (circle '(0. 0. 0.) 5.) l (line '(-20. 8. 0.) '(20. 8. 0.))) (fillet 3. l '(-9. 8.) a '(-2. 4.5))"
         "(list (say a) (say l) (say (entlast)))",
         R"(("CIRC 5.00,0.00 5.00,0.00 r5.00" "LINE -20.00,8.00 -6.24,8.00" "ARC -3.90,3.13 -6.24,8.00 r3.00"))"}});
}

TEST_F(CornerCommands, FilletParallelLinesAndRays) {
  rows(
      {// half a circle at the end of the first line that was picked
       {"(setq a (line '(0. 0. 0.) '(10. 0. 0.)) b (line '(2. 4. 0.) '(8. 4. 0.))) (fillet 7. a '(9. 0.) b '(7. 4.))"
        "(list (say a) (say b) (say (entlast)))",
        R"(("LINE 0.00,0.00 10.00,0.00" "LINE 2.00,4.00 10.00,4.00" "ARC 10.00,0.00 10.00,4.00 r2.00"))"},
       {"(setq a (line '(0. 0. 0.) '(10. 0. 0.)) b (line '(8. 4. 0.) '(-2. 4. 0.))) (fillet 7. a '(1. 0.) b '(7. 4.))"
        "(list (say a) (say b) (say (entlast)))",
        R"(("LINE 0.00,0.00 10.00,0.00" "LINE 8.00,4.00 0.00,4.00" "ARC 0.00,4.00 0.00,0.00 r2.00"))"},
       // what is left of an endless line is a ray
       {"(setq a (entmakex '((0 . \"XLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbXline\") (10 0. 0. 0.) (11 1. 0. 0.)))"
        " b (line '(5. -3. 0.) '(5. 9. 0.))) (fillet 0. a '(1. 0.) b '(5. 4.)) (list (g 0 a) (g 10 a) (g 11 a) (say "
        "b))",
        R"(("RAY" (5.0 0.0 0.0) (-1.0 0.0 0.0) "LINE 5.00,0.00 5.00,9.00"))"}});
}

TEST_F(CornerCommands, FilletPolylinesWithOthers) {
  rows({// the polyline takes in the arc and the line
        {"(setq p (pline '((0. 0.) (10. 0.) (10. 10.)) nil) l (line '(14. 20. 0.) '(20. 20. 0.)))"
         "(fillet 2. p '(10. 8.) l '(18. 20.)) (list (path p) (entget l) (count))",
         R"((("0.00,0.00" "10.00,0.00" "10.00,18.00" "-0.414" "12.00,20.00" "20.00,20.00") nil 1))"},
        {"(setq p (pline '((0. 0.) (10. 0.) (10. 10.)) nil) l (line '(14. 20. 0.) '(20. 20. 0.)))"
         "(fillet 0. l '(18. 20.) p '(10. 8.)) (list (path p) (entget l) (count))",
         R"((("0.00,0.00" "10.00,0.00" "10.00,20.00" "20.00,20.00") nil 1))"},
        // the part beyond the segment is removed
        {"(setq p (pline '((0. 0.) (10. 0.) (10. 10.)) nil) l (line '(4. 3. 0.) '(4. 9. 0.)))"
         "(fillet 1. p '(1. 0.) l '(4. 8.)) (path p)",
         R"(("0.00,0.00" "3.00,0.00" "0.414" "4.00,1.00" "4.00,9.00"))"},
        // an arc: the centre lies 2 left of the segment and 12 from the arc's
        {"(setq p (pline '((0. -30.) (0. -5.)) nil) a (arc '(0. 0. 0.) 10. pi (* 1.4 pi)))"
         "(fillet 2. p '(0. -25.) a '(-8. -6.)) (list (path p) (entget a) (count))",
         R"((("0.00,-30.00" "0.00,-11.83" "0.366" "-1.67,-9.86" "-0.366" "-10.00,0.00") nil 1))"},
        // a circle is not taken in
        {"(setq p (pline '((0. -30.) (0. -15.)) nil) a (circle '(0. 0. 0.) 10.))"
         "(fillet 2. p '(0. -25.) a '(-3. -9.)) (list (path p) (say (entlast)) (count))",
         R"((("0.00,-30.00" "0.00,-11.83") "ARC 0.00,-11.83 -1.67,-9.86 r2.00" 3))"},
        // two polylines become one
        {"(setq p (pline '((0. 0.) (8. 0.)) nil) q (pline '((10. 3.) (10. 9.) (20. 9.)) nil))"
         "(fillet 2. p '(7. 0.) q '(10. 5.)) (list (path p) (entget q))",
         R"((("0.00,0.00" "8.00,0.00" "0.414" "10.00,2.00" "10.00,9.00" "20.00,9.00") nil))"}});
}

TEST_F(CornerCommands, FilletSegmentsOfOnePolyline) {
  rows({{"(setq p (pline '((0. 0.) (10. 0.) (10. 10.)) nil)) (fillet 3. p '(5. 0.) p '(10. 8.)) (path p)",
         R"(("0.00,0.00" "7.00,0.00" "0.414" "10.00,3.00" "10.00,10.00"))"},
        // picked the other way round, at the corner where a closed one begins
        {"(setq p (pline '((0. 0.) (10. 0.) (10. 10.) (0. 10.)) T)) (fillet 3. p '(0. 5.) p '(5. 0.))"
         "(list (path p) (g 70 p))",
         R"((("3.00,0.00" "10.00,0.00" "10.00,10.00" "0.00,10.00" "0.00,3.00" "0.414") 1))"},
        // the one segment between them is removed
        {"(setq p (pline '((0. 0.) (8. 0.) (10. 2.) (10. 10.)) nil)) (fillet 0. p '(5. 0.) p '(10. 8.)) (path p)",
         R"(("0.00,0.00" "10.00,0.00" "10.00,10.00"))"},
        // the ends of an open one
        {"(setq p (pline '((5. 0.) (10. 0.) (10. 10.) (0. 10.) (0. 5.)) nil)) (fillet 2. p '(7. 0.) p '(0. 8.))"
         "(list (path p) (g 70 p))",
         R"((("2.00,0.00" "10.00,0.00" "10.00,10.00" "0.00,10.00" "0.00,2.00" "0.414") 1))"},
        // a quarter of a circle and the straight segment after it
        {"(setq p (bpline '((10. 0. 0.4142135623730951) (0. 10. 0.) (0. -5. 0.))))"
         "(fillet 2. p '(7. 7.) p '(0. 1.)) (path p)",
         R"(("10.00,0.00" "0.342" "2.50,9.68" "0.490" "0.00,7.75" "0.00,-5.00"))"}});
}

TEST_F(CornerCommands, WholePolylines) {
  rows({{"(setq p (pline '((0. 0.) (10. 0.) (10. 10.) (0. 10.)) T)) (setvar \"FILLETRAD\" 5.) (command \"_FILLET\" "
         "\"_P\" p)"
         "(list (path p) (g 70 p))",
         R"((("0.00,5.00" "0.414" "5.00,0.00" "0.414" "10.00,5.00" "0.414" "5.00,10.00" "0.414") 1))"},
        // one corner leaves too little for the next
        {"(setq p (pline '((0. 0.) (10. 0.) (10. 5.) (20. 5.)) nil)) (setvar \"FILLETRAD\" 3.) (command \"_FILLET\" "
         "\"_P\" p)"
         "(path p)",
         R"(("0.00,0.00" "7.00,0.00" "0.414" "10.00,3.00" "10.00,5.00" "20.00,5.00"))"},
        // an arc between lines is replaced; with a radius of 0 it is removed
        {"(setq p (bpline '((0. 0. 0.) (7. 0. 0.4142135623730951) (10. 3. 0.) (10. 10. 0.))))"
         "(setvar \"FILLETRAD\" 1.) (command \"_FILLET\" \"_P\" p) (setq r (path p)) (setvar \"FILLETRAD\" 0.)"
         "(command \"_FILLET\" \"_P\" p) (list r (path p))",
         R"((("0.00,0.00" "9.00,0.00" "0.414" "10.00,1.00" "10.00,10.00") ("0.00,0.00" "10.00,0.00" "10.00,10.00")))"},
        {"(setq p (pline '((0. 0.) (10. 0.) (10. 10.)) nil)) (setvar \"CHAMFERA\" 2.) (setvar \"CHAMFERB\" 3.)"
         "(command \"_CHAMFER\" \"_P\" p) (path p)",
         R"(("0.00,0.00" "8.00,0.00" "10.00,3.00" "10.00,10.00"))"}});
}

TEST_F(CornerCommands, Chamfer) {
  rows({{"(setq p (pline '((0. 0.) (10. 0.) (10. 10.)) nil) l (line '(14. 20. 0.) '(20. 20. 0.)))"
         "(chamfer 1. 2. p '(10. 8.) l '(18. 20.)) (list (path p) (entget l))",
         R"((("0.00,0.00" "10.00,0.00" "10.00,19.00" "12.00,20.00" "20.00,20.00") nil))"},
        {"(setq p (pline '((0. 0.) (10. 0.) (10. 10.)) nil)) (chamfer 1. 2. p '(10. 8.) p '(2. 0.)) (path p)",
         R"(("0.00,0.00" "8.00,0.00" "10.00,1.00" "10.00,10.00"))"},
        {"(setq a (line '(0. 0. 0.) '(10. 0. 0.)) b (line '(10. 0. 0.) '(10. 9. 0.)) c (line '(10. 9. 0.) '(0. 9. 0.)))"
         "(setvar \"CHAMFERA\" 1.) (setvar \"CHAMFERB\" 1.) (command \"_CHAMFER\" \"_M\" (list a '(5. 0.)) (list b "
         "'(10. 4.))"
         " (list b '(10. 5.)) (list c '(5. 9.)) \"\") (list (say b) (count))",
         R"(("LINE 10.00,1.00 10.00,8.00" 5))"}});
}

// Arcs seen from below, lines in a standing plane, layers and survey coordinates.
TEST_F(CornerCommands, InOtherPlanes) {
  rows(
      {{"(setq l (line '(0. 0. 0.) '(20. 0. 0.)) a (entmakex (list '(0 . \"ARC\") '(10 0. 0. 0.) '(40 . 10.)"
        " (cons 50 (/ pi 2)) (cons 51 pi) '(210 0. 0. -1.)))) (fillet 2. l '(15. 0.) a '(7. 7.))"
        "(list (say l) (say a) (say (entlast)))",
        R"(("LINE 11.83,0.00 20.00,0.00" "ARC 0.00,10.00 9.86,1.67 r10.00" "ARC 11.83,0.00 9.86,1.67 r2.00"))"},
       {"(setq a (line '(0. 0. 0.) '(0. 0. 10.)) b (line '(0. 0. 0.) '(0. 10. 0.))) (fillet 2. a '(0. 0. 8.) b '(0. "
        "8. 0.))"
        "(list (short (vlax-curve-getStartPoint a)) (short (vlax-curve-getStartPoint b)) (last-g 40)"
        " (mapcar 'abs (last-g 210)))",
        R"((("0.00" "0.00" "2.00") ("0.00" "2.00" "0.00") 2.0 (1.0 0.0 0.0)))"},
       {"(setq a (line '(652000. 6862000. 35.) '(652010. 6862000. 35.)) b (line '(652012. 6862002. 35.) '(652012. "
        "6862010. 35.)))"
        "(command \"_-LAYER\" \"_N\" \"VOIRIE\" \"\") (entmod (subst '(8 . \"VOIRIE\") (assoc 8 (entget a)) (entget "
        "a)))"
        "(fillet 1. a '(652009. 6862000.) b '(652012. 6862009.)) (list (say a) (say b) (xy (last-g 10)) (last-g 8))",
        R"(("LINE 652000.00,6862000.00 652011.00,6862000.00" "LINE 652012.00,6862001.00 652012.00,6862010.00")"
        R"( "652011.00,6862001.00" "0"))"},
       // The arc is on the layer of both, on the current one (0) where they differ.
       {"(setq a (line '(0. 0. 0.) '(9. 0. 0.)) b (line '(0. 0. 0.) '(0. 9. 0.))) (foreach e (list a b) (entmod (subst "
        "'(8 . \"VOIRIE\") (assoc 8 (entget e)) (entget e)))) (fillet 1. a '(8. 0.) b '(0. 8.)) (last-g 8)",
        R"("VOIRIE")"}});
}

struct Refusal {
  const char* lisp;
  const char* message;
};

TEST_F(CornerCommands, SayWhatTheyCannotDo) {
  const Refusal refusals[] = {
      {"(setq a (line '(0. 0. 0.) '(3. 0. 0.)) b (line '(0. 0. 0.) '(0. 9. 0.))) (fillet 5. a '(2. 0.) b '(0. 2.))",
       "Aucun raccord de ce rayon n'est possible."},
      {"(setq a (line '(0. 0. 0.) '(3. 0. 0.)) b (line '(0. 0. 1.) '(0. 9. 2.))) (fillet 1. a '(2. 0.) b '(0. 2.))",
       "Les deux objets ne sont pas dans le même plan."},
      {"(setq a (line '(0. 0. 0.) '(3. 0. 0.)) b (line '(5. 0. 0.) '(9. 0. 0.))) (fillet 1. a '(2. 0.) b '(6. 0.))",
       "Les lignes parallèles ne se raccordent pas à cet endroit."},
      {"(setq p (bpline '((10. 0. 1.) (-10. 0. 0.) (-10. -9. 0.)))) (fillet 2. p '(0. 10.) p '(-10. -5.)) (setq a p)",
       "Aucun raccord de ce rayon n'est possible."},
      {"(setq a (line '(0. 5. 0.) '(3. 5. 0.)) b (circle '(0. 0. 0.) 2.)) (fillet 0. a '(2. 5.) b '(0. 2.))",
       "Les objets ne se rencontrent pas."},
      {"(setq a (line '(0. 0. 0.) '(3. 0. 0.)) b (text '(0. 0. 0.) \"x\")) (fillet 1. a '(2. 0.) b '(0. 0.))",
       "L'objet choisi n'est pas une courbe."},
      {"(setq a (line '(0. 0. 0.) '(3. 0. 0.))) (fillet 1. a '(2. 0.) a '(1. 0.))", "Un raccord demande deux objets."},
      {"(setq p (pline '((0. 0.) (9. 0.) (9. 9.)) T) a (line '(4. 2. 0.) '(4. 9. 0.))) (fillet 1. p '(2. 0.) a '(4. "
       "8.))",
       "Une polyligne fermée ne se raccorde qu'avec elle-même."},
      {"(setq p (pline '((0. 0.) (9. 0.) (9. 9.) (20. 9.) (20. 0.) (30. 0.)) nil)) (fillet 1. p '(2. 0.) p '(20. 5.))",
       "Les deux segments ne se suivent pas."},
      {"(setq a (line '(0. 0. 0.) '(3. 0. 0.)) b (circle '(0. 0. 0.) 2.)) (chamfer 1. 1. a '(2. 0.) b '(0. 2.))",
       "Seuls des segments droits se chanfreinent."},
      {"(setq a (line '(0. 0. 0.) '(3. 0. 0.)) b (line '(0. 0. 0.) '(0. 3. 0.))) (chamfer 4. 1. a '(2. 0.) b '(0. 2.))",
       "Les écarts sont trop grands."},
      {"(command \"_-LAYER\" \"_N\" \"FIXE\" \"_LO\" \"FIXE\" \"\") (setq a (line '(0. 0. 0.) '(3. 0. 0.))"
       " b (entmakex '((0 . \"LINE\") (8 . \"FIXE\") (10 0. 0. 0.) (11 0. 9. 0.)))) (fillet 1. a '(2. 0.) b '(0. 2.))",
       "L'objet est sur un calque verrouillé."}};
  for (const Refusal& row : refusals) {
    run("(command \"_ERASE\" \"_ALL\" \"\")");
    session.transcript();
    const std::string printed = run("(progn " + std::string(row.lisp) + " (mapcar 'say (list a)))");
    EXPECT_NE((printed + session.transcript()).find(row.message), std::string::npos) << row.lisp << '\n' << printed;
  }
}

}  // namespace kaveltest
