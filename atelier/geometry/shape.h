// What can be asked of one piece of a curve, by its own parameter. Inner header of the room.
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
double shapeLength(const Shape& shape, double from, double to);  // negative backwards on an endless side
double shapeParamAtLength(const Shape& shape, double length);    // from the start of the shape
// Improves on a nearest point: the own parameter, and the distance when it is below `best`.
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

// An angle brought to the turn that begins at `from`; one a hair below it stays there.
double angleFrom(double from, double angle, double hair = 1e-9);

}  // namespace atelier
