// Depths of a line under the ground: worked out by hand, and on random lines compared at every vertex of either.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "etudes/optimal/profondeurs.h"

namespace {

using etu::listeSommets;
using etu::profondeursExtremes;

etu::sommet s(double distance, double altitude) {
  return {plv::distanceProfil(distance), plv::altitudeVraie(altitude)};
}

// The altitudes on both sides of a place, (before, after), by a slow and simple walk.
std::pair<double, double> sides(const listeSommets& line, double d) {
  double before = NAN, after = NAN;
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    const double a = line[i].distance.valeur, b = line[i + 1].distance.valeur;
    const double za = line[i].altitude.valeur, zb = line[i + 1].altitude.valeur;
    if (a == b) continue;
    const double z = za + (zb - za) * (d - a) / (b - a);
    if (a < d && d <= b) before = z;
    if (a <= d && d < b) after = z;
  }
  return {before, after};
}

TEST(Depths, OfRandomLinesAreThoseAtTheVertices) {
  const unsigned seed = std::random_device{}();
  std::mt19937 random(seed);
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::uniform_int_distribution<int> step(0, 4), height(-40, 40), count(2, 12);
  for (int run = 0; run < 2000; ++run) {
    const auto line = [&](double from, double to) {
      listeSommets made{s(from, height(random) / 8.0)};
      for (int n = count(random); n > 0; --n)
        if (const double d = made.back().distance.valeur + step(random); d < to)
          made.push_back(s(d, height(random) / 8.0));
      made.push_back(s(to, height(random) / 8.0));
      return made;
    };
    const listeSommets ground = line(0, 40), project = line(step(random), 40 - step(random));
    double least = HUGE_VAL, most = -HUGE_VAL;
    for (const listeSommets* either : {&ground, &project})
      for (const etu::sommet& vertex : *either) {
        const double d = vertex.distance.valeur;
        const auto [groundBefore, groundAfter] = sides(ground, d);
        const auto [lineBefore, lineAfter] = sides(project, d);
        for (const double depth : {groundBefore - lineBefore, groundAfter - lineAfter})
          if (!std::isnan(depth)) least = std::min(least, depth), most = std::max(most, depth);
      }
    const auto found = profondeursExtremes(ground, project);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->moindre.profondeur.valeur, least, 1e-12);
    EXPECT_NEAR(found->plusGrande.profondeur.valeur, most, 1e-12);
  }
}

TEST(Depths, AreRefusedWhereThereIsNoGround) {
  const listeSommets ground = {s(0, 10), s(10, 10)};
  EXPECT_FALSE(profondeursExtremes(ground, {s(-1, 9), s(5, 9)}));
  EXPECT_FALSE(profondeursExtremes(ground, {s(5, 9), s(11, 9)}));
  EXPECT_FALSE(profondeursExtremes(ground, {s(5, 9), s(4, 9), s(6, 9)}));
  EXPECT_FALSE(profondeursExtremes(ground, {s(5, 9), s(5, 8)}));
  EXPECT_FALSE(profondeursExtremes(ground, {s(5, 9)}));
  EXPECT_FALSE(profondeursExtremes({s(0, 10)}, {s(0, 9), s(1, 9)}));
  EXPECT_TRUE(profondeursExtremes(ground, {s(-1e-9, 9), s(10 + 1e-9, 9)}));
}

}  // namespace
