// A curve of any kind as a row of pieces: straight, elliptic and B-spline. Every curve entity is turned into one, so
// that lengths, areas, nearest points and meetings are worked out in one place.
// World coordinates in drawing units; parameters are the entity's own (an angle, a vertex and a fraction, a knot ...).
#pragma once
#include <memory>
#include <optional>
#include <variant>

#include "atelier/geometry/bezier.h"

namespace atelier {

// Its own parameter runs from 0 to 1; on an endless side it goes on beyond.
struct Straight {
  AcGePoint3d from, to;
  bool endlessBefore = false, endlessAfter = false;
};

// centre + u cos t + v sin t for t from one angle to a greater one, in radians. u and v are any two conjugate half
// diameters: of a circle two radii at a right angle.
struct Elliptic {
  AcGePoint3d centre;
  AcGeVector3d u, v;
  double from = 0, to = 0;
};

struct Spline {
  std::shared_ptr<const Nurbs> data;
  std::shared_ptr<const std::vector<Bezier>> pieces;
};
// Nothing for data that make no curve.
std::optional<Spline> splineShape(const Nurbs& data);

using Shape = std::variant<Straight, Elliptic, Spline>;

struct Piece {
  Shape shape;
  double from, to;  // parameters of the curve, in proportion to the shape's own
};

struct Foot {
  double param = 0;
  AcGePoint3d point;
  double distance = 0;
};

struct Crossing {
  AcGePoint3d point;  // on the first curve
  double param, otherParam;
};

// The circular arc that a bulge stands for, in the plane of the two vectors; a straight piece for a bulge of 0.
Shape bulgeShape(const AcGePoint3d& from, const AcGePoint3d& to, double bulge, const AcGeVector3d& normal);

class Curve {
 public:
  // The pieces must follow each other with rising parameters. Nothing for no pieces or a coordinate that isn't finite.
  static std::shared_ptr<const Curve> of(std::vector<Piece> pieces, bool closed);

  double startParam() const { return pieces_.front().from; }
  double endParam() const { return pieces_.back().to; }
  bool isClosed() const { return closed_; }
  bool isEndless() const;
  const std::vector<Piece>& pieces() const { return pieces_; }

  // Nothing for a parameter outside the curve by more than a rounding error; an endless side has no outside.
  std::optional<AcGePoint3d> pointAt(double param) const;
  // By the parameter; at a corner of the piece that begins.
  std::optional<AcGeVector3d> derivativeAt(double param) const;
  std::optional<AcGeVector3d> secondDerivativeAt(double param) const;
  // Length along the curve from its start; nothing outside it. Endless curves measure from their base point.
  std::optional<double> distanceAt(double param) const;
  std::optional<double> paramAtDistance(double distance) const;
  double length() const { return lengths().back(); }
  // With `extend`, also on the continuation of the first and the last piece: a straight one goes on for ever, an arc
  // to the full circle.
  Foot closest(const AcGePoint3d& point, bool extend = false) const;
  // The parameter of a point that lies on the curve, within the tolerance.
  std::optional<double> paramAt(const AcGePoint3d& point, double tolerance) const;
  // The enclosed area, never negative; an open curve is closed by a chord. Nothing for a curve that doesn't lie in a
  // plane.
  std::optional<double> area() const;
  // The points where the two meet, each once, ordered along this curve. A stretch where they run along each other
  // counts as no meeting. A curve given itself: where it crosses itself, without its closing point, and where its
  // pieces join.
  std::vector<Crossing> crossings(const Curve& other, bool extendThis, bool extendOther) const;
  // Points along the curve, no chord farther than the bound from it.
  std::vector<AcGePoint3d> sample(double chord) const;
  // The whole as one rational B-spline; nothing for an endless curve or a row of pieces without length.
  std::optional<Nurbs> toNurbs() const;
  std::shared_ptr<const Curve> transformed(const AcGeMatrix3d& matrix) const;
  // The curve projected on z = 0: the curve itself when it lies there, else a copy that it keeps.
  const Curve& inPlan() const;

 private:
  Curve() = default;
  std::size_t pieceAt(double param) const;
  std::optional<std::pair<std::size_t, double>> locate(double param) const;  // piece and the shape's own parameter
  double outer(std::size_t piece, double own) const;
  const std::vector<double>& lengths() const;  // up to the end of each piece
  const BoxTree& tree() const;
  std::shared_ptr<const Curve> extended() const;
  std::vector<Crossing> selfCrossings() const;  // of a single spline

  std::vector<Piece> pieces_;
  bool closed_ = false;
  mutable std::vector<double> lengths_;
  mutable BoxTree tree_;
  mutable std::shared_ptr<const Curve> plan_;
};

}  // namespace atelier
