// Lines, rays, circles, arcs and ellipses.
// Centres of circles and arcs are stored in the plane of the entity and given in the world.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/curves/plane.h"
#include "atelier/database/objects/new_record.h"
#include "atelier/geometry/turns.h"
#include "hote/dbents.h"

using namespace atelier;

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kDegree = std::numbers::pi / 180;

constexpr Field kLineStart = pointField("AcDbLine", 10), kLineEnd = pointField("AcDbLine", 11);
constexpr Field kRayBase = pointField("AcDbRay", 10), kRayDir = pointField("AcDbRay", 11);
constexpr Field kXlineBase = pointField("AcDbXline", 10), kXlineDir = pointField("AcDbXline", 11);
constexpr Field kCentre = pointField("AcDbCircle", 10), kRadius = realField("AcDbCircle", 40);
constexpr Field kStartAngle = realField("AcDbArc", 50), kEndAngle = realField("AcDbArc", 51);
constexpr Field kEllipseCentre = pointField("AcDbEllipse", 10), kMajor = pointField("AcDbEllipse", 11);
constexpr Field kRatio = realField("AcDbEllipse", 40, 1), kFrom = realField("AcDbEllipse", 41),
                kTo = realField("AcDbEllipse", 42, kTurn);

const Record& recordOf(const AcDbObject* object) { return AcDbImpObject::of(object).record; }
AcDbImpObject& impOf(AcDbObject* object) { return AcDbImpObject::of(object); }

double turned(double angle) {
  angle = std::fmod(angle, kTurn);
  return angle < 0 ? angle + kTurn : angle;
}

}  // namespace

