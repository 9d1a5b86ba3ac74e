// Matrices that come back from the drawing, and what no published function writes in them.
// The collection is looked into directly.
#include "module/matrices/gestionMatrices.h"
#include "tests/module/aide.h"

using kaveltest::check;
using kaveltest::Session;

namespace {

struct Dessin : kaveltest::ProfilDessine {
  const plv::matriceProfil& matrice(int i) { return *plv::collectionMatrices().matrices[i]; }
};

TEST_F(Dessin, AChosenProfileBringsItsMatricesBack) {
  session.eval(
      "(progn (pl_ParamLigneProfil \"M\" \"2\" \"DECIDIST\" 4) (pl_DessinerMatrices prf '(3.0 1.0) 1.0 "
      "5.0))");
  const Adesk::UInt32 identite = matrice(0).lignes[1]->idLigne;
  check(session,
        {{"(pl_ResetMatrices)", "T"},
         {"(pl_ChoixProfil prf)", "nil"},
         {"(pl_SelectLigne \"m\" 1)", "T"},
         {"(list (pl_nbmatrices) (pl_nblignesmat) (pl_typelignemat) (pl_textlignemat))", "(1 3 13 \"Distances\")"}});
  EXPECT_EQ(matrice(0).lignes[1]->idLigne, identite);
  EXPECT_EQ(matrice(0).lignes[1]->decimales, 4);
  EXPECT_EQ(matrice(0).idTraits.length(), 4);
  EXPECT_EQ(drawn("(pl_TexteHorizontalCentre 10 \"ab\")"), "(\"ab @13.00,-2.00 h1.00 r0 1/0\")");
}

TEST_F(Dessin, AProfileWithoutMatricesEmptiesTheCollection) {
  session.eval("(progn (setq autre (reference \"PROFIL\" \"NUMPL\" \"P2\" 300.0)) (pl_ChoixProfil autre))");
  EXPECT_EQ(plv::collectionMatrices().matrices.GetCount(), 0);
  EXPECT_EQ(plv::collectionMatrices().matriceCourante, 0);  // a load leaves the index as it stands
  check(session, {{"(pl_SelectLigne 0)", "nil"}});
}

struct Pentes : kaveltest::ProfilDessine {};

TEST_F(Pentes, LabelsAreWrittenAlongTheDiagonal) {
  session.eval("(marque)");
  EXPECT_TRUE(plv::collectionMatrices().matriceActive()->coterPente(10, 90, 90.04, -0.05));
  EXPECT_EQ(session.eval("(vu)"),
            "(\"Dh=90.00 Di=90.04 P=5.00 % @54.99,-2.00 h1.00 r1 1/0\" "
            "\"LINE 10.00,-3.50 10.00,-1.50\" \"LINE 100.00,-3.50 100.00,-1.50\")");
  session.eval("(progn (marque) (pl_SelectLigne 9))");
  EXPECT_FALSE(plv::collectionMatrices().matriceActive()->coterPente(10, 90, 90.04, 0.05));
  EXPECT_EQ(session.eval("(vu)"), "nil");
}

}  // namespace
