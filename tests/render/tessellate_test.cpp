// Curves as Béziers, wide polylines as areas, cutting: measured against the curves themselves.
#include "atelier/render/shapes/tessellate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "atelier/render/scene/colours.h"
#include "atelier/render/shapes/clip_path.h"

namespace atelier::render {
namespace {

constexpr double pi = std::numbers::pi;

// The path as points close together, one list for each subpath.
std::vector<std::vector<Pt>> dense(const Path& path, int parts = 64) {
  std::vector<std::vector<Pt>> rings;
  const Pt* p = path.points().data();
  for (const auto verb : path.verbs()) {
    if (verb == Path::Verb::move) rings.emplace_back();
    if (verb == Path::Verb::close) continue;
    auto& ring = rings.back();
    if (verb != Path::Verb::cubic) {
      ring.push_back(*p++);
      continue;
    }
    const Pt a = ring.back();
    for (int i = 1; i <= parts; ++i) {
      const double t = static_cast<double>(i) / parts, u = 1 - t;
      ring.push_back(u * u * u * a + 3 * u * u * t * p[0] + (3 * u * t * t * p[1] + t * t * t * p[2]));
    }
    p += 3;
  }
  return rings;
}

double signedArea(const Path& path) {
  double sum = 0;
  for (const auto& ring : dense(path, 200))
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const Pt a = ring[i], b = ring[(i + 1) % ring.size()];
      sum += (a.x * b.y - b.x * a.y) / 2;
    }
  return sum;
}

TEST(Arc, StaysOnItsCircle) {
  const Pt centre{1e6, 6e6};
  for (const double sweep : {0.1, 1.0, -pi, 2 * pi, 50.0})
    for (const double radius : {0.01, 100.0}) {
      Path path;
      addArc(path, centre, {radius, 0}, {0, radius}, 0.3, sweep);
      const auto rings = dense(path);
      for (const auto& ring : rings)
        for (const Pt p : ring)
          EXPECT_NEAR(std::hypot(p.x - centre.x, p.y - centre.y), radius, 2 * kArcTolerance * radius + 1e-8);
    }
}

TEST(Bulge, PassesThroughItsApex) {
  const struct {
    double bulge;
    Pt apex;
  } rows[] = {{1, {5, -5}}, {-1, {5, 5}}, {0.5, {5, -2.5}}, {-0.2, {5, 1}}, {3, {5, -15}}};
  for (const auto& row : rows) {
    const std::vector<PolyVertex> vertices{{{0, 0}, row.bulge}, {{10, 0}}};
    double nearest = 1e9;
    const auto rings = dense(polylinePath(vertices, false), 2000);
    for (const Pt p : rings[0]) nearest = std::fmin(nearest, std::hypot(p.x - row.apex.x, p.y - row.apex.y));
    EXPECT_LT(nearest, 0.01) << row.bulge;
  }
}

TEST(Bulge, FlatOrDegenerateIsALine) {
  const std::vector<PolyVertex> vertices{{{0, 0}, 1e-15}, {{10, 0}, NAN}, {{10, 0}, 1}, {{10, 0}}};
  const Path path = polylinePath(vertices, false);
  for (const auto verb : path.verbs()) EXPECT_NE(verb, Path::Verb::cubic);
}

TEST(Wide, CoversItsArea) {
  const auto wide = [](std::vector<PolyVertex> v, double width) {
    for (auto& p : v) p.startWidth = p.endWidth = width;
    return v;
  };
  const struct {
    std::vector<PolyVertex> vertices;
    bool closed;
    double area;
  } rows[] = {
      {wide({{{0, 0}}, {{10, 0}}}, 2), false, 20},
      {wide({{{0, 0}}, {{10, 0}}, {{10, 10}}}, 2), false, 40},  // a mitred corner keeps length x width
      {wide({{{0, 0}}, {{10, 0}}, {{10, 10}}, {{0, 10}}}, 2), true, 80},
      {wide({{{0, 0}}, {{0, 10}}, {{10, 10}}, {{10, 0}}}, 2), true, 80},  // the other way round
      {{{{0, 0}, 0, 2, 0}, {{10, 0}}}, false, 10},                        // an arrow head
      {wide({{{0, 0}, 1}, {{10, 0}, 1}}, 2), true, pi * (36 - 16)},       // a ring of two half turns
      {wide({{{0, 0}, -1}, {{10, 0}, -1}}, 2), true, pi * (36 - 16)},
  };
  for (const auto& row : rows) EXPECT_NEAR(signedArea(wideArea(row.vertices, row.closed)), row.area, 1e-3);
}

TEST(Wide, SharpJointIsBevelledNotSpiked) {
  const std::vector<PolyVertex> v{{{0, 0}, 0, 1, 1}, {{10, 0}, 0, 1, 1}, {{0, 0.5}, 0, 1, 1}};
  EXPECT_LT(wideArea(v, false).bounds().xMax, 11);
}

TEST(Clip, KeepsWhatIsInside) {
  Box box;
  box.add(Pt{0, 0});
  box.add(Pt{10, 10});
  Path far;
  far.moveTo({-1e9, 5});
  far.lineTo({1e9, 5});
  const Box stroke = clipStroke(far, box).bounds();
  EXPECT_NEAR(stroke.xMin, 0, 1e-6);
  EXPECT_NEAR(stroke.xMax, 10, 1e-6);
  Path circle;
  addEllipse(circle, {0, 0}, {1e5, 0}, {0, 1e5});
  EXPECT_TRUE(clipStroke(circle, box).empty());
  EXPECT_NEAR(std::abs(signedArea(clipFill(circle, box, 0.01))), 100, 1e-6);
  Path half;
  addEllipse(half, {0, 5}, {3, 0}, {0, 3});
  EXPECT_NEAR(std::abs(signedArea(clipFill(half, box, 0.001))), pi * 9 / 2, 0.02);
}

TEST(Clip, EndlessLines) {
  Box box;
  box.add(Pt{0, 0});
  box.add(Pt{10, 10});
  const struct {
    Pt base, direction;
    bool both;
    bool seen;
    Pt from, to;
  } rows[] = {{{5, 50}, {0, 1}, true, true, {5, 0}, {5, 10}},
              {{5, 5}, {1, 0}, false, true, {5, 5}, {10, 5}},
              {{20, 5}, {1, 0}, false, false, {}, {}},
              {{0, 20}, {1, 0}, true, false, {}, {}},
              {{5, 5}, {0, 0}, true, false, {}, {}}};
  for (const auto& row : rows) {
    Pt from, to;
    ASSERT_EQ(clip({row.base, row.direction, row.both, {}}, box, from, to), row.seen);
    if (!row.seen) continue;
    EXPECT_NEAR(from.x, row.from.x, 1e-9);
    EXPECT_NEAR(from.y, row.from.y, 1e-9);
    EXPECT_NEAR(to.x, row.to.x, 1e-9);
    EXPECT_NEAR(to.y, row.to.y, 1e-9);
  }
}

TEST(Colours, FollowTheIndexTable) {
  const struct {
    int index;
    std::uint32_t rgb;
  } rows[] = {{1, 0xFF0000},   {2, 0xFFFF00},   {3, 0x00FF00},   {4, 0x00FFFF},  {5, 0x0000FF},
              {6, 0xFF00FF},   {8, 0x414141},   {9, 0x808080},   {10, 0xFF0000}, {11, 0xFFAAAA},
              {30, 0xFF7F00},  {42, 0xBD8D00},  {52, 0xBDBD00},  {90, 0x00FF00}, {140, 0x00BFFF},
              {170, 0x0000FF}, {174, 0x000081}, {250, 0x333333}, {255, 0xFFFFFF}};
  for (const auto& row : rows) EXPECT_EQ(aciColour(row.index), trueColour(row.rgb)) << row.index;
  for (const int none : {7, 0, 256, -1}) EXPECT_EQ(aciColour(none), kForeground);
}

}  // namespace
}  // namespace atelier::render