AcDbLine::AcDbLine() { initRecord(*this, "LINE"); }
AcDbLine::AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) : AcDbLine() {
  setStartPoint(start);
  setEndPoint(end);
}
AcGePoint3d AcDbLine::startPoint() const { return recordOf(this).point(kLineStart); }
AcGePoint3d AcDbLine::endPoint() const { return recordOf(this).point(kLineEnd); }
Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& p) { return impOf(this).setPoint(kLineStart, p); }
Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& p) { return impOf(this).setPoint(kLineEnd, p); }
AcGeVector3d AcDbLine::normal() const { return normalOf(recordOf(this), "AcDbLine"); }
Acad::ErrorStatus AcDbLine::getStartPoint(AcGePoint3d& p) const {
  p = startPoint();
  return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::getEndPoint(AcGePoint3d& p) const {
  p = endPoint();
  return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::subGetGeomExtents(AcDbExtents& extents) const {
  extents = AcDbExtents();
  extents.addPoint(startPoint());
  extents.addPoint(endPoint());
  return Acad::eOk;
}
Acad::ErrorStatus AcDbLine::transformBy(const AcGeMatrix3d& m) {
  const Acad::ErrorStatus status = setStartPoint(m * startPoint());
  return status != Acad::eOk ? status : setEndPoint(m * endPoint());
}

#define ATELIER_UNBOUNDED(CLASS, TYPE, BASE, DIRECTION)                                                 \
  CLASS::CLASS() { initRecord(*this, TYPE); }                                                           \
  AcGePoint3d CLASS::basePoint() const { return recordOf(this).point(BASE); }                           \
  AcGeVector3d CLASS::unitDir() const { return recordOf(this).point(DIRECTION).asVector(); }            \
  Acad::ErrorStatus CLASS::setBasePoint(const AcGePoint3d& p) { return impOf(this).setPoint(BASE, p); } \
  Acad::ErrorStatus CLASS::setUnitDir(const AcGeVector3d& d) {                                          \
    if (d.isZeroLength()) return Acad::eInvalidInput;                                                   \
    return impOf(this).setPoint(DIRECTION, AcGePoint3d() + d.normal());                                 \
  }                                                                                                     \
  Acad::ErrorStatus CLASS::transformBy(const AcGeMatrix3d& m) {                                         \
    const AcGeVector3d d = m * unitDir();                                                               \
    const Acad::ErrorStatus status = setBasePoint(m * basePoint());                                     \
    return status != Acad::eOk ? status : setUnitDir(d);                                                \
  }
ATELIER_UNBOUNDED(AcDbRay, "RAY", kRayBase, kRayDir)
ATELIER_UNBOUNDED(AcDbXline, "XLINE", kXlineBase, kXlineDir)
#undef ATELIER_UNBOUNDED

namespace {

Acad::ErrorStatus setCentre(AcDbObject* object, const AcGePoint3d& world) {
  return impOf(object).setPoint(kCentre, toPlane(world, normalOf(recordOf(object), "AcDbCircle")));
}
AcGePoint3d centreOf(const AcDbObject* object) {
  return toWorld(recordOf(object).point(kCentre), normalOf(recordOf(object), "AcDbCircle"));
}
void setNormal(AcDbObject* object, const AcGeVector3d& normal) {
  if (!isWorldPlane(normal)) impOf(object).setPoint(normalField("AcDbCircle"), AcGePoint3d() + normal.normal());
}
AcDbExtents circleExtents(const AcDbObject* object, double from, double to) {
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(normalOf(recordOf(object), "AcDbCircle"));
  const double r = recordOf(object).real(kRadius);
  return ellipseExtents(centreOf(object), plane * AcGeVector3d(r, 0, 0), plane * AcGeVector3d(0, r, 0), from, to);
}
// A circle remains a circle under a uniform scale; under any other scale it gets the mean radius.
Acad::ErrorStatus transformCircle(AcDbObject* object, const AcGeMatrix3d& m) {
  if (!impOf(object).writable()) return Acad::eNotOpenForWrite;
  const PlaneChange change(m, normalOf(recordOf(object), "AcDbCircle"));
  const AcGePoint3d centre = m * centreOf(object);
  impOf(object).setReal(kRadius, recordOf(object).real(kRadius) * change.scale);
  if (!isWorldPlane(change.normal) || recordOf(object).has(normalField("AcDbCircle")))
    impOf(object).setPoint(normalField("AcDbCircle"), AcGePoint3d() + change.normal);
  return setCentre(object, centre);
}

}  // namespace

AcDbCircle::AcDbCircle() { initRecord(*this, "CIRCLE"); }
AcDbCircle::AcDbCircle(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius) : AcDbCircle() {
  setNormal(this, normal);
  ::setCentre(this, centre);
  setRadius(radius);
}
AcGePoint3d AcDbCircle::center() const { return centreOf(this); }
double AcDbCircle::radius() const { return recordOf(this).real(kRadius); }
AcGeVector3d AcDbCircle::normal() const { return normalOf(recordOf(this), "AcDbCircle"); }
Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& p) { return ::setCentre(this, p); }
Acad::ErrorStatus AcDbCircle::setRadius(double r) { return impOf(this).setReal(kRadius, r); }
Acad::ErrorStatus AcDbCircle::getArea(double& area) const {
  area = std::numbers::pi * radius() * radius();
  return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::subGetGeomExtents(AcDbExtents& extents) const {
  extents = circleExtents(this, 0, kTurn);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbCircle::transformBy(const AcGeMatrix3d& m) { return transformCircle(this, m); }

AcDbArc::AcDbArc() { initRecord(*this, "ARC"); }
AcDbArc::AcDbArc(const AcGePoint3d& centre, double radius, double startAngle, double endAngle)
    : AcDbArc(centre, AcGeVector3d(0, 0, 1), radius, startAngle, endAngle) {}
AcDbArc::AcDbArc(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius, double startAngle,
                 double endAngle)
    : AcDbArc() {
  ::setNormal(this, normal);
  ::setCentre(this, centre);
  setRadius(radius);
  setStartAngle(startAngle);
  setEndAngle(endAngle);
}
AcGePoint3d AcDbArc::center() const { return centreOf(this); }
double AcDbArc::radius() const { return recordOf(this).real(kRadius); }
double AcDbArc::startAngle() const { return recordOf(this).real(kStartAngle) * kDegree; }
double AcDbArc::endAngle() const { return recordOf(this).real(kEndAngle) * kDegree; }
double AcDbArc::totalAngle() const { return sweepBetween(startAngle(), endAngle()); }
AcGeVector3d AcDbArc::normal() const { return normalOf(recordOf(this), "AcDbCircle"); }
Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& p) { return ::setCentre(this, p); }
Acad::ErrorStatus AcDbArc::setRadius(double r) { return impOf(this).setReal(kRadius, r); }
Acad::ErrorStatus AcDbArc::setStartAngle(double a) { return impOf(this).setReal(kStartAngle, turned(a) / kDegree); }
Acad::ErrorStatus AcDbArc::setEndAngle(double a) { return impOf(this).setReal(kEndAngle, turned(a) / kDegree); }
Acad::ErrorStatus AcDbArc::getStartPoint(AcGePoint3d& p) const {
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(normal());
  p = center() + plane * AcGeVector3d(radius() * std::cos(startAngle()), radius() * std::sin(startAngle()), 0);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::getEndPoint(AcGePoint3d& p) const {
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(normal());
  p = center() + plane * AcGeVector3d(radius() * std::cos(endAngle()), radius() * std::sin(endAngle()), 0);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::subGetGeomExtents(AcDbExtents& extents) const {
  extents = circleExtents(this, startAngle(), startAngle() + totalAngle());
  return Acad::eOk;
}
Acad::ErrorStatus AcDbArc::transformBy(const AcGeMatrix3d& m) {
  const PlaneChange change(m, normal());
  const double from = startAngle(), to = endAngle();
  const Acad::ErrorStatus status = transformCircle(this, m);
  if (status != Acad::eOk) return status;
  setStartAngle(change.mirrored ? change.turn - to : from + change.turn);
  return setEndAngle(change.mirrored ? change.turn - from : to + change.turn);
}

AcDbEllipse::AcDbEllipse() { initRecord(*this, "ELLIPSE"); }
AcDbEllipse::AcDbEllipse(const AcGePoint3d& centre, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                         double radiusRatio, double startAngle, double endAngle)
    : AcDbEllipse() {
  AcDbImpObject& imp = impOf(this);
  imp.setPoint(kEllipseCentre, centre);
  imp.setPoint(kMajor, AcGePoint3d() + majorAxis);
  imp.setPoint(normalField("AcDbEllipse"), AcGePoint3d() + normal.normal());
  imp.setReal(kRatio, radiusRatio);
  imp.setReal(kFrom, startAngle);
  imp.setReal(kTo, endAngle);
}
AcGePoint3d AcDbEllipse::center() const { return recordOf(this).point(kEllipseCentre); }
AcGeVector3d AcDbEllipse::majorAxis() const { return recordOf(this).point(kMajor).asVector(); }
AcGeVector3d AcDbEllipse::normal() const { return normalOf(recordOf(this), "AcDbEllipse"); }
double AcDbEllipse::radiusRatio() const { return recordOf(this).real(kRatio); }
double AcDbEllipse::startParam() const { return recordOf(this).real(kFrom); }
double AcDbEllipse::endParam() const { return recordOf(this).real(kTo); }
bool AcDbEllipse::isClosed() const { return sweepBetween(startParam(), endParam()) > kTurn - 1e-9; }
Acad::ErrorStatus AcDbEllipse::subGetGeomExtents(AcDbExtents& extents) const {
  const AcGeVector3d minor = normal().normal().crossProduct(majorAxis()) * radiusRatio();
  const double from = startParam();
  extents = ellipseExtents(center(), majorAxis(), minor, from, from + sweepBetween(from, endParam()));
  return Acad::eOk;
}
Acad::ErrorStatus AcDbEllipse::transformBy(const AcGeMatrix3d& m) {
  AcDbImpObject& imp = impOf(this);
  if (!imp.writable()) return Acad::eNotOpenForWrite;
  // Conjugate half diameters after the transform; the axes are found from them.
  const AcGeVector3d minor = normal().normal().crossProduct(majorAxis()) * radiusRatio();
  const AcGeVector3d u = m * majorAxis(), v = m * minor;
  const AcGePoint3d centre = m * center();
  const double t = 0.5 * std::atan2(2 * u.dotProduct(v), u.dotProduct(u) - v.dotProduct(v));
  const AcGeVector3d a = u * std::cos(t) + v * std::sin(t), b = v * std::cos(t) - u * std::sin(t);
  const AcGeVector3d n = u.crossProduct(v);
  if (a.length() == 0 || n.isZeroLength()) return Acad::eDegenerateGeometry;
  imp.setPoint(kEllipseCentre, centre);
  imp.setPoint(kMajor, AcGePoint3d() + a);
  imp.setReal(kRatio, b.length() / a.length());
  imp.setPoint(normalField("AcDbEllipse"), AcGePoint3d() + n.normal());
  if (!isClosed()) {
    const double from = startParam() - t, to = endParam() - t;
    imp.setReal(kFrom, turned(from));
    imp.setReal(kTo, turned(from) + (to - from));
  }
  return Acad::eOk;
}
