// The front-end's tools: drawing, measures, strings.
// Entities are described as text@point, height, rotation in degrees and alignment.
#include "tests/module/aide.h"

using kaveltest::check;
using kaveltest::Row;

namespace {

struct Outils : ::testing::Test {
  Outils() { session.eval(kaveltest::kOutils); }
  std::string drawn(const std::string& call) { return session.eval("(progn (marque) " + call + " (vu))"); }
  kaveltest::Session session;
};

TEST_F(Outils, TextTakesTheFirstLetterOfItsJustification) {
  const Row rows[] = {{"centre", "1/0"}, {"C", "1/0"}, {"milieu", "4/2"}, {"R", "2/0"}, {"x", "0/0"}, {"", "0/0"}};
  for (const Row& row : rows)
    EXPECT_EQ(drawn("(pl_text \"" + std::string(row.lisp) + "\" '(3.0 4.0 9.0) 2 0.0 \"abc\")"),
              "(\"abc @3.00,4.00 h2.00 r0 " + std::string(row.value) + "\")");
  check(session, {{"(cdr (assoc 41 (entget (entlast))))", "0.8"}, {"(cadddr (assoc 10 (entget (entlast))))", "0.0"}});
}

TEST_F(Outils, TextSaysWhichArgumentIsWrong) {
  const Row rows[] = {{"(pl_text)", "param justif: non str"},
                      {"(pl_text \"C\" 1)", "param position: non point"},
                      {"(pl_text \"C\" '(0.0 0.0) 70000 0.0 \"a\")", "1er param: non reel"},
                      {"(pl_text \"C\" '(0.0 0.0) 2 \"a\" \"a\")", "param rot: non reel"},
                      {"(pl_text \"C\" '(0.0 0.0) 2 0 5)", "1er param texte: non str"}};
  for (const Row& row : rows) {
    session.transcript();
    EXPECT_EQ(drawn(row.lisp), "nil");
    EXPECT_NE(session.transcript().find(row.value), std::string::npos) << row.lisp;
  }
}

TEST_F(Outils, LinesJoinSuccessivePoints) {
  EXPECT_EQ(drawn("(pl_li '(0.0 0.0) '(1.0 0.0 7.0) '(2.0 1.0) \"fin\" '(9.0 9.0))"),
            "(\"LINE 0.00,0.00 1.00,0.00\" \"LINE 1.00,0.00 2.00,1.00\")");
  EXPECT_EQ(drawn("(pl_li '(1.0 2.0))"), "nil");
  EXPECT_EQ(drawn("(pl_li)"), "nil");
}

TEST_F(Outils, ArrowsHaveTheirTextAboveAndAlongThem) {
  EXPECT_EQ(drawn("(setq r (pl_fleche '(0.0 0.0) '(10.0 0.0) 2.0 \"5 %\"))"),
            "(\"LWPOLYLINE\" \"5 % @5.00,1.50 h2.00 r0 1/0\")");
  check(session,
        {{"r", "1"},
         {"(mapcar 'cdr (vl-remove-if-not '(lambda (x) (= (car x) 10)) (entget (entnext repere))))",
          "((0.0 0.0) (7.0 0.0) (10.0 0.0))"},
         {"(mapcar 'cdr (vl-remove-if-not '(lambda (x) (= (car x) 40)) (entget (entnext repere))))", "(0.0 2.0 0.0)"}});
  EXPECT_EQ(drawn("(pl_fleche '(10.0 0.0) '(0.0 0.0) 2.0 \"x\")"), "(\"LWPOLYLINE\" \"x @5.00,1.50 h2.00 r180 1/0\")");
  EXPECT_EQ(drawn("(pl_fleche '(0.0 4.0) '(0.0 0.0) 2.0 \"x\")"), "(\"LWPOLYLINE\" \"x @-1.50,2.00 h2.00 r270 1/0\")");
}

TEST_F(Outils, SplineLengthLosesTheVerticalScale) {
  session.eval(R"((progn (entmake '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 1)
      (72 . 4) (73 . 2) (74 . 0) (40 . 0.0) (40 . 0.0) (40 . 1.0) (40 . 1.0) (10 0.0 5.0 0.0) (10 30.0 405.0 0.0)))
      (setq s (entlast))))");
  check(session, {{"(rtos (pl_curvelength s 10.0) 2 6)", "\"50.000000\""},
                  {"(rtos (pl_curvelength s 1) 2 4)", "\"401.1234\""},
                  {"(pl_curvelength s 0)", "nil"},
                  {"(cdr (assoc 10 (reverse (entget s))))", "(30.0 405.0 0.0)"}});
}

TEST_F(Outils, AreasAreDividedAndNeverNegative) {
  session.eval(
      R"((progn (entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 4) (70 . 1)
      (10 0.0 0.0) (10 0.0 5.0) (10 8.0 5.0) (10 8.0 0.0))) (setq c (entlast))
      (entmake '((0 . "POINT") (10 0.0 0.0 0.0))) (setq p (entlast))))");
  check(session, {{"(pl_areacalc c 10)", "4.0"},
                  {"(pl_areacalc c -1.0)", "nil"},
                  {"(pl_areacalc p 1.0)", "nil"},
                  {"(pl_curvelength c 1.0)", "nil"},
                  {"(pl_areacalc c \"1\")", "nil"}});
}

TEST_F(Outils, ParabolaThroughThreePoints) {
  check(session, {{"(mapcar 'n (pl_fprmprb '(0.0 0.0) '(1.0 1.0) '(2.0 4.0)))", "(\"1.00\" \"0.00\" \"0.00\")"},
                  {"(mapcar 'n (pl_fprmprb '(0.0 3.0) '(1.0 1.0) '(3.0 3.0)))", "(\"1.00\" \"-3.00\" \"3.00\")"},
                  {"(pl_fprmprb '(0.0 0.0) '(1.0 1.0) '(1.0 4.0))", "nil"},
                  {"(pl_fprmprb '(0.0 0.0) '(1.0 1.0))", "nil"},
                  {"(pl_fprmprb '(0.0 0.0) '(1.0 1.0) 2)", "nil"}});
}

TEST_F(Outils, StringsCompareInAnyCase) {
  check(session, {{"(pl_strequal \"Été\" \"éTÉ\")", "T"},
                  {"(pl_strequal \"a\" \"b\")", "nil"},
                  {"(pl_strdiff \"a\" \"b\")", "T"},
                  {"(pl_strdiff \"a\" \"A\")", "nil"},
                  {"(pl_strequal \"a\" 1)", "nil"},
                  {"(pl_strdiff \"a\")", "nil"}});
  session.transcript();
  EXPECT_EQ(session.eval("(pl_strdiff 1 2)"), "nil");
  EXPECT_EQ(session.transcript(), "\nAppel de la mauvaise fonction pour effectuer la comparaison");
}

TEST_F(Outils, WordsAreSplitAndQuotesKeepTheirBlanks) {
  check(session, {{R"((pl_analyse "un; deux \"trois quatre\""))", R"(("UN" "DEUX" "TROIS QUATRE"))"},
                  {R"((pl_analyse " a\tb;;c "))", R"(("A" "B" "C"))"},
                  {R"((pl_analyse "a\"b c"))", R"(("A\"B" "C"))"},
                  {R"((pl_analyse "x \"y z"))", R"(("X" "Y Z"))"},
                  {R"((pl_analyse "\"\""))", R"((""))"},
                  {R"((pl_analyse ""))", "nil"},
                  {R"((pl_analyse ";;"))", "nil"},
                  {R"((pl_analyse 5))", "nil"}});
}

}  // namespace
