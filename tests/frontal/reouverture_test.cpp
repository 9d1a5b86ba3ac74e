// A profile with tables that was saved and opened again: the module goes on where it was.
#include <gtest/gtest.h>

#include "tests/frontal/front_end.h"

namespace {

TEST(Tables, SurviveSavingAndReopening) {
  kaveltest::FrontEnd session;
  session.file("g.csv", "distance;altitude;nom\n100;50;A\n110;51;\n120;49.5;B\n130;37.5;\n150;36;C\n");
  session.eval("(setq p (plv-nouveau \"" + session.path("g.csv") +
               "\" \"12\" '(1000.0 500.0 0.0) 10.0 2.5 150.0 nil))");
  session.file("t.txt", "T - 6.0 4 Altitude TN\nT - 6.0 1 Numero\n");
  ASSERT_NE(session.eval("(plv-matrices p \"" + session.path("t.txt") + "\" T)"), "nil");
  session.document().save(session.path("a.dxf"));
  atelier::OpenDrawing again({}, session.path("a.dxf"));
  std::string printed;
  again.addSupport(KAVEL_SOURCE "/frontal");
  ASSERT_TRUE(again.evaluate("(load \"kavel.lsp\")"));
  ASSERT_TRUE(again.evaluate(
      "(progn (pl_ChoixProfil (setq p (plv-profil-de-numero \"12\"))) (list (pl_SelectMatrice 0) (pl_SelectLigne 0 1)"
      " (pl_textlignemat) (pl_nblignesmat) (pl_TexteVertical 12.5 \"essai\") (cdr (assoc 1 (entget (entlast))))))",
      &printed));
  EXPECT_EQ(printed, "(T T \"Numero\" 2 T \"essai\")");
}

}  // namespace
