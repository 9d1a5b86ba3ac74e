// Dynamic menus: the entries of a profile's menu, menus in the host's bar, and an entry run by its label.
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

TEST_F(Menus, WrongCallsGiveNil) {
  kaveltest::check(session, {{"(pl_CreeMenu \"G\")", "nil"},
                             {"(pl_CreeMenu \"G\" \"M\" \"x\")", "nil"},
                             {"(pl_AddSep)", "nil"},
                             {"(pl_AddSep \"absent\")", "nil"},
                             {"(pl_AddOptionMenu \"absent\" \"l\" \"m\")", "nil"},
                             {"(pl_RemoveMenu \"absent\")", "nil"},
                             {"(pl_RemoveDynMnus)", "nil"},
                             {"(pl_PlacerMenusKavel \"VARDANE4\" \"P1\")", "nil"}});
}

TEST_F(Menus, ComeIntoTheBarAndRunTheirMacros) {
  kaveltest::check(session, {{"(pl_CreeMenu \"Essais\" \"Outils\")", "T"},
                             {"(pl_CreeMenu \"ESSAIS\" \"OUTILS\")", "nil"},  // it is there
                             {"(pl_AddOptionMenu \"outils\" \"Compter\" \"(setq n 1) (setq n (+ n 2)) \")", "T"},
                             {"(pl_AddSep \"Outils\")", "T"},
                             {"(pl_AddOptionMenu \"Outils\" \"Noter\" \"setvar;USERI1 7 \")", "T"}});
  EXPECT_NE(session.feed("menu\n?\n").find("\nOutils\n  Compter\n  --\n  Noter\n"), std::string::npos);
  session.feed("menu\nOutils/compter\nmenu\nNOTER\n");
  kaveltest::check(session, {{"n", "3"}, {"(getvar \"USERI1\")", "7"}});
  session.feed("menu\nabsent\n");
  EXPECT_EQ(session.document().failures(), 1);
  kaveltest::check(
      session,
      {{"(pl_RemoveMenu \"outils\")", "T"}, {"(pl_RemoveMenu \"outils\")", "nil"}, {"(pl_RemoveDynMnus)", "nil"}});
  EXPECT_EQ(session.feed("menu\n\n").find("Compter"), std::string::npos);
}

TEST_F(Menus, TheProfileMenuFollowsTheChosenProfile) {
  session.eval("(progn (pl_ChoixProfil prf) (pl_ChoixProfil prf))");
  const std::string menu = session.feed("menu\n\n");
  EXPECT_NE(menu.find("\nProfil P1\n  Altitude\n  Distances\n  Observations\n  --\n  Cotation Automatique"),
            std::string::npos)
      << menu;
  session.eval("(pl_RemoveDynMnus)");
  EXPECT_EQ(session.feed("menu\n\n").find("Profil P1"), std::string::npos);
  // What is no profile isn't refused: the collection is emptied, and the menu goes.
  session.eval("(progn (pl_ChoixProfil prf) (pl_ChoixProfil pc1))");
  EXPECT_EQ(session.feed("menu\n\n").find("Profil P1"), std::string::npos);
  EXPECT_TRUE(plv::collectionMatrices().matrices.IsEmpty());
}

}  // namespace
