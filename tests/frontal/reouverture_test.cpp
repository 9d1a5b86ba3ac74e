// A profile that was saved and opened again: the module goes on where it was; what was erased before is found and mended.
#include <gtest/gtest.h>

#include "atelier/commands/files/audit_report.h"
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

// An erased entity can be named in the session that erased it, and no longer after that: there the module would look for it
// for ever.
TEST(GroundLines, ErasedOnesAreMendedByTheAudit) {
  kaveltest::FrontEnd session;
  session.file("g.csv", "0;50\n40;46\n60;44.5\n100;40\n");
  session.eval("(setq p (plv-nouveau \"" + session.path("g.csv") +
               "\" \"12\" '(0.0 0.0 0.0) 10.0 2.5 150.0 '((0.0 30.0))))");
  session.eval("(plv-projet p \"Voirie\" '((0.0 49.0) (100.0 39.0)))");
  session.eval("(entdel (plgxd (plgxd (plgxd p \"PRPC\") \"PRLI\") \"NEXTLI\"))");
  session.document().save(session.path("a.dxf"));
  atelier::OpenDrawing again({}, session.path("a.dxf"));
  std::string printed;
  again.addSupport(KAVEL_SOURCE "/frontal");
  ASSERT_TRUE(again.evaluate("(load \"kavel.lsp\")"));
  again.evaluate("(plv-metres nil \"Voirie\" nil nil)", &printed);
  EXPECT_EQ(printed, "nil");
  std::string said;
  const auto keep = [&](std::string_view text) { said += text; };
  const auto found = atelier::auditDrawing(again, false, keep);
  EXPECT_GT(found.errors, 0U);
  const auto mended = atelier::auditDrawing(again, true, keep);
  EXPECT_EQ(mended.errors, 0U) << said;
  // The summary counts what was mended in the profiles, too.
  EXPECT_EQ(mended.repaired, found.errors);
  EXPECT_NE(said.find("0 erreurs, " + std::to_string(found.errors) + " réparées, "), std::string::npos) << said;
  ASSERT_TRUE(again.evaluate("(length (plv-mesures-profils (plv-metres nil \"Voirie\" nil nil)))", &printed));
  EXPECT_EQ(printed, "1");
}

// Applications publish their functions anew with each drawing; commands of the front-end that stand for one of them, or call one
// that they keep, go on.
TEST(Quantities, AreMeasuredAfterAnotherDrawingWasOpened) {
  kaveltest::FrontEnd session;
  session.file("g.csv", "distance;altitude\n0;50\n100;49\n");
  session.eval("(setq p (plv-nouveau \"" + session.path("g.csv") +
               "\" \"12\" '(0.0 0.0 0.0) 10.0 2.5 150.0 '((0.0 30.0))))");
  session.eval("(plv-projet p \"Voirie\" '((0.0 48.5) (100.0 47.5)))");
  session.document().save(session.path("a.dxf"));
  session.feed("OPEN\n" + session.path("a.dxf") + "\n");
  EXPECT_EQ(session.eval("(type c:cubpl)"), "USUBR");
  EXPECT_NE(session.feed("PLV-METRES\nTous\nVoirie\n\nNon\n").find("150.000"), std::string::npos);
  EXPECT_EQ(session.feed("CUBPL\nFermer\n").find("function"), std::string::npos);
}

}  // namespace
