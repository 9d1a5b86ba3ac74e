// The chains that hang from a profile, whole and damaged.
// What stops a walker is a part of its contract.
#include "module/profil/chaines.h"

#include "tests/module/aide.h"

using plv::profilLong;
using reels = std::vector<double>;

namespace {

struct Chaines : kaveltest::ProfilDessine {
  profilLong apres(const std::string& lisp) {
    session.eval(lisp);
    profilLong profil;
    EXPECT_TRUE(profil.lireId(id("prf")));
    return profil;
  }
  std::vector<std::string> lignes(const profilLong& profil) {
    AcDbObjectIdArray ids;
    plv::lireLignes(profil, ids);
    std::vector<std::string> noms;
    for (const AcDbObjectId& ligne : ids)
      for (const char* nom : {"la", "lb", "lc"})
        if (id(nom) == ligne) noms.emplace_back(nom);
    return noms;
  }
};

TEST_F(Chaines, ThreeSections) {
  const profilLong p = apres(R"((progn (setq pc3 (point)) (plsxd pc2 "next-pc" pc3)
                                   (plsxd pc3 "distance" 30) (plsxd pc3 "pc" 110)))");
  EXPECT_EQ(p.distPc, (reels{0, 100, 150}));
  EXPECT_EQ(p.altPc, (reels{95, 100, 110}));
  EXPECT_EQ(p.idsPc.length(), 3);
}

TEST_F(Chaines, ADamagedChainKeepsWhatWasRead) {
  EXPECT_EQ(apres("(plsxd pc2 \"NEXT-PC\" \"pas un handle\")").altPc, (reels{95, 100}));
  EXPECT_EQ(apres("(entdel pc2)").altPc, (reels{95}));
  EXPECT_EQ(apres("(plsxd prf \"PRPC\" prf)").distPc, (reels{}));
}

TEST_F(Chaines, ASectionWithoutPlaneFallsOutOfStep) {
  const profilLong p = apres("(progn (setq nu (point)) (plsxd nu \"DISTANCE\" 5.0) (plsxd prf \"PRPC\" nu))");
  EXPECT_EQ(p.distPc, (reels{0}));
  EXPECT_TRUE(p.altPc.empty());
}

TEST_F(Chaines, AValueThatNamesAKeyIsTakenForThatKey) {
  const profilLong p = apres("(progn (plsxd pc1 \"NOTE\" \"PC\") (plsxd pc1 \"SUITE\" 7.0))");
  EXPECT_EQ(p.altPc, (reels{95, 0, 100}));
}

TEST_F(Chaines, LinesComeInChainOrder) {
  EXPECT_EQ(lignes(apres("(load \"lignes.lsp\")")), (std::vector<std::string>{"la", "lb", "lc"}));
}

TEST_F(Chaines, APcWithoutLinesDoesNotStopTheOthers) {
  EXPECT_EQ(lignes(apres("(progn (load \"lignes.lsp\") (plsxd pc1 \"PRLI\" lc))")),
            (std::vector<std::string>{"lc", "lc"}));
  EXPECT_TRUE(lignes(apres("(plsxd prf \"PRPC\" prf)")).empty());
}

TEST_F(Chaines, AnUnopenableLineIsKeptAndEndsItsChain) {
  const profilLong p = apres("(load \"lignes.lsp\")");
  const AcDbObjectId lb = id("lb");
  session.eval("(progn (plsxd lb \"NEXTLI\" lc) (entdel lb))");
  AcDbObjectIdArray ids;
  plv::lireLignes(p, ids);
  ASSERT_EQ(ids.length(), 3);
  EXPECT_EQ(ids[1], lb);
  EXPECT_EQ(ids[2], id("lc"));
}

TEST_F(Chaines, AHandleWithoutObjectIsAskedForUntilTheUserInterrupts) {
  const profilLong p = apres("(progn (load \"lignes.lsp\") (plsxd la \"NEXTLI\" \"FFFFF\"))");
  AcDbObjectIdArray ids;
  const kaveltest::Interrupted apresMilleEssais(1000);
  EXPECT_THROW(plv::lireLignes(p, ids), atelier::Interrupted);
  EXPECT_EQ(ids.length(), 1);
}

}  // namespace
