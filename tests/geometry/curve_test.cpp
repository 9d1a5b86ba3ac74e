// Curves of pieces, compared with SciPy's B-splines and with formulas for circles and ellipses.
// bspline_reference.txt is written by bspline_reference.py.
#include "atelier/geometry/curve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <numbers>

namespace atelier {
namespace {

using std::numbers::pi;

struct Reference {
  Nurbs data;
  struct At {
    double t, length;
    AcGePoint3d point;
    AcGeVector3d slope;
  };
  std::vector<At> at;
  double area = -1;
};

AcGePoint3d read(std::istream& in) {
  AcGePoint3d p;
  in >> p.x >> p.y >> p.z;
  return p;
}

std::vector<Reference> references() {
  std::ifstream in(KAVEL_SOURCE "/tests/geometry/bspline_reference.txt");
  std::vector<Reference> out;
  for (std::string word; in >> word;) {
    if (word == "curve") {
      Nurbs data;
      std::size_t count = 0, rational = 0;
      in >> data.degree >> count >> rational;
      data.knots.resize(count + static_cast<std::size_t>(data.degree) + 1);
      for (double& k : data.knots) in >> k;
      for (std::size_t i = 0; i < count; ++i) data.points.push_back(read(in));
      data.weights.resize(rational * count);
      for (double& w : data.weights) in >> w;
      out.push_back({data, {}, -1});
    } else if (word == "at") {
      Reference::At at;
      in >> at.t;
      at.point = read(in);
      at.slope = read(in).asVector();
      in >> at.length;
      out.back().at.push_back(at);
    } else {
      in >> out.back().area;
    }
  }
  return out;
}

std::shared_ptr<const Curve> curveFrom(const Nurbs& data) {
  const auto shape = splineShape(data);
  return shape ? Curve::of({{*shape, firstParameter(data), lastParameter(data)}}, false) : nullptr;
}

double sizeOf(const Nurbs& data) {
  double size = 1;
  for (const AcGePoint3d& p : data.points)
    size = std::max({size, std::abs(p.x), std::abs(p.y), p.distanceTo(data.points[0])});
  return size;
}

TEST(CurveOfSplines, AgreesWithScipy) {
  const auto all = references();
  ASSERT_EQ(all.size(), 7u);
  for (const Reference& r : all) {
    const auto curve = curveFrom(r.data);
    ASSERT_TRUE(curve);
    const double size = sizeOf(r.data);
    for (const auto& at : r.at) {
      EXPECT_LT(curve->pointAt(at.t)->distanceTo(at.point), 1e-12 * size);
      EXPECT_LT((*curve->derivativeAt(at.t) - at.slope).length(), 1e-9 * (1 + at.slope.length()));
      EXPECT_NEAR(*curve->distanceAt(at.t), at.length, 1e-10 * curve->length());
      EXPECT_NEAR(*curve->paramAtDistance(at.length), at.t, 1e-9);
      EXPECT_LT(curve->pointAt(curve->closest(at.point).param)->distanceTo(at.point), 1e-9 * size);
    }
    if (r.area >= 0) {
      EXPECT_NEAR(*curve->area(), r.area, 1e-9 * r.area);
    }
  }
  EXPECT_FALSE(curveFrom(all[0].data)->area());  // in no plane
}

TEST(CurveOfSplines, PartsAreTheCurveAndJoinToItAgain) {
  for (const Reference& r : references()) {
    const auto whole = curveFrom(r.data);
    const double from = whole->startParam(), to = whole->endParam(), cut = from + 0.43 * (to - from);
    const Nurbs left = partOf(r.data, from, cut), right = partOf(r.data, cut, to);
    const auto first = curveFrom(left), second = curveFrom(right), again = curveFrom(joined(left, right));
    ASSERT_TRUE(first && second && again);
    EXPECT_NEAR(first->length() + second->length(), whole->length(), 1e-9 * whole->length());
    const double size = sizeOf(r.data);
    for (int i = 0; i <= 40; ++i) {
      const double f = i / 40.0;
      const AcGePoint3d p = *whole->pointAt(from + f * (to - from));
      EXPECT_LT(again->closest(p).distance, 1e-9 * size);
      EXPECT_LT(
          whole->closest(*again->pointAt(again->startParam() + f * (again->endParam() - again->startParam()))).distance,
          1e-9 * size);
    }
    const auto back = curveFrom(reversed(r.data));
    EXPECT_LT(back->pointAt(from)->distanceTo(*whole->pointAt(to)), 1e-9 * size);
    EXPECT_NEAR(back->length(), whole->length(), 1e-9 * whole->length());
  }
}

std::shared_ptr<const Curve> ellipse(double a, double b, double from, double to) {
  return Curve::of({{Elliptic{{3, 4, 0}, {a, 0, 0}, {0, b, 0}, from, to}, from, to}}, to - from == 2 * pi);
}

TEST(CurveOfArcs, MeasuresOfCirclesAndEllipses) {
  const auto circle = ellipse(5, 5, 0, 2 * pi), oval = ellipse(2, 1, 0, 2 * pi), quarter = ellipse(5, 5, 0, pi / 2);
  EXPECT_DOUBLE_EQ(circle->length(), 10 * pi);
  EXPECT_NEAR(*circle->area(), 25 * pi, 1e-12);
  EXPECT_NEAR(oval->length(), 9.688448220547675, 1e-11);  // 8 E(3/4)
  EXPECT_NEAR(*oval->area(), 2 * pi, 1e-13);
  EXPECT_NEAR(*quarter->area(), 25 * (pi / 4 - 0.5), 1e-12);  // closed by its chord
  EXPECT_NEAR(*oval->paramAtDistance(oval->length() / 4), pi / 2, 1e-12);
  EXPECT_NEAR(oval->closest({3, 9, 0}).param, pi / 2, 1e-9);
  EXPECT_NEAR(circle->closest({3, 4, 7}).distance, std::hypot(5, 7), 1e-12);
  EXPECT_NEAR(quarter->closest({0, 0, 0}).distance, std::hypot(8, 4), 1e-12);  // its nearer end
}

TEST(CurveOfArcs, WholeAsOneSpline) {
  const auto row = Curve::of({{Straight{{0, 0, 0}, {10, 0, 0}}, 0, 1},
                              {bulgeShape({10, 0, 0}, {10, 8, 0}, 1, {0, 0, 1}), 1, 2},
                              {Straight{{10, 8, 0}, {10, 8, 0}}, 2, 3},
                              {bulgeShape({10, 8, 0}, {0, 8, 0}, -0.3, {0, 0, 1}), 3, 4}},
                             false);
  const auto data = row->toNurbs();
  ASSERT_TRUE(data);
  const auto spline = curveFrom(*data);
  EXPECT_NEAR(spline->length(), row->length(), 1e-10);
  EXPECT_NEAR(*spline->area(), *row->area(), 1e-9);
  for (int i = 0; i <= 60; ++i) EXPECT_LT(spline->closest(*row->pointAt(i / 15.0)).distance, 1e-10);
}

TEST(CurveSamples, StayWithinTheChordBound) {
  for (const double chord : {1.0, 1e-3, 1e-6})
    for (const auto& curve : {ellipse(100, 100, 0.2, 5), ellipse(60, 7, -1, 2)}) {
      const auto points = curve->sample(chord);
      for (std::size_t i = 0; i + 1 < points.size(); ++i)
        EXPECT_LE(curve->closest(points[i] + (points[i + 1] - points[i]) * 0.5).distance, chord);
    }
}

struct Meets {
  const char* name;
  std::shared_ptr<const Curve> a, b;
  std::vector<AcGePoint3d> points;
  bool extend = false;
};

std::shared_ptr<const Curve> line(AcGePoint3d a, AcGePoint3d b) {
  return Curve::of({{Straight{a, b}, 0, a.distanceTo(b)}}, false);
}
std::shared_ptr<const Curve> endless(AcGePoint3d a, AcGeVector3d d) {
  return Curve::of({{Straight{a, a + d, true, true}, 0, 1}}, false);
}
std::shared_ptr<const Curve> wave() {
  return curveFrom({3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0, 0}, {10, 30, 0}, {20, -30, 0}, {30, 0, 0}}, {}});
}

