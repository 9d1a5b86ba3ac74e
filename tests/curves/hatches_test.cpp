// Boundaries of hatches as they are written back: a hatch that is moved by nothing keeps every group, whoever wrote it, and
// one with a boundary that stops making sense moves as far as it does.
#include "tests/support/bare_host.h"

namespace kaveltest {
namespace {

struct Hatches : DrawingTest {
  // A hatch with these groups for its loops, and its groups after a command, without the entity's own head.
  std::string after(const char* loops, const char* command) {
    session.eval(R"((progn
      (defun fin (e) (member '(100 . "AcDbHatch") (entget e)))
      (setq source (entmakex '((0 . "LINE") (10 0. 0. 0.) (11 1. 0. 0.))))))");
    const std::string made = session.eval(
        std::string(
            "(setq h (entmakex (append '((0 . \"HATCH\") (100 . \"AcDbEntity\") (100 . \"AcDbHatch\") (10 0. 0. 0.) "
            "(210 0. 0. 1.) (2 . \"SOLID\") (70 . 1) (71 . 0) (91 . 1)) (list ") +
        loops + ") '((75 . 0) (76 . 1) (98 . 1) (10 2. 3. 0.)))))");
    EXPECT_NE(made, "nil") << loops;
    before = session.eval("(fin h)");
    return session.eval(std::string("(progn (command ") + command + ") (fin h))");
  }
  std::string before;
};

const char* const kMoveByNothing = R"("_MOVE" h "" "0,0" "0,0")";

TEST_F(Hatches, MovedByNothingKeepEveryGroup) {
  for (const char* loops :
       {"'(92 . 7) '(72 . 1) '(73 . 0) '(93 . 2) '(10 0. 0.) '(42 . 1.) '(10 4. 0.) '(42 . 0.) '(97 . 0)",
        "'(92 . 2) '(72 . 1) '(73 . 1) '(93 . 3) '(10 0. 0.) '(42 . 0.) '(10 4. 0.) '(42 . 0.) '(10 4. 4.) '(42 . 0.) "
        "'(97 . "
        "1) (cons 330 source)",
        // A spline of before R2010 as the last edge: the count behind it is the loop's.
        "'(92 . 1) '(93 . 2) '(72 . 1) '(10 5. 0.) '(11 0. 0.) '(72 . 4) '(94 . 2) '(73 . 1) '(74 . 0) '(95 . 6) '(96 "
        ". 3) "
        "'(40 . 0.) '(40 . 0.) '(40 . 0.) '(40 . 1.) '(40 . 1.) '(40 . 1.) '(10 0. 0.) '(42 . 1.) '(10 2. 4.) '(42 . "
        "0.5) "
        "'(10 5. 0.) '(42 . 1.) '(97 . 1) (cons 330 source)",
        // One of R2010 with fitted points and tangents, and one without, as the first edge.
        "'(92 . 1) '(93 . 2) '(72 . 4) '(94 . 1) '(73 . 0) '(74 . 0) '(95 . 4) '(96 . 2) '(40 . 0.) '(40 . 0.) '(40 . "
        "1.) "
        "'(40 . 1.) '(10 0. 0.) '(10 2. 4.) '(97 . 0) '(72 . 4) '(94 . 1) '(73 . 0) '(74 . 0) '(95 . 4) '(96 . 2) '(40 "
        ". 0.) "
        "'(40 . 0.) '(40 . 1.) '(40 . 1.) '(10 2. 4.) '(10 0. 0.) '(97 . 2) '(11 2. 4.) '(11 0. 0.) '(12 1. 0.) '(13 "
        "0. 1.) "
        "'(97 . 0)",
        "'(92 . 5) '(93 . 2) '(72 . 2) '(10 0. 0.) '(40 . 5.) '(50 . 0.7) '(51 . 3.) '(73 . 0) '(72 . 3) '(10 1. 1.) "
        "'(11 3. "
        "4.) '(40 . 0.3) '(50 . 0.1) '(51 . 6.1) '(73 . 1) '(97 . 0)",
        // More counted than there is, an edge of no kind, and groups between that nobody knows.
        "'(92 . 1) '(93 . 3) '(72 . 1) '(10 5. 0.) '(11 0. 0.) '(72 . 9) '(40 . 3.) '(97 . 0)",
        "'(92 . 3) '(72 . 0) '(73 . 1) '(93 . 9) '(10 0. 0.) '(10 4. 0.) '(10 4. 4.) '(97 . 1) (cons 330 source)"}) {
    const std::string same = after(loops, kMoveByNothing);
    EXPECT_EQ(same, before) << loops;
  }
}

TEST_F(Hatches, MoveAsFarAsTheyMakeSense) {
  after("'(92 . 1) '(93 . 3) '(72 . 1) '(10 5. 0.) '(11 0. 0.) '(72 . 9) '(40 . 3.) '(97 . 0)",
        R"("_MOVE" h "" "0,0" "10,1")");
  check({{"(assoc 11 (fin h))", "(11 10.0 1.0)"},
         {"(assoc 93 (fin h))", "(93 . 3)"},
         {"(assoc 40 (fin h))", "(40 . 3.0)"},
         {"(assoc 10 (cdr (member (assoc 98 (fin h)) (fin h))))", "(10 12.0 4.0 0.0)"}});
}

}  // namespace
}  // namespace kaveltest
