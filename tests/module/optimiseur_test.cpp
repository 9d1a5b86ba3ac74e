// The search for a project line: its results on grounds worked out by hand, and the ground that a sibling gives.
// Ground points are abscissa and altitude.
#include <dlfcn.h>

#include "hote/plateforme.h"
#include "module/optimiseur/KavelOptimizer.h"
#include "module/optimiseur/pointsVoisin.h"
#include "tests/module/aide.h"

using plv::KavelOptimizer;

namespace {

using liste = std::vector<AcGePoint2d>;

plv::pointsTerrain terrainDe(const liste& points) {
  plv::pointsTerrain terrain;
  for (const AcGePoint2d& point : points) terrain.append(point);
  return terrain;
}

std::string texte(const plv::chaineTrace& chaine) {
  std::string resultat;
  for (const AcGePoint2d& p : chaine) {
    char morceau[64];
    std::snprintf(morceau, sizeof morceau, "%.9g,%.9g ", p.x, p.y);
    resultat += morceau;
  }
  return resultat;
}

TEST(Optimiseur, Chains) {
  const liste plat = {{0, 10}, {10, 10}, {20, 10}, {30, 10}};
  const struct {
    const char* cas;
    liste terrain;
    AcGePoint2d a, b;
    double minimum, maximum;
    const char* chaine;
  } rangees[] = {{"a vertex under the worst point", plat, {0, 9}, {30, 5}, 1, 2, "0,9 20,8.5 20,8.5 30,5 "},
                 {"within the band", plat, {0, 9}, {30, 8.5}, 1, 2, "0,9 30,8.5 "},
                 {"on the bounds of the band", plat, {0, 9}, {30, 9}, 1, 2, "0,9 30,9 "},
                 {"the other bound", plat, {0, 8}, {30, 8}, 1, 2, "0,8 30,8 "},
                 {"above the ground", plat, {0, 11}, {30, 11.5}, -2, -1, "0,11 30,11.5 "},
                 {"from right to left", plat, {30, 9}, {0, 8.5}, 1, 2, "30,9 0,8.5 "},
                 {"no ground", {}, {0, 9}, {30, 5}, 1, 2, "0,9 30,5 "},
                 {"no ground and one point", {}, {0, 9}, {0, 9.0000005}, 1, 2, "0,9 "},
                 {"one ground point", {{10, 10}}, {0, 0}, {30, 0}, 1, 2, "0,0 30,0 "},
                 {"two ground points", {{0, 10}, {30, 10}}, {0, 9}, {0, 9}, 1, 2, "0,9 0,9 "},
                 {"the ends are never tested", {{0, 99}, {10, 10}, {30, -99}}, {0, 9}, {30, 9}, 1, 2, "0,9 30,9 "},
                 {"an upright run tests nothing", plat, {5, 9}, {5, 0}, 1, 2, "5,9 5,0 "},
                 {"the prolongation counts", plat, {0, 9}, {5, 8}, 1, 2, "0,9 20,8.5 20,8.5 5,8 "},
                 // Too shallow by 0.5 at 10, and rather deep at 20: the score of 10 is -1.5, that of 20 is -0.1.
                 {"the first vertex isn't at the point that failed",
                  {{0, 10}, {10, 10}, {20, 11.4}, {30, 10}},
                  {0, 9.5},
                  {30, 9.5},
                  1,
                  2,
                  "0,9.5 10,8.5 10,8.5 20,9.9 20,9.9 30,9.5 "},
                 {"depths beyond all measure", plat, {0, 9}, {30, 9}, 1e40, 1e41, "0,9 30,9 "}};
  for (const auto& r : rangees) {
    plv::chaineTrace chaine;
    KavelOptimizer(r.minimum, r.maximum).optimiser(terrainDe(r.terrain), r.a, r.b, chaine);
    EXPECT_EQ(texte(chaine), r.chaine) << r.cas;
  }
}

TEST(Optimiseur, TheEarliestOfEqualScoresIsTheWorst) {
  KavelOptimizer optimiseur(1, 2);
  const plv::pointsTerrain terrain = terrainDe({{0, 0}, {1, 5}, {2, 7}, {3, 7}, {4, 0}});
  AcGePoint2d point, milieu;
  Adesk::Int32 indice = -1;
  optimiseur.pointLePlusMauvais({0, 4}, point, indice, {0, 0}, {4, 0}, terrain);
  EXPECT_EQ(indice, 2);
  plv::intervalleIndices gauche{}, droite{};
  optimiseur.decouper({0, 4}, {0, 0}, {4, 0}, terrain, milieu, gauche, droite);
  EXPECT_EQ(milieu, AcGePoint2d(2, 5.5));
  EXPECT_EQ(gauche.dernier, 2);
  EXPECT_EQ(droite.premier, 2);
  EXPECT_EQ(droite.dernier, 4);
}

TEST(Optimiseur, ASegmentHasItsEndsInOrderAndABoundedMode) {
  const plv::segmentOptimum segment({10, 2}, {0, 1});
  const struct {
    double x;
    bool borne, trouve;
  } rangees[] = {{5, true, true},      {0, true, true},       {10, true, true},
                 {-1e-6, true, false}, {10.001, true, false}, {20, false, true}};
  for (const auto& r : rangees) {
    double y = 0;
    EXPECT_EQ(segment.ordonneeSur(r.x, y, r.borne), r.trouve) << r.x;
    EXPECT_NEAR(y, r.trouve ? 1 + r.x / 10 : 0, 1e-12) << r.x;
  }
}

// The function on the profile `prf`, flat ground at 10 m, first plane at 5 m.
struct TraceOptimal : kaveltest::ProfilDessine {
  TraceOptimal() { session.load("optimal"); }
  // What is drawn for a line from (0, 9) to (30, 5), as an expression tells it.
  std::string tracer(const std::string& expression) {
    session.eval("(marque)");
    session.feed("(pl_TraceOptimal)\n(eval prf)\n100,90\n130,50\n1\n2\n");
    return session.eval(expression);
  }
};

// Over 256 no entity takes a number for its colour, so this stands before the long saw.
TEST_F(TraceOptimal, ColoursGoOn) {
  const std::string avant = tracer("(couleurs)");
  EXPECT_NE(tracer("(couleurs)"), avant);
}

TEST_F(TraceOptimal, ALoadedSiblingGivesTheGround) {
  plv::pointsTerrain terrain = terrainDe({{1, 1}});
  EXPECT_EQ(GetModuleHandleW(L"TREM-ARX2013-64BITS.arx"), nullptr);
  EXPECT_FALSE(plv::lirePointsProfils(7042, terrain));
  ASSERT_NE(dlopen(KAVEL_VOISIN, RTLD_NOW), nullptr) << dlerror();
  EXPECT_NE(GetModuleHandleW(L"trem-arx2013-64bits.ARX"), nullptr);
  EXPECT_EQ(GetProcAddress(GetModuleHandleW(L"TREM-ARX2013-64BITS.arx"), "absente"), nullptr);
  EXPECT_FALSE(plv::lirePointsProfils(8, terrain)) << "a profile that it doesn't know";
  EXPECT_EQ(terrain.length(), 1);
  EXPECT_TRUE(plv::lirePointsProfils(7042, terrain));
  EXPECT_EQ(texte({terrain.begin(), terrain.end()}), "0,10 10,10 20,10 30,10 ");
  EXPECT_FALSE(plv::lirePointsProfils(7043, terrain)) << "no record";
  session.eval("(progn (plsxd prf \"ID\" 7042) (repeat 2 (pl_add_xdata 10.0 99.0 (handle prf))))");
  EXPECT_EQ(tracer("(traces)"),
            "(\"LINE 0.00,9.00 30.00,5.00\" \"LINE 0.00,9.00 20.00,8.50\" "
            "\"LWPOLYLINE 100.00,90.00 120.00,85.00 120.00,85.00 130.00,50.00 \")");
}

// A saw that is broken at each of its points, one after the other.
TEST(TracesLongues, ALongSawNeedsNoDeepStack) {
  plv::pointsTerrain terrain;
  constexpr int kPoints = 20000;
  for (int i = 0; i < kPoints; ++i) terrain.append(AcGePoint2d(i, i % 2 ? 50 - i * 1e-4 : 0));
  plv::chaineTrace chaine;
  KavelOptimizer(1, 2).optimiser(terrain, {0, -1.5}, {kPoints - 1, -1.5}, chaine);
  EXPECT_GT(chaine.size(), static_cast<std::size_t>(kPoints));
}

}  // namespace
