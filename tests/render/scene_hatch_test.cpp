// Hatches: boundaries of every kind, styles, patterns cut at the boundary, and what is too dense or damaged.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "atelier/render/shapes/clip_path.h"
#include "drawing.h"

namespace atelier::render {
namespace {

const std::string head = "HATCH 8=0 10=0 20=0 30=0 210=0 220=0 230=1 ";

std::string solid(int loops, const std::string& boundary, int style = 0) {
  return head + "2=SOLID 70=1 71=0 91=" + std::to_string(loops) + ' ' + boundary + " 75=" + std::to_string(style) +
         " 76=1 98=0";
}

std::string square(double x, double y, double side, int kind) {
  const auto n = [](double v) { return std::to_string(v); };
  return "92=" + std::to_string(kind | 2) + " 72=0 73=1 93=4 10=" + n(x) + " 20=" + n(y) + " 10=" + n(x + side) +
         " 20=" + n(y) + " 10=" + n(x + side) + " 20=" + n(y + side) + " 10=" + n(x) + " 20=" + n(y + side) + " 97=0";
}

// The covered area by the even-odd rule, from samples.
double area(const Fill& fill) {
  const Box box = fill.path.bounds();
  const Path flat = clipFill(fill.path, {box.xMin - 1, box.yMin - 1, box.xMax + 1, box.yMax + 1}, 1e-3);
  const auto points = flat.points();
  const int n = 400;
  int inside = 0;
  for (int i = 0; i < n * n; ++i) {
    const int column = i % n, row = i / n;
    const Pt p{box.xMin + (column + 0.5) / n * box.width(), box.yMin + (row + 0.5) / n * box.height()};
    bool in = false;
    std::size_t k = 0, first = 0;
    const auto cross = [&](Pt a, Pt b) {
      if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) in = !in;
    };
    for (const auto verb : flat.verbs()) {
      if (verb == Path::Verb::move) first = k++;
      else if (verb == Path::Verb::line) cross(points[k - 1], points[k]), ++k;
      else cross(points[k - 1], points[first]);
    }
    inside += in;
  }
  return box.width() * box.height() * inside / (n * n);
}

TEST(SceneHatch, SolidAreasOfEveryBoundary) {
  const double pi = std::numbers::pi;
  const struct {
    std::string entity;
    double area;
  } rows[] = {
      {solid(1, square(0, 0, 10, 1)), 100},
      {solid(2, square(0, 0, 10, 1) + ' ' + square(2, 2, 4, 16)), 84},
      {solid(3, square(0, 0, 10, 1) + ' ' + square(2, 2, 4, 16) + ' ' + square(3, 3, 2, 0)), 88},
      {solid(3, square(0, 0, 10, 1) + ' ' + square(2, 2, 4, 16) + ' ' + square(3, 3, 2, 0), 1), 84},
      {solid(2, square(0, 0, 10, 1) + ' ' + square(2, 2, 4, 16), 2), 100},
      {solid(1, "92=3 72=1 73=1 93=2 10=0 20=0 42=1 10=4 20=0 42=1 97=0"), pi * 4},
      {solid(1, "92=1 93=2 72=2 10=0 20=0 40=5 50=0 51=180 73=1 72=1 10=-5 20=0 11=5 21=0 97=0"), pi * 12.5},
      {solid(1, "92=1 93=2 72=2 10=0 20=0 40=5 50=180 51=270 73=0 72=1 10=0 20=5 11=-5 21=0 97=0"), pi * 25 / 4 - 12.5},
      {solid(1, "92=1 93=1 72=3 10=0 20=0 11=4 21=0 40=0.5 50=0 51=360 73=1 97=0"), pi * 8},
      {solid(1,
             "92=1 93=2 72=4 94=2 73=0 74=0 95=6 96=3 40=0 40=0 40=0 40=1 40=1 40=1 10=0 20=0 10=5 20=10 "
             "10=10 20=0 72=1 10=10 "
             "20=0 11=0 21=0 97=0"),
       100.0 / 3},
  };
  for (const auto& row : rows) {
    const DisplayList list = sceneOf({.entities = {row.entity}});
    const auto fills = shapes<Fill>(list);
    ASSERT_EQ(fills.size(), 1u) << row.entity;
    EXPECT_NEAR(area(*fills[0]), row.area, 0.01 * row.area) << row.entity;
  }
}

// The ends are those that python3-ezdxf and GDAL read from the same groups: for the first row the direction 30 of an ellipse
// twice as wide as high is the parameter atan(2 tan 30) = 49.107, the point 10 + 4 cos, 20 + 2 sin of it.
TEST(SceneHatch, PartialEllipticEdgesRunBetweenDirections) {
  const struct {
    const char* edge;
    Pt from, to, low, high;
  } rows[] = {
      {"11=4 21=0 40=0.5 50=30 51=140 73=1",
       {12.618615, 21.511858},
       {7.952444, 21.718103},
       {7.952444, 21.511858},
       {12.618615, 22}},
      {"11=4 21=0 40=0.5 50=30 51=140 73=0",
       {12.618615, 18.488142},
       {7.952444, 18.281897},
       {7.952444, 18},
       {12.618615, 18.488142}},
      {"11=4 21=0 40=0.25 50=20 51=250 73=0",
       {12.264703, 19.175715},
       {9.637527, 20.995886},
       {6, 19},
       {12.264703, 20.995886}},
      {"11=3 21=3 40=0.4 50=15 51=110 73=1",
       {11.824605, 23.160308},
       {8.380311, 20.755273},
       {8.380311, 20.755273},
       {11.824605, 23.160308}},
      {"11=4 21=0 40=0.5 50=30 51=390 73=1", {12.618615, 21.511858}, {12.618615, 21.511858}, {6, 18}, {14, 22}},
  };
  for (const auto& row : rows) {
    const DisplayList list =
        sceneOf({.entities = {solid(1, std::string("92=1 93=1 72=3 10=10 20=20 ") + row.edge + " 97=0")}});
    const auto fills = shapes<Fill>(list);
    ASSERT_EQ(fills.size(), 1u) << row.edge;
    const Path& path = fills[0]->path;
    const Box box = clipFill(path, {0, 0, 100, 100}, 1e-7).bounds();
    for (const auto& [seen, wanted] :
         {std::pair(path.points().front(), row.from), std::pair(path.points().back(), row.to),
          std::pair(Pt{box.xMin, box.yMin}, row.low), std::pair(Pt{box.xMax, box.yMax}, row.high)}) {
      EXPECT_NEAR(seen.x, wanted.x, 2e-6) << row.edge;
      EXPECT_NEAR(seen.y, wanted.y, 2e-6) << row.edge;
    }
  }
}

std::string pattern(const std::string& line) {
  return head + "2=P 70=0 71=0 91=2 " + square(0, 0, 10, 1) + ' ' + square(2, 2, 6, 16) +
         " 75=0 76=1 52=0 41=1 77=0 78=1 " + line;
}

double inkLength(const Path& path) {
  double sum = 0;
  for (std::size_t i = 0; i + 1 < path.points().size(); i += 2)
    sum += std::hypot(path.points()[i + 1].x - path.points()[i].x, path.points()[i + 1].y - path.points()[i].y);
  return sum;
}

TEST(SceneHatch, PatternsAreCutAtTheBoundary) {
  const struct {
    const char* line;
    double length;
  } rows[] = {
      {"53=0 43=0 44=0.5 45=0 46=1 79=0", 4 * 10 + 6 * 4},                     // lines at 0.5, 1.5 ... 9.5
      {"53=0 43=1000 44=-999.5 45=0 46=1 79=0", 4 * 10 + 6 * 4},               // from a far base point
      {"53=90 43=0.5 44=0 45=-1 46=0 79=0", 4 * 10 + 6 * 4},                   // upright, to the left
      {"53=0 43=0 44=0.5 45=0 46=1 79=2 49=1 49=-1", (4 * 10 + 6 * 4) / 2.0},  // dashes
      {"53=0 43=0 44=5 45=0 46=100 79=2 49=0 49=-1", 0},                       // dots
      {"53=0 43=0 44=0.5 45=1 46=0 79=0", 0},                                  // lines on one another: none
  };
  for (const auto& row : rows) {
    const DisplayList list = sceneOf({.entities = {pattern(row.line)}});
    double length = 0;
    for (const Stroke* stroke : shapes<Stroke>(list)) length += inkLength(stroke->path);
    EXPECT_NEAR(length, row.length, 1e-6) << row.line;
    EXPECT_TRUE(list.warnings.empty()) << row.line;
  }
}

TEST(SceneHatch, TooDenseAndDamagedAreSaid) {
  for (const char* line : {"53=0 43=0 44=0 45=0 46=1e-9 79=0", "53=0 43=0 44=0 45=0 46=0.01 79=2 49=1e-7 49=-1e-7"}) {
    const DisplayList list = sceneOf({.entities = {pattern(line)}});
    EXPECT_EQ(list.warnings, std::vector<std::string>{"hachure trop serrée pour être tracée"}) << line;
  }
  // From a base so far away that doubles cannot tell its lines apart: whatever is drawn, it comes to an end.
  sceneOf({.entities = {pattern("53=0 43=1e17 44=1e17 45=0 46=1e-3 79=2 49=1e-12 49=-1e-12")}});
  for (const std::string& damaged :
       {solid(1, "92=3 72=0 73=1 93=-4"), solid(1, "92=1 93=2000000000"), solid(5, ""), head + "2=SOLID 70=1"})
    EXPECT_EQ(sceneOf({.entities = {damaged}}).items().size(), 0u) << damaged;
}

}  // namespace
}  // namespace atelier::render
