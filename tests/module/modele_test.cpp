// The model of matrices after calls of its LISP functions: names, limits, parameters, the life of the collection.
// The collection is looked into directly.
#include "module/matrices/gestionMatrices.h"
#include "tests/module/aide.h"

using kaveltest::check;
using kaveltest::Prepared;
using kaveltest::Session;

namespace {

struct Modele : ::testing::Test {
  const plv::matriceProfil& active() { return *plv::collectionMatrices().matriceActive(); }
  Prepared session{"modele"};
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

// The collection outlives a drawing; what it held of the drawing doesn't.
TEST_F(Modele, DefinitionsOutliveTheirDrawing) {
  session.load("profil");
  session.eval("(pl_DessinerMatrices prf '(0.0 0.0) 1.0 5.0)");
  {
    Prepared fermee{"profil"};
    fermee.eval("(pl_DessinerMatrices prf '(0.0 0.0) 1.0 5.0)");
  }
  Session suivante;
  check(suivante, {{"(pl_SelectLigne \"Route\" 0)", "T"}, {"(pl_nbmatrices)", "nil"}});
}

}  // namespace
