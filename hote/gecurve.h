// Planes, lines and B-spline curves of the host's geometry library.
// They are not part of a drawing. From data that make no curve an empty one results: counts of 0, answers of false.
#pragma once
#include "hote/ge.h"

// A plane through a point, with a normal; its axes follow the arbitrary axis algorithm of the DXF reference.
class AcGePlane {
 public:
  static const AcGePlane kXYPlane;
  AcGePlane() = default;
  AcGePlane(const AcGePoint3d& origin, const AcGeVector3d& normal) : mOrigin(origin), mNormal(normal.normal()) {}
  AcGePoint3d pointOnPlane() const { return mOrigin; }
  AcGeVector3d normal() const { return mNormal; }
  void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& axis1, AcGeVector3d& axis2) const;

 private:
  AcGePoint3d mOrigin;
  AcGeVector3d mNormal{0, 0, 1};
};

// The infinite straight line through two points.
class AcGeLine2d {
 public:
  AcGeLine2d() = default;
  AcGeLine2d(const AcGePoint2d& point1, const AcGePoint2d& point2) : mPoint(point1), mDirection(point2 - point1) {}
  AcGePoint2d pointOnLine() const { return mPoint; }
  AcGeVector2d direction() const { return mDirection; }
  // False for parallel lines, or when a line's two points are equal.
  bool intersectWith(const AcGeLine2d& line, AcGePoint2d& intersection, const AcGeTol& tol = AcGeContext::gTol) const;

 private:
  AcGePoint2d mPoint;
  AcGeVector2d mDirection;
};

class AcGeKnotVector {
 public:
  AcGeKnotVector() = default;
  explicit AcGeKnotVector(const AcGeDoubleArray& knots) : mKnots(knots) {}
  int length() const { return mKnots.length(); }
  double operator[](int index) const { return mKnots[index]; }
  double& operator[](int index) { return mKnots[index]; }
  AcGeKnotVector& append(double knot) {
    mKnots.append(knot);
    return *this;
  }
  double startParam() const { return mKnots.isEmpty() ? 0.0 : mKnots.first(); }
  double endParam() const { return mKnots.isEmpty() ? 0.0 : mKnots.last(); }

 private:
  AcGeDoubleArray mKnots;
};

class AcGeCurve3d {
 public:
  virtual ~AcGeCurve3d() = default;
  virtual double startParam() const = 0;
  virtual double endParam() const = 0;
  virtual AcGePoint3d evalPoint(double param) const = 0;
  virtual double length(double fromParam, double toParam) const = 0;  // along the curve, 0 for an empty one
  // Points along the curve and their parameters, such that no chord is farther than approxEps from the curve. The
  // arrays are emptied first.
  virtual void getSamplePoints(double fromParam, double toParam, double approxEps, AcGePoint3dArray& points,
                               AcGeDoubleArray& params) const = 0;
  // That many points at even steps of the parameter.
  virtual void getSamplePoints(int numSample, AcGePoint3dArray& points) const = 0;
  // Finds the plane in which the curve lies, through its first point, with the normal upwards (for a straight curve as
  // near to that as possible). False, with plane unchanged, for a curve without a plane or without length.
  virtual bool isPlanar(AcGePlane& plane, const AcGeTol& tol = AcGeContext::gTol) const = 0;
};

class AcGeNurbCurve3d : public AcGeCurve3d {
 public:
  AcGeNurbCurve3d() = default;
  AcGeNurbCurve3d(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& controlPoints,
                  bool isPeriodic = false);
  AcGeNurbCurve3d(int degree, const AcGeKnotVector& knots, const AcGePoint3dArray& controlPoints,
                  const AcGeDoubleArray& weights, bool isPeriodic = false);
  int degree() const { return mDegree; }
  bool isRational() const { return !mWeights.isEmpty(); }
  int numControlPoints() const { return mPoints.length(); }
  int numKnots() const { return mKnots.length(); }
  AcGePoint3d controlPointAt(int index) const { return mPoints[index]; }
  double knotAt(int index) const { return mKnots[index]; }
  // Weights are empty for a curve that is not rational.
  void getDefinitionData(int& degree, bool& rational, bool& periodic, AcGeKnotVector& knots,
                         AcGePoint3dArray& controlPoints, AcGeDoubleArray& weights) const;
  // Appends a curve that begins where this one ends. When that isn't possible this curve is unchanged.
  AcGeNurbCurve3d& joinWith(const AcGeNurbCurve3d& curve);
  AcGeNurbCurve3d& hardTrimByParams(double fromParam, double toParam);
  AcGeNurbCurve3d& reverseParam();

  double startParam() const override;
  double endParam() const override;
  AcGePoint3d evalPoint(double param) const override;
  double length(double fromParam, double toParam) const override;
  void getSamplePoints(double fromParam, double toParam, double approxEps, AcGePoint3dArray& points,
                       AcGeDoubleArray& params) const override;
  void getSamplePoints(int numSample, AcGePoint3dArray& points) const override;
  bool isPlanar(AcGePlane& plane, const AcGeTol& tol = AcGeContext::gTol) const override;

 private:
  int mDegree = 0;
  AcGeKnotVector mKnots;
  AcGePoint3dArray mPoints;
  AcGeDoubleArray mWeights;
};
