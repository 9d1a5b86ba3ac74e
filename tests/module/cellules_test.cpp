// Cell writers: where texts, ticks and arcs go in the selected row.
// Row 2 lies between -1.5 and -3.5, the tall row between -3.5 and -43.5; the text height is 1.
#include "module/support/dessin/kitTextes.h"
#include "tests/module/aide.h"

using kaveltest::Row;

namespace {

struct Cellules : kaveltest::ProfilDessine {
  void rows(std::initializer_list<Row> calls) {
    for (const Row& call : calls) {
      EXPECT_EQ(drawn("(setq r " + std::string(call.lisp) + ")"), call.value) << call.lisp;
      EXPECT_EQ(session.eval("r"), "T") << call.lisp;
    }
  }
  void tallRows(std::initializer_list<Row> calls) {
    session.eval("(pl_SelectLigne 0 2)");
    rows(calls);
  }
};

TEST_F(Cellules, HorizontalTextInTheMiddleAtTheBottomAndAtTheTop) {
  rows({{"(pl_TexteHorizontalCentre 10 \"AB\")", "(\"AB @10.00,-3.00 h1.00 r0 1/0\")"},
        {"(pl_TexteHorizontalCentre 10 \"AB\" -0.1)", "(\"AB @10.00,-3.30 h1.00 r0 1/0\")"},
        {"(pl_TexteHorizontalCentre 10.5 \"AB\" 7 3)", "(\"AB @10.50,-2.70 h1.00 r0 1/0\")"},
        {"(pl_TexteHorizontalGauche 10 \"AB\" 0 -0.5)", "(\"AB @10.50,-3.00 h1.00 r0 0/0\")"},
        {"(pl_TexteHorizontalDroite 10 \"AB\" \"x\" 0.5)", "(\"AB @9.50,-3.00 h1.00 r0 2/0\")"}});
}

TEST_F(Cellules, VerticalTextAndNumbers) {
  tallRows({{"(pl_TexteVertical 10 \"ABC\")", "(\"ABC @10.70,-24.00 h1.00 r90 1/0\")"},
            {"(pl_NbreVertical 1 10 1250.5)", "(\"PK 1+250.50 @10.70,-4.00 h1.00 r90 2/0\")"},
            {"(pl_NbreVertical 0 10 -3)", "(\"-3.00 @10.70,-4.00 h1.00 r90 2/0\")"},
            {"(pl_NbreVertical '(2 10.0 1250.5))", "(\"1+250.50 @10.70,-4.00 h1.00 r90 2/0\")"}});
  session.eval("(pl_ParamLigneProfil \"M\" \"3\" \"DECIDIST\" 0)");
  rows({{"(pl_NbreVertical 0 10 7)", "(\"7 @10.70,-4.00 h1.00 r90 2/0\")"}});
}

TEST_F(Cellules, QuadrantsStandInTheCornersAwayFromX) {
  rows({{"(pl_Quadrant 10 0)", "(\"ARC 9.34,-2.16 r0.66 0 90\")"},
        {"(pl_Quadrant 10 1)", "(\"ARC 10.66,-2.16 r0.66 90 180\")"},
        {"(pl_Quadrant 10 2 0.5)", "(\"ARC 11.00,-2.50 r1.00 180 270\")"},
        {"(pl_Quadrant 10 0 1.5)", "(\"ARC 9.34,-2.16 r0.66 0 90\")"},
        {"(pl_Quadrant 10 0 0.001)", "(\"ARC 9.96,-1.54 r0.04 0 90\")"},
        {"(pl_Quadrant 10 7)", "nil"}});
  EXPECT_EQ(drawn("(pl_Quadrant 10 3)").substr(0, 26), "(\"ARC 9.34,-2.84 r0.66 270");
}

TEST_F(Cellules, ArcsCrossTheRow) {
  rows({{"(pl_ArcCell 10 12 1)", "(\"ARC 11.00,-2.50 r1.00 0 180\")"},
        {"(pl_ArcCell 12 10 5)", "(\"ARC 11.00,-2.50 r1.00 0 180\")"},
        {"(pl_ArcCell 10 10 1)", "nil"}});
  EXPECT_EQ(drawn("(pl_ArcCell 10 12 0)").substr(0, 27), "(\"ARC 11.00,-2.50 r1.00 180");
}

TEST_F(Cellules, StationAndRemarkBesideATick) {
  tallRows({{"(pl_ptPkEtObs 10 1250.5 \"regard\")",
             "(\"LINE 10.00,-43.50 10.00,-3.50\" \"PK 1+250.50 @11.70,-34.00 h1.00 r90 1/0\" "
             "\"regard @11.70,-14.00 h1.00 r90 1/0\")"}});
}

TEST_F(Cellules, ABlockHangsFromTheTopOnItsStem) {
  session.eval(R"((progn (entmake '((0 . "BLOCK") (2 . "vanne") (70 . 0) (10 0.0 0.0 0.0)))
      (entmake '((0 . "LINE") (10 -1.0 0.0 0.0) (11 1.0 -4.0 0.0))) (entmake '((0 . "ENDBLK")))))");
  tallRows({{"(pl_BlockVertical 10 5 \"C:\\\\blocs\\\\VANNE.dwg\" \"obs\")",
             "(\"INSERT 10.00,-3.50\" \"LINE 10.00,-7.50 10.00,-33.50\" \"PK 0+5.00 @8.70,-21.00 h1.00 r90 1/0\" "
             "\"obs @11.70,-21.00 h1.00 r90 1/0\")"},
            {"(pl_BlockVertical 10 5 \"vanne\" 3)",
             "(\"INSERT 10.00,-3.50\" \"LINE 10.00,-7.50 10.00,-33.50\" \"PK 0+5.00 @8.70,-21.00 h1.00 r90 "
             "1/0\")"}});
  EXPECT_EQ(drawn("(setq r (pl_BlockVertical 10 5 \"absent\"))"), "nil");
  EXPECT_EQ(session.eval("r"), "nil");
}

