// The host's vectors and matrices: what its headers only declare.
// Reference for the plane of an entity: DXF reference, "Arbitrary axis algorithm".
#include "hote/ge.h"

#include <numbers>
#include <utility>

AcGeTol AcGeContext::gTol;

const AcGeVector3d AcGeVector3d::kIdentity(0, 0, 0);
const AcGeVector3d AcGeVector3d::kXAxis(1, 0, 0);
const AcGeVector3d AcGeVector3d::kYAxis(0, 1, 0);
const AcGeVector3d AcGeVector3d::kZAxis(0, 0, 1);
const AcGePoint3d AcGePoint3d::kOrigin(0, 0, 0);
const AcGeMatrix3d AcGeMatrix3d::kIdentity;

namespace {

double positiveAngle(double angle) { return angle < 0 ? angle + 2 * std::numbers::pi : angle; }

}  // namespace

double AcGeVector2d::angle() const { return positiveAngle(std::atan2(y, x)); }

double AcGeVector3d::angleTo(const AcGeVector3d& v, const AcGeVector3d& reference) const {
  const AcGeVector3d across = crossProduct(v);
  const double angle = std::atan2(across.length(), dotProduct(v));
  return across.dotProduct(reference) < 0 ? 2 * std::numbers::pi - angle : angle;
}

AcGeVector3d& AcGeVector3d::rotateBy(double angle, const AcGeVector3d& axis) {
  return transformBy(AcGeMatrix3d::rotation(angle, axis));
}

AcGePoint3d& AcGePoint3d::rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre) {
  return transformBy(AcGeMatrix3d::rotation(angle, axis, centre));
}

AcGeMatrix3d::AcGeMatrix3d() { setToIdentity(); }

AcGeMatrix3d& AcGeMatrix3d::setToIdentity() {
  for (int r = 0; r < 4; ++r)
    for (int c = 0; c < 4; ++c) entry[r][c] = r == c ? 1.0 : 0.0;
  return *this;
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& right) const {
  AcGeMatrix3d product;
  for (int r = 0; r < 4; ++r)
    for (int c = 0; c < 4; ++c) {
      double sum = 0;
      for (int k = 0; k < 4; ++k) sum += entry[r][k] * right.entry[k][c];
      product.entry[r][c] = sum;
    }
  return product;
}

AcGePoint3d AcGeMatrix3d::operator*(const AcGePoint3d& p) const {
  const auto row = [&](int r) { return entry[r][0] * p.x + entry[r][1] * p.y + entry[r][2] * p.z + entry[r][3]; };
  return {row(0), row(1), row(2)};
}

AcGeVector3d AcGeMatrix3d::operator*(const AcGeVector3d& v) const {
  const auto row = [&](int r) { return entry[r][0] * v.x + entry[r][1] * v.y + entry[r][2] * v.z; };
  return {row(0), row(1), row(2)};
}

double AcGeMatrix3d::det() const {
  const auto& e = entry;
  return e[0][0] * (e[1][1] * e[2][2] - e[1][2] * e[2][1]) - e[0][1] * (e[1][0] * e[2][2] - e[1][2] * e[2][0]) +
         e[0][2] * (e[1][0] * e[2][1] - e[1][1] * e[2][0]);
}

bool AcGeMatrix3d::isSingular(const AcGeTol& tol) const { return std::abs(det()) <= tol.equalVector(); }

AcGeMatrix3d AcGeMatrix3d::inverse() const {
  const double d = det();
  AcGeMatrix3d result;
  if (d == 0) return result;
  const auto& e = entry;
  for (int r = 0; r < 3; ++r)
    for (int c = 0; c < 3; ++c) {
      // Cofactor of (c, r): cyclic indices give it the right sign.
      const int r1 = (c + 1) % 3, r2 = (c + 2) % 3, c1 = (r + 1) % 3, c2 = (r + 2) % 3;
      result.entry[r][c] = (e[r1][c1] * e[r2][c2] - e[r1][c2] * e[r2][c1]) / d;
    }
  const AcGeVector3d moved = result * AcGeVector3d(e[0][3], e[1][3], e[2][3]);
  result.entry[0][3] = -moved.x;
  result.entry[1][3] = -moved.y;
  result.entry[2][3] = -moved.z;
  return result;
}

AcGeMatrix3d& AcGeMatrix3d::setToTranslation(const AcGeVector3d& v) {
  setToIdentity();
  entry[0][3] = v.x;
  entry[1][3] = v.y;
  entry[2][3] = v.z;
  return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToRotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre) {
  const AcGeVector3d u = axis.normal();
  const double c = std::cos(angle), s = std::sin(angle), t = 1 - c;
  AcGeMatrix3d r;
  const double rows[3][3] = {{t * u.x * u.x + c, t * u.x * u.y - s * u.z, t * u.x * u.z + s * u.y},
                             {t * u.x * u.y + s * u.z, t * u.y * u.y + c, t * u.y * u.z - s * u.x},
                             {t * u.x * u.z - s * u.y, t * u.y * u.z + s * u.x, t * u.z * u.z + c}};
  for (int i = 0; i < 3; ++i)
    for (int k = 0; k < 3; ++k) r.entry[i][k] = rows[i][k];
  *this = translation(centre.asVector()) * r * translation(-centre.asVector());
  return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(double scale, const AcGePoint3d& centre) {
  AcGeMatrix3d s;
  for (int i = 0; i < 3; ++i) s.entry[i][i] = scale;
  *this = translation(centre.asVector()) * s * translation(-centre.asVector());
  return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToPlaneToWorld(const AcGeVector3d& normal) {
  constexpr double kNearZ = 1.0 / 64.0;
  const AcGeVector3d z = normal.normal();
  const bool steep = std::abs(z.x) < kNearZ && std::abs(z.y) < kNearZ;
  const AcGeVector3d x = (steep ? AcGeVector3d(0, 1, 0) : AcGeVector3d(0, 0, 1)).crossProduct(z).normal();
  const AcGeVector3d y = z.crossProduct(x).normal();
  setToIdentity();
  const AcGeVector3d axes[3] = {x, y, z};
  for (int c = 0; c < 3; ++c) {
    entry[0][c] = axes[c].x;
    entry[1][c] = axes[c].y;
    entry[2][c] = axes[c].z;
  }
  return *this;
}

AcGeMatrix3d& AcGeMatrix3d::setToWorldToPlane(const AcGeVector3d& normal) {
  setToPlaneToWorld(normal);
  for (int r = 0; r < 3; ++r)
    for (int c = r + 1; c < 3; ++c) std::swap(entry[r][c], entry[c][r]);
  return *this;
}

AcGeCircArc2d::AcGeCircArc2d(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c) {
  // Perpendicular bisectors, with a as the origin.
  const AcGeVector2d u = b - a, v = c - a;
  const double d = 2 * (u.x * v.y - u.y * v.x);
  if (std::abs(d) <= 1e-14 * (u.dotProduct(u) + v.dotProduct(v))) {
    mCentre = a;
    return;
  }
  const double uu = u.dotProduct(u), vv = v.dotProduct(v);
  const AcGeVector2d toCentre((v.y * uu - u.y * vv) / d, (u.x * vv - v.x * uu) / d);
  mCentre = a + toCentre;
  mRadius = toCentre.length();
}
