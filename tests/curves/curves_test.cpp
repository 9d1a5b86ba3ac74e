// The operations on curve entities: parameters, distances, points, areas, in every class.
// Expected values come from plain geometry.
#include <cmath>
#include <numbers>

#include "tests/curves/aide.h"

using namespace kaveltest;
using std::numbers::pi;

namespace {

AcDbSpline wave() {
  AcGePoint3dArray points;
  for (const AcGePoint3d& p :
       {AcGePoint3d(0, 0, 0), AcGePoint3d(10, 30, 0), AcGePoint3d(20, -30, 0), AcGePoint3d(30, 0, 0)})
    points.append(p);
  return AcDbSpline(3, false, false, false, points, doubles({0, 0, 0, 0, 2, 2, 2, 2}), AcGeDoubleArray());
}

struct Row {
  std::string name;
  std::shared_ptr<AcDbCurve> curve;
  double start, end, length;
  AcGePoint3d middle;  // at the middle of the parameters
};

std::vector<Row> rows() {
  std::vector<Row> out;
  out.push_back(
      {"line", std::make_shared<AcDbLine>(AcGePoint3d(1, 1, 0), AcGePoint3d(4, 5, 12)), 0, 13, 13, {2.5, 3, 6}});
  out.push_back({"arc",
                 std::make_shared<AcDbArc>(AcGePoint3d(0, 0, 5), 2, 1.75 * pi, 0.25 * pi),
                 1.75 * pi,
                 2.25 * pi,
                 pi,
                 {2, 0, 5}});
  out.push_back({"circle",
                 std::make_shared<AcDbCircle>(AcGePoint3d(1, 2, 3), AcGeVector3d(0, 0, 1), 4),
                 0,
                 2 * pi,
                 8 * pi,
                 {-3, 2, 3}});
  out.push_back({"ellipse",
                 std::make_shared<AcDbEllipse>(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), AcGeVector3d(2, 0, 0), 0.5),
                 0,
                 2 * pi,
                 9.688448220547675,
                 {-2, 0, 0}});
  out.push_back(
      {"open polyline", polyline({{0, 0, 0}, {10, 0, 1}, {10, 8, 0}, {0, 8, 0}}), 0, 3, 20 + 4 * pi, {14, 4, 0}});
  out.push_back(
      {"closed polyline", polyline({{0, 0, 0}, {10, 0, 0}, {10, 8, 0}, {0, 8, 0}}, true), 0, 4, 36, {10, 8, 0}});
  out.push_back(
      {"spline", std::shared_ptr<AcDbCurve>(AcDbSpline::cast(wave().clone())), 0, 2, 47.8608297072, {15, 0, 0}});
  return out;
}

TEST(CurveEntities, ParametersDistancesAndPoints) {
  for (const Row& row : rows()) {
    const AcDbCurve& c = *row.curve;
    double start = -1, end = -1, distance = -1, param = -1;
    EXPECT_EQ(c.getStartParam(start), Acad::eOk) << row.name;
    EXPECT_EQ(c.getEndParam(end), Acad::eOk) << row.name;
    EXPECT_NEAR(start, row.start, 1e-12) << row.name;
    EXPECT_NEAR(end, row.end, 1e-12) << row.name;
    EXPECT_NEAR(lengthOf(c), row.length, 1e-9 * row.length) << row.name;
    const double middle = (start + end) / 2;
    EXPECT_LT(at(c, middle).distanceTo(row.middle), 1e-9) << row.name;
    const double t = start + 0.3 * (end - start);
    const AcGePoint3d p = at(c, t);
    EXPECT_EQ(c.getParamAtPoint(p, param), Acad::eOk) << row.name;
    EXPECT_NEAR(param, t, 1e-8) << row.name;
    EXPECT_EQ(c.getDistAtPoint(p, distance), Acad::eOk) << row.name;
    EXPECT_EQ(c.getParamAtDist(distance, param), Acad::eOk) << row.name;
    EXPECT_NEAR(param, t, 1e-8) << row.name;
    AcGePoint3d back, near;
    EXPECT_EQ(c.getPointAtDist(distance, back), Acad::eOk) << row.name;
    EXPECT_LT(back.distanceTo(p), 1e-8) << row.name;
    AcGeVector3d d;
    EXPECT_EQ(c.getFirstDeriv(t, d), Acad::eOk) << row.name;
    const AcGeVector3d chord = (at(c, t + 1e-6) - at(c, t - 1e-6)) / 2e-6;
    EXPECT_LT((chord - d).length(), 1e-3 * (1 + d.length())) << row.name;
    EXPECT_EQ(c.getClosestPointTo(p + d.crossProduct(AcGeVector3d(0.3, -0.4, 0.9)).normal() * 0.01, near), Acad::eOk);
    EXPECT_LT(near.distanceTo(p), 2e-3) << row.name;
    EXPECT_EQ(c.getPointAtParam(end + 1, back), Acad::eInvalidInput) << row.name;
    EXPECT_EQ(c.getParamAtPoint(p + AcGeVector3d(0, 0, 1), param), Acad::eInvalidInput) << row.name;
  }
}