TEST_F(Cellules, ASinglePartStandsInTheMiddleOrOnTheRule) {
  rows({{"(pl_TexteMultipleCentre 0 100 \" abc \")",
         "(\"LINE 0.00,-3.50 0.00,-1.50\" \"LINE 100.00,-3.50 100.00,-1.50\" \"abc @50.00,-2.50 h1.00 r0 "
         "4/2\")"},
        {"(pl_TexteMultipleCentre 0 100 \"|abc|\" 1)",
         "(\"LINE 0.00,-3.50 0.00,-1.50\" \"LINE 100.00,-3.50 100.00,-1.50\" \"abc @50.00,-2.30 h1.00 r0 "
         "1/0\" "
         "\"LINE 0.00,-2.50 100.00,-2.50\")"},
        {"(pl_TexteMultipleCentre 0 100 \"||\" 1)",
         "(\"LINE 0.00,-3.50 0.00,-1.50\" \"LINE 100.00,-3.50 100.00,-1.50\")"},
        {"(pl_TexteMultipleCentre 100 0 \"abc\")", "nil"}});
}

constexpr const char* kDeuxReperes = "(\"LINE 0.00,-43.50 0.00,-3.50\" \"LINE 100.00,-43.50 100.00,-3.50\" ";

TEST_F(Cellules, PartsAreStackedFromTheTop) {
  const std::string reperes = kDeuxReperes;
  tallRows({{"(pl_TexteMultipleCentre 0 100 \"a|b|\")",
             (reperes + "\"a @50.00,-14.00 h1.00 r0 4/2\" \"b @50.00,-33.50 h1.00 r0 4/2\")").c_str()},
            {"(pl_TexteMultipleCentre 0 100 \" a | | b\")",
             (reperes + "\"a @50.00,-10.67 h1.00 r0 4/2\" \" @50.00,-23.50 h1.00 r0 4/2\" "
                        "\"b @50.00,-36.33 h1.00 r0 4/2\")")
                 .c_str()},
            {"(pl_TexteMultipleCentre 0 100 \"a|b\" 1)",
             (reperes + "\"LINE 0.00,-23.50 100.00,-23.50\" \"a @50.00,-14.00 h1.00 r0 4/2\" "
                        "\"b @50.00,-33.50 h1.00 r0 4/2\")")
                 .c_str()}});
}

