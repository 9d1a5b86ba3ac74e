// ssget by filter and by place, and functions on selection sets.
#include "tests/support/bare_host.h"

namespace kaveltest {

class Selections : public DrawingTest {
 protected:
  // From left to right: a line, a circle, a text, and a line that crosses them all.
  void SetUp() override {
    run(kTools);
    run("(progn (line '(0. 0. 0.) '(10. 0. 0.)) (setvar \"CLAYER\" \"0\")"
        " (entmake '((0 . \"CIRCLE\") (8 . \"CERCLES\") (62 . 1) (10 30. 0. 0.) (40 . 5.)))"
        " (entmake '((0 . \"TEXT\") (8 . \"ECRITS\") (10 50. 0. 0.) (40 . 2.5) (1 . \"Regard 12\")))"
        " (line '(-5. 2. 0.) '(80. 2. 0.)))");
  }
};

TEST_F(Selections, FilterGroups) {
  check({{"(kinds (ssget \"X\" '((0 . \"LINE\"))))", "(\"LINE\" \"LINE\")"},
         {"(kinds (ssget \"_X\" '((0 . \"line,text\"))))", "(\"LINE\" \"TEXT\" \"LINE\")"},
         {"(kinds (ssget \"X\" '((0 . \"~LINE\"))))", "(\"TEXT\" \"CIRCLE\")"},
         {"(layers (ssget \"X\" '((8 . \"c*\"))))", "(\"CERCLES\")"},
         {"(kinds (ssget \"X\" '((1 . \"Regard ##\"))))", "(\"TEXT\")"},
         {"(ssget \"X\" '((1 . \"regard*\")))", "nil"},
         {"(kinds (ssget \"X\" '((62 . 1))))", "(\"CIRCLE\")"},
         {"(sslength (ssget \"X\" '((62 . 256))))", "3"},
         {"(kinds (ssget \"X\" '((100 . \"AcDbText\"))))", "(\"TEXT\")"},
         {"(sslength (ssget \"X\" '((100 . \"AcDbEntity\") (410 . \"Model\") (67 . 0))))", "4"},
         {"(ssget \"X\" '((410 . \"Layout*\")))", "nil"},
         {"(kinds (ssget \"X\" '((10 30.0 0.0 0.0))))", "(\"CIRCLE\")"},
         {"(ssget \"X\" '((8 . \"ABSENT\")))", "nil"}});
}

TEST_F(Selections, FilterWithOperators) {
  check({{"(kinds (ssget \"X\" '((-4 . \">\") (40 . 3.0))))", "(\"CIRCLE\")"},
         {"(kinds (ssget \"X\" '((-4 . \"<=\") (40 . 2.5))))", "(\"TEXT\")"},
         {"(kinds (ssget \"X\" '((-4 . \">,*,*\") (10 20. 0. 0.))))", "(\"TEXT\" \"CIRCLE\")"},
         {"(kinds (ssget \"X\" '((-4 . \"=,<\") (10 -5. 9. 0.))))", "(\"LINE\")"},
         {"(kinds (ssget \"X\" '((-4 . \"<OR\") (0 . \"TEXT\") (-4 . \"<AND\") (0 . \"LINE\") (-4 . \">\") "
          "(11 50. 0. 0.) (-4 . \"AND>\") (-4 . \"OR>\"))))",
          "(\"LINE\" \"TEXT\")"},
         {"(kinds (ssget \"X\" '((-4 . \"<not\") (0 . \"LINE\") (-4 . \"not>\"))))", "(\"TEXT\" \"CIRCLE\")"},
         {"(kinds (ssget \"X\" '((-4 . \"<XOR\") (0 . \"LINE,TEXT\") (8 . \"ECRITS\") (-4 . \"XOR>\"))))",
          "(\"LINE\" \"LINE\")"},
         {"(ssget \"X\" '((-4 . \"<OR\") (0 . \"TEXT\")))", "! bad SSGET list"},
         {"(ssget \"X\" '((-4 . \"<NOT\") (0 . \"TEXT\") (8 . \"0\") (-4 . \"NOT>\")))", "! bad SSGET list"},
         {"(ssget \"X\" '((-4 . \"=>\") (40 . 1.0)))", "! bad SSGET list"},
         {"(ssget \"X\" '(LINE))", "! bad SSGET list"},
         {"(ssget \"Q\")", "! bad SSGET mode string"}});
}

TEST_F(Selections, FilterByXdata) {
  run("(progn (regapp \"RESEAU\") (regapp \"AUTRE\") (setq e (entlast))"
      " (entmod (append (entget e) '((-3 (\"RESEAU\" (1000 . \"x\")))))))");
  check({{"(eq e (ssname (ssget \"X\" '((-3 (\"RESEAU\")))) 0))", "T"},
         {"(sslength (ssget \"X\" '((0 . \"LINE\") (-3 (\"RES*\")))))", "1"},
         {"(ssget \"X\" '((-3 (\"AUTRE\"))))", "nil"},
         {"(ssget \"X\" '((-3 (\"RESEAU\") (\"AUTRE\"))))", "nil"}});
}

TEST_F(Selections, ByPlace) {
  check({{"(kinds (ssget \"W\" '(-1. -1. 0.) '(11. 1. 0.)))", "(\"LINE\")"},
         {"(kinds (ssget \"C\" '(-1. -1. 0.) '(11. 3. 0.)))", "(\"LINE\" \"LINE\")"},
         {"(ssget \"C\" '(29. -1. 0.) '(31. 1. 0.))", "nil"},  // inside the circle's rim nothing is drawn
         {"(kinds (ssget \"C\" '(34. -1. 0.) '(36. 1. 0.)))", "(\"CIRCLE\")"},
         {"(kinds (ssget \"F\" '((30. -9. 0.) (30. 9. 0.))))", "(\"LINE\" \"CIRCLE\")"},
         {"(kinds (ssget \"WP\" '((20. -9. 0.) (40. -9. 0.) (30. 20. 0.)) '((0 . \"CIRCLE\"))))", "(\"CIRCLE\")"},
         {"(kinds (ssget \"CP\" '((49. -1. 0.) (52. -1. 0.) (52. 1. 0.))))", "(\"TEXT\")"},
         {"(kinds (ssget '(35. 0. 0.)))", "(\"CIRCLE\")"},
         {"(kinds (ssget \"P\"))", "(\"CIRCLE\")"},
         {"(kinds (ssget \"L\"))", "(\"LINE\")"},
         {"(progn (command \"-LAYER\" \"F\" \"CERCLES\" \"\") (ssget \"C\" '(34. -1. 0.) '(36. 1. 0.)))", "nil"},
         {"(sslength (ssget \"A\"))", "3"},
         {"(sslength (ssget \"X\"))", "4"}});
}

TEST_F(Selections, AskTheUser) {
  struct {
    const char* answers;
    const char* kinds;
  } const rows[] = {{"35,0\n\n", "(\"CIRCLE\")"},
                    {"W\n-1,-1\n11,1\n\n", "(\"LINE\")"},
                    {"-8,-8\n12,1\n\n", "(\"LINE\")"},
                    {"_C\n-1,-1\n11,3\n\n", "(\"LINE\" \"LINE\")"},
                    {"tout\nR\n35,0\n\n", "(\"LINE\" \"TEXT\" \"LINE\")"},
                    {"_F\n30,-9\n30,9\n\n\n", "(\"LINE\" \"CIRCLE\")"},
                    {"ALL\nU\nL\n\n", "(\"LINE\")"},
                    {"(entlast)\n!(ssget \"X\" '((0 . \"TEXT\")))\n\n", "(\"LINE\" \"TEXT\")"},
                    {"nuage\n\n", "nil"}};
  for (const auto& row : rows) {
    session.feed(std::string("(setq ss (ssget))\n") + row.answers);
    EXPECT_EQ(run("(if ss (reverse (kinds ss)))"), run(std::string("(reverse '") + row.kinds + ")")) << row.answers;
  }
}

TEST_F(Selections, AreSets) {
  check({{"(progn (setq s (ssadd)) (sslength s))", "0"},
         {"(progn (setq e (entlast)) (ssadd e s) (ssadd e s) (sslength s))", "1"},
         {"(eq (ssmemb e s) e)", "T"},
         {"(type (ssdel e s))", "PICKSET"},
         {"(ssmemb e s)", "nil"},
         {"(ssdel e s)", "nil"},
         {"(ssname s 0)", "nil"},
         {"(progn (setq all (ssget \"X\") n (sslength all)) (ssadd (ssname all 1) all) (- (sslength all) n))", "0"},
         {"(progn (setq e1 (ssname all 1)) (ssdel e1 all) (list (- n (sslength all)) (ssmemb e1 all)))", "(1 nil)"},
         {"(progn (ssadd e1 all) (list (- n (sslength all)) (eq (ssname all (1- n)) e1)))", "(0 T)"},
         {"(progn (while (ssname all 0) (ssdel (ssname all 0) all)) (sslength all))", "0"},
         {"(sslength nil)", "! bad argument type: lselsetp nil"},
         {"(progn (sssetfirst nil (ssadd e)) (kinds (cadr (ssgetfirst))))", "(\"LINE\")"},
         {"(kinds (ssget \"I\"))", "(\"LINE\")"}});
}

// Blocks nested ten deep, ten references each, under an array: ten billion lines.
TEST_F(Selections, EndInDrawingsThatUnfoldToBillions) {
  run("(progn (entmake '((0 . \"BLOCK\") (2 . \"B0\") (70 . 0) (10 0. 0. 0.))) (entmake '((0 . \"LINE\") (10 0. 0. 0.) "
      "(11 1. 1. 0.)))"
      " (entmake '((0 . \"ENDBLK\"))) (setq i 0)"
      " (repeat 9 (setq i (1+ i)) (entmake (list '(0 . \"BLOCK\") (cons 2 (strcat \"B\" (itoa i))) '(70 . 0) '(10 0. "
      "0. 0.)))"
      "  (repeat 10 (entmake (list '(0 . \"INSERT\") (cons 2 (strcat \"B\" (itoa (1- i)))) '(10 0. 0. 0.)))) (entmake "
      "'((0 . \"ENDBLK\"))))"
      " (setq e (entmakex '((0 . \"INSERT\") (2 . \"B9\") (10 1000. 0. 0.) (70 . 30000) (71 . 30000) (44 . 2.) (45 . "
      "2.)))))");
  check({{"(kinds (ssget \"C\" '(1000. 0. 0.) '(1000.5 0.5 0.)))", "(\"INSERT\")"},
         {"(kinds (ssget '(1500.5 0.5 0.)))", "(\"INSERT\")"},
         {"(getvar \"EXTMAX\")", "(60999.0 59999.0 0.0)"}});
}

}  // namespace kaveltest
