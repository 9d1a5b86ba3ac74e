// Points, vectors, scales and matrices of the host's geometry library. Angles are in radians.
// They are plain values; functions longer than a line are defined by the host.
#pragma once
#include <cmath>

#include "hote/acarray.h"

class AcGeTol {
 public:
  double equalPoint() const { return mPoint; }
  double equalVector() const { return mVector; }
  void setEqualPoint(double value) { mPoint = value; }
  void setEqualVector(double value) { mVector = value; }

 private:
  double mPoint = 1e-10;
  double mVector = 1e-10;
};

namespace AcGeContext {
extern AcGeTol gTol;  // the host has it: one for all applications
}

class AcGeVector2d {
 public:
  constexpr AcGeVector2d() = default;
  constexpr AcGeVector2d(double xx, double yy) : x(xx), y(yy) {}
  double length() const { return std::hypot(x, y); }
  double angle() const;  // from the x axis, 0 to 2 pi
  AcGeVector2d perpVector() const { return {-y, x}; }
  AcGeVector2d normal() const {
    const double l = length();
    return l > 0 ? AcGeVector2d(x / l, y / l) : *this;
  }
  double dotProduct(const AcGeVector2d& v) const { return x * v.x + y * v.y; }
  AcGeVector2d operator*(double s) const { return {x * s, y * s}; }
  AcGeVector2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
  AcGeVector2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
  AcGeVector2d operator-() const { return {-x, -y}; }
  double x = 0, y = 0;
};

