// Dynamic menus: the entries of a profile's menu, and the calls on a host without a menu bar.
// The macros are what the command line receives, trailing blank included.
#include "module/support/menus.h"

#include "tests/module/aide.h"

namespace {

struct Menus : kaveltest::ProfilDessine {};

TEST_F(Menus, AProfileHasAnEntryForEachRow) {
  session.eval("(pl_DefinirLigneMatrice \"N\" \"a\" \"Pentes\" 2.0 13)");
  const auto entrees = plv::entreesMenuProfil(plv::collectionMatrices());
  const wchar_t* const attendu[][2] = {
      {L"Altitude", L"(PL-CPLM \"M\" 1) "},
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

}  // namespace
