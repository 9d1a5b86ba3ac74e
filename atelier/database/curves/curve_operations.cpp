// The host's operations on curve entities.
// The geometry room does the work; here its results become the host's results and status codes.
#include <algorithm>

#include "atelier/database/curves/curve_geometry.h"
#include "atelier/database/objects/imp_object.h"

using namespace atelier;

namespace {

constexpr double kOnCurve = 1e-7;     // a point nearer than this lies on the curve
constexpr double kSameParam = 1e-10;  // of the range of the parameter

// Calls f with the geometry; its optional result goes to `out`.
template <class T, class F>
Acad::ErrorStatus ask(const AcDbCurve* entity, T& out, F f) {
  const auto curve = curveOf(*entity);
  if (!curve) return Acad::eDegenerateGeometry;
  const auto answer = f(*curve);
  if (!answer) return Acad::eInvalidInput;
  out = *answer;
  return Acad::eOk;
}

bool endless(const Curve& curve, bool before) {
  const auto* s = std::get_if<Straight>(&(before ? curve.pieces().front() : curve.pieces().back()).shape);
  return s && (before ? s->endlessBefore : s->endlessAfter);
}

// Flattens along the normal of the plane onto it.
AcGeMatrix3d projection(const AcGePlane& plane) {
  AcGeMatrix3d flat;
  flat(2, 2) = 0;
  const AcGeMatrix3d toPlane = AcGeMatrix3d().setToWorldToPlane(plane.normal());
  return flat * toPlane;
}

// For a spline and itself: the points where it crosses itself.
Acad::ErrorStatus meet(const AcDbCurve* self, const AcDbEntity* entity, AcDb::Intersect mode, const AcGePlane* plane,
                       AcGePoint3dArray& points) {
  if (!entity) return Acad::eNullEntityPointer;
  const AcDbCurve* other = AcDbCurve::cast(entity);
  if (!other) return Acad::eNotApplicable;
  auto a = curveOf(*self), b = self == other ? a : curveOf(*other);
  if (!a || !b) return Acad::eDegenerateGeometry;
  const auto mine = a;
  const bool level = plane && plane->normal().x == 0 && plane->normal().y == 0 && plane->normal().z > 0;
  if (plane && !level) {
    a = a->transformed(projection(*plane));
    b = self == other ? a : b->transformed(projection(*plane));
    if (!a || !b) return Acad::eDegenerateGeometry;
  }
  const bool extendThis = mode == AcDb::kExtendThis || mode == AcDb::kExtendBoth;
  const bool extendOther = mode == AcDb::kExtendArg || mode == AcDb::kExtendBoth;
  const Curve &first = level ? a->inPlan() : *a, &second = level ? b->inPlan() : *b;
  for (const Crossing& c : first.crossings(second, extendThis, extendOther)) {
    const auto lifted = plane ? mine->pointAt(c.param) : std::nullopt;
    points.append(lifted ? *lifted : plane ? AcGeMatrix3d().setToPlaneToWorld(plane->normal()) * c.point : c.point);
  }
  return Acad::eOk;
}

}  // namespace

bool AcDbCurve::isClosed() const { return false; }

