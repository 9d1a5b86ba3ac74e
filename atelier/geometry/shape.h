// Operations on one piece of a curve, by its own parameter. Inner header of the room.
// A straight piece runs from 0 to 1, an elliptic one by its angle, a spline by its knots.
#pragma once
#include "atelier/geometry/curve.h"

namespace atelier {

// Nearer than this, in drawing units, two curves meet; one ten-thousandth of what a drawing shows.
constexpr double kMeetingTolerance = 1e-8;

double shapeStart(const Shape& shape);
double shapeEnd(const Shape& shape);
AcGePoint3d shapePoint(const Shape& shape, double own);
AcGeVector3d shapeDerivative(const Shape& shape, double own);
AcGeVector3d shapeSecondDerivative(const Shape& shape, double own);
double shapeLength(const Shape& shape, double from, double to);  // negative backwards on an endless side
double shapeParamAtLength(const Shape& shape, double length);    // from the start of the shape
// When a point of the shape is nearer than `best`: sets `best` to its distance, `own` to its parameter, answers true.
bool shapeNearest(const Shape& shape, const AcGePoint3d& point, double& best, double& own);
Box shapeBox(const Shape& shape);
// Half the integral of (p - origin) x dp along the shape, seen along the normal, a unit vector.
double shapeArea(const Shape& shape, const AcGePoint3d& origin, const AcGeVector3d& normal);
Shape shapeTransformed(const Shape& shape, const AcGeMatrix3d& matrix);
std::vector<Bezier> shapeBeziers(const Shape& shape);  // of a bounded shape
bool shapeIsFinite(const Shape& shape);
bool shapeIsEndless(const Shape& shape);

struct OwnCrossing {
  double first, second;
};
std::vector<OwnCrossing> shapeCrossings(const Shape& a, const Shape& b, double tolerance);

// The own parameter of a place on one of the shape's Bézier pieces.
double ownParam(const Shape& shape, const Bezier& piece, double u);

// The angle plus full turns such that it lies in the turn that begins at `from`; one less than `hair` below `from`
// counts as `from`.
double angleFrom(double from, double angle, double hair = 1e-9);

}  // namespace atelier
