// Corners of lines and arcs in a plane: every result touches both sides, continues smoothly into the parts that are
// kept, and keeps the picked parts.
#include "atelier/shaping/corner.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "atelier/database/curves/polyline_vertices.h"

namespace atelier {
namespace {

CornerSide line(double x1, double y1, double x2, double y2, double pick) {
  const AcGePoint2d a(x1, y1), b(x2, y2);
  return {Track::line(a, b), 0, a.distanceTo(b), false, a + (b - a) * pick};
}
CornerSide arc(double x, double y, double r, double from, double sweep, double pick) {
  const Track track = Track::circle({x, y}, r);
  return {track, from, from + sweep, false, track.pointAt(from + sweep * pick)};
}
CornerSide circle(double x, double y, double r, double pick) {
  const Track track = Track::circle({x, y}, r);
  return {track, 0, 0, true, track.pointAt(pick)};
}

AcGeVector2d keptWay(const CornerSide& side, const Joint& joint) {
  return side.track.along(joint.param) * (joint.keepsHigh ? 1 : -1);
}

TEST(Corners, TouchAndGoSmoothlyOn) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(-10, 10), size(0.5, 8), share(0.05, 0.95), turn(0.3, 6);
  constexpr double kEast = 652000, kNorth = 6862000;  // as far from the origin as surveys lie
  int answered = 0;
  for (int i = 0; i < 4000; ++i) {
    const auto side = [&](int kind) {
      const double x = kEast + place(random), y = kNorth + place(random);
      if (kind == 0) return line(x, y, x + place(random), y + place(random), share(random));
      if (kind == 1) return arc(x, y, size(random), place(random), turn(random), share(random));
      return circle(x, y, size(random), place(random));
    };
    const CornerSide a = side(i % 3), b = side(i / 3 % 3);
    const double radius = size(random);
    const auto corner = roundedCorner(a, b, radius);
    if (!corner) continue;
    ++answered;
    const BulgeArc round = bulgeArc(corner->first.point, corner->second.point, corner->bulge);
    ASSERT_NEAR(round.radius, radius, 1e-4) << i;
    EXPECT_LE(std::abs(round.sweep), std::numbers::pi + 1e-9) << i;
    for (const auto& [s, joint, way] : {std::tuple(&a, corner->first, 1.0), std::tuple(&b, corner->second, -1.0)}) {
      EXPECT_LT(s->track.pointAt(joint.param).distanceTo(joint.point), 1e-8) << i;
      if (s->whole) continue;
      // The arc leaves the first side in the direction opposite to the part that is kept.
      const AcGeVector2d leaving =
          (joint.point - round.centre).normal().perpVector() * (corner->bulge > 0 ? way : -way);
      EXPECT_LT(keptWay(*s, joint).dotProduct(leaving), -1 + 1e-6) << i;
      EXPECT_GT(joint.keepsHigh ? s->high - joint.param : joint.param - s->low, 0) << i;
    }
  }
  EXPECT_GT(answered, 2000);
}

// Of the four arcs at a crossing the one between the picks, whatever its radius.
TEST(Corners, ArePickedByTheirSides) {
  for (const double a : {0.1, 0.9})
    for (const double b : {0.1, 0.9})
      for (const double radius : {0.0, 0.1, 3.0}) {
        const auto corner = roundedCorner(line(-10, 0, 10, 0, a), line(0, -10, 0, 10, b), radius);
        ASSERT_TRUE(corner);
        EXPECT_NEAR(corner->first.point.x, a < 0.5 ? -radius : radius, 1e-12);
        EXPECT_NEAR(corner->second.point.y, b < 0.5 ? -radius : radius, 1e-12);
        EXPECT_EQ(corner->first.keepsHigh, a > 0.5);
        EXPECT_EQ(corner->second.keepsHigh, b > 0.5);
      }
}

struct Refused {
  const char* name;
  CornerSide a, b;
  double radius;
};

TEST(Corners, ThatDoNotExist) {
  const Refused rows[] = {
      {"too great for the line", line(0, 0, 3, 0, 0.5), line(0, 0, 0, 9, 0.5), 4},
      {"circles far apart", circle(0, 0, 1, 0), circle(20, 0, 1, 3), 2},
      {"one centre", circle(0, 0, 1, 0), circle(0, 0, 3, 0), 0.5},
      {"no meeting", line(0, 5, 9, 5, 0.5), circle(0, 0, 2, 0), 0},
      {"on one line", line(0, 0, 3, 0, 0.5), line(5, 0, 9, 0, 0.5), 1},
      {"the same circle", arc(0, 0, 2, 0, 1, 0.5), arc(0, 0, 2, 3, 1, 0.5), 0},
  };
  for (const Refused& row : rows) EXPECT_FALSE(roundedCorner(row.a, row.b, row.radius)) << row.name;
  EXPECT_FALSE(cutCorner(line(0, 0, 3, 0, 0.5), line(0, 0, 0, 3, 0.5), 4, 1));
  EXPECT_FALSE(cutCorner(line(0, 0, 3, 0, 0.5), line(0, 1, 3, 1, 0.5), 1, 1));
}

}  // namespace
}  // namespace atelier