TEST(CurveEntities, Areas) {
  const struct {
    size_t row;
    double area;
  } areas[] = {{1, 2 * (pi / 2 - 1)}, {2, 16 * pi}, {3, 2 * pi}, {4, 80 + 8 * pi}, {5, 80}, {6, 0}};
  const auto all = rows();
  for (const auto& a : areas) {
    double area = -1;
    const Acad::ErrorStatus status = all[a.row].curve->getArea(area);
    EXPECT_EQ(status, Acad::eOk) << all[a.row].name;
    EXPECT_NEAR(area, a.area, 1e-9) << all[a.row].name;
  }
  double area = -1;
  EXPECT_EQ(all[0].curve->getArea(area), Acad::eNotApplicable);
}

// The pieces together are the curve: their lengths add up, each begins where the one before ends.
TEST(CurveEntities, PiecesAreTheCurve) {
  for (const Row& row : rows()) {
    row.curve->setColorIndex(3);
    const double w = row.end - row.start;
    const Parts parts =
        split(*row.curve, {row.start + 0.7 * w, row.start, row.start + 0.2 * w, row.start + 0.7 * w, row.end});
    const bool round = row.name == "circle" || row.name == "ellipse";
    ASSERT_EQ(parts.size(), round ? 2u : 3u) << row.name;
    double sum = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
      AcGePoint3d end, start;
      sum += lengthOf(*parts[i]);
      EXPECT_EQ(parts[i]->colorIndex(), 3) << row.name;
      if (i + 1 == parts.size()) continue;
      parts[i]->getEndPoint(end);
      parts[i + 1]->getStartPoint(start);
      EXPECT_LT(end.distanceTo(start), 1e-9) << row.name;
    }
    EXPECT_NEAR(sum, row.length, 1e-9 * row.length) << row.name;
    EXPECT_TRUE(split(*row.curve, {row.start, row.end}).empty()) << row.name;
  }
}

TEST(CurveEntities, SplinesOfEveryClass) {
  for (const Row& row : rows()) {
    AcDbSpline* spline = nullptr;
    ASSERT_EQ(row.curve->getSpline(spline), Acad::eOk) << row.name;
    const std::unique_ptr<AcDbSpline> owner(spline);
    EXPECT_NEAR(lengthOf(*spline), row.length, 1e-9 * row.length) << row.name;
  }
}

TEST(CurveEntities, ReversedOnesRunBackwards) {
  for (const Row& row : rows()) {
    const Acad::ErrorStatus status = row.curve->reverseCurve();
    const bool round = row.name == "circle" || row.name == "ellipse" || row.name == "arc";
    EXPECT_EQ(status, round ? Acad::eNotApplicable : Acad::eOk) << row.name;
    EXPECT_LT(at(*row.curve, (row.start + row.end) / 2).distanceTo(row.middle), 1e-9) << row.name;
    EXPECT_NEAR(lengthOf(*row.curve), row.length, 1e-9 * row.length) << row.name;
  }
}