TEST(CurveCrossings, Table) {
  const Meets rows[] = {
      {"lines", line({0, 0, 0}, {10, 10, 0}), line({0, 10, 0}, {10, 0, 0}), {{5, 5, 0}}},
      {"one above the other", line({0, 0, 0}, {10, 10, 0}), line({0, 10, 1}, {10, 0, 1}), {}},
      {"too short", line({0, 0, 0}, {4, 4, 0}), line({0, 10, 0}, {10, 0, 0}), {}},
      {"too short, extended", line({0, 0, 0}, {4, 4, 0}), line({0, 10, 0}, {10, 0, 0}), {{5, 5, 0}}, true},
      {"at an end", line({0, 0, 0}, {5, 5, 0}), line({0, 10, 0}, {10, 0, 0}), {{5, 5, 0}}},
      {"parallel", line({0, 0, 0}, {5, 0, 0}), line({0, 1, 0}, {5, 1, 0}), {}},
      {"end to end", line({0, 0, 0}, {5, 0, 0}), line({5, 0, 0}, {9, 0, 0}), {{5, 0, 0}}},
      {"one along the other", line({0, 0, 0}, {5, 0, 0}), line({3, 0, 0}, {9, 0, 0}), {}},
      {"circle and vertical", ellipse(5, 5, 0, 2 * pi), endless({6, 0, 0}, {0, 1, 0}), {{6, 8, 0}, {6, 0, 0}}},
      {"circle and tangent", ellipse(5, 5, 0, 2 * pi), endless({8, 0, 0}, {0, 1, 0}), {{8, 4, 0}}},
      {"half circle misses", ellipse(5, 5, 0, pi), line({6, 2, 0}, {6, -9, 0}), {}},
      {"half circle, extended", ellipse(5, 5, 0, pi), line({6, 2, 0}, {6, -9, 0}), {{6, 8, 0}, {6, 0, 0}}, true},
      {"pierced", ellipse(5, 5, 0, 2 * pi), line({8, 4, -3}, {8, 4, 3}), {{8, 4, 0}}},
      {"circles",
       ellipse(5, 5, 0, 2 * pi),
       Curve::of({{Elliptic{{9, 4, 0}, {5, 0, 0}, {0, 5, 0}, 0, 2 * pi}, 0, 1}}, true),
       {{6, 8, 0}, {6, 0, 0}}},
      {"spline and level", wave(), endless({0, 0, 0}, {1, 0, 0}), {{0, 0, 0}, {15, 0, 0}, {30, 0, 0}}},
      {"spline and vertical", wave(), endless({15, -5, 0}, {0, 1, 0}), {{15, 0, 0}}},
      {"spline and vertical aside", wave(), endless({31, -5, 0}, {0, 1, 0}), {}},
  };
  for (const Meets& row : rows) {
    const auto found = row.a->crossings(*row.b, row.extend, row.extend);
    ASSERT_EQ(found.size(), row.points.size()) << row.name;
    for (const AcGePoint3d& p : row.points) {
      const auto near = [&](const Crossing& c) { return c.point.distanceTo(p) < 1e-7; };
      EXPECT_TRUE(std::any_of(found.begin(), found.end(), near))
          << row.name << ' ' << found[0].point.x << ' ' << found[0].point.y;
    }
    EXPECT_EQ(row.b->crossings(*row.a, row.extend, row.extend).size(), row.points.size()) << row.name;
  }
}

