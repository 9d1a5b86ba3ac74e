// Polylines: properties of their pieces, joining, old ones of all types; and splines made from data and from points.
#include <cmath>
#include <numbers>

#include "hote/dbsymtb.h"
#include "hote/gecurve.h"
#include "tests/curves/aide.h"

using namespace kaveltest;

namespace {

TEST(Polylines, PiecesKeepBulgeWidthElevationAndPlane) {
  AcDbPolyline whole;
  whole.addVertexAt(0, {0, 0}, 0, 1, 3);
  whole.addVertexAt(1, {10, 0}, 1, 3, 5);
  whole.addVertexAt(2, {10, 8});
  whole.setElevation(7);
  whole.setNormal({0, 0, -1});
  const Parts parts = split(whole, {0.5, 1.5});
  ASSERT_EQ(parts.size(), 3u);
  const auto* middle = AcDbPolyline::cast(parts[1].get());
  EXPECT_EQ(middle->elevation(), 7);
  EXPECT_EQ(middle->normal(), AcGeVector3d(0, 0, -1));
  ASSERT_EQ(middle->numVerts(), 3u);
  double bulge = 0, w0 = 0, w1 = 0;
  middle->getWidthsAt(0, w0, w1);
  EXPECT_EQ(w0, 2);
  EXPECT_EQ(w1, 3);
  middle->getWidthsAt(1, w0, w1);
  EXPECT_EQ(w0, 3);
  EXPECT_EQ(w1, 4);
  middle->getBulgeAt(1, bulge);
  EXPECT_NEAR(bulge, std::tan(std::numbers::pi / 8), 1e-15);
  AcGePoint2d p;
  middle->getPointAt(2, p);
  EXPECT_LT(p.distanceTo({14, 4}), 1e-12);
}

TEST(Polylines, CutAndJoinedAgainTheyAreTheSameCurve) {
  const auto whole = polyline({{0, 0, 0.3}, {10, 0, -1}, {10, 8, 0}, {0, 8, 0.2}, {-5, 20, 0}});
  const Parts parts = split(*whole, {0.4, 1.3, 2, 3.7});
  ASSERT_EQ(parts.size(), 5u);
  for (const bool backwards : {false, true}) {
    const std::unique_ptr<AcDbPolyline> joined(AcDbPolyline::cast(parts[2]->clone()));
    for (const std::size_t i : {1u, 3u, 0u, 4u}) {
      const std::unique_ptr<AcDbPolyline> part(AcDbPolyline::cast(parts[i]->clone()));
      if (backwards) part->reverseCurve();
      EXPECT_EQ(joined->joinWith(part.get()), Acad::eOk);
    }
    EXPECT_NEAR(lengthOf(*joined), lengthOf(*whole), 1e-11);
    for (int i = 0; i <= 40; ++i) {
      AcGePoint3d p, q;
      whole->getPointAtDist(lengthOf(*whole) * i / 40, p);
      joined->getPointAtDist(lengthOf(*whole) * i / 40, q);
      EXPECT_LT(p.distanceTo(q), 1e-9);
    }
  }
}

TEST(Polylines, JoinLinesAndArcsAndClose) {
  const auto p = polyline({{0, 0, 0}, {10, 0, 0}});
  const AcDbArc arc({10, 5, 0}, 5, -std::numbers::pi / 2, std::numbers::pi / 2);
  const AcDbLine back({0, 10, 0}, {10, 10, 0}), aside({50, 0, 0}, {60, 0, 0}), closing({0, 10, 0}, {0, 0, 0}),
      high({0, 0, 1}, {0, 9, 1});
  EXPECT_EQ(p->joinWith(&aside), Acad::eInvalidInput);
  EXPECT_EQ(p->joinWith(&high), Acad::eInvalidInput);
  EXPECT_EQ(p->joinWith(&arc), Acad::eOk);
  EXPECT_EQ(p->joinWith(&back), Acad::eOk);
  EXPECT_FALSE(p->isClosed());
  EXPECT_EQ(p->joinWith(&closing), Acad::eOk);
  EXPECT_TRUE(p->isClosed());
  double area = 0;
  p->getArea(area);
  EXPECT_NEAR(area, 100 + 12.5 * std::numbers::pi, 1e-12);
}

TEST(Polylines, AChangeIsSeenAtOnce) {
  const auto p = polyline({{0, 0, 0}, {10, 0, 0}});
  EXPECT_EQ(lengthOf(*p), 10);
  p->setPointAt(1, {3, 4});
  EXPECT_EQ(lengthOf(*p), 5);
  p->setClosed(true);
  EXPECT_EQ(lengthOf(*p), 10);
  p->setElevation(2);
  EXPECT_EQ(at(*p, 0).z, 2);
  p->transformBy(AcGeMatrix3d::translation({0, 0, 5}));
  EXPECT_EQ(at(*p, 0).z, 7);
}

struct OldPolylines : Host {
  AcDbObjectId old(int flags, int smooth, const std::string& vertices) {
    return made("(entmake '((0 . \"POLYLINE\") (66 . 1) (10 0.0 0.0 2.0) (70 . " + std::to_string(flags) + ") (75 . " +
                std::to_string(smooth) + ")))" + vertices + "(entmake '((0 . \"SEQEND\")))");
  }
  static std::string vertex(double x, double y, double bulge, int flags) {
    return "(entmake '((0 . \"VERTEX\") (10 " + std::to_string(x) + " " + std::to_string(y) + " 2.0) (42 . " +
           std::to_string(bulge) + ") (70 . " + std::to_string(flags) + ")))";
  }
};

TEST_F(OldPolylines, OfAllTypesAreCurves) {
  const std::string frame = vertex(0, 0, 0, 16) + vertex(5, 20, 0, 16);
  const struct {
    int flags, smooth;
    std::string vertices;
    int type;
    double length;
  } rows[] = {{0, 0, vertex(0, 0, 0, 0) + vertex(10, 0, 1, 0) + vertex(10, 8, 0, 0), 0, 10 + 4 * std::numbers::pi},
              {2, 0, vertex(0, 0, 1, 0) + vertex(2, 0, 0, 1), 1, std::numbers::pi},
              {4, 5, frame + vertex(0, 0, 0, 8) + vertex(3, 4, 0, 8), 2, 5},
              {5, 6, frame + vertex(0, 0, 0, 8) + vertex(3, 4, 0, 8), 3, 10}};
  for (const auto& row : rows) {
    AcDbObjectPointer<AcDb2dPolyline> p(old(row.flags, row.smooth, row.vertices));
    ASSERT_EQ(p.openStatus(), Acad::eOk);
    EXPECT_EQ(p->polyType(), row.type);
    EXPECT_NEAR(lengthOf(*p), row.length, 1e-9);
    EXPECT_EQ(at(*p, 0).z, 2);
    const Parts parts = split(*p, {0.5});
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_NEAR(lengthOf(*parts[0]) + lengthOf(*parts[1]), row.length, 1e-9);
    AcDbPolyline light;
    AcDbEntity* source = p.object();
    EXPECT_EQ(light.convertFrom(source, false), row.type < 2 ? Acad::eOk : Acad::eNotApplicable);
    if (row.type < 2) {
      EXPECT_NEAR(lengthOf(light), row.length, 1e-9);
      EXPECT_EQ(light.elevation(), 2);
    }
  }
}

TEST_F(OldPolylines, InSpaceToo) {
  AcDbDatabase* drawing = acdbHostApplicationServices()->workingDatabase();
  AcDbObjectPointer<AcDbBlockTableRecord> space(drawing->currentSpaceId(), AcDb::kForWrite);
  auto* p = new AcDb3dPolyline;
  AcDbObjectId id;
  ASSERT_EQ(space->appendAcDbEntity(id, p), Acad::eOk);
  for (const AcGePoint3d& corner : {AcGePoint3d(0, 0, 0), AcGePoint3d(3, 4, 12), AcGePoint3d(3, 4, 20)}) {
    auto* vertex = new AcDb3dPolylineVertex;
    vertex->setPosition(corner);
    p->appendVertex(vertex);
    vertex->close();
  }
  EXPECT_NEAR(lengthOf(*p), 21, 1e-12);
  const Parts parts = split(*p, {1.5});
  ASSERT_EQ(parts.size(), 2u);
  EXPECT_NEAR(lengthOf(*parts[1]), 4, 1e-12);
  p->close();
}

TEST(Splines, FromPointsGoThroughThem) {
  AcGePoint3dArray through;
  for (const AcGePoint3d& p :
       {AcGePoint3d(0, 0, 0), AcGePoint3d(10, 5, 0), AcGePoint3d(20, -5, 3), AcGePoint3d(30, 0, 0)})
    through.append(p);
  const AcDbSpline plain(through), steered(through, AcGeVector3d(0, 1, 0), AcGeVector3d(0, 1, 0));
  for (const AcDbSpline* s : {&plain, &steered}) {
    EXPECT_FALSE(s->isNull());
    EXPECT_EQ(s->numFitPoints(), 4);
    double param = 0;
    for (const AcGePoint3d& p : through) EXPECT_EQ(s->getParamAtPoint(p, param), Acad::eOk);
  }
  AcGeVector3d d;
  steered.getFirstDeriv(0, d);
  EXPECT_NEAR(d.normal().y, 1, 1e-9);
}

// A spline that a drawing keeps as fit points only.
TEST_F(OldPolylines, FittedSplinesHaveNurbsData) {
  AcDbObjectPointer<AcDbSpline> s(
      made("(entmake '((0 . \"SPLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbSpline\") (70 . 8) (71 . 3) (74 . 3) (11 "
           "0.0 0.0 0.0) (11 5.0 5.0 0.0) (11 10.0 0.0 0.0)))"));
  ASSERT_EQ(s.openStatus(), Acad::eOk);
  double param = 0;
  EXPECT_EQ(s->getParamAtPoint({5, 5, 0}, param), Acad::eOk);
  EXPECT_FALSE(s->isNull());
}

TEST(Splines, GeometryObjectsSampleAndJoin) {
  AcGeKnotVector knots(doubles({0, 0, 0, 1, 1, 1}));
  AcGePoint3dArray points, other;
  for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 4), AcGePoint3d(5, 10, 4), AcGePoint3d(10, 0, 4)}) {
    points.append(p);
    other.append({p.x + 10, -p.y, 4});
  }
  AcGeNurbCurve3d a(2, knots, points);
  const AcGeNurbCurve3d b(2, knots, other);
  const double sum = a.length(0, 1) + b.length(0, 1);
  AcGePlane plane;
  ASSERT_TRUE(a.isPlanar(plane));
  EXPECT_EQ(plane.normal(), AcGeVector3d(0, 0, 1));
  EXPECT_EQ(AcGePoint3d(7, 3, 4).convert2d(plane), AcGePoint2d(7, 3));
  AcGePoint3dArray samples;
  AcGeDoubleArray params;
  a.getSamplePoints(0, 1, 0.001, samples, params);
  ASSERT_EQ(samples.length(), params.length());
  for (int i = 0; i < samples.length(); ++i) EXPECT_LT(a.evalPoint(params[i]).distanceTo(samples[i]), 1e-12);
  a.joinWith(b);
  EXPECT_EQ(a.numControlPoints(), 5);
  EXPECT_NEAR(a.length(a.startParam(), a.endParam()), sum, 1e-10);
  a.getSamplePoints(5, samples);
  EXPECT_EQ(samples.last(), AcGePoint3d(20, 0, 4));
  other.append({20, 0, 9});
  EXPECT_FALSE(AcGeNurbCurve3d(2, AcGeKnotVector(doubles({0, 0, 0, 1, 2, 2, 2})), other).isPlanar(plane));
}

TEST(Polylines, ALongOneAnswersAtEveryPlace) {
  AcDbPolyline ground(100'000);
  for (unsigned i = 0; i < 100'000; ++i) ground.addVertexAt(i, AcGePoint2d(i, i % 7));
  AcDbXline vertical;
  vertical.setUnitDir({0, 1, 0});
  for (int i = 0; i < 5'000; ++i) {
    vertical.setBasePoint({20.0 * i + 0.5, 0, 0});
    AcGePoint3dArray points;
    ground.intersectWith(&vertical, AcDb::kOnBothOperands, points);
    ASSERT_EQ(points.length(), 1);
    double param = 0;
    ASSERT_EQ(ground.getParamAtPoint(points[0], param), Acad::eOk);
    ASSERT_NEAR(param, 20.0 * i + 0.5, 1e-9);
  }
}

}  // namespace
