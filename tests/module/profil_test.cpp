// The record of a profile: what is read from the drawing, and what damaged data give.
// Records are read directly, since LISP sees only the natural ground.
#include "module/profil/profilLong.h"
#include "tests/module/aide.h"

using plv::profilLong;

namespace {

struct Profil : kaveltest::ProfilDessine {
  profilLong lu(const std::string& symbol = "prf") {
    profilLong profil;
    EXPECT_TRUE(profil.lireId(id(symbol)));
    return profil;
  }
  // The record after one more expression on the profile.
  profilLong apres(const std::string& lisp) {
    session.eval(lisp);
    return lu();
  }
};

TEST_F(Profil, ReadsKeysChainAndGround) {
  const profilLong p = lu();
  EXPECT_STREQ(p.numero.kACharPtr(), L"P1");
  EXPECT_EQ(p.echelleV, 10.0);
  EXPECT_EQ(p.id, 7);
  EXPECT_EQ(p.dcumDeb, 0.0);
  EXPECT_EQ(p.position.x, 100.0);
  EXPECT_EQ(p.distPc, (std::vector<double>{0, 100}));
  EXPECT_EQ(p.altPc, (std::vector<double>{95, 100}));
  EXPECT_EQ(p.idsPc.length(), 2);
  EXPECT_EQ(p.distTn, (std::vector<double>{0, 40, 100, 150}));
  EXPECT_EQ(p.altTn, (std::vector<double>{100, 102, 101, 104}));
  EXPECT_TRUE(p.clesInconnues);
  EXPECT_EQ(p.longueurTn(), 150.0);
}

TEST_F(Profil, WhatIsNoProfileReadsFalse) {
  session.eval(
      "(setq autre (reference \"PROFIL\" \"AUTRE\" \"x\" 0.0) nue (reference \"PROFIL\" \"numpl\" \"N\" "
      "0.0))");
  profilLong autre, nue, point;
  EXPECT_FALSE(autre.lireId(id("autre")));
  EXPECT_STREQ(autre.numero.kACharPtr(), L"* inconnu *");
  EXPECT_FALSE(nue.lireId(id("nue")));
  EXPECT_STREQ(nue.numero.kACharPtr(), L"N");
  EXPECT_FALSE(point.lireId(id("pc1")));
  EXPECT_FALSE(point.lireId(AcDbObjectId::kNull));
}

TEST_F(Profil, ValuesThatDontFit) {
  EXPECT_EQ(apres("(plsxd prf \"echv\" \"dix\")").echelleV, 0.0);
  EXPECT_EQ(apres("(plsxd prf \"ID\" 7.0)").id, -1);
  EXPECT_EQ(apres("(plsxd prf \"TTXT\" 3)").hauteurTexte, 3.0);
  EXPECT_TRUE(apres("(plsxd prf \"HVOIRIE\" 3)").ids[plv::kVoirie].isNull());
  const profilLong impair =
      apres("(entmod (append (entget prf) '((-3 (\"KELMONT_PLV2\" (1040 . 1.0) (1040 . 2.0) (1040 . 3.0))))))");
  EXPECT_EQ(impair.distTn, std::vector<double>{1.0});
}

// A profile whose items are all known keys has no length, however much ground it has.
TEST_F(Profil, KeysOfTheFrontEndGateTheLength) {
  session.eval(R"((progn (setq nu (reference "PROFIL" "NUMPL" "N" 0.0))
                    (plsxd nu "ECHV" 1.0) (pl_add_xdata 10 20 (handle nu))))");
  const profilLong p = lu("nu");
  EXPECT_FALSE(p.clesInconnues);
  EXPECT_EQ(p.distTn.size(), 1u);
  EXPECT_EQ(p.longueurTn(), 0.0);
}

TEST_F(Profil, HandleKeysCompareOverTheShorterLength) {
  const profilLong p = apres("(progn (plsxd prf \"HT\" pc1) (plsxd prf \"hassxx\" pc2))");
  EXPECT_EQ(p.ids[plv::kTn], id("pc1"));
  EXPECT_EQ(p.ids[plv::kAss], id("pc2"));
}

TEST_F(Profil, KeywordsSelectAKindOfLine) {
  session.eval(R"((mapcar '(lambda (k) (plsxd prf k (set (read k) (point))))
                     '("HTN" "HASS" "HVOIRIE" "HAEP" "HGEN" "HTERRA" "HPROJ")))");
  const profilLong p = lu();
  const struct {
    const wchar_t* motCle;
    const char* symbole;
  } cas[] = {{L"", "HVOIRIE"}, {L"A", "HASS"},       {L"AE", "HAEP"},         {L"AEPX", "HAEP"}, {L"T", "HTERRA"},
             {L"tn", "HTN"},   {L"Projet", "HPROJ"}, {L"GENERIQUES", "HGEN"}, {L"*x", "prf"}};
  AcDbObjectId trouve;
  for (const auto& c : cas) {
    EXPECT_TRUE(p.idParMotCle(c.motCle, trouve));
    EXPECT_EQ(trouve, id(c.symbole)) << c.symbole;
  }
  EXPECT_FALSE(p.idParMotCle(L"ROUTE", trouve));
  EXPECT_TRUE(trouve.isNull());
}

TEST_F(Profil, ListsItsElementsWithLabels) {
  session.eval("(progn (setq tn (point) aep (point)) (plsxd prf \"HTN\" tn) (plsxd prf \"HAEP\" aep))");
  const profilLong p = lu();
  AcDbObjectIdArray tous, presents, ids, avecProjet;
  std::vector<std::wstring> labels, labelsProjet;
  p.idsElements(tous, true, true);
  p.idsNonNuls(presents);
  p.elementsEtLabels(ids, labels, true, true, false);
  EXPECT_EQ(tous.length(), 8);
  EXPECT_EQ(presents.length(), 3);
  EXPECT_EQ(presents.first(), p.idBloc);
  EXPECT_EQ(labels, (std::vector<std::wstring>{L"A.E.P", L"Profil"}));
  p.elementsEtLabels(avecProjet, labelsProjet, true, true, true);
  EXPECT_TRUE(avecProjet.isEmpty());
}

TEST_F(Profil, IsFoundByItsNumber) {
  session.eval("(progn (setq b (reference \"PROFIL\" \"NUMPL\" \"P2\" 9.0)) (plsxd b \"ID\" 7) (point))");
  AcDbObjectIdArray trouves, aucun;
  plv::profilsParId(7, trouves);
  plv::profilsParId(8, aucun);
  EXPECT_EQ(trouves.length(), 2);
  EXPECT_TRUE(aucun.isEmpty());
}

}  // namespace