TEST(CurveCrossings, SplinesOnSplines) {
  const auto a = wave();
  const auto b = curveFrom({3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 5, 0}, {12, -30, 0}, {18, 30, 0}, {30, -5, 0}}, {}});
  const auto found = a->crossings(*b, false, false);
  ASSERT_EQ(found.size(), 3u);
  for (const Crossing& c : found) EXPECT_LT(a->pointAt(c.param)->distanceTo(*b->pointAt(c.otherParam)), 1e-10);
  EXPECT_LE(a->crossings(*wave(), false, false).size(), 5000u);  // along each other: an end, whatever it finds
}

TEST(CurveData, ThatMakeNoCurve) {
  EXPECT_FALSE(Curve::of({}, false));
  EXPECT_FALSE(line({0, 0, 0}, {0, 0, 0}));
  EXPECT_FALSE(line({0, 0, 0}, {NAN, 0, 0}));
  EXPECT_FALSE(splineShape({3, {0, 0, 1, 1}, {{0, 0, 0}}, {}}));
  EXPECT_TRUE(joined({}, {}).points.empty());
  EXPECT_TRUE(partOf({}, 0, 1).points.empty());
  const auto curve = line({0, 0, 0}, {10, 0, 0});
  EXPECT_FALSE(curve->pointAt(11));
  EXPECT_FALSE(curve->pointAt(NAN));
  EXPECT_FALSE(curve->distanceAt(-1));
  EXPECT_FALSE(curve->paramAtDistance(10.5));
  EXPECT_FALSE(curve->paramAt({5, 1, 0}, 1e-6));
  EXPECT_FALSE(endless({0, 0, 0}, {1, 0, 0})->area());
}

}  // namespace
}  // namespace atelier