TEST(CurveEntities, DegenerateOnesAnswerAStatus) {
  AcGePoint3dArray same;
  for (int i = 0; i < 4; ++i) same.append(AcGePoint3d(3, 3, 0));
  AcGePoint3dArray two;
  two.append(AcGePoint3d(0, 0, 0));
  two.append(AcGePoint3d(NAN, 1, 0));
  const std::shared_ptr<AcDbCurve> bad[] = {
      std::make_shared<AcDbLine>(AcGePoint3d(1, 1, 0), AcGePoint3d(1, 1, 0)),
      std::make_shared<AcDbLine>(AcGePoint3d(1, 1, 0), AcGePoint3d(NAN, 1, 0)),
      std::make_shared<AcDbCircle>(AcGePoint3d(0, 0, 0), AcGeVector3d(0, 0, 1), 0),
      std::make_shared<AcDbPolyline>(),
      polyline({{1, 1, 0}}),
      polyline({{1, 1, 0.5}, {1, 1, 0}}),
      std::make_shared<AcDbSpline>(3, false, false, false, same, doubles({0, 0, 0, 0, 1, 1, 1, 1}), AcGeDoubleArray()),
      std::make_shared<AcDbSpline>(3, false, false, false, same, doubles({0, 0}), AcGeDoubleArray()),
      std::make_shared<AcDbSpline>(two),
      std::make_shared<AcDbSpline>(),
  };
  for (const auto& c : bad) {
    double d = 0;
    AcGePoint3d p;
    AcArray<AcDbCurve*> parts;
    AcGePoint3dArray points;
    AcDbSpline* spline = nullptr;
    EXPECT_EQ(c->getStartParam(d), Acad::eDegenerateGeometry);
    EXPECT_EQ(c->getPointAtParam(0, p), Acad::eDegenerateGeometry);
    EXPECT_EQ(c->getClosestPointTo(p, p), Acad::eDegenerateGeometry);
    EXPECT_EQ(c->getSplitCurves(doubles({0.5}), parts), Acad::eDegenerateGeometry);
    EXPECT_EQ(c->getSpline(spline), Acad::eDegenerateGeometry);
    EXPECT_EQ(c->intersectWith(bad[0].get(), AcDb::kOnBothOperands, points), Acad::eDegenerateGeometry);
    EXPECT_EQ(points.length() + parts.length(), 0);
  }
}

TEST(CurveEntities, EndlessOnes) {
  AcDbXline vertical;
  vertical.setBasePoint({6, 0, 0});
  vertical.setUnitDir({0, 1, 0});
  double d = 0;
  EXPECT_EQ(vertical.getStartParam(d), Acad::eNotApplicable);
  EXPECT_EQ(vertical.getDistAtParam(-7, d), Acad::eOk);
  EXPECT_EQ(d, -7);
  const Parts parts = split(vertical, {3, 9});
  ASSERT_EQ(parts.size(), 3u);
  EXPECT_TRUE(AcDbRay::cast(parts[0].get()) && AcDbLine::cast(parts[1].get()) && AcDbRay::cast(parts[2].get()));
  EXPECT_EQ(lengthOf(*parts[1]), 6);
}

TEST(CurveEntities, IntersectionsInEveryMode) {
  const AcDbLine flat({0, 0, 0}, {10, 0, 0}), above({12, 1, 0}, {12, 8, 0}), high({5, -5, 3}, {5, 5, 3});
  const AcDbArc arc({20, 0, 0}, 5, 0.1, 1.0);
  const struct {
    const AcDbCurve *a, *b;
    AcDb::Intersect mode;
    int count;
  } cases[] = {
      {&flat, &above, AcDb::kOnBothOperands, 0}, {&flat, &above, AcDb::kExtendThis, 0},
      {&flat, &above, AcDb::kExtendArg, 0},      {&flat, &above, AcDb::kExtendBoth, 1},
      {&above, &flat, AcDb::kExtendBoth, 1},     {&flat, &high, AcDb::kExtendBoth, 0},
      {&flat, &arc, AcDb::kExtendThis, 0},       {&flat, &arc, AcDb::kExtendBoth, 2},
      {&arc, &flat, AcDb::kExtendBoth, 2},
  };
  for (const auto& c : cases) {
    AcGePoint3dArray points;
    EXPECT_EQ(c.a->intersectWith(c.b, c.mode, points), Acad::eOk);
    EXPECT_EQ(points.length(), c.count) << (&c - cases);
  }
  AcGePoint3dArray projected;
  EXPECT_EQ(high.intersectWith(&flat, AcDb::kOnBothOperands, AcGePlane(), projected), Acad::eOk);
  ASSERT_EQ(projected.length(), 1);
  EXPECT_EQ(projected[0], AcGePoint3d(5, 0, 3));  // on the entity that is asked
  AcGePoint3dArray own;
  AcGePoint3dArray frame;
  for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 5), AcGePoint3d(6, 4, 5), AcGePoint3d(-3, 4, 5), AcGePoint3d(3, 0, 5)})
    frame.append(p);
  const AcDbSpline loop(3, false, false, false, frame, doubles({0, 0, 0, 0, 1, 1, 1, 1}), AcGeDoubleArray());
  EXPECT_EQ(loop.intersectWith(&loop, AcDb::kOnBothOperands, own), Acad::eOk);
  ASSERT_EQ(own.length(), 1);
  EXPECT_LT(own[0].distanceTo({1.5, 1.2, 5}), 1e-8);
  const AcDbPoint point({0, 0, 0});
  EXPECT_EQ(flat.intersectWith(&point, AcDb::kOnBothOperands, projected), Acad::eNotApplicable);
  EXPECT_EQ(point.intersectWith(&flat, AcDb::kOnBothOperands, projected), Acad::eNotApplicable);
}

}  // namespace
