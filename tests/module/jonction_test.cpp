// Joints of polylines with arcs and widths: whichever ends meet, the joined polyline draws what the two drew.
#include <cmath>

#include "module/support/courbes/kitCourbes.h"
#include "tests/module/aide.h"

namespace {

struct Sommet {
  AcGePoint2d point;
  double courbure, largeurDebut, largeurFin;
};

std::unique_ptr<AcDbPolyline> polyligneDe(const std::vector<Sommet>& sommets) {
  auto polyligne = std::make_unique<AcDbPolyline>(static_cast<unsigned>(sommets.size()));
  for (unsigned i = 0; i < sommets.size(); ++i)
    polyligne->addVertexAt(i, sommets[i].point, sommets[i].courbure, sommets[i].largeurDebut, sommets[i].largeurFin);
  return polyligne;
}

// The same, drawn from its other end.
std::vector<Sommet> aRebours(const std::vector<Sommet>& sommets) {
  std::vector<Sommet> retournes;
  for (std::size_t k = sommets.size(); k-- > 0;) {
    Sommet s{sommets[k].point, 0, 0, 0};
    if (k > 0) s = {sommets[k].point, -sommets[k - 1].courbure, sommets[k - 1].largeurFin, sommets[k - 1].largeurDebut};
    retournes.push_back(s);
  }
  return retournes;
}

// For each segment with a length: the points at its ends and on its middle, from left to right, and its widths there.
std::vector<std::array<double, 8>> dessin(const AcDbPolyline& p) {
  std::vector<std::array<double, 8>> segments;
  for (unsigned i = 0; i + 1 < p.numVerts(); ++i) {
    AcGePoint3d a, milieu, b;
    p.getPointAtParam(i, a);
    p.getPointAtParam(i + 0.5, milieu);
    p.getPointAtParam(i + 1, b);
    if (a.distanceTo(b) < 1e-9) continue;
    double debut = 0, fin = 0;
    p.getWidthsAt(i, debut, fin);
    if (a.x > b.x) std::swap(a, b), std::swap(debut, fin);
    segments.push_back({a.x, a.y, milieu.x, milieu.y, b.x, b.y, debut, fin});
  }
  std::sort(segments.begin(), segments.end());
  return segments;
}

TEST(Jonction, NeverChangesThePicture) {
  kaveltest::Session session;
  const std::vector<Sommet> gauche = {{{0, 0}, 0.5, 1, 2}, {{3, 1}, -0.25, 2, 3}, {{6, 0}, 0, 0, 0}};
  const std::vector<Sommet> droite = {{{6, 0}, 0.3, 4, 5}, {{8, 2}, 0, 5, 6}, {{11, 1}, 0, 0, 0}};
  auto voulu = dessin(*polyligneDe(gauche));
  for (const auto& segment : dessin(*polyligneDe(droite))) voulu.push_back(segment);
  for (const bool gaucheRetournee : {false, true})
    for (const bool droiteRetournee : {false, true})
      for (const bool droiteDAbord : {false, true}) {
        const auto g = polyligneDe(gaucheRetournee ? aRebours(gauche) : gauche),
                   d = polyligneDe(droiteRetournee ? aRebours(droite) : droite);
        std::unique_ptr<AcDbCurve> jointe;
        ASSERT_TRUE(plv::fusionnerCourbes(droiteDAbord ? *d : *g, droiteDAbord ? *g : *d, jointe));
        const auto obtenu = dessin(*AcDbPolyline::cast(jointe.get()));
        ASSERT_EQ(obtenu.size(), voulu.size());
        for (std::size_t i = 0; i < voulu.size(); ++i)
          for (std::size_t k = 0; k < 8; ++k)
            EXPECT_NEAR(obtenu[i][k], voulu[i][k], 1e-9)
                << gaucheRetournee << droiteRetournee << droiteDAbord << ' ' << i << ' ' << k;
      }
}

}  // namespace