Acad::ErrorStatus AcDbCurve::getStartParam(double& param) const {
  const auto curve = curveOf(*this);
  if (!curve) return Acad::eDegenerateGeometry;
  if (endless(*curve, true)) return Acad::eNotApplicable;
  param = curve->startParam();
  return Acad::eOk;
}
Acad::ErrorStatus AcDbCurve::getEndParam(double& param) const {
  const auto curve = curveOf(*this);
  if (!curve) return Acad::eDegenerateGeometry;
  if (endless(*curve, false)) return Acad::eNotApplicable;
  param = curve->endParam();
  return Acad::eOk;
}
Acad::ErrorStatus AcDbCurve::getStartPoint(AcGePoint3d& point) const {
  double param = 0;
  const Acad::ErrorStatus status = getStartParam(param);
  return status == Acad::eOk ? getPointAtParam(param, point) : status;
}
Acad::ErrorStatus AcDbCurve::getEndPoint(AcGePoint3d& point) const {
  double param = 0;
  const Acad::ErrorStatus status = getEndParam(param);
  return status == Acad::eOk ? getPointAtParam(param, point) : status;
}
Acad::ErrorStatus AcDbCurve::getPointAtParam(double param, AcGePoint3d& point) const {
  return ask(this, point, [&](const Curve& c) { return c.pointAt(param); });
}
Acad::ErrorStatus AcDbCurve::getParamAtPoint(const AcGePoint3d& point, double& param) const {
  return ask(this, param, [&](const Curve& c) { return c.paramAt(point, kOnCurve); });
}
Acad::ErrorStatus AcDbCurve::getDistAtParam(double param, double& distance) const {
  return ask(this, distance, [&](const Curve& c) { return c.distanceAt(param); });
}
Acad::ErrorStatus AcDbCurve::getParamAtDist(double distance, double& param) const {
  return ask(this, param, [&](const Curve& c) { return c.paramAtDistance(distance); });
}
Acad::ErrorStatus AcDbCurve::getDistAtPoint(const AcGePoint3d& point, double& distance) const {
  double param = 0;
  const Acad::ErrorStatus status = getParamAtPoint(point, param);
  return status == Acad::eOk ? getDistAtParam(param, distance) : status;
}
Acad::ErrorStatus AcDbCurve::getPointAtDist(double distance, AcGePoint3d& point) const {
  double param = 0;
  const Acad::ErrorStatus status = getParamAtDist(distance, param);
  return status == Acad::eOk ? getPointAtParam(param, point) : status;
}
Acad::ErrorStatus AcDbCurve::getFirstDeriv(double param, AcGeVector3d& derivative) const {
  return ask(this, derivative, [&](const Curve& c) { return c.derivativeAt(param); });
}
Acad::ErrorStatus AcDbCurve::getSecondDeriv(double param, AcGeVector3d& derivative) const {
  return ask(this, derivative, [&](const Curve& c) { return c.secondDerivativeAt(param); });
}
Acad::ErrorStatus AcDbCurve::getClosestPointTo(const AcGePoint3d& point, AcGePoint3d& onCurve, bool extend) const {
  return ask(this, onCurve, [&](const Curve& c) -> std::optional<AcGePoint3d> {
    if (!std::isfinite(point.x + point.y + point.z)) return std::nullopt;
    return c.closest(point, extend).point;
  });
}
Acad::ErrorStatus AcDbCurve::getArea(double& area) const {
  if (AcDbLine::cast(this) || AcDbRay::cast(this) || AcDbXline::cast(this)) return Acad::eNotApplicable;
  return ask(this, area, [](const Curve& c) { return c.area(); });
}

Acad::ErrorStatus AcDbCurve::intersectWith(const AcDbEntity* entity, AcDb::Intersect mode, AcGePoint3dArray& points,
                                           Adesk::GsMarker, Adesk::GsMarker) const {
  return meet(this, entity, mode, nullptr, points);
}
Acad::ErrorStatus AcDbCurve::intersectWith(const AcDbEntity* entity, AcDb::Intersect mode, const AcGePlane& plane,
                                           AcGePoint3dArray& points, Adesk::GsMarker, Adesk::GsMarker) const {
  return meet(this, entity, mode, &plane, points);
}

Acad::ErrorStatus AcDbCurve::getSpline(AcDbSpline*& spline) const {
  const auto curve = curveOf(*this);
  if (!curve) return Acad::eDegenerateGeometry;
  const auto data = curve->toNurbs();
  if (!data) return Acad::eNotApplicable;
  auto made = splineOf(*data);
  made->setPropertiesFrom(this);
  spline = made.release();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getSplitCurves(const AcGeDoubleArray& params, AcArray<AcDbCurve*>& curves) const {
  const auto curve = curveOf(*this);
  if (!curve) return Acad::eDegenerateGeometry;
  const bool before = endless(*curve, true), after = endless(*curve, false);
  const double start = curve->startParam(), end = curve->endParam();
  const double hair = kSameParam * std::max(1.0, end - start);
  std::vector<double> inner(params.begin(), params.end());
  const auto outside = [&](double t) {
    return !std::isfinite(t) || (t <= start + hair && !before) || (t >= end - hair && !after);
  };
  inner.erase(std::remove_if(inner.begin(), inner.end(), outside), inner.end());
  std::sort(inner.begin(), inner.end());
  inner.erase(std::unique(inner.begin(), inner.end(), [&](double a, double b) { return b - a <= hair; }), inner.end());
  if (inner.empty()) return Acad::eInvalidInput;
  auto parts = partsOf(*this, inner);
  if (parts.empty()) return Acad::eInvalidInput;
  for (auto& part : parts) curves.append(part.release());
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCurve::getSplitCurves(const AcGePoint3dArray& points, AcArray<AcDbCurve*>& curves) const {
  AcGeDoubleArray params;
  for (const AcGePoint3d& point : points) {
    double param = 0;
    const Acad::ErrorStatus status = getParamAtPoint(point, param);
    if (status != Acad::eOk) return status;
    params.append(param);
  }
  return getSplitCurves(params, curves);
}
