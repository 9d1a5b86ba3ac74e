// Splines sampled within a chord bound, and interpolated: measured against de Boor's own recurrence.
#include "atelier/geometry/bspline.h"

#include <gtest/gtest.h>

#include <cmath>

namespace atelier {
namespace {

// De Boor in homogeneous coordinates (The NURBS Book, A4.1 in another form).
AcGePoint3d deBoor(const Nurbs& c, double t) {
  const auto p = static_cast<std::size_t>(c.degree);
  std::size_t k = p;
  while (k + 1 < c.points.size() && c.knots[k + 1] <= t) ++k;
  std::vector<std::array<double, 4>> d;
  for (std::size_t j = 0; j <= p; ++j) {
    const std::size_t i = j + k - p;
    const double w = c.weights.empty() ? 1 : c.weights[i];
    d.push_back({w * c.points[i].x, w * c.points[i].y, w * c.points[i].z, w});
  }
  for (std::size_t r = 1; r <= p; ++r)
    for (std::size_t j = p; j >= r; --j) {
      const double low = c.knots[j + k - p], high = c.knots[j + 1 + k - r],
                   a = high > low ? (t - low) / (high - low) : 0;
      for (std::size_t q = 0; q < 4; ++q) d[j][q] = (1 - a) * d[j - 1][q] + a * d[j][q];
    }
  return {d[p][0] / d[p][3], d[p][1] / d[p][3], d[p][2] / d[p][3]};
}

double distance(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b) {
  const AcGeVector3d ab = b - a;
  const double t = ab.length() > 0 ? std::fmin(1, std::fmax(0, (p - a).dotProduct(ab) / ab.dotProduct(ab))) : 0;
  return p.distanceTo(a + ab * t);
}

double greatestDeviation(const Nurbs& c, const std::vector<AcGePoint3d>& samples) {
  const double first = c.knots[static_cast<std::size_t>(c.degree)], last = c.knots[c.points.size()];
  double worst = 0;
  for (int i = 0; i <= 2000; ++i) {
    const AcGePoint3d p = deBoor(c, first + (last - first) * i / 2000);
    double nearest = INFINITY;
    for (std::size_t k = 0; k + 1 < samples.size(); ++k)
      nearest = std::fmin(nearest, distance(p, samples[k], samples[k + 1]));
    worst = std::fmax(worst, nearest);
  }
  return worst;
}

const Nurbs curves[] = {
    {3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0, 0}, {10, 10, 0}, {10, -10, 5}, {20, 0, 0}}, {}},  // an S
    {3, {0, 0, 0, 0, 1, 2, 3, 3, 3, 3}, {{0, 0, 0}, {1, 5, 0}, {6, 9, 0}, {9, 0, 0}, {15, 2, 0}, {20, 8, 0}}, {}},
    {3, {0, 1, 2, 3, 4, 5, 6, 7, 8}, {{0, 0, 0}, {5, 5, 0}, {10, 0, 0}, {15, 5, 0}, {20, 0, 0}}, {}},  // not clamped
    {2, {0, 0, 0, 1, 1, 1}, {{10, 0, 0}, {10, 10, 0}, {0, 10, 0}}, {1, std::sqrt(0.5), 1}},  // a quarter circle
    {1, {0, 0, 1, 2, 2}, {{0, 0, 0}, {5, 5, 0}, {10, 0, 0}}, {}},
};

TEST(Nurbs, SamplesStayWithinTheChordBound) {
  for (const Nurbs& curve : curves)
    for (const double chord : {1.0, 0.01, 0.0001}) {
      const auto samples = sampleNurbs(curve, chord);
      ASSERT_GE(samples.size(), 2u);
      EXPECT_LE(greatestDeviation(curve, samples), chord) << curve.points.size() << ' ' << chord;
      EXPECT_NEAR(samples.front().distanceTo(deBoor(curve, curve.knots[static_cast<std::size_t>(curve.degree)])), 0,
                  1e-9);
      EXPECT_LT(samples.size(), 3000u);
    }
}

TEST(Nurbs, DataThatMakeNoCurveGiveNothing) {
  const Nurbs good = curves[0];
  Nurbs bad[6] = {good, good, good, good, good, good};
  bad[0].knots.pop_back();
  bad[1].knots[2] = 5;
  bad[2].weights = {1, 1, 1, -1};
  bad[3].points[1].x = NAN;
  bad[4].degree = 40;
  bad[5].points.clear();
  for (const Nurbs& curve : bad) EXPECT_TRUE(sampleNurbs(curve, 0.1).empty());
  EXPECT_EQ(sampleNurbs({1, {0, 0, 1, 1}, {{3, 3, 0}, {3, 3, 0}}, {}}, 0.1).size(), 1u);
  Nurbs jump = curves[1];  // an inner knot of too high a multiplicity
  jump.knots = {0, 0, 1, 1, 1, 1, 1, 2, 2, 2};
  EXPECT_TRUE(sampleNurbs(jump, 0.1).empty());
}

TEST(Nurbs, InterpolationPassesThroughItsPoints) {
  const std::vector<AcGePoint3d> points{{50, 10, 0}, {55, 18, 0}, {55, 18, 0}, {60, 8, 1}, {65, 16, 0}};
  for (const bool closed : {false, true}) {
    const auto samples = sampleNurbs(interpolateNurbs(points, closed), 1e-4);
    for (const AcGePoint3d& p : points) {
      double nearest = INFINITY;
      for (std::size_t k = 0; k + 1 < samples.size(); ++k)
        nearest = std::fmin(nearest, distance(p, samples[k], samples[k + 1]));
      EXPECT_LT(nearest, 1e-3);
    }
    EXPECT_EQ(samples.front().distanceTo(samples.back()) < 1e-6, closed);
  }
  EXPECT_TRUE(interpolateNurbs(std::vector<AcGePoint3d>{{1, 1, 0}, {1, 1, 0}}, false).points.empty());
}

}  // namespace
}  // namespace atelier
