// Dynamic menus: the entries of a profile's menu, and an entry that isn't there.
// The macros are what the command line receives, trailing blank included.
#include "module/support/menus/menus.h"

#include "tests/module/aide.h"

namespace {

struct Menus : kaveltest::ProfilDessine {};

TEST_F(Menus, AProfileHasAnEntryForEachRow) {
  session.eval("(pl_DefinirLigneMatrice \"N\" \"a\" \"Pentes\" 2.0 13)");
  const auto entrees = plv::entreesMenuProfil(plv::collectionMatrices());
  const wchar_t* const attendu[][2] = {{L"Altitude", L"(PL-CPLM \"M\" 1) "},
                                       {L"Distances", L"(PL-CPLM \"M\" 2) "},
                                       {L"Observations", L"(PL-CPLM \"M\" 3) "},
                                       {L"", L""},
                                       {L"Pentes", L"(PL-CPLM \"N\" 1) "},
                                       {L"", L""},
                                       {L"Cotation Automatique", L"(CotAutoKavel) "},
                                       {L"", L""},
                                       {L"Associer Projet", L"assocprjKavel "},
                                       {L"Associer Block", L"pl_efixKAVEL "},
                                       {L"", L""},
                                       {L"Valider le Projet", L"transfererProjet "},
                                       {L"Equipements, pentes et directions ==> Tracé en plan", L"PlKavelVersPlan "}};
  ASSERT_EQ(entrees.size(), std::size(attendu));
  for (std::size_t i = 0; i < entrees.size(); ++i) {
    EXPECT_EQ(entrees[i].libelle, attendu[i][0]);
    EXPECT_EQ(entrees[i].macro, attendu[i][1]);
  }
}

TEST_F(Menus, AnAbsentEntryIsAFailure) {
  session.eval(
      "(progn (pl_CreeMenu \"Absences\" \"Divers\") (pl_AddOptionMenu \"Divers\" \"Compter\" \"(setq n 1) \"))");
  session.feed("menu\nabsent\n");
  EXPECT_EQ(session.document().failures(), 1);
  session.eval("(pl_RemoveMenu \"Divers\")");
}

}  // namespace
