// The host's planes, lines and B-spline curves over the room's own.
// An empty curve answers with zeros, the origin and empty arrays.
#include "hote/gecurve.h"

#include <cmath>

#include "atelier/geometry/curve.h"

namespace {

using atelier::Curve;
using atelier::Nurbs;

template <class T>
std::vector<T> listOf(const AcArray<T>& array) {
  return {array.begin(), array.end()};
}

Nurbs nurbsOf(const AcGeNurbCurve3d& curve) {
  Nurbs out;
  bool rational = false, periodic = false;
  AcGeKnotVector knots;
  AcGePoint3dArray points;
  AcGeDoubleArray weights;
  curve.getDefinitionData(out.degree, rational, periodic, knots, points, weights);
  for (int i = 0; i < knots.length(); ++i) out.knots.push_back(knots[i]);
  out.points = listOf(points);
  out.weights = listOf(weights);
  return out;
}

AcGeNurbCurve3d curveOf(const Nurbs& data) {
  AcGeKnotVector knots;
  AcGePoint3dArray points;
  AcGeDoubleArray weights;
  for (const double k : data.knots) knots.append(k);
  for (const AcGePoint3d& p : data.points) points.append(p);
  for (const double w : data.weights) weights.append(w);
  return weights.isEmpty() ? AcGeNurbCurve3d(data.degree, knots, points)
                           : AcGeNurbCurve3d(data.degree, knots, points, weights);
}

std::shared_ptr<const Curve> geometryOf(const AcGeNurbCurve3d& curve) {
  const auto shape = atelier::splineShape(nurbsOf(curve));
  if (!shape) return nullptr;
  return Curve::of({{*shape, shape->pieces->front().from, shape->pieces->back().to}}, false);
}

// Upwards: the last ordinate that is not zero is positive.
AcGeVector3d upwards(const AcGeVector3d& n) {
  const double e = 1e-12;
  const bool down = n.z < -e || (std::abs(n.z) <= e && (n.y < -e || (std::abs(n.y) <= e && n.x < 0)));
  return down ? -n : n;
}

// Normal of the points, by the widest triangle on the first point; nothing for points in one place.
AcGeVector3d normalOf(const std::vector<AcGePoint3d>& points, double size) {
  const AcGePoint3d origin = points.front();
  AcGeVector3d along, normal;
  for (const AcGePoint3d& p : points)
    if ((p - origin).length() > along.length()) along = p - origin;
  for (const AcGePoint3d& p : points) {
    const AcGeVector3d n = along.crossProduct(p - origin);
    if (n.length() > normal.length()) normal = n;
  }
  if (normal.length() > 1e-10 * size * size) return upwards(normal.normal());
  // Straight: the plane that is nearest to level.
  const AcGeVector3d level = along.crossProduct(AcGeVector3d::kZAxis);
  return level.length() > 1e-10 * size ? upwards(level.crossProduct(along).normal()) : AcGeVector3d::kYAxis;
}

}  // namespace

const AcGePlane AcGePlane::kXYPlane;

void AcGePlane::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& axis1, AcGeVector3d& axis2) const {
  const AcGeMatrix3d toWorld = AcGeMatrix3d().setToPlaneToWorld(mNormal);
  origin = mOrigin;
  axis1 = toWorld * AcGeVector3d::kXAxis;
  axis2 = toWorld * AcGeVector3d::kYAxis;
}

AcGePoint2d AcGePoint3d::convert2d(const AcGePlane& plane) const {
  AcGePoint3d origin;
  AcGeVector3d axis1, axis2;
  plane.getCoordSystem(origin, axis1, axis2);
  const AcGeVector3d d = *this - origin;
  return {d.dotProduct(axis1), d.dotProduct(axis2)};
}

bool AcGeLine2d::intersectWith(const AcGeLine2d& line, AcGePoint2d& intersection, const AcGeTol& tol) const {
  const AcGeVector2d gap = line.mPoint - mPoint, v = line.mDirection;
  const double cross = mDirection.x * v.y - mDirection.y * v.x;
  if (!(std::abs(cross) > tol.equalVector() * mDirection.length() * v.length())) return false;
  intersection = mPoint + mDirection * ((gap.x * v.y - gap.y * v.x) / cross);
  return true;
}