class AcGePoint2d {
 public:
  constexpr AcGePoint2d() = default;
  constexpr AcGePoint2d(double xx, double yy) : x(xx), y(yy) {}
  AcGePoint2d operator+(const AcGeVector2d& v) const { return {x + v.x, y + v.y}; }
  AcGePoint2d operator-(const AcGeVector2d& v) const { return {x - v.x, y - v.y}; }
  AcGeVector2d operator-(const AcGePoint2d& p) const { return {x - p.x, y - p.y}; }
  double distanceTo(const AcGePoint2d& p) const { return std::hypot(x - p.x, y - p.y); }
  bool isEqualTo(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const {
    return distanceTo(p) <= tol.equalPoint();
  }
  bool operator==(const AcGePoint2d& p) const { return isEqualTo(p); }
  double x = 0, y = 0;
};

class AcGeMatrix3d;
class AcGePlane;

class AcGeVector3d {
 public:
  static const AcGeVector3d kIdentity, kXAxis, kYAxis, kZAxis;
  constexpr AcGeVector3d() = default;
  constexpr AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
  double length() const { return std::sqrt(x * x + y * y + z * z); }
  AcGeVector3d normal() const {
    const double l = length();
    return l > 0 ? AcGeVector3d(x / l, y / l, z / l) : *this;
  }
  AcGeVector3d& normalize() { return *this = normal(); }
  bool isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const { return length() <= tol.equalVector(); }
  double dotProduct(const AcGeVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
  AcGeVector3d crossProduct(const AcGeVector3d& v) const {
    return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
  }
  // Angle towards v, 0 to 2 pi, counter-clockwise seen against the reference vector.
  double angleTo(const AcGeVector3d& v, const AcGeVector3d& reference) const;
  AcGeVector3d& rotateBy(double angle, const AcGeVector3d& axis);
  AcGeVector3d& transformBy(const AcGeMatrix3d& matrix);
  AcGeVector3d operator*(double s) const { return {x * s, y * s, z * s}; }
  AcGeVector3d operator/(double s) const { return {x / s, y / s, z / s}; }
  AcGeVector3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
  AcGeVector3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
  AcGeVector3d operator-() const { return {-x, -y, -z}; }
  bool isEqualTo(const AcGeVector3d& v, const AcGeTol& tol = AcGeContext::gTol) const {
    return (*this - v).length() <= tol.equalVector();
  }
  bool operator==(const AcGeVector3d& v) const { return isEqualTo(v); }
  double x = 0, y = 0, z = 0;
};

class AcGePoint3d {
 public:
  static const AcGePoint3d kOrigin;
  constexpr AcGePoint3d() = default;
  constexpr AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
  AcGePoint3d operator+(const AcGeVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
  AcGePoint3d operator-(const AcGeVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
  AcGePoint3d& operator+=(const AcGeVector3d& v) { return *this = *this + v; }
  AcGeVector3d operator-(const AcGePoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
  AcGeVector3d asVector() const { return {x, y, z}; }
  AcGePoint2d convert2d(const AcGePlane& plane) const;  // in the axes of the plane, from its origin (gecurve.h)
  double distanceTo(const AcGePoint3d& p) const { return (*this - p).length(); }
  bool isEqualTo(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const {
    return distanceTo(p) <= tol.equalPoint();
  }
  bool operator==(const AcGePoint3d& p) const { return isEqualTo(p); }
  bool operator!=(const AcGePoint3d& p) const { return !isEqualTo(p); }
  AcGePoint3d& set(double xx, double yy, double zz) { return *this = AcGePoint3d(xx, yy, zz); }
  AcGePoint3d& transformBy(const AcGeMatrix3d& matrix);
  AcGePoint3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre = kOrigin);
  double x = 0, y = 0, z = 0;
};

inline AcGePoint3d asPnt3d(const double* point) { return {point[0], point[1], point[2]}; }
inline const double* asDblArray(const AcGePoint3d& point) { return &point.x; }
inline double* asDblArray(AcGePoint3d& point) { return &point.x; }

class AcGeScale3d {
 public:
  constexpr AcGeScale3d() = default;
  constexpr explicit AcGeScale3d(double s) : sx(s), sy(s), sz(s) {}
  constexpr AcGeScale3d(double x, double y, double z) : sx(x), sy(y), sz(z) {}
  double sx = 1, sy = 1, sz = 1;
};

// A 4 x 4 matrix that acts on column vectors; entry[row][column].
class AcGeMatrix3d {
 public:
  static const AcGeMatrix3d kIdentity;
  AcGeMatrix3d();  // the identity
  double operator()(int row, int column) const { return entry[row][column]; }
  double& operator()(int row, int column) { return entry[row][column]; }
  AcGeMatrix3d operator*(const AcGeMatrix3d& right) const;
  AcGeMatrix3d& preMultBy(const AcGeMatrix3d& left) { return *this = left * *this; }
  AcGeMatrix3d& postMultBy(const AcGeMatrix3d& right) { return *this = *this * right; }
  AcGePoint3d operator*(const AcGePoint3d& point) const;
  AcGeVector3d operator*(const AcGeVector3d& vector) const;
  AcGeMatrix3d& setToIdentity();
  bool isSingular(const AcGeTol& tol = AcGeContext::gTol) const;
  AcGeMatrix3d inverse() const;  // the identity for a singular matrix
  AcGeMatrix3d& invert() { return *this = inverse(); }
  double det() const;  // of the 3 x 3 part
  AcGeMatrix3d& setToTranslation(const AcGeVector3d& vector);
  AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre = AcGePoint3d::kOrigin);
  AcGeMatrix3d& setToScaling(double scale, const AcGePoint3d& centre = AcGePoint3d::kOrigin);
  // From an entity's own coordinates (arbitrary axis algorithm of the DXF reference) to world coordinates.
  AcGeMatrix3d& setToPlaneToWorld(const AcGeVector3d& normal);
  AcGeMatrix3d& setToWorldToPlane(const AcGeVector3d& normal);
  static AcGeMatrix3d translation(const AcGeVector3d& vector) { return AcGeMatrix3d().setToTranslation(vector); }
  static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                               const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
    return AcGeMatrix3d().setToRotation(angle, axis, centre);
  }
  static AcGeMatrix3d scaling(double scale, const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
    return AcGeMatrix3d().setToScaling(scale, centre);
  }
  double entry[4][4];
};

inline AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& matrix) { return *this = matrix * *this; }
inline AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& matrix) { return *this = matrix * *this; }

using AcGePoint2dArray = AcArray<AcGePoint2d>;
using AcGePoint3dArray = AcArray<AcGePoint3d>;
using AcGeVector3dArray = AcArray<AcGeVector3d>;
using AcGeDoubleArray = AcArray<double>;

// A circular arc through three points, or a circle from a centre.
class AcGeCircArc2d {
 public:
  AcGeCircArc2d() = default;
  // Counter-clockwise or clockwise through the three points in order; points on one line give a radius of 0.
  AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end);
  AcGePoint2d center() const { return mCentre; }
  double radius() const { return mRadius; }

 private:
  AcGePoint2d mCentre;
  double mRadius = 0;
};
