// The model of matrices through its LISP functions: creation, selection, queries, widths.
// Nothing is drawn but where a row says so.
#include "module/matrices/gestionMatrices.h"
#include "tests/module/aide.h"

using kaveltest::check;
using kaveltest::Session;

namespace {

struct Modele : ::testing::Test {
  Modele() {
    session.eval(R"((progn (pl_ResetMatrices)
      (pl_DefinirLigneMatrice "Route" "A" "Altitude" 1.5 4)
      (pl_DefinirLigneMatrice "ROUTE" "B" "Distance" 2 13)
      (pl_DefinirLigneMatrice "Reseau" "" "Sans nom" 1.0 0)))");
  }
  const plv::matriceProfil& active() { return *plv::collectionMatrices().matriceActive(); }
  Session session;
};

TEST_F(Modele, NamesOfMatricesComeOnceInAnyCase) {
  EXPECT_EQ(plv::collectionMatrices().matrices.GetCount(), 2);
  check(session, {{"(pl_CreeMatrice \"rOUTE\")", "T"}, {"(pl_CreeMatrice)", "nil"}});
  EXPECT_EQ(plv::collectionMatrices().matrices.GetCount(), 2);
  EXPECT_EQ(active().nomMatrice, L"Route");
  EXPECT_EQ(active().lignes.GetCount(), 2);
  check(session, {{"(pl_CreeMatrice 5)", "T"}});  // what is no string names the matrix ""
  EXPECT_EQ(plv::collectionMatrices().matrices.GetCount(), 3);
  EXPECT_EQ(active().nomMatrice, L"");
}

TEST_F(Modele, RowsAreSelectedByIndexAndByName) {
  check(session, {{"(pl_SelectMatrice \"route\")", "T"},
                  {"(pl_SelectLigne 1)", "T"},
                  {"(pl_SelectLigne \"a\")", "T"},
                  {"(pl_SelectLigne 2)", "nil"},
                  {"(pl_SelectLigne 0.0)", "nil"},
                  {"(pl_SelectLigne 0 1)", "T"},
                  {"(pl_SelectLigne 2 0)", "nil"},
                  {"(pl_SelectLigne 0 1.0)", "nil"},
                  {"(pl_SelectLigne \"ROUTE\" \"b\")", "T"},
                  {"(pl_SelectLigne \"ROUTE\" 0)", "T"},
                  {"(pl_SelectLigne \"ROUTE\" -1)", "nil"},
                  {"(pl_SelectLigne \"RESEAU\" -1)", "T"},
                  {"(pl_SelectLigne)", "nil"}});
}

TEST_F(Modele, ASelectedRowHasItsTopAndBottom) {
  session.eval("(pl_SelectLigne 0 1)");
  EXPECT_EQ(active().hautCourant, -1.5);
  EXPECT_EQ(active().basCourant, -3.5);
  session.eval("(pl_SelectLigne 5)");
  EXPECT_EQ(active().ligneCourante, -1);
  EXPECT_EQ(active().basCourant, 0.0);
  session.eval("(pl_SelectLigne \"zzz\")");
  EXPECT_EQ(active().basCourant, -3.5);
  EXPECT_EQ(active().ligneActive(), nullptr);
}

TEST_F(Modele, AFailedSelectionSelectsNothing) {
  check(session, {{"(pl_SelectMatrice 0)", "T"},
                  {"(pl_SelectMatrice \"absente\")", "nil"},
                  {"(pl_SelectLigne 0)", "nil"},
                  {"(pl_SelectMatrice 2)", "nil"},
                  {"(pl_SelectMatrice 1.0)", "nil"},
                  {"(pl_SelectMatrice)", "nil"}});
}

TEST_F(Modele, DecimalsAreTheOneParameter) {
  check(session, {{"(pl_ParamLigneProfil \"route\" \"b\" \"decidist\" 4)", "T"},
                  {"(pl_ParamLigneProfil \"route\" \"b\" \"DECIDIS\" 3)", "T"},
                  {"(pl_ParamLigneProfil \"route\" \"b\" \"DeciDisque\" 5)", "T"},
                  {"(pl_ParamLigneProfil \"route\" \"b\" \"DECIDI\" 1)", "nil"},
                  {"(pl_ParamLigneProfil \"route\" \"b\" \"DECIALTI\" 1)", "nil"},
                  {"(pl_ParamLigneProfil \"route\" \"b\" \"DECIDIST\" 1.0)", "nil"},
                  {"(pl_ParamLigneProfil \"absente\" \"b\" \"DECIDIST\" 1)", "nil"}});
  session.eval("(pl_SelectLigne 0 1)");
  EXPECT_EQ(active().ligneActive()->decimales, 5);
}

TEST_F(Modele, IdentitiesOfRowsDiffer) {
  session.eval("(pl_SelectMatrice 0)");
  const auto& lignes = active().lignes;
  EXPECT_EQ(lignes[1]->idLigne, lignes[0]->idLigne + 1);
  EXPECT_NE(lignes[0]->idLigne, 0xFFFFFFFFu);
}

TEST_F(Modele, WidthsAreTheGreaterOfTitleAndTwoHeights) {
  check(session, {{"(> (pl_LargeurMatrices 2.5) 5.0)", "T"},
                  {"(equal (pl_LargeurMatrices 5.0) (* 2.0 (pl_LargeurMatrices 2.5)) 1e-6)", "T"},
                  {"(pl_ResetMatrices)", "T"},
                  {"(pl_LargeurMatrices 2.5)", "5.0"},
                  {"(pl_LargeurMatrices 2)", "4.0"},
                  {"(pl_LargeurMatrices -3)", "0.0"}});
}

TEST_F(Modele, QueriesAnswerForDrawnMatricesOnly) {
  check(session, {{"(pl_SelectLigne 0 1)", "T"},
                  {"(pl_nbmatrices)", "nil"},
                  {"(pl_nblignesmat)", "nil"},
                  {"(pl_typelignemat)", "nil"},
                  {"(pl_textlignemat)", "nil"}});
  session.eval(kaveltest::kProfil);
  session.eval("(pl_DessinerMatrices prf '(0.0 0.0) 1.0 5.0)");
  check(session, {{"(pl_nbmatrices)", "2"},
                  {"(pl_nblignesmat)", "2"},
                  {"(pl_typelignemat)", "13"},
                  {"(pl_textlignemat)", "\"Distance\""},
                  {"(progn (pl_SelectLigne 9) (pl_typelignemat))", "nil"}});
}

// The collection outlives a drawing; what it held of the drawing doesn't.
TEST_F(Modele, DefinitionsOutliveTheirDrawing) {
  session.eval(kaveltest::kProfil);
  session.eval("(pl_DessinerMatrices prf '(0.0 0.0) 1.0 5.0)");
  {
    Session fermee;
    fermee.eval(kaveltest::kProfil);
    fermee.eval("(pl_DessinerMatrices prf '(0.0 0.0) 1.0 5.0)");
  }
  Session suivante;
  check(suivante, {{"(pl_SelectLigne \"Route\" 0)", "T"}, {"(pl_nbmatrices)", "nil"}});
}

}  // namespace
