// Sections: pieces and their clipping, and the sweep over terrain and project.
// A section is written as its class, ends and surface.
#include <sstream>

#include "module/metres/calculMetres.h"
#include "module/metres/elementsMesures.h"
#include "module/metres/rapportMetres.h"
#include "tests/module/aide.h"

namespace {

using plv::distanceProfil;
using plv::LineSeg;
using plv::LineSegArrayData;

LineSegArrayData ligne(std::initializer_list<AcGePoint2d> points) {
  LineSegArrayData resultat;
  const AcGePoint2d* precedent = nullptr;
  for (const AcGePoint2d& p : points) {
    if (precedent) resultat.Add({precedent->x, precedent->y, p.x, p.y});
    precedent = &p;
  }
  return resultat;
}

std::string texte(const LineSegArrayData& pieces) {
  std::ostringstream sortie;
  for (std::ptrdiff_t i = 0; i < pieces.GetSize(); ++i)
    sortie << pieces[i].x1 << ',' << pieces[i].y1 << ' ' << pieces[i].x2 << ',' << pieces[i].y2 << "; ";
  return sortie.str();
}

std::string texte(const plv::ligneTroncons& entree) {
  std::ostringstream sortie;
  for (const auto& t : entree.troncons)
    sortie << t->classe() << ": " << t->debut().valeur << '-' << t->fin().valeur << " s" << t->surface << "; ";
  return sortie.str();
}

// The default classes with the extreme ones around them.
struct Balayage : ::testing::Test {
  Balayage() : liste(plv::listeClasses()), garde(liste) {}
  plv::ligneTroncons couper(const LineSegArrayData& projet, const LineSegArrayData& terrain) {
    plv::ligneTroncons entree;
    plv::couperEnTroncons(projet, terrain, liste, entree);
    return entree;
  }
  kaveltest::Session session;
  plv::classesProfondeur liste;
  plv::gardeClassesExtremes garde;
};

TEST_F(Balayage, CutsAtVerticesAndClassLimits) {
  const auto plat = ligne({{0, 10}, {100, 10}});
  const struct {
    const char* quoi;
    LineSegArrayData projet, terrain;
    const char* attendu;
  } cas[] = {
      {"one class", ligne({{0, 9.5}, {100, 9.5}}), plat, "1: 0-100 s50; "},
      {"a limit belongs to the class above it", ligne({{0, 9}, {100, 9}}), plat, "1: 0-100 s100; "},
      {"coincident lines", ligne({{0, 10}, {100, 10}}), plat, "0: 0-100 s0; "},
      {"through three limits", ligne({{0, 9.5}, {100, 7.5}}), plat,
       "1: 0-25 s18.75; 2: 25-50 s31.25; 3: 50-75 s43.75; 4: 75-100 s56.25; "},
      {"and back", ligne({{0, 8.75}, {50, 9.25}, {100, 8.75}}), plat,
       "2: 0-25 s28.125; 1: 25-75 s43.75; 2: 75-100 s28.125; "},
      {"above the ground, then below", ligne({{0, 11}, {100, 9}}), plat, "0: 0-50 s25; 1: 50-100 s25; "},
      {"deeper than all classes", ligne({{0, 4}, {100, 4}}), plat, "7: 0-100 s600; "},
      {"only where both are", ligne({{-50, 9.5}, {60, 9.5}}), plat, "1: 0-60 s30; "},
      {"vertices nearer than a hundredth of a micrometre", ligne({{0, 9.5}, {50 + 5e-9, 9.5}, {100, 9.5}}),
       ligne({{0, 10}, {50, 10}, {100, 10}}), "1: 0-100 s50; "},
      {"a vertical piece of ground", ligne({{0, 9.5}, {100, 9.5}}), ligne({{0, 10}, {50, 10}, {50, 10.4}, {100, 10.4}}),
       "1: 0-100 s70; "},
      {"one between classes", ligne({{0, 9.5}, {100, 9.5}}), ligne({{0, 10}, {50, 10}, {50, 12}, {100, 12}}),
       "1: 0-50 s25; 2: 50-50 s0; 3: 50-50 s0; 4: 50-100 s125; "},
      {"one after a limit was crossed", ligne({{0, 9.5}, {100, 9.5}}),
       ligne({{0, 10}, {40, 11}, {50, 11}, {50, 10}, {100, 10}}), "1: 0-20 s15; 2: 20-20 s55; 1: 20-100 s40; "},
      {"no ground", ligne({{0, 9}, {1, 9}}), {}, ""},
      {"ground that only touches", ligne({{100, 9}, {200, 9}}), ligne({{0, 10}, {100, 10}, {100, 11}, {101, 11}}),
       "3: 100-101 s2; "},
  };
  for (const auto& c : cas) EXPECT_EQ(texte(couper(c.projet, c.terrain)), c.attendu) << c.quoi;
}

// Depths that are a limit to the last digit change class again and again; their crossings are still found.
TEST_F(Balayage, ALineAlongALimitIsMeasuredOnce) {
  unsigned alea = 1;
  const auto altitude = [&alea] { return ((alea = alea * 1103515245 + 12345) >> 8) % 100000 / 100.0; };
  for (int essai = 0; essai < 2000; ++essai)
    for (const double limite : {1.0, 1.5, 3.0}) {
      const double a = altitude(), b = altitude(), c = altitude(), plan = altitude();
      const auto z = [&](double vraie) { return (vraie - plan) * 10 / 10 + plan; };  // as they come from a drawing
      const auto entree = couper(ligne({{0, z(a - limite)}, {37.3, z(b - limite)}, {100, z(c - limite)}}),
                                 ligne({{0, z(a)}, {37.3, z(b)}, {100, z(c)}}));
      double surface = 0;
      for (const auto& t : entree.troncons) surface += t->surface;
      ASSERT_NEAR(surface, 100 * limite, 1e-9) << a << ' ' << b << ' ' << c << ' ' << plan << ' ' << texte(entree);
    }
}

TEST_F(Balayage, EachSectionCarriesItsStretchOfBothLines) {
  const auto entree = couper(ligne({{0, 9.5}, {60, 9.5}, {100, 8.5}}), ligne({{0, 10}, {30, 10.2}, {100, 10}}));
  ASSERT_EQ(entree.troncons.size(), 2u) << texte(entree);
  EXPECT_EQ(entree.classeCourante, 2);
  EXPECT_EQ(texte(*entree.troncons[0]->projet).substr(0, 26), "0,9.5 30,9.5; 30,9.5 60,9.");
  // Pieces that follow one another stay apart, although they lie on one straight line.
  EXPECT_EQ(entree.troncons[0]->projet->GetSize(), 3);
  EXPECT_EQ(entree.troncons[0]->terrain->GetSize(), 3);
  EXPECT_NEAR(entree.troncons[0]->surface + entree.troncons[1]->surface,
              0.5 * (30 * 1.2 + 30 * (0.7 + 10.2 - 0.2 * 3 / 7 - 9.5) + 40 * (10.2 - 0.2 * 3 / 7 - 9.5 + 1.5)), 1e-12);
}

TEST_F(Balayage, LinesThatDoNotMeetRaiseTheFailureOfTheGuardedIndex) {
  EXPECT_THROW(couper(ligne({{200, 9}, {300, 9}}), ligne({{0, 10}, {100, 10}})), CInvalidArgException);
  EXPECT_THROW(couper(ligne({{-20, 9}, {-10, 9}}), ligne({{0, 10}, {100, 10}})), CInvalidArgException);
  EXPECT_THROW(couper({}, ligne({{0, 10}, {100, 10}})), CInvalidArgException);
}

TEST_F(Balayage, ClippingOnlyBitesOnAPieceItCuts) {
  const struct {
    double a, b;
    const char* attendu;
  } cas[] = {{2, 25, "2,2 10,10; 10,10 20,0; 20,0 25,5; "},
             {10, 15, "0,0 10,10; 10,10 15,5; "},  // a lies on an end: what is before it stays
             {0, 30, "0,0 10,10; 10,10 20,0; 20,0 30,10; "},
             {5e-7, 20, "0,0 10,10; 10,10 20,0; 20,0 30,10; "},
             {30, 40, ""},
             {-5, 0, ""}};
  for (const auto& c : cas) {
    auto pieces = ligne({{0, 0}, {10, 10}, {20, 0}, {30, 10}});
    pieces.ajuster(distanceProfil(c.a), distanceProfil(c.b));
    EXPECT_EQ(texte(pieces), c.attendu) << c.a << ' ' << c.b;
  }
  EXPECT_EQ(session.transcript(), "");
  LineSegArrayData vide;
  EXPECT_EQ(vide.debut().valeur, 1e36);
  EXPECT_EQ(vide.fin().valeur, -1e36);
  EXPECT_THROW(vide.concatener(vide), CInvalidArgException);
}

TEST_F(Balayage, AnOrdinateNeedsAPieceWithALength) {
  plv::altitudeVraie y(7);
  EXPECT_FALSE((LineSeg{1, 0, 1 + 5e-9, 4}.YAt(distanceProfil(1), y)));
  EXPECT_FALSE((LineSeg{0, 0, 10, 10}.YAt(distanceProfil(10.1), y, true)));
  EXPECT_EQ(y.valeur, 7);
  EXPECT_TRUE((LineSeg{0, 0, 10, 10}.YAt(distanceProfil(12), y)));
  EXPECT_EQ(y.valeur, 12);
}

// --- from the drawing

struct Metres : kaveltest::ProfilDessine {
  Metres() {
    session.load("trace");
    profil->lireId(id("prf"));
  }
  void calculer(std::initializer_list<const char*> projet,
                std::initializer_list<const char*> terrain = {"tn3", "tn1", "tn2"},
                std::initializer_list<const char*> elements = {}) {
    const plv::gardeClassesExtremes garde(plv::listeClasses());
    plv::elemsFixesKavel groupe;
    groupe.elements = ids(elements);
    plv::calculerMetres(profil, ids(projet), ids(terrain), {groupe});
  }
  AcDbObjectIdArray ids(std::initializer_list<const char*> symboles) {
    AcDbObjectIdArray liste;
    for (const char* symbole : symboles) liste.append(id(symbole));
    return liste;
  }
  plv::poigneeProfil profil{new plv::InfoProfilEnLong};
};

TEST_F(Metres, EachLineIsReadInItsOwnSection) {
  session.eval("(setq a (tronc 0.0 99.5 100.0 99.5 95.0) b (tronc 150.0 103.5 100.0 100.5 100.0))");
  calculer({"a", "b"});
  ASSERT_EQ(profil->lignes.size(), 2u);
  EXPECT_EQ(profil->lignes[0].planComparaison.valeur, 95);
  EXPECT_EQ(profil->lignes[1].planComparaison.valeur, 100);
  // Depths 0.5 at 0, 2.5 at 40, 1.5 at 100.
  EXPECT_EQ(texte(profil->lignes[0]),
            "1: 0-10 s7.5; 2: 10-20 s12.5; 3: 20-30 s17.5; 4: 30-70 s90; 3: 70-100 s52.5; 2: 100-100 s0; ");
  // Drawn from right to left.
  EXPECT_EQ(texte(profil->lignes[1]), "1: 100-150 s25; ");
  // An entity without pieces, or that is no curve, leaves its entry empty.
  profil->lignes.clear();
  calculer({"prf", "a"});
  EXPECT_TRUE(profil->lignes[0].troncons.empty());
  EXPECT_THROW(plv::ordonnerLignes(*profil), std::out_of_range);
}

TEST_F(Metres, ALineOverSeveralSectionsCountsWhereItsMiddleLies) {
  session.eval("(setq a (ligne 100.0 95.0 220.0 95.0))");  // 0 to 120, altitude 99.5 over the first plane
  calculer({"a"});
  EXPECT_EQ(profil->lignes[0].troncons.back()->fin().valeur, 100);
  EXPECT_EQ(profil->lignes[0].planComparaison.valeur, 95);
}

TEST_F(Metres, LinesAreShownByTheirFirstStation) {
  session.eval("(setq a (tronc 60.0 99.0 90.0 99.0 95.0) b (tronc 10.0 99.0 30.0 99.0 95.0))");
  calculer({"a", "b"});
  plv::ordonnerLignes(*profil);
  EXPECT_EQ(profil->lignes[0].troncons[0]->debut().valeur, 10);
}

TEST_F(Metres, OutsideTheGroundTheLinesBeforeStay) {
  session.eval("(setq a (tronc 0.0 99.5 100.0 99.5 95.0) b (tronc 300.0 99.0 310.0 99.0 100.0))");
  EXPECT_THROW(calculer({"a", "b"}), CInvalidArgException);
  ASSERT_EQ(profil->lignes.size(), 2u);
  EXPECT_FALSE(profil->lignes[0].troncons.empty());
}

TEST_F(Metres, KnownBlocksAreListedWhole) {
  session.load("tampons");
  profil->dcumDeb = 1000;
  calculer({"a"}, {"tn1", "tn2"}, {"r", "v", "sans", "casse", "autre", "a"});
  ASSERT_EQ(profil->elements.size(), 2u);
  const plv::elementFixeMesure &regard = profil->elements[0], &vidange = profil->elements[1];
  EXPECT_EQ(regard.libelle, L"Regard");
  ASSERT_EQ(regard.valeurs.size(), 5u);
  EXPECT_EQ(regard.valeurs[0].nombre, 1030);
  EXPECT_EQ(regard.valeurs[2].libelle, L"Cote Tampon");
  EXPECT_EQ(regard.valeurs[2].texte, L"102.5");
  EXPECT_EQ(vidange.id, 5);
  EXPECT_EQ(vidange.valeurs[1].texte, L"basse");
}

}  // namespace
