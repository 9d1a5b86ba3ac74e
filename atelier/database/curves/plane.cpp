// The effect of a matrix on the plane of an entity, and extents.
// Extents are boxes in world coordinates; an empty one has its minimum above its maximum.
#include "atelier/database/curves/plane.h"

#include "hote/adaptation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace atelier {

namespace {

// The same angle between 0 and a full turn.
double turn(double angle) {
  constexpr double kTurn = 2 * std::numbers::pi;
  angle = std::fmod(angle, kTurn);
  return angle < 0 ? angle + kTurn : angle;
}

}  // namespace

AcDbExtents ellipseExtents(const AcGePoint3d& c, const AcGeVector3d& u, const AcGeVector3d& v, double a, double b) {
  AcDbExtents box;
  const auto at = [&](double t) { return c + u * std::cos(t) + v * std::sin(t); };
  box.addPoint(at(a));
  box.addPoint(at(b));
  const double axes[3][2] = {{u.x, v.x}, {u.y, v.y}, {u.z, v.z}};
  for (const auto& axis : axes) {
    const double extreme = std::atan2(axis[1], axis[0]);
    for (const double t : {extreme, extreme + std::numbers::pi})
      if (turn(t - a) <= b - a) box.addPoint(at(t));
  }
  return box;
}

PlaneChange::PlaneChange(const AcGeMatrix3d& matrix, const AcGeVector3d& before) {
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(before);
  const AcGeVector3d x = matrix * (plane * AcGeVector3d(1, 0, 0)), y = matrix * (plane * AcGeVector3d(0, 1, 0));
  const AcGeVector3d z = matrix * (plane * AcGeVector3d(0, 0, 1));
  normal = x.crossProduct(y).normal();
  // A mirror within the plane keeps the normal and reverses the sense of angles.
  mirrored = normal.dotProduct(z) < 0;
  if (mirrored) normal = -normal;
  const AcGeVector3d xIn = AcGeMatrix3d().setToWorldToPlane(normal) * x;
  turn = std::atan2(xIn.y, xIn.x);
  scale = std::sqrt(std::max(0.0, x.crossProduct(y).length()));
}

double PlaneChange::stretchAlong(const AcGeMatrix3d& matrix, const AcGeVector3d& before, double angle) {
  const AcGeMatrix3d plane = AcGeMatrix3d().setToPlaneToWorld(before);
  const AcGeVector3d u = matrix * (plane * AcGeVector3d(std::cos(angle), std::sin(angle), 0)),
                     v = matrix * (plane * AcGeVector3d(-std::sin(angle), std::cos(angle), 0));
  const double wide = u.length(), area = u.crossProduct(v).length();
  constexpr double kEven = 1e-9;
  if (!(wide > 0) || !(area > 0) || std::abs(wide * wide - area) <= kEven * area) return 1;
  const AcGeVector3d in = AcGeMatrix3d().setToWorldToPlane(normal) * u;
  const double after = std::atan2(in.y, in.x);
  turn = mirrored ? after + angle : after - angle;
  scale = area / wide;
  return wide * wide / area;
}

double textAngle(const PlaneChange& change, double before) {
  if (!change.mirrored) return before + change.turn;
  const auto readable = [](double angle) { return std::cos(angle) > -1e-9; };
  constexpr double kTurn = 2 * std::numbers::pi;
  double angle = change.turn - before;
  if (readable(before) && !readable(angle)) angle += std::numbers::pi;
  angle -= kTurn * std::floor(angle / kTurn);
  return kTurn - angle < 1e-12 ? 0 : angle;
}

}  // namespace atelier

AcDbExtents::AcDbExtents() {
  constexpr double kFar = std::numeric_limits<double>::max();
  mMin = AcGePoint3d(kFar, kFar, kFar);
  mMax = AcGePoint3d(-kFar, -kFar, -kFar);
}
Acad::ErrorStatus AcDbExtents::set(const AcGePoint3d& low, const AcGePoint3d& high) {
  if (low.x > high.x || low.y > high.y || low.z > high.z) return Acad::eInvalidInput;
  mMin = low;
  mMax = high;
  return Acad::eOk;
}
void AcDbExtents::addPoint(const AcGePoint3d& p) {
  mMin = AcGePoint3d(std::min(mMin.x, p.x), std::min(mMin.y, p.y), std::min(mMin.z, p.z));
  mMax = AcGePoint3d(std::max(mMax.x, p.x), std::max(mMax.y, p.y), std::max(mMax.z, p.z));
}
void AcDbExtents::addExt(const AcDbExtents& other) {
  if (adaptation::isEmpty(other)) return;
  addPoint(other.mMin);
  addPoint(other.mMax);
}
void AcDbExtents::transformBy(const AcGeMatrix3d& matrix) {
  if (adaptation::isEmpty(*this)) return;
  AcDbExtents box;
  for (int corner = 0; corner < 8; ++corner)
    box.addPoint(matrix *
                 AcGePoint3d(corner & 1 ? mMax.x : mMin.x, corner & 2 ? mMax.y : mMin.y, corner & 4 ? mMax.z : mMin.z));
  *this = box;
}
