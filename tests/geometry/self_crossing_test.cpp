// Splines that cross themselves: a loop whose crossing is known, curves that have none, and random ones counted by
// their chords.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "atelier/geometry/curve.h"

namespace atelier {
namespace {

std::shared_ptr<const Curve> curveFrom(const Nurbs& data) {
  const auto spline = splineShape(data);
  if (!spline) return nullptr;
  return Curve::of({{*spline, data.knots[static_cast<std::size_t>(data.degree)],
                     data.knots[data.knots.size() - 1 - static_cast<std::size_t>(data.degree)]}},
                   false);
}

Nurbs cubic(std::vector<AcGePoint3d> points) {
  Nurbs data;
  data.degree = 3;
  data.knots = {0, 0, 0, 0};
  for (std::size_t i = 4; i < points.size(); ++i) data.knots.push_back(static_cast<double>(i - 3));
  data.knots.insert(data.knots.end(), 4, static_cast<double>(points.size() - 3));
  data.points = std::move(points);
  return data;
}

// x = 18t - 45t^2 + 30t^3 is 1.5 at t = 0.5 and where (t - 0.5)^2 = 0.15; y = 12t(1 - t) is 1.2 there.
TEST(SelfCrossings, OfALoop) {
  const auto loop = curveFrom(cubic({{0, 0, 0}, {6, 4, 0}, {-3, 4, 0}, {3, 0, 0}}));
  const auto found = loop->crossings(*loop, false, false);
  ASSERT_EQ(found.size(), 1u);
  EXPECT_LT(found[0].point.distanceTo({1.5, 1.2, 0}), 1e-8);
  EXPECT_NEAR(found[0].param, 0.5 - std::sqrt(0.15), 1e-8);
  EXPECT_NEAR(found[0].otherParam, 0.5 + std::sqrt(0.15), 1e-8);
  // In space the same loop climbs past itself; seen in plan it crosses.
  const auto climbing = curveFrom(cubic({{0, 0, 0}, {6, 4, 1}, {-3, 4, 2}, {3, 0, 3}}));
  EXPECT_TRUE(climbing->crossings(*climbing, false, false).empty());
  const Curve& plan = climbing->inPlan();
  EXPECT_EQ(plan.crossings(plan, false, false).size(), 1u);
}

TEST(SelfCrossings, NoneWhereThereIsNone) {
  const Nurbs rows[] = {cubic({{0, 0, 0}, {10, 10, 0}, {20, -10, 0}, {30, 0, 0}}),        // a wave
                        cubic({{0, 0, 0}, {6, 0, 0}, {6, 6, 0}, {0, 6, 0}, {0, 0, 0}}),   // closed: its ends only touch
                        cubic({{0, 0, 0}, {10, 10, 0}, {0, 10, 0}, {10, 0, 0}}),          // a cusp
                        cubic({{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}}),   // straight
                        cubic({{0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {5, 1, 0}, {9, 9, 0}})};  // a corner of control points
  for (const Nurbs& data : rows) {
    const auto curve = curveFrom(data);
    const auto found = curve->crossings(*curve, false, false);
    EXPECT_TRUE(found.empty()) << (&data - rows) << ' ' << found[0].param << ' ' << found[0].otherParam;
  }
}

int chordCrossings(const std::vector<AcGePoint3d>& p) {
  const auto side = [](const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x) > 0;
  };
  int count = 0;
  for (std::size_t i = 0; i + 1 < p.size(); ++i)
    for (std::size_t k = i + 2; k + 1 < p.size(); ++k)
      count += side(p[i], p[i + 1], p[k]) != side(p[i], p[i + 1], p[k + 1]) &&
               side(p[k], p[k + 1], p[i]) != side(p[k], p[k + 1], p[i + 1]);
  return count;
}

TEST(SelfCrossings, AsManyAsTheChordsHave) {
  std::mt19937 random(5);
  std::uniform_real_distribution<double> place(0, 100);
  std::size_t sum = 0;
  for (int i = 0; i < 6; ++i) {
    std::vector<AcGePoint3d> points;
    for (int k = 0; k < 14; ++k) points.push_back({652000 + place(random), 6862000 + place(random), 0});
    const auto curve = curveFrom(cubic(points));
    const auto found = curve->crossings(*curve, false, false);
    EXPECT_EQ(found.size(), static_cast<std::size_t>(chordCrossings(curve->sample(0.001)))) << i;
    for (const Crossing& c : found)
      EXPECT_LT(curve->pointAt(c.param)->distanceTo(*curve->pointAt(c.otherParam)), 1e-7) << i;
    sum += found.size();
  }
  EXPECT_GT(sum, 25u);
}

}  // namespace
}  // namespace atelier
