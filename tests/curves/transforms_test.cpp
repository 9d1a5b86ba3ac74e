// Entities of every class moved, turned, enlarged and mirrored, and the boxes around them.
// A curve is compared by its points: the transformed curve must pass through the transformed points.
#include <cmath>
#include <numbers>

#include "tests/curves/aide.h"

using namespace kaveltest;

namespace {

constexpr double kPi = std::numbers::pi;

AcGeMatrix3d mirrored(double x) {
  AcGeMatrix3d m;
  m(0, 0) = -1;
  m(0, 3) = 2 * x;
  return m;
}

struct Change {
  const char* name;
  AcGeMatrix3d matrix;
  double lengths;  // how much longer curves become
};

const Change kChanges[] = {
    {"move", AcGeMatrix3d::translation({3, -2, 5}), 1},
    {"turn", AcGeMatrix3d::rotation(0.7, {0, 0, 1}, {1, 2, 0}), 1},
    {"tilt", AcGeMatrix3d::rotation(1.1, {1, 2, 0.5}, {-4, 1, 0}), 1},
    {"enlarge", AcGeMatrix3d::scaling(2.5, {1, 1, 0}), 2.5},
    {"mirror", mirrored(7), 1},
    {"all", AcGeMatrix3d::translation({1e3, 1e3, 0}) * mirrored(2) * AcGeMatrix3d::scaling(0.5), 0.5}};

const char* const kCurves[] = {
    "(entmake '((0 . \"LINE\") (10 1. 2. 3.) (11 8. -4. 1.)))",
    "(entmake '((0 . \"ARC\") (10 5. 5. 0.) (40 . 4.) (50 . 0.4) (51 . 5.1)))",
    "(entmake '((0 . \"ARC\") (10 5. 5. 2.) (40 . 4.) (50 . 5.5) (51 . 1.1) (210 0. 0. -1.)))",
    "(entmake '((0 . \"CIRCLE\") (10 -3. 2. 1.) (40 . 2.5)))",
    "(entmake '((0 . \"ELLIPSE\") (100 . \"AcDbEntity\") (100 . \"AcDbEllipse\") (10 2. 1. 0.) (11 4. 3. 0.) (210 0. "
    "0. 1.) (40 . 0.4) (41 . 0.3) (42 . 4.)))",
    "(entmake '((0 . \"SPLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbSpline\") (70 . 12) (71 . 2) (72 . 6) (73 . 3) "
    "(74 . 0)"
    " (40 . 0.) (40 . 0.) (40 . 0.) (40 . 1.) (40 . 1.) (40 . 1.) (10 0. 0. 0.) (10 5. 8. 0.) (10 10. 0. 0.) (41 . 1.) "
    "(41 . 2.) (41 . 1.)))",
    "(entmake '((0 . \"LWPOLYLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbPolyline\") (90 . 4) (70 . 1) (38 . 2.)"
    " (10 0. 0.) (42 . 0.5) (10 6. 0.) (10 6. 5.) (42 . -1.2) (10 1. 5.)))",
    "(progn (entmake '((0 . \"POLYLINE\") (70 . 0) (10 0. 0. 1.5))) (entmake '((0 . \"VERTEX\") (10 0. 0. 1.5) (42 . "
    "0.3)))"
    " (entmake '((0 . \"VERTEX\") (10 7. 1. 1.5))) (entmake '((0 . \"VERTEX\") (10 9. 6. 1.5))) (entmake '((0 . "
    "\"SEQEND\"))))",
    "(progn (entmake '((0 . \"POLYLINE\") (70 . 8) (10 0. 0. 0.))) (entmake '((0 . \"VERTEX\") (10 0. 0. 1.) (70 . "
    "32)))"
    " (entmake '((0 . \"VERTEX\") (10 7. 1. 3.) (70 . 32))) (entmake '((0 . \"VERTEX\") (10 9. 6. -2.) (70 . 32))) "
    "(entmake '((0 . \"SEQEND\"))))"};

struct Transforms : Host {};

std::vector<AcGePoint3d> along(const AcDbCurve& curve) {
  std::vector<AcGePoint3d> points;
  const double length = lengthOf(curve);
  for (int i = 0; i <= 12; ++i) {
    AcGePoint3d p;
    EXPECT_EQ(curve.getPointAtDist(length * i / 12, p), Acad::eOk) << i;
    points.push_back(p);
  }
  return points;
}

TEST_F(Transforms, CurvesGoWhereTheirPointsGo) {
  for (const char* lisp : kCurves)
    for (const Change& change : kChanges) {
      SCOPED_TRACE(std::string(change.name) + " " + lisp);
      AcDbEntityPointer entity(made(lisp), AcDb::kForWrite);
      auto* curve = AcDbCurve::cast(entity.object());
      ASSERT_TRUE(curve);
      const auto before = along(*curve);
      const double length = lengthOf(*curve);
      ASSERT_EQ(curve->transformBy(change.matrix), Acad::eOk);
      EXPECT_NEAR(lengthOf(*curve), length * change.lengths, 1e-9 * length);
      for (const AcGePoint3d& point : before) {
        AcGePoint3d there;
        const AcGePoint3d expected = change.matrix * point;
        ASSERT_EQ(curve->getClosestPointTo(expected, there), Acad::eOk);
        EXPECT_LT(there.distanceTo(expected), 1e-8) << expected.x << " " << expected.y << " " << expected.z;
      }
      AcDbExtents box;
      ASSERT_EQ(curve->getGeomExtents(box), Acad::eOk);
      for (const AcGePoint3d& point : along(*curve)) {
        EXPECT_GT(std::min({point.x - box.minPoint().x, point.y - box.minPoint().y, point.z - box.minPoint().z}),
                  -1e-7);
        EXPECT_GT(std::min({box.maxPoint().x - point.x, box.maxPoint().y - point.y, box.maxPoint().z - point.z}),
                  -1e-7);
      }
    }
}

// A transformation and its inverse restore the curve, with the same start and direction.
TEST_F(Transforms, AreTakenBackByTheirInverse) {
  for (const char* lisp : kCurves)
    for (const Change& change : kChanges) {
      SCOPED_TRACE(std::string(change.name) + " " + lisp);
      AcDbEntityPointer entity(made(lisp), AcDb::kForWrite);
      auto* curve = AcDbCurve::cast(entity.object());
      const auto before = along(*curve);
      ASSERT_EQ(curve->transformBy(change.matrix), Acad::eOk);
      ASSERT_EQ(curve->transformBy(change.matrix.inverse()), Acad::eOk);
      const auto after = along(*curve);
      for (std::size_t i = 0; i < before.size(); ++i) EXPECT_LT(after[i].distanceTo(before[i]), 1e-8) << i;
    }
}

struct Place {
  const char* lisp;
  const char* asked;  // groups of the last entity after it was turned by 90 degrees about (1 2), doubled from there
  const char* expected;
};

TEST_F(Transforms, PlacesAnglesAndSizesFollow) {
  const AcGeMatrix3d matrix =
      AcGeMatrix3d::rotation(kPi / 2, {0, 0, 1}, {1, 2, 0}) * AcGeMatrix3d::scaling(2, {1, 2, 0});
  session.eval(
      "(progn (setvar \"DIMZIN\" 0) (entmake '((0 . \"BLOCK\") (2 . \"B\") (70 . 0) (10 0. 0. 0.))) (entmake '((0 . "
      "\"POINT\") (10 1. 1. 0.)))"
      " (entmake '((0 . \"ENDBLK\")))"
      " (defun vu (codes / e) (setq e (entget (entlast))) (mapcar '(lambda (c / v) (setq v (cdr (assoc c e)))"
      " (if (listp v) (mapcar '(lambda (x) (atof (rtos x 2 6))) v) (if (= (type v) 'REAL) (atof (rtos v 2 6)) v))) "
      "codes)))");
  const Place rows[] = {
      {"(entmake '((0 . \"POINT\") (10 3. 3. 1.)))", "(10)", "((-1.0 6.0 2.0))"},
      {"(entmake '((0 . \"TEXT\") (10 3. 3. 0.) (40 . 2.5) (1 . \"a\") (50 . 0.5)))", "(10 40 50)",
       "((-1.0 6.0 0.0) 5.0 2.0708)"},
      {"(entmake '((0 . \"MTEXT\") (100 . \"AcDbEntity\") (100 . \"AcDbMText\") (10 3. 3. 0.) (40 . 2.5) (41 . 20.) "
       "(71 . 1) (1 . \"a\")))",
       "(10 40 41)", "((-1.0 6.0 0.0) 5.0 40.0)"},
      {"(entmake '((0 . \"INSERT\") (2 . \"B\") (10 3. 3. 0.) (41 . 1.) (42 . 2.) (43 . 1.) (50 . 0.25)))",
       "(10 41 42 43 50)", "((-1.0 6.0 0.0) 2.0 4.0 2.0 1.8208)"},
      {"(entmake '((0 . \"SOLID\") (10 1. 2. 0.) (11 3. 2. 0.) (12 1. 4. 0.) (13 3. 4. 0.)))", "(10 11 12 13)",
       "((1.0 2.0 0.0) (1.0 6.0 0.0) (-3.0 2.0 0.0) (-3.0 6.0 0.0))"},
      {"(entmake '((0 . \"3DFACE\") (10 1. 2. 0.) (11 3. 2. 1.) (12 3. 4. 0.) (13 1. 4. 0.)))", "(10 11 12)",
       "((1.0 2.0 0.0) (1.0 6.0 2.0) (-3.0 6.0 0.0))"},
      {"(entmake '((0 . \"XLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbXline\") (10 3. 3. 0.) (11 1. 0. 0.)))",
       "(10 11)", "((-1.0 6.0 0.0) (0.0 1.0 0.0))"},
      {"(entmake '((0 . \"RAY\") (100 . \"AcDbEntity\") (100 . \"AcDbRay\") (10 3. 3. 0.) (11 0. 1. 0.)))", "(10 11)",
       "((-1.0 6.0 0.0) (-1.0 0.0 0.0))"}};
  for (const Place& row : rows) {
    {
      AcDbEntityPointer entity(made(row.lisp), AcDb::kForWrite);
      ASSERT_EQ(entity->transformBy(matrix), Acad::eOk) << row.lisp;
    }
    EXPECT_EQ(session.eval(std::string("(vu '") + row.asked + ")"), row.expected) << row.lisp;
  }
}

// Boxes from analysis: where a curve bulges beyond its ends, and where a block's contents lie.
TEST_F(Transforms, BoxesFitWhatIsDrawn) {
  session.eval(
      "(progn (entmake '((0 . \"BLOCK\") (2 . \"B\") (70 . 0) (10 1. 0. 0.))) (entmake '((0 . \"LINE\") (10 1. 0. 0.) "
      "(11 4. 2. 0.))) (entmake '((0 . \"ENDBLK\"))))");
  const struct {
    std::string lisp;
    double x1, y1, x2, y2;
  } rows[] = {
      {"(entmake '((0 . \"ARC\") (10 0. 0. 0.) (40 . 5.) (50 . 0.6435011087932844) (51 . 2.498091544796509)))", -4, 3,
       4, 5},
      {"(entmake '((0 . \"CIRCLE\") (10 1. 2. 0.) (40 . 3.)))", -2, -1, 4, 5},
      // A circle on edge is a line from above.
      {"(entmake '((0 . \"CIRCLE\") (10 0. 0. 2.) (40 . 3.) (210 1. 0. 0.)))", 2, -3, 2, 3},
      {"(entmake '((0 . \"ELLIPSE\") (100 . \"AcDbEntity\") (100 . \"AcDbEllipse\") (10 0. 0. 0.) (11 3. 4. 0.) (210 "
       "0. 0. 1.) (40 . 0.5) (41 . 0.) (42 . 6.283185307179586)))",
       -std::hypot(3, 2), -std::hypot(4, 1.5), std::hypot(3, 2), std::hypot(4, 1.5)},
      // Half circles on either side of a chord.
      {"(entmake '((0 . \"LWPOLYLINE\") (100 . \"AcDbEntity\") (100 . \"AcDbPolyline\") (90 . 2) (70 . 1) (10 0. 0.) "
       "(42 . 1.) (10 4. 0.) (42 . 1.)))",
       0, -2, 4, 2},
      {"(entmake '((0 . \"INSERT\") (2 . \"B\") (10 10. 10. 0.) (41 . 2.) (42 . 2.) (43 . 2.)))", 10, 10, 16, 14},
      {"(entmake '((0 . \"INSERT\") (2 . \"B\") (10 0. 0. 0.) (50 . " + std::to_string(kPi) + ")))", -3, -2, 0, 0},
      // Two columns and three rows of it.
      {"(entmake '((0 . \"INSERT\") (2 . \"B\") (10 0. 0. 0.) (70 . 2) (71 . 3) (44 . 10.) (45 . 5.)))", 0, 0, 13, 12},
      {"(entmake '((0 . \"SOLID\") (10 0. 0. 0.) (11 3. 1. 0.) (12 1. 4. 0.) (13 2. 5. 0.)))", 0, 0, 3, 5}};
  for (const auto& row : rows) {
    AcDbEntityPointer entity(made(row.lisp), AcDb::kForRead);
    AcDbExtents box;
    ASSERT_EQ(entity->getGeomExtents(box), Acad::eOk) << row.lisp;
    EXPECT_NEAR(box.minPoint().x, row.x1, 1e-5) << row.lisp;
    EXPECT_NEAR(box.minPoint().y, row.y1, 1e-5) << row.lisp;
    EXPECT_NEAR(box.maxPoint().x, row.x2, 1e-5) << row.lisp;
    EXPECT_NEAR(box.maxPoint().y, row.y2, 1e-5) << row.lisp;
  }
}

}  // namespace