TEST_F(Cellules, AStackThatIsTooHighShrinks) {
  rows({{"(pl_TexteMultipleCentre 0 100 \"a|b\")",
         "(\"LINE 0.00,-3.50 0.00,-1.50\" \"LINE 100.00,-3.50 100.00,-1.50\" \"a @50.00,-2.42 h0.83 r0 4/2\" "
         "\"b @50.00,-3.00 h0.83 r0 4/2\")"}});
}

// The first part alone is measured: a long second one overflows.
TEST_F(Cellules, AStackTakesItsSizeFromItsFirstPart) {
  session.eval("(progn (pl_SelectLigne 0 2) (pl_TexteMultipleCentre 0 5 \"a|bbbbbbbbbbbbbbbbbbbb\"))");
  kaveltest::check(session, {{"(cdr (assoc 41 (entget (entlast))))", "1.0"}});
  session.eval("(pl_TexteMultipleCentre 0 5 \"bbbbbbbbbbbbbbbbbbbb|a\")");
  kaveltest::check(session, {{"(rtos (cdr (assoc 41 (entget (entlast)))) 2 2)", "\"0.60\""},
                             {"(rtos (cdr (assoc 40 (entget (entlast)))) 2 2)", "\"0.70\""}});
}

TEST_F(Cellules, WritersRefuseWithoutARow) {
  for (const char* select : {"(pl_SelectLigne 9)", "(pl_SelectMatrice \"absente\")"}) {
    session.eval(select);
    for (const char* appel : {"(pl_TexteVertical 1 \"a\")", "(pl_Quadrant 1 1)", "(pl_CotDcumH 0 0 1)",
                              "(pl_CotDParH 1 2)", "(pl_ligneMatrice 0 0 9 1)", "(pl_CotAttribsAuto prf)"}) {
      EXPECT_EQ(drawn("(setq r " + std::string(appel) + ")"), "nil") << appel;
      EXPECT_EQ(session.eval("r"), "nil") << appel;
    }
  }
}

TEST_F(Cellules, WrongTypesDrawNothing) {
  for (const char* appel :
       {"(pl_TexteHorizontalCentre \"1\" \"a\")", "(pl_TexteVertical 1 2)", "(pl_NbreVertical 1.0 1 1)",
        "(pl_NbreVertical '(1.0 2.0))", "(pl_TexteMultipleCentre 0 9 \"a\" 1.0)", "(pl_Quadrant 1 1.0)",
        "(pl_ArcCell 1 2 1.0)", "(pl_ptPkEtObs 1 2)", "(pl_BlockVertical 1 2 3)", "(pl_TexteHorizontalGauche 1)"}) {
    EXPECT_EQ(drawn("(setq r " + std::string(appel) + ")"), "nil") << appel;
    EXPECT_EQ(session.eval("r"), "nil") << appel;
  }
}

TEST(FitRule, NarrowsThenShrinks) {
  kaveltest::Session session;
  const std::wstring texte = L"Canalisation";
  const double largeur = plv::largeurTexte(texte, 2.0, AcDbObjectId::kNull);
  ASSERT_GT(largeur, 0.0);
  const struct {
    double part;
    bool ajuste;
    double facteur, hauteur;
  } cas[] = {{1.01, false, 1.0, 2.0},           {1.0, true, 1.0, 2.0},  {0.8, true, 0.8, 2.0}, {0.6, true, 0.6, 2.0},
             {0.5, true, 0.6, 2.0 * 0.5 / 0.6}, {0.25, true, 0.6, 1.4}, {-1, true, 0.6, 1.4}};
  for (const auto& c : cas) {
    double facteur = 1.0, hauteur = 2.0;
    EXPECT_EQ(plv::ajusterTexte(largeur * c.part, texte, AcDbObjectId::kNull, hauteur, facteur), c.ajuste) << c.part;
    EXPECT_NEAR(facteur, c.facteur, 1e-9) << c.part;
    EXPECT_NEAR(hauteur, c.hauteur, 1e-9) << c.part;
  }
}

}  // namespace
