// Elements of a profile: what its lists give to the module, and what no published function shows.
// The lists are read directly.
#include "module/elements/elemsFixes.h"
#include "module/elements/listeProjet.h"
#include "tests/module/aide.h"

using kaveltest::check;

namespace {

struct Elements : kaveltest::ProfilDessine {
  Elements() { session.load("supports"); }
};

TEST_F(Elements, OneReaderOfTheProjectListDropsDuplicates) {
  session.eval(
      "(progn (setq a (point) b (point) c (point)) (pl_elem_prj prf \"V\" a b) (pl_elem_prj prf \"V\" a b c))");
  AcDbObjectIdArray liste, brute;
  plv::lireListeProjet(id("rv"), liste);
  plv::lireListeBrute(id("rv"), brute);
  EXPECT_EQ(liste.length(), 3);
  EXPECT_EQ(brute.length(), 5);
}

TEST_F(Elements, ADamagedStaticRecordIsReadUntilTheUserInterrupts) {
  session.eval(R"((progn (pl_elem_ponct prf "V" '(140.0 77.0) (point))
    (setq rec (dictsearch (cdr (assoc 360 (entget rv))) "ELEMS_STATIQUES_KAVEL"))
    (entmod (subst '(102 . "x") '(102 . "{") rec))))");
  plv::listeElemsFixes liste;
  const kaveltest::Interrupted apresMilleEssais(1000);
  EXPECT_THROW(plv::lireElemsFixes(liste, id("rv")), atelier::Interrupted);
  EXPECT_EQ(liste.GetSize(), 0);
}

TEST_F(Elements, TwinsNameEachOther) {
  session.eval("(setq a (ligne 0.0 0.0 1.0 1.0))");
  plv::elemsFixesKavel groupe;
  groupe.elements.append(id("a"));
  plv::creerDoublons(groupe);
  ASSERT_EQ(groupe.doublons.length(), 1);
  check(session, {{"(equal (cdr (assoc 330 (groupes a \"DOUBLON_KAVEL\"))) (entlast))", "T"},
                  {"(equal (cdr (assoc 330 (groupes (entlast) \"DOUBLON_KAVEL\"))) a)", "T"}});
}

}  // namespace
