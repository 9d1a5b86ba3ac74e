// Curves compared with analysis in difficult cases: touching and nearly touching, far from the origin, bulges of every
// size, areas of closed rows, cuts at knots and at ends.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "atelier/geometry/bspline.h"
#include "atelier/geometry/curve.h"

namespace atelier {
namespace {

using std::numbers::pi;
using CurvePtr = std::shared_ptr<const Curve>;

struct Vertex {
  double x, y, bulge = 0;
};

CurvePtr row(const std::vector<Vertex>& vertices, bool closed, AcGeVector3d shift = {}) {
  std::vector<Piece> pieces;
  const std::size_t count = vertices.size() - (closed ? 0 : 1);
  for (std::size_t i = 0; i < count; ++i) {
    const Vertex &a = vertices[i], &b = vertices[(i + 1) % vertices.size()];
    pieces.push_back(
        {bulgeShape(AcGePoint3d(a.x, a.y, 0) + shift, AcGePoint3d(b.x, b.y, 0) + shift, a.bulge, {0, 0, 1}), double(i),
         double(i + 1)});
  }
  return Curve::of(pieces, closed);
}

CurvePtr circle(double x, double y, double r) {
  return Curve::of({{Elliptic{{x, y, 0}, {r, 0, 0}, {0, r, 0}, 0, 2 * pi}, 0, 2 * pi}}, true);
}
CurvePtr oval(double x, double y, double a, double b, double turned) {
  const AcGeVector3d u(a * std::cos(turned), a * std::sin(turned), 0),
      v(-b * std::sin(turned), b * std::cos(turned), 0);
  return Curve::of({{Elliptic{{x, y, 0}, u, v, 0, 2 * pi}, 0, 2 * pi}}, true);
}
CurvePtr segment(AcGePoint3d a, AcGePoint3d b) { return Curve::of({{Straight{a, b}, 0, a.distanceTo(b)}}, false); }
CurvePtr splineOf(const Nurbs& data) {
  const auto shape = splineShape(data);
  return shape ? Curve::of({{*shape, firstParameter(data), lastParameter(data)}}, false) : nullptr;
}

// A bulge is the tangent of a quarter of the angle: chord, radius, length, height and area follow.
TEST(Bulges, MeasuresOfEverySize) {
  for (const double bulge : {1e-4, 0.01, 0.2, 0.5, 1.0, 2.0, 10.0, 50.0})
    for (const double sign : {1.0, -1.0})
      for (const AcGeVector3d& shift : {AcGeVector3d(), AcGeVector3d(1.5e6, 6.2e6, 0)}) {
        SCOPED_TRACE(bulge * sign);
        const double chord = 7, angle = 4 * std::atan(bulge), radius = chord / 2 / std::sin(angle / 2);
        const auto arc = row({{0, 0, bulge * sign}, {chord, 0}}, false, shift);
        const double slack = shift.x == 0 ? 1e-10 : 1e-6 * std::max(1.0, std::abs(radius));
        EXPECT_NEAR(arc->length(), std::abs(radius) * angle, slack * (1 + std::abs(radius)));
        EXPECT_NEAR(arc->pointAt(0.5)->distanceTo(AcGePoint3d(chord / 2, -sign * bulge * chord / 2, 0) + shift), 0,
                    slack * (1 + std::abs(radius)));
        EXPECT_NEAR(*arc->area(), std::abs(radius * radius * (angle - std::sin(angle)) / 2),
                    slack * (1 + radius * radius));
        EXPECT_EQ(arc->pointAt(0)->distanceTo(AcGePoint3d() + shift) < 1e-7, true);
      }
}

TEST(Areas, OfClosedRows) {
  const double cap = pi / 2;  // a half circle of radius 1
  const struct {
    const char* name;
    std::vector<Vertex> vertices;
    bool closed;
    double area;
  } rows[] = {
      {"square", {{0, 0}, {4, 0}, {4, 4}, {0, 4}}, true, 16},
      {"clockwise", {{0, 4}, {4, 4}, {4, 0}, {0, 0}}, true, 16},
      {"open, closed by its chord", {{0, 0}, {4, 0}, {4, 4}, {0, 4}}, false, 16},
      {"last point again", {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}}, true, 16},
      {"points twice", {{0, 0}, {0, 0}, {4, 0}, {4, 0}, {4, 4}, {0, 4}}, true, 16},
      {"a spike", {{0, 0}, {4, 0}, {9, 0}, {4, 0}, {4, 4}, {0, 4}}, true, 16},
      {"a cap outside", {{0, 0}, {2, 0, 1}, {2, 2}, {0, 2}}, true, 4 + cap},
      {"a cap inside", {{0, 0}, {2, 0, -1}, {2, 2}, {0, 2}}, true, 4 - cap},
      {"two half circles", {{0, 0, 1}, {2, 0, 1}}, true, 2 * cap},
      {"a lens of nothing", {{0, 0, 1}, {2, 0, -1}}, true, 0},
      {"an L", {{0, 0}, {6, 0}, {6, 1}, {1, 1}, {1, 5}, {0, 5}}, true, 10},
  };
  for (const auto& r : rows)
    for (const AcGeVector3d& shift : {AcGeVector3d(), AcGeVector3d(7e5, 6.8e6, 0)}) {
      const auto curve = row(r.vertices, r.closed, shift);
      ASSERT_TRUE(curve) << r.name;
      const auto area = curve->area();
      ASSERT_TRUE(area) << r.name;
      EXPECT_NEAR(*area, r.area, shift.x == 0 ? 1e-10 : 1e-6) << r.name << ' ' << shift.x;
    }
}

struct Meeting {
  const char* name;
  CurvePtr a, b;
  std::vector<AcGePoint3d> points;
};

std::vector<Meeting> meetings(double far) {
  const auto p = [far](double x, double y) { return AcGePoint3d(x + far, y + far, 0); };
  const auto c = [far](double x, double y, double r) { return circle(x + far, y + far, r); };
  const AcGeVector3d shift(far, far, 0);
  return {
      {"circles that touch from outside", c(0, 0, 3), c(5, 0, 2), {p(3, 0)}},
      {"circles that touch from inside", c(0, 0, 5), c(3, 0, 2), {p(5, 0)}},
      {"touching aslant", c(0, 0, 5), c(6, 8, 5), {p(3, 4)}},
      {"a hair apart", c(0, 0, 3), c(5.001, 0, 2), {}},
      {"one inside", c(0, 0, 5), c(1, 0, 2), {}},
      {"the same circle", c(0, 0, 5), c(0, 0, 5), {}},
      {"crossing", c(0, 0, 5), c(8, 0, 5), {p(4, 3), p(4, -3)}},
      {"a chord", c(0, 0, 5), segment(p(-9, 3), p(9, 3)), {p(-4, 3), p(4, 3)}},
      {"a tangent", c(0, 0, 5), segment(p(-9, 5), p(9, 5)), {p(0, 5)}},
      {"a tangent aslant", c(0, 0, 5), segment(p(-1, 7), p(7, 1)), {p(3, 4)}},
      {"a tangent that ends there", c(0, 0, 5), segment(p(0, 5), p(9, 5)), {p(0, 5)}},
      {"past it", c(0, 0, 5), segment(p(-9, 5.001), p(9, 5.001)), {}},
      {"ends on it from inside", c(0, 0, 5), segment(p(0, 0), p(3, 4)), {p(3, 4)}},
      {"ovals crosswise",
       oval(far, far, 5, 3, 0),
       oval(far, far, 5, 3, pi / 2),
       {p(15 / std::sqrt(34), 15 / std::sqrt(34)), p(-15 / std::sqrt(34), 15 / std::sqrt(34)),
        p(15 / std::sqrt(34), -15 / std::sqrt(34)), p(-15 / std::sqrt(34), -15 / std::sqrt(34))}},
      {"an oval in a circle that touches it twice",
       oval(far, far, 5, 3, 0.6),
       c(0, 0, 5),
       {p(5 * std::cos(0.6), 5 * std::sin(0.6)), p(-5 * std::cos(0.6), -5 * std::sin(0.6))}},
      {"through a corner", row({{0, 0}, {5, 5}, {10, 0}}, false, shift), segment(p(5, 0), p(5, 9)), {p(5, 5)}},
      {"a corner that touches", row({{0, 0}, {5, 5}, {10, 0}}, false, shift), segment(p(0, 5), p(9, 5)), {p(5, 5)}},
      {"half circles of one row",
       row({{0, 0, 1}, {4, 0, -1}, {8, 0}}, false, shift),
       segment(p(-1, 0), p(9, 0)),
       {p(0, 0), p(4, 0), p(8, 0)}},
      {"an arc's far side", row({{0, 0, 1}, {4, 0}}, false, shift), segment(p(2, 5), p(2, 0)), {}},
      {"squares that share a corner",
       row({{0, 0}, {4, 0}, {4, 4}, {0, 4}}, true, shift),
       row({{4, 4}, {9, 4}, {9, 9}, {4, 9}}, true, shift),
       {p(4, 4)}},
  };
}

TEST(Crossings, TouchingAndCrossingHereAndFarAway) {
  for (const double far : {0.0, 1e6})
    for (const Meeting& m : meetings(far)) {
      SCOPED_TRACE(std::string(m.name) + (far == 0 ? "" : ", far away"));
      const auto found = m.a->crossings(*m.b, false, false), back = m.b->crossings(*m.a, false, false);
      EXPECT_EQ(found.size(), m.points.size());
      EXPECT_EQ(back.size(), m.points.size());
      for (const AcGePoint3d& p : m.points)
        for (const auto& list : {found, back})
          EXPECT_TRUE(std::any_of(list.begin(), list.end(),
                                  [&](const Crossing& c) { return c.point.distanceTo(p) < (far == 0 ? 1e-6 : 1e-4); }))
              << p.x << ' ' << p.y;
      for (std::size_t i = 0; i + 1 < found.size(); ++i) EXPECT_LE(found[i].param, found[i + 1].param);
    }
}

// A B-spline with knots of every multiplicity, cut at and beside each: the parts are the curve.
TEST(Splits, AtKnotsAndBesideThem) {
  const Nurbs data{3,
                   {0, 0, 0, 0, 1, 2, 2, 3, 3, 3, 4, 4, 4, 4},
                   {{0, 0, 0},
                    {1, 4, 0},
                    {3, 5, 1},
                    {5, 1, 2},
                    {6, -3, 0},
                    {8, 0, 0},
                    {9, 3, 1},
                    {11, 4, 0},
                    {12, 0, 0},
                    {14, 1, 0}},
                   {}};
  Nurbs rational = data;
  rational.weights = {1, 2, 0.5, 1, 3, 1, 0.7, 1, 2, 1};
  for (const Nurbs& whole : {data, rational}) {
    const auto curve = splineOf(whole);
    ASSERT_TRUE(curve);
    for (const double cut : {1e-9, 0.5, 1.0, 1.0 + 1e-12, 2.0, 2.0 - 1e-7, 2.5, 3.0, 3.0 + 1e-7, 3.999, 4.0 - 1e-9}) {
      SCOPED_TRACE(cut);
      const auto left = splineOf(partOf(whole, 0, cut)), right = splineOf(partOf(whole, cut, 4));
      ASSERT_TRUE(left || cut < 1e-6);
      ASSERT_TRUE(right || cut > 4 - 1e-6);
      EXPECT_NEAR((left ? left->length() : 0) + (right ? right->length() : 0), curve->length(), 1e-7);
      for (const double t : {0.1, 0.7, 1.0, 1.9, 2.0, 2.6, 3.0, 3.3, 3.9}) {
        const auto& part = t <= cut ? left : right;
        ASSERT_TRUE(part);
        const auto p = part->pointAt(t);
        ASSERT_TRUE(p) << t;
        EXPECT_LT(p->distanceTo(*curve->pointAt(t)), 1e-9) << t;
      }
    }
  }
}

// Distance and parameter are each other's inverse, also across corners and pieces without length.
TEST(Distances, AndParametersAgree) {
  const CurvePtr curves[] = {
      row({{0, 0}, {4, 0, 1}, {4, 4}, {4, 4}, {0, 4, -0.4}}, true), oval(1, 2, 9, 0.5, 0.3), circle(1e6, 1e6, 0.01),
      splineOf({2, {0, 0, 0, 1, 1, 1}, {{0, 0, 0}, {5, 0, 0}, {0, 1e-3, 0}}, {}})};  // turns back sharply
  for (const auto& curve : curves)
    for (int i = 0; i <= 50; ++i) {
      const double d = curve->length() * i / 50;
      const auto t = curve->paramAtDistance(d);
      ASSERT_TRUE(t) << i;
      EXPECT_NEAR(*curve->distanceAt(*t), d, 1e-8 * (1 + curve->length())) << i;
      const auto foot = curve->closest(*curve->pointAt(*t));
      EXPECT_LT(foot.distance, 1e-9 * (1 + std::abs(foot.point.x))) << i;
    }
}

}  // namespace
}  // namespace atelier