AcGeNurbCurve3d::AcGeNurbCurve3d(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& controlPoints, bool)
    : mDegree(degree), mKnots(knots), mPoints(controlPoints) {}
AcGeNurbCurve3d::AcGeNurbCurve3d(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& controlPoints,
                                 const AcGeDoubleArray& weights, bool)
    : mDegree(degree), mKnots(knots), mPoints(controlPoints), mWeights(weights) {}

void AcGeNurbCurve3d::getDefinitionData(int& degree, bool& rational, bool& periodic, AcGeKnotVector& knots,
                                        AcGePoint3dArray& controlPoints, AcGeDoubleArray& weights) const {
  degree = mDegree;
  rational = isRational();
  periodic = false;
  knots = mKnots;
  controlPoints = mPoints;
  weights = mWeights;
}

AcGeNurbCurve3d& AcGeNurbCurve3d::joinWith(const AcGeNurbCurve3d& curve) {
  const Nurbs both = atelier::joined(nurbsOf(*this), nurbsOf(curve));
  if (!both.points.empty()) *this = curveOf(both);
  return *this;
}
AcGeNurbCurve3d& AcGeNurbCurve3d::hardTrimByParams(double fromParam, double toParam) {
  const Nurbs part = atelier::partOf(nurbsOf(*this), fromParam, toParam);
  if (!part.points.empty()) *this = curveOf(part);
  return *this;
}
AcGeNurbCurve3d& AcGeNurbCurve3d::reverseParam() {
  const Nurbs back = atelier::reversed(nurbsOf(*this));
  if (!back.points.empty()) *this = curveOf(back);
  return *this;
}

double AcGeNurbCurve3d::startParam() const {
  const Nurbs data = nurbsOf(*this);
  return atelier::makesSense(data) ? atelier::firstParameter(data) : 0;
}
double AcGeNurbCurve3d::endParam() const {
  const Nurbs data = nurbsOf(*this);
  return atelier::makesSense(data) ? atelier::lastParameter(data) : 0;
}
AcGePoint3d AcGeNurbCurve3d::evalPoint(double param) const {
  const auto curve = geometryOf(*this);
  const auto point = curve ? curve->pointAt(param) : std::nullopt;
  return point.value_or(AcGePoint3d::kOrigin);
}
double AcGeNurbCurve3d::length(double fromParam, double toParam) const {
  const auto curve = geometryOf(*this);
  if (!curve) return 0;
  return curve->distanceAt(toParam).value_or(0) - curve->distanceAt(fromParam).value_or(0);
}

void AcGeNurbCurve3d::getSamplePoints(double fromParam, double toParam, double approxEps, AcGePoint3dArray& points,
                                      AcGeDoubleArray& params) const {
  points.removeAll();
  params.removeAll();
  std::vector<double> parameters;
  const Nurbs data = nurbsOf(*this);
  const bool whole = fromParam <= startParam() && toParam >= endParam();
  for (const AcGePoint3d& p :
       atelier::sampleNurbs(whole ? data : atelier::partOf(data, fromParam, toParam), approxEps, &parameters))
    points.append(p);
  for (const double t : parameters) params.append(t);
}

void AcGeNurbCurve3d::getSamplePoints(int numSample, AcGePoint3dArray& points) const {
  points.removeAll();
  const auto curve = geometryOf(*this);
  if (!curve || numSample < 2) return;
  const double from = curve->startParam(), to = curve->endParam();
  for (int i = 0; i < numSample; ++i)
    if (const auto p = curve->pointAt(i + 1 == numSample ? to : from + (to - from) * i / (numSample - 1)))
      points.append(*p);
}

bool AcGeNurbCurve3d::isPlanar(AcGePlane& plane, const AcGeTol& tol) const {
  const Nurbs data = nurbsOf(*this);
  if (!atelier::makesSense(data)) return false;
  double size = 0;
  for (const AcGePoint3d& p : data.points) size = std::max(size, p.distanceTo(data.points.front()));
  if (size <= tol.equalPoint()) return false;
  const AcGeVector3d normal = normalOf(data.points, size);
  for (const AcGePoint3d& p : data.points)
    if (std::abs(normal.dotProduct(p - data.points.front())) > std::max(tol.equalPoint(), 1e-10 * size)) return false;
  plane = AcGePlane(data.points.front(), normal);
  return true;
}
