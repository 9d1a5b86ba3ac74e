// Depths of a line under the ground: worked out by hand, and on random lines compared at every vertex of either.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "etudes/optimal/profondeurs.h"
#include "tests/support/session.h"

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

// Ground 0 m at 100, 40 m at 102, 100 m at 101; the first station is 1000.
TEST(Depths, ArePublished) {
  kaveltest::Session session;
  session.eval(R"((progn
    (regapp "PLV2_DATA") (regapp "KELMONT_PLV2")
    (entmake '((0 . "BLOCK") (2 . "P") (70 . 2) (10 0.0 0.0 0.0))) (entmake '((0 . "ENDBLK")))
    (entmake '((0 . "INSERT") (2 . "P") (66 . 1) (10 0.0 0.0 0.0)))
    (entmake '((0 . "ATTRIB") (10 0.0 0.0 0.0) (40 . 1.0) (1 . "1") (2 . "NUMPL") (70 . 0)))
    (entmake '((0 . "SEQEND"))) (setq p (entlast))
    (plsxd p "DCUMDEB" 1000.0)
    (foreach d '((0.0 100.0) (40.0 102.0) (60.0 101.0)) (pl_add_xdata (car d) (cadr d) (cdr (assoc 5 (entget p)))))))");
  const struct {
    const char* expression;
    const char* printed;
  } rows[] = {
      {"(et_profondeurs p '((1000 99) (1100 99)))", "((1000.0 1.0) (1040.0 3.0))"},
      {"(et_profondeurs p '((1000.0 99.0) (1100.0 101.0)))", "((1100.0 0.0) (1040.0 2.2))"},
      {"(et_profondeurs p '((1000.0 99.0) (1101.0 99.0)))", "nil"},
      {"(et_profondeurs p '((1000.0 99.0) (1100.0 \"x\")))", "nil"},
      {"(et_profondeurs p '((1000.0 99.0)))", "nil"},
      {"(et_profondeurs p nil)", "nil"},
      {"(et_profondeurs p 3)", "nil"},
      {"(et_profondeurs p)", "nil"},
      {"(et_profondeurs)", "nil"},
      {"(et_profondeurs \"p\" '((1000.0 99.0) (1100.0 99.0)))", "nil"},
  };
  for (const auto& row : rows) EXPECT_EQ(session.eval(row.expression), row.printed) << row.expression;
}

// Both plug-ins number their functions from 0: a call must reach the plug-in that published the function.
TEST(Plugins, DoNotMeetInTheirNumbers) {
  kaveltest::Session session;
  EXPECT_EQ(session.eval("(car (car (et_aide)))"), "\"et_aide\"");
  EXPECT_EQ(session.eval("(vl-every '(lambda (r) (boundp (read (car r)))) (et_aide))"), "T");
  session.eval("(pl_li '(0.0 0.0) '(1.0 1.0))");
  EXPECT_EQ(session.eval("(cdr (assoc 0 (entget (entlast))))"), "\"LINE\"");
}

}  // namespace
